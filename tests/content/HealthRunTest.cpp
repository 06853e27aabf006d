// SPDX-License-Identifier: MIT
#include "CompleteInstallation.h"

#include "content/Baseline.h"
#include "content/ReferenceRules.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <map>
#include <random>
#include <set>

namespace content {
namespace {

using Lines = std::vector<std::string>;

HealthOptions in(Profiles profiles)
{
    HealthOptions options;
    options.profiles = profiles;
    return options;
}

std::string shapeOf(const std::string &image)
{
    return "SIMISA@@@@@@@@@@JINX0s1t______\n\nshape ( images ( 1 image ( " + image + " ) ) )";
}

TEST(HealthRunTest, CompleteInstallationHasNoFindings)
{
    for (const Profiles profiles :
         {Profiles::Both(), Profiles(Profile::Msts), Profiles(Profile::OpenRails)}) {
        CompleteInstallation installation;
        HealthOptions options = in(profiles);
        options.routes = true;
        EXPECT_EQ(installation.Problems(options), Lines{});
    }
    CompleteInstallation empty;
    support::TempFolder nothing;
    EXPECT_TRUE(HealthRun(empty.Files(), nothing.Path(), {}).Run().findings.empty());
}

struct Planned
{
    const char *name;
    FileChanges changes;
    Lines expected;
};

const std::string kA = "Trains/Trainset/A/";
constexpr auto kGone = std::nullopt;

/// The expected lines were derived by hand from the rules of the simulators.
const std::vector<Planned> &planned()
{
    static const std::vector<Planned> kCases = {
        {"1: a vehicle is missing",
         {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( gone A ) ) ) )"}},
         {"both error missing-vehicle nowhere Trains/Consists/d.con:gone A"}},
        {"1: a vehicle is in another folder",
         {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w B ) ) ) )"},
          {"Trains/Trainset/B/note.txt", ""}},
         {"both error wrong-folder misplaced Trains/Consists/d.con:w B"}},
        {"1: an engine is named as a wagon",
         {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( e A ) ) ) )"}},
         {"both error wrong-extension misplaced Trains/Consists/d.con:e A"}},
        {"1: a vehicle is there as an override only",
         {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( o A ) ) ) )"},
          {kA + "OpenRails/o.wag", "\nWagon ( o WagonShape ( w.s ) )"}},
         {"msts error wrong-folder misplaced Trains/Consists/d.con:o A"}},
        {"1: names with blanks lack their quotes",
         {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w B C ) ) ) )"},
          {"Trains/Trainset/B C/w.wag", "\nWagon ( w )"},
          {"Trains/Trainset/B/note.txt", ""}},
         {"both error unquoted-name misplaced Trains/Consists/d.con:w B"}},
        {"figures cannot be read",
         {{kA + "v.wag", "\nWagon ( v WagonShape ( w.s ) Mass ( abc ) Size ( 1m 2m -3m )\n"
                         "NumWheels ( 8x ) MaxBrakeForce ( \"2.5 * 28.4t\" ) )\n"
                         "Engine ( v MaxForce ( 1e400 ) MaxPower ( - ) MaxVelocity ( 0 ) )"}},
         {"both note unreadable-figure here Trains/Trainset/A/v.wag:NumWheels ( 8x )",
          "both warning unreadable-figure here Trains/Trainset/A/v.wag:Mass ( abc )",
          "both warning unreadable-figure here Trains/Trainset/A/v.wag:MaxForce ( 1e400 )",
          "both warning unreadable-figure here Trains/Trainset/A/v.wag:Size ( -3m )"}},
        {"figures of loads concern Open Rails only",
         {{kA + "v.wag", "\nWagon ( v WagonShape ( w.s ) ORTSFreightAnims (\n"
                         "WagonEmptyWeight ( 2x ) ) )"}},
         {"openrails warning unreadable-figure here Trains/Trainset/A/v.wag:"
          "WagonEmptyWeight ( 2x )"}},
        {"2: an end-of-train device is missing",
         {{"Trains/ORTS_EOT/Eots/tail.eot", kGone}},
         {"openrails warning missing-eot nowhere Trains/Consists/c.con:tail Eots"}},
        {"3: an included file is missing",
         {{kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )\ninclude ( ../gone.inc )"}},
         {"openrails error broken-include nowhere " + kA + "OpenRails/w.wag:../gone.inc"}},
        {"3: the first line of an included file is lost",
         {{kA + "a.inc", "Wagon ( Mass ( 1t ) )"},
          {kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )\ninclude ( ../a.inc )"}},
         {"openrails note include-first-line here " + kA + "a.inc:a.inc"}},
        {"3: the first line of an override is lost",
         {{kA + "OpenRails/w.wag", "include ( ../w.wag )\nWagon ( Mass ( 1t ) )"}},
         {"openrails note include-first-line here " + kA + "OpenRails/w.wag:w.wag"}},
        {"3: an override replaces the lights of its base",
         {{kA + "glow.png", kGone},
          {kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )\nWagon ( Lights ( 1 Light ( ) ) )"}},
         {}},
        {"5: a shape is missing",
         {{kA + "x.wag", "\nWagon ( x WagonShape ( x.s ) )"}},
         {"both error missing-shape nowhere " + kA + "x.wag:x.s"}},
        {"5: a shape of another folder",
         {{kA + "x.wag", "\nWagon ( x WagonShape ( \"..\\\\B\\\\b.s\" ) )"},
          {"Trains/Trainset/B/B.S", shapeOf("w.ace")},
          {"Trains/Trainset/B/b.sd", ""}},
         {}}, // its texture is beside the vehicle
        {"5: an override names its own shape from the stock folder",
         {{kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )\nWagon ( WagonShape ( new.s ) )"},
          {kA + "new.s", shapeOf("w.ace")},
          {kA + "new.sd", ""}},
         {}},
        {"5: a shape of an override is beside the override",
         {{kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )\nWagon ( WagonShape ( new.s ) )"},
          {kA + "OpenRails/new.s", shapeOf("w.ace")}},
         {"openrails error wrong-folder misplaced " + kA + "OpenRails/w.wag:new.s"}},
        {"6: a shape has no descriptor",
         {{kA + "w.sd", kGone}},
         {"msts note missing-descriptor nowhere " + kA + "w.s:w.sd"}},
        {"7: loads are missing",
         {{kA + "load.s", kGone}, {kA + "coal.s", kGone}},
         {"both warning missing-freight-animation nowhere " + kA + "w.wag:load.s",
          "openrails warning missing-freight-animation nowhere " + kA + "w.wag:coal.s"}},
        {"8: a coupler is missing",
         {{kA + "link.s", kGone}},
         {"openrails warning missing-coupler-shape nowhere " + kA + "w.wag:link.s"}},
        {"9: a sound is missing",
         {{kA + "x.wag", "\nWagon ( x WagonShape ( w.s ) Sound ( x.sms ) )"}},
         {"both warning missing-sound nowhere " + kA + "x.wag:x.sms"}},
        {"9: a sound beside the vehicle instead of in its SOUND folder",
         {{kA + "x.wag", "\nWagon ( x Sound ( \"..\\\\x.sms\" \"x.sms\" ) )"},
          {kA + "x.sms", "\nTr_SMS ( )"}},
         {"openrails warning wrong-folder misplaced " + kA + "x.wag:x.sms"}},
        {"9: MSTS does not know the sound of a train control system",
         {{kA + "x.eng", "\nWagon ( x ) Engine ( x ORTSTrainControlSystemSound ( x.sms ) )"}},
         {"openrails warning missing-sound nowhere " + kA + "x.eng:x.sms"}},
        {"10: a wave file is missing",
         {{kA + "SOUND/w.wav", kGone}},
         {"both warning missing-sound-file nowhere " + kA + "SOUND/w.sms:w.wav"}},
        {"11: a cab is missing, and the root SOUND folder is no place for it",
         {{kA + "x.eng", "\nWagon ( x ) Engine ( x CabView ( x.cvf ) )"}},
         {"msts error missing-cab nowhere " + kA + "x.eng:x.cvf",
          "openrails warning missing-cab nowhere " + kA + "x.eng:x.cvf"}},
        {"12: a picture of a cab is missing; displays need none",
         {{kA + "CABVIEW/e.cvf", "\nTr_CabViewFile ( CabViewFile ( gone.ace ) Controls (\n"
                                 "Digital ( Graphic ( gone2.ace ) ) ) )"}},
         {"msts warning missing-cab-image nowhere " + kA + "CABVIEW/e.cvf:gone.ace",
          "openrails error missing-cab-image nowhere " + kA + "CABVIEW/e.cvf:gone.ace"}},
        {"13: a 3D cab is missing",
         {{kA + "CABVIEW3D/Cab.s", kGone}},
         {"openrails warning missing-3d-cab nowhere " + kA + "e.eng:Cab.s"}},
        {"13: a 3D cab without any cab view",
         {{kA + "x.eng", "\nWagon ( x ORTS3DCab ( ORTS3DCabFile ( Cab.s ) ) ) Engine ( x )"}},
         {"openrails warning missing-cab nowhere " + kA + "x.eng:Cab.cvf"}},
        {"14: a view from inside is missing",
         {{kA + "seats.s", kGone}},
         {"both warning missing-passenger-view nowhere " + kA + "w.wag:seats.s"}},
        {"15: a thumbnail is missing",
         {{kA + "w.bmp", kGone}},
         {"msts note missing-thumbnail nowhere " + kA + "w.wag:w.bmp"}},
        {"16: a texture is missing",
         {{kA + "w.s", shapeOf("gone.ace")}, {kA + "w.sd", ""}},
         {"msts warning missing-texture nowhere " + kA + "w.s:gone.ace",
          "openrails error missing-texture nowhere " + kA + "w.s:gone.ace"}},
        {"16: a .dds beside a missing .ace",
         {{kA + "w.s", shapeOf("d.ace")}, {kA + "d.dds", ""}, {kA + "w.sd", ""}},
         {"msts warning wrong-extension misplaced " + kA + "w.s:d.ace"}},
        {"17: a season falls back to the plain texture",
         {{kA + "NIGHT/W.ACE", kGone}, {kA + "NIGHT/x.ace", ""}},
         {"msts note missing-season-texture nowhere " + kA + "w.s:Night/w.ace"}},
        {"19: a script is missing",
         {{kA + "Script/Guard.cs", kGone}},
         {"openrails warning missing-script nowhere " + kA + "e.eng:Guard"}},
        {"20: a glow is missing",
         {{kA + "glow.png", kGone}},
         {"openrails note missing-light-image nowhere " + kA + "w.wag:glow.png"}},
        {"21: services are missing",
         {{"Routes/R/Services/s.srv", kGone}, {"Routes/R/Services/q.txt", ""}},
         {"both error missing-service nowhere Routes/R/Activities/x.act:s"}},
        {"21: a service is named by its Name",
         {{"Routes/R/Activities/x.act",
           "\nTr_Activity ( Tr_Activity_File ( Player_Service_Definition ( \"BY S\" ) ) )"}},
         {"openrails error missing-service nowhere Routes/R/Activities/x.act:BY S"}},
        {"22: a consist is missing",
         {{"Routes/R/Services/s.srv", "\nService_Definition ( Train_Config ( gone ) )"}},
         {"both error missing-consist nowhere Routes/R/Services/s.srv:gone"}},
        {"22: a consist is named by its Name",
         {{"Routes/R/Services/s.srv", "\nService_Definition ( Train_Config ( \"See C\" ) )"}},
         {"openrails error missing-consist nowhere Routes/R/Services/s.srv:See C"}},
        {"23: loose stock is missing",
         {{"Routes/R/Activities/x.act",
           "\nTr_Activity ( Objects ( Wagon ( WagonData ( gone A ) ) ) )"}},
         {"both error missing-vehicle nowhere Routes/R/Activities/x.act:gone A"}},
        {"24: traffic is missing",
         {{"Routes/R/Traffic/t.trf", kGone}, {"Routes/R/Traffic/q.txt", ""}},
         {"msts error missing-traffic nowhere Routes/R/Activities/x.act:t",
          "openrails warning missing-traffic nowhere Routes/R/Activities/x.act:t"}},
        {"25: a timetable names a missing consist",
         {{"Routes/R/Activities/OpenRails/day.timetable_or", ",A\n#consist,gone+c\n"}},
         {"openrails error missing-consist nowhere "
          "Routes/R/Activities/OpenRails/day.timetable_or:gone"}},
        {"damaged files keep their answers",
         {{kA + "w.s", "SIMISA@F\x10"},
          {kA + "SOUND/w.sms", "Nothing"},
          {kA + "CABVIEW/e.cvf", std::string(100, '\0')},
          {kA + "x.wag", ""},
          {"Trains/Consists/c.con", "\nTrainSet ( )"},
          {"Routes/R/Activities/x.act", "("}},
         {"both error damaged-activity here Routes/R/Activities/x.act:x.act",
          "both error damaged-cab here " + kA + "CABVIEW/e.cvf:e.cvf",
          "both error damaged-consist here Trains/Consists/c.con:c.con",
          "both error damaged-shape here " + kA + "w.s:w.s",
          "both error damaged-vehicle here " + kA + "x.wag:x.wag",
          "both warning damaged-sound here " + kA + "SOUND/w.sms:w.sms"}},
        {"a sound that names itself",
         {{kA + "SOUND/w.sms", "\nTr_SMS ( File ( w.sms ) )"}},
         {"both warning self-reference here " + kA + "SOUND/w.sms:w.sms"}},
    };
    return kCases;
}

TEST(HealthRunTest, FindsExactlyWhatIsWrong)
{
    for (const Planned &each : planned()) {
        SCOPED_TRACE(each.name);
        CompleteInstallation installation(each.changes);
        EXPECT_EQ(installation.Problems(), each.expected);
        for (const Profile profile : kProfiles) {
            Lines own; // a run for one simulator has the findings that concern it
            for (const std::string &line : each.expected)
                if (line.starts_with("both") || line.starts_with(ProfileName(profile)))
                    own.push_back(ProfileName(profile) + line.substr(line.find(' ')));
            std::sort(own.begin(), own.end());
            EXPECT_EQ(installation.Problems(in(profile)), own);
        }
    }
}

TEST(HealthRunTest, SimulatorsFindFilesElsewhere)
{
    CompleteInstallation installation({{kA + "w.s", shapeOf("d.ace")},
                                       {kA + "d.dds", ""},
                                       {kA + "w.sd", "\nshape ( ESD_Alternative_Texture ( 1 ) )"},
                                       {kA + "OpenRails/w.wag", "\ninclude ( ../w.wag )"}});
    HealthOptions options = in(Profile::OpenRails);
    options.keepAll = true;
    std::map<std::string, std::string> found;
    for (const Finding &finding : installation.Check(options).findings)
        found[std::string(KindName(finding.kind)) + ' ' + finding.wants] =
            std::string(AnswerName(finding.answer)) + ' ' +
            installation.Folder().Relative(finding.foundAt);
    EXPECT_EQ(found["texture d.ace"], "elsewhere Trains/Trainset/A/d.dds");
    EXPECT_EQ(found["season-texture Snow/d.ace"], "elsewhere Trains/Trainset/A/d.dds");
    EXPECT_EQ(found["season-texture Night/w.ace"], "");
    EXPECT_EQ(found["consist-vehicle w a"], "elsewhere Trains/Trainset/A/OpenRails/w.wag");
    EXPECT_EQ(found["consist-vehicle E A"], "here Trains/Trainset/A/e.eng");
    EXPECT_EQ(found["sound common.sms"], "elsewhere Sound/common.sms");
    EXPECT_EQ(found["cab Cab.cvf"], "elsewhere ");
    EXPECT_EQ(found["script Automatic"], "not-needed ");
    EXPECT_EQ(found["sound w.sms"], "here Trains/Trainset/A/SOUND/w.sms");
}

/// Many faults at once, some of them with a common cause.
FileChanges muchWrong()
{
    FileChanges changes = {
        {kA + "w.s", "not a shape"},
        {kA + "load.s", kGone},
        {"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( x GP38 ) ) Wagon ( "
                                  "WagonData ( y gp38 ) ) ) )"},
    };
    for (const char *const folder : {"B", "C", "D"}) {
        changes.emplace_back(std::string("Trains/Trainset/") + folder + "/v.wag",
                             "\nWagon ( v WagonShape ( ../A/w.s ) Sound ( lost.sms )\n"
                             "FreightAnim ( \"..\\\\GP38\\\\f.s\" ) )");
    }
    return changes;
}

TEST(HealthRunTest, CausesPartitionTheFindings)
{
    CompleteInstallation installation(muchWrong());
    HealthOptions options;
    options.keepAll = true;
    const HealthReport report = installation.Check(options);
    std::map<std::string, std::string> titles;
    std::set<std::size_t> grouped;
    for (const Cause &cause : report.causes) {
        titles[cause.id] = cause.title;
        for (const std::size_t index : cause.findings) {
            EXPECT_TRUE(grouped.insert(index).second);
            EXPECT_EQ(report.findings[index].cause, cause.id);
        }
    }
    for (std::size_t i = 0; i < report.findings.size(); ++i)
        EXPECT_EQ(grouped.contains(i), report.findings[i].IsProblem());
    EXPECT_EQ(titles["folder:trains/trainset/gp38"],
              "Stock folder GP38 is not installed: 5 references from 4 files");
    EXPECT_EQ(titles["default-sounds"], "Sounds that come with Train Simulator are not in the "
                                        "SOUND folder: 3 references from 3 files");
    EXPECT_EQ(titles["damaged:trains/trainset/a/w.s"],
              "Damaged file Trains/Trainset/A/w.s: needed by 5 files");
    EXPECT_EQ(titles["single-files"], "Single files: 1 finding");
    EXPECT_EQ(titles.size(), 4u);
    EXPECT_TRUE(report.causes.back().isSingles);
}

std::string everythingOf(const HealthReport &report)
{
    std::string text;
    for (const Finding &finding : report.findings) {
        text += finding.id + ' ' + finding.rule + ' ' + finding.file + ' ' + finding.wants + ' ' +
                finding.cause + ' ' + std::to_string(finding.line);
        for (const auto user : finding.neededBy)
            text += ' ' + report.users[user];
        for (const auto &candidate : finding.candidates)
            text += ' ' + candidate;
        text += '\n';
    }
    for (const Cause &cause : report.causes)
        text += cause.title + '\n';
    return text;
}

FileChanges someChanges(std::mt19937 &random)
{
    FileChanges changes;
    for (const Planned &each : planned())
        if (random() % 4 == 0)
            changes.insert(changes.end(), each.changes.begin(), each.changes.end());
    return changes;
}

TEST(HealthRunTest, ReportIsTheSameForAnyNumberOfWorkers)
{
    std::mt19937 random(7);
    for (int round = 0; round < 6; ++round) {
        SCOPED_TRACE(round);
        CompleteInstallation installation(round == 0 ? muchWrong() : someChanges(random));
        HealthOptions options;
        options.keepAll = round % 2 == 0;
        options.routes = true;
        options.workers = 1;
        const HealthReport report = installation.Check(options);
        const std::string alone = everythingOf(report);
        for (const std::size_t workers : {2u, 7u}) {
            options.workers = workers;
            EXPECT_EQ(everythingOf(installation.Check(options)), alone);
        }
        std::set<std::size_t> grouped;
        for (const Cause &cause : report.causes)
            for (const std::size_t index : cause.findings)
                EXPECT_TRUE(grouped.insert(index).second);
        for (std::size_t i = 0; i < report.findings.size(); ++i)
            EXPECT_EQ(grouped.contains(i), report.findings[i].IsProblem());
    }
}

TEST(HealthRunTest, IdsDependOnlyOnTheEntry)
{
    const auto idsOf = [](const FileChanges &changes) {
        std::map<std::string, std::string> ids;
        CompleteInstallation installation(changes);
        for (const Finding &finding : installation.Check().findings)
            ids[installation.Folder().Relative(finding.file) + finding.wants +
                ProfileName(finding.profiles)] = finding.id;
        return ids;
    };
    FileChanges changes = muchWrong();
    const auto before = idsOf(changes);
    std::set<std::string> distinct;
    for (const auto &[key, id] : before)
        distinct.insert(id);
    EXPECT_EQ(distinct.size(), before.size());
    changes.emplace_back("Trains/Trainset/A/more.wag", "\nWagon ( x WagonShape ( gone.s ) )");
    changes.emplace_back("Trains/Trainset/Z/load.s", shapeOf("w.ace")); // now a candidate
    const auto after = idsOf(changes);
    for (const auto &[key, id] : before)
        EXPECT_EQ(after.contains(key) ? after.at(key) : "gone", id) << key;
}

/// The problems of a report: their answers by profile, kind, file, value and fault.
std::map<std::string, std::string> answersOf(const CompleteInstallation &installation,
                                             const HealthReport &report)
{
    std::map<std::string, std::string> answers;
    for (const Finding &finding : report.findings)
        if (finding.IsProblem())
            answers[std::string(ProfileName(finding.profiles)) + ' ' + KindName(finding.kind) +
                    ' ' + installation.Folder().Relative(finding.file) + ' ' + finding.wants + ' ' +
                    finding.detail] = AnswerName(finding.answer);
    return answers;
}

TEST(HealthRunTest, BaselineLeavesExactlyTheNewAndChangedFindings)
{
    std::mt19937 random(20);
    for (int round = 0; round < 6; ++round) {
        SCOPED_TRACE(round);
        CompleteInstallation before(someChanges(random)), after(someChanges(random));
        const HealthReport old = before.Check(), full = after.Check();
        const auto baseline = Baseline::FromText(Baseline::Of(old).ToText());
        ASSERT_TRUE(baseline.has_value());
        const auto known = answersOf(before, old);
        auto expected = answersOf(after, full);
        const auto gone = std::count_if(known.begin(), known.end(), [&](const auto &each) {
            return !expected.contains(each.first);
        });
        std::erase_if(expected, [&](const auto &each) {
            const auto found = known.find(each.first);
            return found != known.end() && found->second == each.second;
        });
        const HealthReport left = WithoutKnown(full, *baseline);
        EXPECT_EQ(answersOf(after, left), expected);
        EXPECT_EQ(baseline->CountGone(full), static_cast<std::size_t>(gone));
        std::size_t grouped = 0;
        for (const Cause &cause : left.causes)
            grouped += cause.findings.size();
        EXPECT_EQ(grouped, left.findings.size());
    }
}

TEST(HealthRunTest, ConsistsNeedWhatTheirVehiclesNeed)
{
    CompleteInstallation installation(
        {{kA + "SOUND/w.wav", kGone},
         {kA + "x.wag", "\nWagon ( x WagonShape ( gone.s ) )"},
         {"Trains/Trainset/B/o.wag", "\nWagon ( o WagonShape ( gone.s ) )"},
         {"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w A ) ) ) )"}});
    HealthOptions options;
    options.consists = {installation.Folder().At("Trains/Consists/d.con")};
    EXPECT_EQ(installation.Problems(options),
              (Lines{"both warning missing-sound-file nowhere " + kA + "SOUND/w.sms:w.wav"}));
    HealthOptions filtered;
    filtered.filter = "B";
    EXPECT_EQ(installation.Problems(filtered),
              (Lines{"both error missing-shape nowhere Trains/Trainset/B/o.wag:gone.s"}));
}

TEST(HealthRunTest, StopsWhenAsked)
{
    CompleteInstallation installation(muchWrong());
    HealthRun run(installation.Files(), installation.Folder().Path(), {});
    std::size_t calls = 0;
    run.Progress = [&](std::size_t, std::size_t) {
        ++calls;
        run.Stop();
    };
    run.Run();
    EXPECT_EQ(calls, 1u);
}

} // namespace
} // namespace content
