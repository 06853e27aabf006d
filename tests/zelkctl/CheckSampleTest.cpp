// SPDX-License-Identifier: MIT
#include "SampleFixture.h"
#include "host/Path.h"
#include "samples/Defects.h"

#include <map>
#include <sstream>

namespace {

using samples::Check;
using Lines = std::vector<std::string>;

/// The checks on the sample installation find the planned defects and nothing more.
class CheckSampleTest : public SampleFixture
{
protected:
    CheckSampleTest()
    {
        for (const samples::Defect &defect : samples::Defects())
            m_defects[defect.file] = defect;
    }
    Outcome check(Lines arguments) const
    {
        arguments.insert(arguments.begin(), {"check", "--msts", m_folder.At("s")});
        return run(arguments);
    }
    /// Returns the planned report lines of a file, with this platform's separators.
    Lines planned(const std::string &file) const
    {
        const auto defect = m_defects.find(file);
        Lines lines;
        if (defect != m_defects.end())
            for (std::string line : defect->second.report) {
                for (auto at = line.find("<MSTS>"); at != line.npos; at = line.find("<MSTS>"))
                    line.replace(at, 6, m_folder.At("s"));
                lines.push_back(Shown(line));
            }
        return lines;
    }
    /// Returns the name of a consist's file without folder and extension.
    static std::string nameOf(const std::string &file)
    {
        const std::string name(host::path::FileName(file));
        return name.substr(0, name.size() - 4);
    }
    static Lines errorLines(const std::string &out)
    {
        Lines lines;
        std::istringstream in(out);
        for (std::string line; std::getline(in, line);)
            if (line.starts_with("ERROR: "))
                lines.push_back(line);
        return lines;
    }

    std::map<std::string, samples::Defect> m_defects;
};

TEST_F(CheckSampleTest, FindsThePlannedStockDefects)
{
    Lines expected;
    for (const auto &[file, defect] : m_defects)
        if (defect.check == Check::Stock)
            for (const std::string &line : planned(file))
                expected.push_back(line);
    const Outcome outcome = check({"all"});
    EXPECT_EQ(outcome.code, 1);
    EXPECT_EQ(outcome.err, "");
    Lines found = errorLines(outcome.out);
    EXPECT_EQ(static_cast<std::ptrdiff_t>(found.size()),
              std::count(outcome.out.begin(), outcome.out.end(), '\n'));
    std::sort(found.begin(), found.end());
    std::sort(expected.begin(), expected.end());
    EXPECT_EQ(found, expected);
    EXPECT_EQ(check({"all", "--filter", "Coast*"}), (Outcome{0, "", ""}));
}

TEST_F(CheckSampleTest, FindsThePlannedShapeDefects)
{
    Lines clean = {"shape"};
    for (const std::string &file : files(".s")) {
        SCOPED_TRACE(file);
        const std::string path = m_folder.At("s/" + file);
        const auto defect = m_defects.find(file);
        if (defect == m_defects.end()) {
            clean.push_back(path);
            continue;
        }
        const Outcome outcome = check({"shape", path});
        const int error = defect->second.error;
        EXPECT_EQ(errorLines(outcome.out), planned(file));
        EXPECT_EQ(outcome.code, planned(file).empty() ? 2 : 1);
        EXPECT_EQ(outcome.err.starts_with("zelkctl: " + path + ": error " + std::to_string(error)),
                  error != 0)
            << outcome.err;
    }
    EXPECT_GT(clean.size(), 10U);
    EXPECT_EQ(check(clean), (Outcome{0, "", ""}));
}

TEST_F(CheckSampleTest, FindsThePlannedConsistDefects)
{
    for (const std::string &file : files(".con")) {
        SCOPED_TRACE(file);
        const std::string name = nameOf(file);
        const bool faulty = m_defects.contains(file) && m_defects[file].check == Check::Consist;
        const Outcome outcome = check({"consist", name});
        EXPECT_EQ(errorLines(outcome.out), faulty ? planned(file) : Lines());
        EXPECT_EQ(outcome.code, faulty ? 1 : 0);
        EXPECT_EQ(outcome.err, "");
    }
}

TEST_F(CheckSampleTest, FindsThePlannedUses)
{
    for (const char *extension : {".eng", ".wag"})
        for (const std::string &file : files(extension)) {
            SCOPED_TRACE(file);
            const std::string named = "Trains/Trainset" + file.substr(file.find('/', 7));
            const Outcome outcome = check({"use", "--stock", m_folder.At("s/" + named)});
            const bool unused = m_defects.contains(file) && m_defects[file].check == Check::Usage;
            EXPECT_EQ(errorLines(outcome.out), unused ? planned(file) : Lines());
            EXPECT_EQ(outcome.code, unused ? 1 : 0);
            EXPECT_EQ(outcome.out.find("INFO: ") != std::string::npos, !unused);
        }
    for (const std::string &file : files(".con")) {
        SCOPED_TRACE(file);
        const std::string name = nameOf(file);
        const Outcome outcome =
            check({"use", "--consist", name, "--route", "TARNWICK", "--route", "Ochre Coast"});
        EXPECT_EQ(outcome.code, 0);
        EXPECT_EQ(outcome.out.empty(),
                  m_defects.contains(file) && m_defects[file].check == Check::Usage);
    }
}

} // namespace
