// SPDX-License-Identifier: MIT
#include "CompleteInstallation.h"

#include <algorithm>
#include <map>

namespace {

std::string shape(const std::string &image)
{
    return "SIMISA@@@@@@@@@@JINX0s1t______\r\n\r\nshape ( images ( 1 image ( " + image + " ) ) )";
}

const std::map<std::string, std::string> &files()
{
    static const std::map<std::string, std::string> kFiles = {
        {"Trains/Trainset/A/w.wag",
         "\nWagon ( w WagonShape ( w.s ) FreightAnim ( load.s 1 2 ) Thumbnail ( w.bmp )\n"
         "Sound ( w.sms ) Coupling ( Type ( Automatic ) FrontCouplerAnim ( link.s 0 0 0 ) )\n"
         "ORTSFreightAnims ( FreightAnimStatic ( Shape ( coal.s ) ) FreightAnimStatic ( ) )\n"
         "Lights ( 1 Light ( ORTSGraphic ( glow.png ) ) )\n"
         "Inside ( Sound ( inside.sms ) PassengerCabinFile ( seats.s ) ) )"},
        {"Trains/Trainset/A/e.eng",
         "\nWagon ( e WagonShape ( w.s ) Sound ( w.sms )\n"
         "ORTS3DCab ( ORTS3DCabFile ( Cab.s ) ) )\n"
         "Engine ( e Wagon ( e ) CabView ( e.cvf ) Sound ( common.sms )\n"
         "ORTSTrainControlSystem ( Guard ) ORTSTrainControlSystemParameters ( guard.ini )\n"
         "ORTSTrainControlSystemSound ( common.sms ) ORTSCircuitBreaker ( Automatic ) )"},
        {"Trains/Trainset/A/w.s", shape("w.ace")},
        {"Trains/Trainset/A/w.sd", "\nshape ( w.s ESD_Alternative_Texture ( 256 ) )"},
        {"Trains/Trainset/A/w.ace", ""},
        {"Trains/Trainset/A/NIGHT/W.ACE", ""},
        {"Trains/Trainset/A/load.s", shape("w.ace")},
        {"Trains/Trainset/A/load.sd", "\nshape ( load.s )"},
        {"Trains/Trainset/A/coal.s", shape("w.ace")},
        {"Trains/Trainset/A/coal.sd", "\nshape ( coal.s )"},
        {"Trains/Trainset/A/link.s", shape("w.ace")},
        {"Trains/Trainset/A/link.sd", "\nshape ( link.s )"},
        {"Trains/Trainset/A/seats.s", shape("w.ace")},
        {"Trains/Trainset/A/seats.sd", "\nshape ( seats.s )"},
        {"Trains/Trainset/A/w.bmp", ""},
        {"Trains/Trainset/A/glow.png", ""},
        {"Trains/Trainset/A/SOUND/w.sms", "\nTr_SMS ( Group ( File ( \"w.wav\" -1 ) ) )"},
        {"Trains/Trainset/A/SOUND/w.wav", ""},
        {"Trains/Trainset/A/SOUND/inside.sms", "\nTr_SMS ( Group ( File ( common.wav -1 ) ) )"},
        {"Sound/common.sms", "\nTr_SMS ( Group ( File ( common.wav ) File ( \"\" ) ) )"},
        {"Sound/common.wav", ""},
        {"Trains/Trainset/A/CABVIEW/e.cvf",
         "\nTr_CabViewFile ( CabViewFile ( front.ace ) CabViewWindowFile ( \"\" )\n"
         "CabViewControls ( 2 Dial ( Graphic ( dial.ace ) ) Digital ( Type ( SPEED ) ) ) )"},
        {"Trains/Trainset/A/CABVIEW/front.ace", ""},
        {"Trains/Trainset/A/CABVIEW/dial.ace", ""},
        {"Trains/Trainset/A/CABVIEW3D/Cab.s", shape("cab.ace")},
        {"Trains/Trainset/A/CABVIEW3D/Cab.sd", "\nshape ( Cab.s )"},
        {"Trains/Trainset/A/CABVIEW3D/cab.ace", ""},
        {"Trains/Trainset/A/Script/Guard.cs", ""},
        {"Trains/Trainset/A/Script/guard.ini", ""},
        {"Trains/ORTS_EOT/Eots/tail.eot", "\nWagon ( tail WagonShape ( tail.s ) )"},
        {"Trains/ORTS_EOT/Eots/tail.s", shape("tail.ace")},
        {"Trains/ORTS_EOT/Eots/tail.sd", "\nshape ( tail.s )"},
        {"Trains/ORTS_EOT/Eots/tail.ace", ""},
        {"Trains/Consists/c.con",
         "\nTrain ( TrainCfg ( c Name ( \"See c\" ) Engine ( EngineData ( E A ) )\n"
         "Wagon ( WagonData ( w a ) ) ORTSEot ( EOTData ( tail Eots ) UiD ( 9 ) ) ) )"},
        {"Routes/R/Services/s.srv",
         "\nService_Definition ( Name ( \"By s\" ) Train_Config ( c ) )"},
        {"Routes/R/Traffic/t.trf", "\nTraffic_Definition ( t )"},
        {"Routes/R/Activities/x.act",
         "\nTr_Activity ( Tr_Activity_File (\nPlayer_Service_Definition ( s )\n"
         "Traffic_Definition ( t Service_Definition ( s 0 ) )\n"
         "ActivityObjects ( ActivityObject ( Train_Config ( TrainCfg ( x\n"
         "Wagon ( WagonData ( w A ) ) ) ) ) ) ) )"},
        {"Routes/R/Activities/OpenRails/day.timetable-or",
         ";Train 1;#comment\n#consist;<c>$reverse + c;nobody\n#path;p;p\n"},
        {"Routes/R/World/w-1.w",
         "\nTr_Worldfile ( Static ( UiD ( 1 ) FileName ( House.s ) )\n"
         "TrackObj ( FileName ( track.s ) ) Hazard ( FileName ( deer.haz ) ) )"},
        {"Routes/R/World/OpenRails/w-1.w", "\nTr_Worldfile ( Static ( FileName ( extra.s ) ) )"},
        {"Routes/R/Shapes/house.s", shape("house.ace")},
        {"Routes/R/Shapes/house.sd", "\nshape ( ESD_Alternative_Texture ( 1 ) )"},
        {"Routes/R/Shapes/extra.s", shape("house.ace")},
        {"Routes/R/Textures/house.ace", ""},
        {"Routes/R/Textures/SNOW/house.ace", ""},
        {"Global/Shapes/track.s", shape("track.ace")},
        {"Global/Textures/track.ace", ""},
    };
    return kFiles;
}

} // namespace

CompleteInstallation::CompleteInstallation(const FileChanges &changes)
{
    std::map<std::string, std::string> all = files();
    for (const auto &[name, content] : changes)
        if (content)
            all.insert_or_assign(name, *content);
        else
            all.erase(name);
    for (const auto &[name, content] : all)
        m_folder.Write(name, content);
}

content::HealthReport CompleteInstallation::Check(content::HealthOptions options)
{
    return content::HealthRun(m_files, m_folder.Path(), std::move(options)).Run();
}

std::string CompleteInstallation::Line(const content::Finding &finding) const
{
    return std::string(content::ProfileName(finding.profiles)) + ' ' +
           content::SeverityName(finding.severity) + ' ' + finding.rule + ' ' +
           content::AnswerName(finding.answer) + ' ' + m_folder.Relative(finding.file) + ':' +
           finding.wants;
}

std::vector<std::string> CompleteInstallation::Problems(content::HealthOptions options)
{
    std::vector<std::string> lines;
    for (const content::Finding &finding : Check(std::move(options)).findings)
        if (finding.IsProblem())
            lines.push_back(Line(finding));
    std::sort(lines.begin(), lines.end());
    return lines;
}
