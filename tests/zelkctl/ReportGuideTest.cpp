// SPDX-License-Identifier: MIT
// The guide explains every line that the checks print, word for word, and no other line.
#include "ZelkctlTest.h"
#include "host/Path.h"
#include "samples/Sample.h"

#include <filesystem>
#include <fstream>
#include <iterator>
#include <regex>
#include <set>
#include <sstream>

namespace {

using Lines = std::set<std::string>;

std::string replaced(const std::string &text, const char *pattern, const char *with)
{
    return std::regex_replace(text, std::regex(pattern), with);
}

/// Returns the lines that the guide explains, with "*" for the variable parts.
Lines explained()
{
    std::ifstream file(ZELK_GUIDE, std::ios::binary);
    const std::string text(std::istreambuf_iterator<char>(file), {});
    const std::regex heading("<dt class=\"line[^\"]*\">(.*)</dt>");
    Lines lines;
    for (std::sregex_iterator at(text.begin(), text.end(), heading), end; at != end; ++at)
        lines.insert(replaced((*at)[1].str(), "<var>[^<]*</var>", "*"));
    return lines;
}

class ReportGuideTest : public ZelkctlTest
{
protected:
    ReportGuideTest() { samples::WriteSample(m_folder.At("s")); }

    /// Runs a check and adds the lines that it prints, with "*" for the variable parts.
    void check(const std::vector<std::string> &arguments)
    {
        std::vector<std::string> all = {"check", "--msts", "s", "--verbose"};
        all.insert(all.end(), arguments.begin(), arguments.end());
        std::istringstream out(run(all).out);
        for (std::string line; std::getline(out, line);)
            m_lines.insert(withoutNames(line));
    }
    /// Returns a line as the guide shows it. A path extends to the words that follow, or to the
    /// end.
    static std::string withoutNames(std::string line)
    {
        line = replaced(line, "Error \\d+ - .* referenced", "* referenced");
        line = replaced(
            line, "(\\S*[/\\\\])?\\bs[/\\\\].*?(?= references | referenced | is | appears |$)",
            "*");
        line = replaced(line, "Route .* is", "Route * is");
        return replaced(line, "INFO: .* referenced by .* (services|activities)",
                        "INFO: * referenced by * $1");
    }
    std::vector<std::string> filesWith(const std::string &command,
                                       const std::string &extension) const
    {
        std::vector<std::string> words = {command};
        for (const auto &entry :
             std::filesystem::recursive_directory_iterator(host::path::ToDisk(m_folder.At("s"))))
            if (entry.path().extension() == extension)
                words.push_back(host::path::FromDisk(
                    entry.path().lexically_relative(host::path::ToDisk(m_folder.Path()))));
        return words;
    }

    Lines m_lines;
};

} // namespace

TEST_F(ReportGuideTest, ExplainsEveryLineOfAReport)
{
    check({"all"});
    check({"stock", "s/Trains/Trainset/gone.wag", "--no-consists"});
    check({"use", "--stock", "s/Trains/Trainset/Coastline/coach_diner.wag",
           "s/Trains/Trainset/Boxes & Vans/tank_21.wag", "--route", "TARNWICK", "Nowhere"});
    check({"use", "--consist", "Long Coal Drag", "Depot Shunter", "--route", "TARNWICK"});
    check(filesWith("consist", ".con"));
    for (const std::string &shape : filesWith("", ".s"))
        if (!shape.empty())
            check({"shape", shape});
    Lines guide = explained();
    EXPECT_EQ(guide.erase("ERROR: * is EMPTY"), 1U); // explained, though no check prints it
    EXPECT_EQ(guide, m_lines);
}
