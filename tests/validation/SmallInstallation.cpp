// SPDX-License-Identifier: MIT
#include "SmallInstallation.h"

#include <algorithm>
#include <map>

namespace {

const std::map<std::string, std::string> kFiles = {
    {"Trains/Trainset/A/a.wag", "Wagon ( a WagonShape ( a.s ) Sound ( a.sms ) )"},
    {"Trains/Trainset/A/a.s", "shape ( images ( 2 image ( a.ace ) image ( b.ace ) ) )"},
    {"Trains/Trainset/A/a.sd", "shape ( a.s ESD_Alternative_Texture ( 256 ) )"},
    {"Trains/Trainset/A/a.ace", ""},
    {"Trains/Trainset/A/b.ace", ""},
    {"Trains/Trainset/A/Sound/a.sms", R"(Tr_SMS ( Group ( Streams ( 1 File ( "a.wav" ) ) ) ))"},
    {"Trains/Trainset/A/Sound/a.wav", ""},
    {"Trains/Trainset/A/e.eng", "Wagon ( e WagonShape ( a.s ) Sound ( a.sms ) )"
                                "Engine ( e Wagon ( e ) CabView ( e.cvf ) Sound ( e.sms ) )"},
    {"Trains/Trainset/A/Sound/e.sms", "Tr_SMS ( Group ( File ( a.wav ) ) )"},
    {"Trains/Trainset/A/Cabview/e.cvf",
     "Tr_CabViewFile ( CabViewFile ( front.ace ) CabViewWindow ( 0 0 640 480 ) "
     "CabViewFile ( left.ace ) CabViewControls ( 1 Dial ( Graphic ( dial.ace ) ) ) )"},
    {"Trains/Trainset/A/Cabview/front.ace", ""},
    {"Trains/Trainset/A/Cabview/left.ace", ""},
    {"Trains/Trainset/A/Cabview/dial.ace", ""},
    {"Trains/Consists/c.con", "Train ( TrainCfg ( c Engine ( UiD ( 0 ) EngineData ( e A ) ) "
                              "Wagon ( WagonData ( a A ) UiD ( 1 ) ) ) )"},
    {"Routes/R/Shapes/h.s", "shape ( images ( 1 image ( h.ace ) ) )"},
    {"Routes/R/Shapes/h.sd", "shape ( h.s ESD_Alternative_Texture ( 0 ) )"},
    {"Routes/R/Textures/h.ace", ""},
    {"Routes/R/Services/s.srv", "Service_Definition ( Name ( x ) Train_Config ( c ) )"},
    {"Routes/R/Activities/x.act",
     "Tr_Activity ( Tr_Activity_File ( ActivityObjects ( ActivityObject ( "
     "ObjectType ( WagonsList ) Train_Config ( TrainCfg ( x Wagon ( WagonData ( a A ) ) ) ) "
     ") ) ) )"},
};

} // namespace

SmallInstallation::SmallInstallation(const Changes &changes)
{
    std::map<std::string, std::string> files = kFiles;
    for (const auto &[name, content] : changes)
        if (content)
            files.insert_or_assign(name, *content);
        else
            files.erase(name);
    for (const auto &[name, content] : files)
        m_folder.Write(name, content);
    m_location.SetLocation(m_folder.Path());
}

std::string SmallInstallation::Neutral(std::string text) const
{
    std::replace(text.begin(), text.end(), '\\', '/');
    std::string folder = m_folder.Path();
    std::replace(folder.begin(), folder.end(), '\\', '/');
    for (auto at = text.find(folder); at != text.npos; at = text.find(folder, at))
        text.replace(at, folder.size(), "<M>");
    return text;
}
