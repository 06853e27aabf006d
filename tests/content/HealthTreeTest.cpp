// SPDX-License-Identifier: MIT
#include "CompleteInstallation.h"
#include "MadeReport.h"
#include "content/Causes.h"
#include "content/HealthFormats.h"
#include "content/HealthText.h"
#include "content/HelpText.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <random>
#include <set>

namespace content {
namespace {

HealthTree treeOf(const MadeReport &made, const HealthFilter &filter = {},
                  const Baseline &known = {})
{
    return HealthTree(made.Index(), filter, known);
}

/// Returns the rows, one line each, with two blanks for each level.
std::string linesOf(const HealthTree &tree)
{
    std::string lines;
    for (const HealthTree::CauseRow &cause : tree.Causes()) {
        lines += tree.Index().Report().causes[cause.cause].id + ' ' +
                 std::to_string(cause.findings) + ' ' + SeverityName(cause.summary.severity) + '\n';
        for (std::size_t i = cause.firstWanted; i < cause.endWanted; ++i) {
            const HealthTree::WantedRow &wanted = tree.Wanted()[i];
            lines +=
                "  " + wanted.wanted->text + ' ' + std::to_string(wanted.findings.size()) + '\n';
            const auto users = tree.UsersOf(wanted);
            EXPECT_EQ(users.size(), wanted.users);
            for (const HealthTree::UserRow &user : users)
                lines += "    " + PlaceText(tree, user) + '\n';
        }
    }
    return lines;
}

MadeReport fiveFindings()
{
    MadeReport made;
    made.Add("folder:gp38", "consists/a.con", "trainset/GP38/x.eng");
    made.Add("folder:gp38", "consists/b.con", "trainset/gp38/X.ENG", Severity::Warning);
    made.Add("folder:gp38", "consists/b.con", "trainset/GP38/y.eng", Severity::Note);
    made.Add("single-files", "consists/b.con", "trainset/Box/z.wag", Severity::Warning,
             Profile::OpenRails);
    Finding &texture = made.Add("single-files", "trainset/Box/w.s", "trainset/Box/w.ace",
                                Severity::Warning, Profile::Msts);
    texture.neededBy.clear();
    return made;
}

/// True if the finding passes the filter, by its definition.
bool passes(const Finding &finding, const HealthReport &report, const HealthFilter &filter)
{
    std::string text = finding.file + '\n' + finding.looked.front() + '\n' + finding.rule;
    for (const std::uint32_t user : finding.neededBy)
        text += '\n' + report.users[user];
    return !(finding.profiles & filter.profiles).Empty() &&
           filter.severities[static_cast<std::size_t>(finding.severity)] &&
           host::ToUpper(text).find(host::ToUpper(filter.search)) != std::string::npos;
}

TEST(HealthTreeTest, GroupsByCauseAndWantedFileIgnoringCase)
{
    EXPECT_EQ(linesOf(treeOf(fiveFindings())), "folder:gp38 3 error\n"
                                               "  trainset/GP38/x.eng 2\n"
                                               "    consists/a.con, line 7\n"
                                               "    consists/b.con, line 7\n"
                                               "  trainset/GP38/y.eng 1\n"
                                               "    consists/b.con, line 7\n"
                                               "single-files 2 warning\n"
                                               "  trainset/Box/z.wag 1\n"
                                               "    consists/b.con, line 7\n"
                                               "  trainset/Box/w.ace 1\n"
                                               "    trainset/Box/w.s, line 7\n");
    EXPECT_EQ(linesOf(treeOf(MadeReport())), "");
}

TEST(HealthTreeTest, FilesOfWorseFindingsComeFirst)
{
    MadeReport made;
    for (const char *user : {"consists/a.con", "consists/b.con"})
        made.Add("folder:gp38", user, "trainset/GP38/note.eng", Severity::Note);
    made.Add("folder:gp38", "consists/a.con", "trainset/GP38/error.eng");
    EXPECT_EQ(linesOf(treeOf(made)), "folder:gp38 3 error\n"
                                     "  trainset/GP38/error.eng 1\n"
                                     "    consists/a.con, line 7\n"
                                     "  trainset/GP38/note.eng 2\n"
                                     "    consists/a.con, line 7\n"
                                     "    consists/b.con, line 7\n");
}

TEST(HealthTreeTest, ShowsExactlyTheFindingsThatPassTheFilter)
{
    const MadeReport made = MadeReport::Large(300);
    std::mt19937 random(38);
    for (int round = 0; round < 60; ++round) {
        HealthFilter filter;
        for (bool &severity : filter.severities)
            severity = random() % 3 != 0;
        const char *const searches[] = {"",       "TRAIN1",  "w12",
                                        "Stock/", "vehicle", "nothing like it"};
        filter.search = searches[random() % std::size(searches)];
        const HealthTree tree = treeOf(made, filter);
        std::set<std::string> expected, shown;
        for (const Finding &finding : made.Report().findings)
            if (passes(finding, made.Report(), filter))
                expected.insert(finding.id);
        for (const Finding &finding : tree.ShownReport().findings)
            shown.insert(finding.id);
        ASSERT_EQ(shown, expected) << filter.search;
        EXPECT_EQ(tree.Shown(), expected.size());
        EXPECT_EQ(tree.Shown() + tree.Hidden(), made.Report().findings.size());
        std::size_t inCauses = 0;
        for (const HealthTree::CauseRow &cause : tree.Causes())
            inCauses += cause.findings;
        EXPECT_EQ(inCauses, expected.size()) << "the causes partition the findings";
    }
}

TEST(HealthTreeTest, CausesOfTheSameWeightKeepTheirOrder)
{
    MadeReport made;
    for (const char *const cause : {"folder:c", "folder:a", "folder:b"})
        made.Add(cause, "consists/train.con", std::string(cause + 7) + "/w.wag");
    made.Add("folder:b", "consists/train.con", "b/x.wag");
    HealthReport report = made.Report();
    CountCauses(report);
    std::string order;
    for (const Cause &cause : report.causes)
        order += cause.id + ' ';
    EXPECT_EQ(order, "folder:b folder:c folder:a ");
}

TEST(HealthTreeTest, CountsEachSeverityApartFromItsToggle)
{
    HealthFilter filter;
    filter.severities = {false, false, true};
    filter.profiles = Profile::OpenRails;
    const HealthTree tree = treeOf(fiveFindings(), filter);
    EXPECT_EQ(tree.Counts(), (std::array<std::size_t, 3>{1, 2, 1}));
    EXPECT_EQ(tree.Shown(), 1U);
    EXPECT_EQ(tree.Hidden(), 3U) << "findings for the other simulator are not hidden by a filter";
}

TEST(HealthTreeTest, ComparesWithTheKnownFindings)
{
    MadeReport before = fiveFindings();
    before.Add("single-files", "consists/c.con", "trainset/Box/gone.wag");
    Baseline known = Baseline::Of(before.Report());
    MadeReport made = fiveFindings();
    made.Add("single-files", "consists/d.con", "trainset/Box/q.wag").id = "fresh";
    Finding changed = made.Report().findings[0];
    changed.answer = Answer::Misplaced;
    known.Add(changed);

    const HealthTree tree = treeOf(made, {}, known);
    EXPECT_EQ(linesOf(tree), "folder:gp38 1 error\n"
                             "  trainset/GP38/x.eng 1\n"
                             "    consists/a.con, line 7\n"
                             "single-files 1 error\n"
                             "  trainset/Box/q.wag 1\n"
                             "    consists/d.con, line 7\n");
    EXPECT_EQ(tree.NoveltyOf(0), Novelty::Changed);
    EXPECT_EQ(tree.NoveltyOf(5), Novelty::New);
    EXPECT_EQ(tree.Count(Novelty::Known), 4U);
    EXPECT_EQ(tree.HiddenKnown(), 4U);
    EXPECT_EQ(known.CountGone(made.Report()), 1U);
    HealthFilter everything;
    everything.known = true;
    EXPECT_EQ(treeOf(made, everything, known).Hidden(), 0U);
    const HealthTree part(made.Index(false), {}, known);
    EXPECT_EQ(part.NoveltyOf(0), Novelty::Known) << "a part of a report has no final answers";
}

TEST(HealthTreeTest, TextForHelpIsShortAndComplete)
{
    const HealthTree tree = treeOf(MadeReport::Large(2000));
    for (const HealthTree::CauseRow &cause : tree.Causes()) {
        const std::string text = HelpText(tree, cause);
        EXPECT_LE(std::count(text.begin(), text.end(), '\n'), 9) << text;
        EXPECT_NE(text.find("Cause " + tree.Index().Report().causes[cause.cause].id +
                            ": 1000 findings\n"),
                  std::string::npos)
            << text;
        EXPECT_NE(text.find(" and 997 more\nWanted by: 1000 places: "), std::string::npos) << text;
    }
    MadeReport made;
    made.Add("single-files", "consists/b.con", "trainset/Box/z.wag").candidates = {
        "/game/trainset/Tank/z.wag"};
    const HealthTree small = treeOf(made);
    EXPECT_EQ(
        HelpHeader("1.0-75", Profile::OpenRails) + HelpText(small, small.Wanted().front()),
        "ZELK 1.0-75, health report for Open Rails\n"
        "error: " +
            SentenceOf(small.Index().Report().findings.front()) +
            "\n"
            "Rule: missing-vehicle\n"
            "Wanted: trainset/Box/z.wag\n"
            "Wanted by: consists/b.con, line 7\n"
            "Looked in: trainset/Box\n"
            "Candidates: trainset/Tank/z.wag\n"
            "What to do: Correct the entry if it means one of the candidates; otherwise install "
            "the missing file.\n");
    const std::vector<HealthTree::UserRow> users = small.UsersOf(small.Wanted().front());
    ASSERT_EQ(users.size(), 1u);
    EXPECT_EQ(HelpText(small, users.front()), HelpText(small, small.Wanted().front()));
}

TEST(HealthFormatsTest, UrisKeepLettersAndDigits)
{
    MadeReport made;
    made.Add("single-files", "consists/azAZ 09-._~%.con", "trainset/Box/z.wag");
    std::string log;
    WriteHealthSarif(made.Report(), "1.0", [&](std::string_view text) { log += text; });
    EXPECT_NE(log.find("file:///game/consists/azAZ%2009-._~%25.con"), log.npos) << log;
}

class KnownFindingsTest : public testing::Test
{
protected:
    static std::vector<const Finding *> all(const HealthReport &report)
    {
        std::vector<const Finding *> findings;
        for (const Finding &finding : report.findings)
            findings.push_back(&finding);
        return findings;
    }
    KnownFindings load()
    {
        KnownFindings known(files, "/game");
        known.Load();
        return known;
    }
    void write(const std::string &text)
    {
        const std::filesystem::path path(KnownFindings(files, "/game").File());
        std::filesystem::create_directories(path.parent_path());
        std::ofstream(path, std::ios::binary) << text;
    }

    support::ScopedHome home;
    host::GameFiles files;
    HealthReport report = fiveFindings().Report();
};

TEST_F(KnownFindingsTest, AreKeptForTheInstallation)
{
    EXPECT_EQ(load().Findings().Size(), 0U);
    KnownFindings first = load(), second = load();
    first.Accept({&report.findings[0]});
    second.Accept({&report.findings[1], &report.findings[2]});
    EXPECT_EQ(load().Findings().Size(), 3U) << "the change of the other window stays";
    EXPECT_TRUE(load().Findings().Knows(report.findings[0]));
    second.Withdraw({&report.findings[0]});
    EXPECT_FALSE(load().Findings().Has(report.findings[0]));
    HealthReport later;
    later.findings = {report.findings[2]};
    second.DropGone(later);
    EXPECT_EQ(load().Findings().Size(), 1U);
    const KnownFindings other(files, "/game2");
    EXPECT_EQ(KnownFindings(files, "/Game").File(), first.File()) << "letter case does not matter";
    EXPECT_NE(other.File(), first.File());
}

TEST_F(KnownFindingsTest, NeverOverwriteADamagedOrForeignFile)
{
    for (const char *const text :
         {"", "My notes\n", "ZELK health baseline 1\nid0 nowh",
          "ZELK health baseline 1\nid0 nowhere", "ZELK health baseline 2\n"}) {
        write(text);
        KnownFindings known = load();
        EXPECT_NE(known.Fault().find(known.File()), std::string::npos) << text;
        EXPECT_EQ(known.Findings().Size(), 0U);
        EXPECT_THROW(known.Accept(all(report)), host::RuntimeError);
        EXPECT_EQ(files.ReadFile(known.File()), text);
    }
    write("ZELK health baseline 1\r\nid0 nowhere\r\n");
    KnownFindings edited = load();
    EXPECT_EQ(edited.Fault(), "") << "line ends of another editor do no harm";
    EXPECT_EQ(edited.Findings().Size(), 1U);
}

TEST(HealthRunTest, HandsOutFindingsWhileItRuns)
{
    CompleteInstallation installation(
        {{"Trains/Trainset/A/w.sd", std::nullopt}, {"Trains/Trainset/A/load.s", std::nullopt}});
    HealthOptions options;
    options.firstPartial = {};
    HealthRun run(installation.Files(), installation.Folder().Path(), options);
    std::vector<HealthReport> parts;
    run.Partial = [&](HealthReport part) { parts.push_back(std::move(part)); };
    const HealthReport whole = run.Run();
    ASSERT_FALSE(parts.empty());
    std::set<std::string> ids;
    for (const Finding &finding : whole.findings)
        ids.insert(finding.id);
    ASSERT_FALSE(ids.empty());
    for (const Finding &finding : parts.back().findings)
        EXPECT_TRUE(ids.contains(finding.id)) << installation.Line(finding);
    std::size_t grouped = 0;
    for (const Cause &cause : parts.back().causes)
        grouped += cause.findings.size();
    EXPECT_EQ(grouped, parts.back().findings.size());
    EXPECT_EQ(whole.checked.consists, 1U);
}

TEST(HealthRunTest, StoppedRunReturnsWithoutASearchForCandidates)
{
    CompleteInstallation installation(
        {{"Trains/Consists/d.con", "\nTrain ( TrainCfg ( d Wagon ( WagonData ( w B ) ) ) )"},
         {"Trains/Trainset/B/note.txt", ""}});
    HealthRun run(installation.Files(), installation.Folder().Path(), {});
    run.Stop();
    EXPECT_TRUE(run.Run().findings.empty());
}

} // namespace
} // namespace content
