// SPDX-License-Identifier: MIT
#include "validation/Report.h"

#include "host/GameFiles.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <thread>
#include <vector>

namespace {

const std::string kFrame = std::string(80, '=') + '\n';

class ReportTest : public testing::Test
{
protected:
    void append(const std::string &name, std::string_view text)
    {
        validation::AppendReport(m_files, m_folder.At(name), text);
    }
    /// Returns the file with LF line ends.
    std::string read(const std::string &name) const
    {
        std::string text = m_folder.Read(name);
        std::erase(text, '\r');
        return text;
    }

    support::TempFolder m_folder;
    host::GameFiles m_files;
};

TEST_F(ReportTest, AppendsFramedReports)
{
    append("a.log", "ERROR: x\r\nINFO: y\r\n");
    EXPECT_EQ(read("a.log"), kFrame + "ERROR: x\nINFO: y\n" + kFrame);
    EXPECT_EQ(m_folder.Read("a.log").find('\r') != std::string::npos,
              host::path::kSeparator == '\\')
        << "line ends are the platform's";
    append("A.LOG", "one\ntwo");
    append("a.log", "");
    EXPECT_EQ(read("a.log"), kFrame + "ERROR: x\nINFO: y\n" + kFrame + kFrame + "one\ntwo\n" +
                                 kFrame + kFrame + kFrame);
}

TEST_F(ReportTest, KeepsTheContentOfTheLog)
{
    m_folder.Write("a.log", "mine\n\n\xff my last line");
    append("a.log", "x");
    EXPECT_EQ(read("a.log"), "mine\n\n\xff my last line\n" + kFrame + "x\n" + kFrame);
}

TEST_F(ReportTest, ReportsOfSeveralProgramsAreAllKept)
{
    constexpr int kThreads = 4, kTimes = 10;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([this] {
                for (int time = 0; time < kTimes; ++time)
                    append("a.log", "x");
            });
    }
    std::string expected;
    for (int i = 0; i < kThreads * kTimes; ++i)
        expected += kFrame + "x\n" + kFrame;
    EXPECT_EQ(read("a.log"), expected);
}

TEST_F(ReportTest, RefusesFilesThatAreNotLogs)
{
    const std::string consist("\xff\xfeS\0I\0", 6);
    m_folder.Write("x.con", consist);
    m_folder.MakeFolder("folder.log");
    const auto numberOf = [this](const char *name) {
        try {
            append(name, "x");
        } catch (const host::RuntimeError &error) {
            EXPECT_NE(error.Detail().find(name), std::string::npos) << error.what();
            return error.Number();
        }
        return 0;
    };
    EXPECT_EQ(numberOf("x.con"), 5);
    EXPECT_EQ(m_folder.Read("x.con"), consist);
    EXPECT_EQ(numberOf("nowhere/a.log"), 76);
    EXPECT_NE(numberOf("folder.log"), 0);
    EXPECT_EQ(m_folder.Names(), (std::vector<std::string>{"folder.log", "x.con"}));
}

} // namespace
