// SPDX-License-Identifier: MIT
#include "content/References.h"

#include "support/TempFolder.h"

#include <gtest/gtest.h>

namespace content {
namespace {

using Lines = std::vector<std::string>;

std::string lineOf(const Reference &reference)
{
    std::string line = std::to_string(reference.line) + ' ' + KindName(reference.kind) + ' ' +
                       reference.wants + " -> " + reference.name.folder + '|' + reference.name.file;
    for (const Reference::Name &other : reference.otherReadings)
        line += " or " + other.file;
    for (const Reference::Name &meant : reference.meant)
        line += " meant " + meant.folder + '|' + meant.file;
    return line + (reference.notNeeded ? " not needed" : "");
}

Lines linesOf(const std::vector<Reference> &references)
{
    Lines lines;
    for (const Reference &reference : references)
        lines.push_back(lineOf(reference));
    return lines;
}

std::shared_ptr<const stavfile::Source> parsed(std::string text)
{
    return ParseFile(std::move(text)).source;
}

TEST(ReferencesTest, ConsistsNameUnitsInAndOutsideTheirTrain)
{
    EXPECT_EQ(linesOf(ReferencesOfConsist(*parsed("\nTrain ( TrainCfg ( \"\"\n"
                                                  "Engine ( UiD ( 0 ) ENGINEDATA ( a \"B C\" ) )\n"
                                                  "Wagon ( EngineData ( loco D ) ) )\n"
                                                  "ORTSEot ( EOTData ( e F ) ) )\n"
                                                  "Wagon ( WagonData ( a b c ) WagonData ( ) )"))),
              (Lines{"3 consist-vehicle a B C -> B C|a.eng",
                     "4 consist-vehicle loco D -> D|loco.eng", "5 consist-eot e F -> F|e.eot",
                     "6 consist-vehicle a b -> b|a.wag meant b c|a.wag meant c|a b.wag"}));
}

TEST(ReferencesTest, SoundsAndCabViewsNameFilesAtAnyDepth)
{
    EXPECT_EQ(linesOf(ReferencesOfSound(
                  *parsed("\nTr_SMS ( G ( S ( File ( \"a.wav\" -1 ) file ( b ) File ( \"\" -1 ) )\n"
                          "File ( ..\\c\\n.wav ) ) )"))),
              (Lines{"2 sound-file a.wav -> |a.wav", "2 sound-file b -> |b or b.wav",
                     "3 sound-file ..c\n.wav -> |..c\n.wav or ..\\c\\n.wav"}));
    EXPECT_EQ(linesOf(ReferencesOfCabView(*parsed(
                  "\nTr_CabViewFile ( CabViewFile ( f.ace ) CabViewWindowFile ( \"\" )\n"
                  "CabViewControls ( 9 Digital ( Graphic ( d.ace ) ) Firebox ( Graphic ( g.ace )\n"
                  "FuelCoal ( h.ace ) ) ) )"))),
              (Lines{"2 cab-image f.ace -> |f.ace", "3 cab-image d.ace -> |d.ace not needed",
                     "3 cab-image g.ace -> |g.ace", "4 cab-image h.ace -> |h.ace"}));
}

TEST(ReferencesTest, ActivitiesNameServicesTrafficAndLooseStock)
{
    EXPECT_EQ(linesOf(ReferencesOfActivity(*parsed(
                  "\nTr_Activity ( Tr_Activity_File ( Player_Service_Definition ( p UiD ( 0 ) )\n"
                  "Service_Definition ( ignored )\n"
                  "Traffic_Definition ( t Service_Definition ( s 3600 ) )\n"
                  "ActivityObjects ( Wagon ( WagonData ( w F ) ) ) ) )"))),
              (Lines{"2 activity-service p -> |p.srv", "4 activity-traffic t -> |t.trf",
                     "4 activity-service s -> |s.srv meant |s 3600.srv",
                     "5 activity-vehicle w F -> F|w.wag"}));
    EXPECT_EQ(linesOf(ReferencesOfService(
                  *parsed("\nService_Definition ( Train_Config ( my train.CON ) )"))),
              (Lines{"2 service-consist my -> |my.con meant |my train.CON"}));
}

TEST(ReferencesTest, ShapesNeedEachImageInEachSeasonOnce)
{
    EXPECT_EQ(AlternativeTextures(*parsed("\nshape ( x.s ESD_Alternative_Texture ( 257 ) )")),
              257u);
    for (const char *const value : {"-1", "512", "x", "1e99", ""})
        EXPECT_EQ(AlternativeTextures(*parsed(std::string("\nshape ( ESD_Alternative_Texture ( ") +
                                              value + " ) )")),
                  0u)
            << value;
    EXPECT_EQ(
        linesOf(ReferencesOfShape({"a.ace", "A.ACE", "", "../b.ace"}, 0x103)),
        (Lines{"0 texture a.ace -> |a.ace", "0 season-texture Snow/a.ace -> Snow|a.ace",
               "0 season-texture Night/a.ace -> Night|a.ace", "0 texture ../b.ace -> |../b.ace",
               "0 season-texture Snow/../b.ace -> Snow|../b.ace",
               "0 season-texture Night/../b.ace -> Night|../b.ace"}));
}

class VehicleReferencesTest : public testing::Test
{
protected:
    Lines of(const std::string &text, Profiles profiles = Profiles::Both())
    {
        const std::string path = m_disk.Write("A/x.eng", text);
        const Vehicle vehicle(m_store, {m_disk.At("A"), path, {}}, Profile::OpenRails);
        Lines lines;
        for (const VehicleReference &each : ReferencesOf(vehicle, profiles))
            lines.push_back(lineOf(each.reference) + ' ' + ProfileName(each.reference.profiles));
        return lines;
    }

    support::TempFolder m_disk;
    host::GameFiles m_files;
    host::Snapshot m_folders{m_files};
    FileStore m_store{m_folders};
};

TEST_F(VehicleReferencesTest, ReplacedEntriesAreNotReferences)
{
    EXPECT_EQ(of("\nWagon ( x WagonShape ( a.s ) WagonShape ( b.s ) Sound ( ) Shape ( no.s )\n"
                 "FreightAnim ( f.s 1 1 ) FreightAnim ( g.s 1 1 ) )\n"
                 "Sound ( stray.sms ) Other ( CabView ( no.cvf ) )\n"
                 "Engine ( x CABVIEW ( c.cvf ) WagonShape ( no.s ) )"),
              (Lines{"2 shape b.s -> |b.s both", "3 freight-animation f.s -> |f.s both",
                     "3 freight-animation g.s -> |g.s both", "5 cab c.cvf -> |c.cvf both"}));
}

TEST_F(VehicleReferencesTest, OnlyOpenRailsReadsSeveralSounds)
{
    EXPECT_EQ(of("\nWagon ( x Sound ( a.sms \"b c.sms\" 3 ) )"),
              (Lines{"2 sound a.sms -> |a.sms both", "2 sound b c.sms -> |b c.sms openrails"}));
    EXPECT_EQ(of("\nWagon ( x Sound ( my own.sms ) )"),
              (Lines{"2 sound my -> |my meant |my own.sms both"}));
}

TEST_F(VehicleReferencesTest, ScriptsMayLackTheirExtensionAndReservedWordsNameNone)
{
    EXPECT_EQ(of("\nWagon ( x ) Engine ( x ORTSTrainControlSystem ( \"..\\\\S\\\\t\" )\n"
                 "ORTSPowerSupply ( DEFAULT ) ORTSTrainControlSystemParameters ( t.INI )\n"
                 "ORTSPowerSupplyParameters ( fast ) )"),
              (Lines{"2 script ..\\S\\t -> |..\\S\\t.cs or ..\\S\\t both",
                     "3 script DEFAULT -> |DEFAULT.cs or DEFAULT not needed both",
                     "3 script t.INI -> |t.INI both", "4 script fast -> |fast not needed both"}));
}

TEST_F(VehicleReferencesTest, AlternativeCabsDoNotReplaceTheCab)
{
    m_disk.Write("A/base.inc", "\nWagon ( x ORTS3DCab ( ORTS3DCabFile ( Cab.s ) ) )");
    EXPECT_EQ(of("\ninclude ( base.inc ) Wagon ( ORTSAlternate3DCabViewPoints ( 2\n"
                 "ORTSAlternate3DCabViewPoint ( ORTS3DCabFile ( a.s ) Sound ( s.sms ) )\n"
                 "ORTSAlternate3DCabViewPoint ( ORTS3DCabFile ( b.s ) ) ) )"),
              (Lines{"2 cab-3d Cab.s -> |Cab.s both", "3 cab-3d a.s -> |a.s both",
                     "3 sound s.sms -> |s.sms openrails", "4 cab-3d b.s -> |b.s both"}));
}

TEST_F(VehicleReferencesTest, AnIncludeReplacesListsAsAWhole)
{
    m_disk.Write("A/base.inc", "\nWagon ( x FreightAnim ( old.s ) Lights ( 1 Light ( ORTSGraphic ( "
                               "old.png ) ) ) Coupling ( RearCouplerAnim ( old.s ) ) )");
    EXPECT_EQ(
        of("\ninclude ( base.inc ) Wagon ( FreightAnim ( new.s )\n"
           "Lights ( 1 Light ( ORTSGraphic ( new.png ) ) ) )"),
        (Lines{"2 coupler-shape old.s -> |old.s both", "2 freight-animation new.s -> |new.s both",
               "3 light-image new.png -> |new.png both"}));
}

} // namespace
} // namespace content
