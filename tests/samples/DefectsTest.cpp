// SPDX-License-Identifier: MIT
#include "samples/Defects.h"

#include "InstallationScan.h"
#include "samples/HealthCases.h"
#include "samples/Sample.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <iterator>
#include <regex>
#include <sstream>

namespace {

using samples::Check;
using samples::Defect;

class DefectsTest : public testing::Test
{
protected:
    DefectsTest() { samples::WriteSample(m_temp.At("s")); }
    scan::Installation installation() const { return scan::Installation(m_temp.At("s")); }
    /// Returns the text of a file, with each run of blanks replaced by one.
    std::string text(const std::string &path) const
    {
        return std::regex_replace(scan::Decode(m_temp.Read("s/" + path)), std::regex("\\s+"), " ");
    }

    support::TempFolder m_temp;
};

/// Returns a path from a report, relative to the installation folder.
std::string below(const std::string &path)
{
    return scan::Plain(path.substr(path.find('\\') + 1));
}

std::string document()
{
    std::ifstream in(ZELK_SAMPLE_DOCUMENT, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
}

/// Returns the missing files according to the reports, in the form of the scan.
std::set<std::string> plannedMissing()
{
    static const std::regex line("ERROR: (.*) references missing file (.*)");
    std::set<std::string> planned;
    for (const Defect &defect : samples::Defects()) {
        for (const std::string &report : defect.report) {
            std::smatch match;
            if (std::regex_match(report, match, line))
                planned.insert(below(match[1]) + " -> " + below(match[2]));
        }
    }
    return planned;
}

TEST_F(DefectsTest, OnlyPlannedFilesAreMissing)
{
    std::set<std::string> planned = plannedMissing();
    // No check looks for the consist of a service.
    planned.insert("routes/tarnwick/services/ghost.srv -> trains/consists/vanished freight.con");
    EXPECT_EQ(installation().Unresolved(), planned);
}

TEST_F(DefectsTest, CheckedFilesExistAndDiffer)
{
    std::set<std::string> files;
    for (const Defect &defect : samples::Defects()) {
        EXPECT_TRUE(m_temp.Exists("s/" + defect.file)) << defect.file;
        EXPECT_TRUE(files.insert(defect.file).second) << defect.file;
        EXPECT_FALSE(defect.what.empty()) << defect.file;
        const bool silent = defect.file.ends_with("Shunter.con") || defect.check == Check::None;
        EXPECT_EQ(defect.report.empty() && defect.error == 0, silent) << defect.file;
    }
}

/// Faults other than a missing file.
TEST_F(DefectsTest, FaultyBlocksAreFaulty)
{
    const struct
    {
        const char *file;
        std::vector<const char *> has;
        std::vector<const char *> lacks;
    } rows[] = {
        {"rs_waggon.wag", {"Waggon ("}, {"Wagon ("}},
        {"rs_mute.wag", {"Wagon ("}, {"Sound ("}},
        {"rs_noengine.eng", {"Wagon ( rs_noengine"}, {"Engine ( rs"}},
        {"rs_names.eng", {"Wagon ( rs_names Type", "Wagon ( rs_names_old )"}, {}},
        {"rs_nocab.eng", {"Engine ( rs_nocab"}, {"CabView"}},
        {"rs_silent.eng", {"Engine ( rs_silent", "diesel.sms"}, {"cab.sms"}},
        {"Sound/rs_broken.sms", {"Tr_Sound ("}, {"Tr_SMS"}},
        {"Cabview/rs_broken.cvf", {"Tr_CabView ("}, {"Tr_CabViewFile"}},
        {"rs_over.s", {"images ( 3 image ( rs_over.ace ) image ( weathered.ace ) )"}, {}},
        {"rs_under.s", {"images ( 1 image ( rs_under.ace ) image ( weathered.ace ) )"}, {}},
    };
    for (const auto &row : rows) {
        const std::string content = text(std::string("TRAINS/TRAINSET/Repair Sidings/") + row.file);
        for (const char *piece : row.has)
            EXPECT_NE(content.find(piece), std::string::npos) << row.file << ": " << piece;
        for (const char *piece : row.lacks)
            EXPECT_EQ(content.find(piece), std::string::npos) << row.file << ": " << piece;
    }
    EXPECT_NE(text("ROUTES/Ochre Coast/SHAPES/pier.sd").find("Alternative_Texture ( 256 )"),
              std::string::npos);
    EXPECT_FALSE(m_temp.Exists("s/ROUTES/Ochre Coast/SHAPES/shed.sd"));
}

TEST_F(DefectsTest, ExactlyTheListedShapesAreNotText)
{
    std::set<std::string> listed;
    for (const Defect &defect : samples::Defects())
        if (!defect.report.empty() && defect.report.front().ends_with(" is COMPRESSED"))
            listed.insert(defect.file);
    std::set<std::string> found;
    for (const std::string &path : installation().Files(".s"))
        if (text(path).find("shape (") == std::string::npos)
            found.insert(path);
    EXPECT_EQ(found, listed);
    for (const std::string &path : found)
        EXPECT_EQ(scan::Payload(installation().Bytes(path)).find("JINX0s1b____"), 0U) << path;
}

/// Compares the exact letter case, as the checks do.
TEST_F(DefectsTest, OnlyPlannedFilesAreUnused)
{
    const scan::Installation all = installation();
    std::set<std::string> unused;
    for (const char *extension : {".eng", ".wag", ".con"})
        for (const std::string &path : all.Files(extension))
            unused.insert(path);
    for (const char *kind : {"Engine", "Wagon"})
        for (const std::string &path : all.Files(".con"))
            for (const auto &unit : scan::Values(all.Text(path), kind + std::string("Data")))
                unused.erase("TRAINS/TRAINSET/" + unit[1] + '/' + unit[0] +
                             (*kind == 'E' ? ".eng" : ".wag"));
    for (const std::string &path : all.Files(".srv"))
        for (const std::string &name : scan::FirstValues(all.Text(path), "Train_Config"))
            unused.erase("TRAINS/CONSISTS/" + name + ".con");
    std::set<std::string> planned;
    for (const Defect &defect : samples::Defects())
        if (defect.check == Check::Usage)
            planned.insert(defect.file);
    EXPECT_EQ(unused, planned);
}

TEST_F(DefectsTest, DocumentListsAllDefects)
{
    std::string expected;
    for (const Defect &defect : samples::Defects())
        expected += std::string("| ") + CheckName(defect.check) + " | `" + defect.file + "` | " +
                    defect.what + " |\n";
    const std::string text = document();
    const std::string head = "| Check | File | What is wrong |\n|---|---|---|\n";
    const std::size_t start = text.find(head);
    ASSERT_NE(start, std::string::npos);
    const std::size_t first = start + head.size();
    EXPECT_EQ(text.substr(first, text.find("\n\n", first) + 1 - first), expected);
}

/// Returns an answer as the table of health cases shows it.
std::string shown(const samples::Judgement &judgement)
{
    if (judgement.answer.empty())
        return "-";
    const std::string answer = '*' + std::string(judgement.answer) + '*';
    return judgement.rule.empty() ? answer
                                  : answer + ": " + std::string(judgement.severity) + ", `" +
                                        std::string(judgement.rule) + '`';
}

TEST_F(DefectsTest, DocumentListsTheHealthCases)
{
    std::string expected;
    for (const samples::HealthCase &each : samples::HealthCases()) {
        const std::string line = each.line > 0 ? ":" + std::to_string(each.line) : "";
        expected += "| `" + std::string(each.file) + line + "` | " + std::string(each.kind) + " `" +
                    std::string(each.wants) + "` | " + std::string(each.what) + " | " +
                    shown(each.msts) + " | " + shown(each.openRails) + " |\n";
    }
    const std::string text = document();
    const std::string head =
        "| File | Entry | The case | MSTS | Open Rails |\n|---|---|---|---|---|\n";
    const std::size_t start = text.find(head);
    ASSERT_NE(start, std::string::npos);
    const std::size_t first = start + head.size();
    EXPECT_EQ(text.substr(first, text.find("\n\n", first) + 1 - first), expected);
}

TEST_F(DefectsTest, DocumentListsTheReport)
{
    std::string expected;
    for (const Defect &defect : samples::Defects())
        for (const std::string &line : defect.report)
            expected += line + '\n';
    const std::string text = document();
    const std::size_t first = text.find("```text\n") + 8;
    EXPECT_EQ(text.substr(first, text.find("```", first) - first), expected);
}

TEST_F(DefectsTest, DocumentListsTheConsists)
{
    const std::string text = document();
    for (const std::string &path : installation().Files(".con"))
        EXPECT_NE(text.find("| `" + path.substr(path.rfind('/') + 1) + "` |"), std::string::npos)
            << path;
}

} // namespace
