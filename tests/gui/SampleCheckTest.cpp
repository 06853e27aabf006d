// SPDX-License-Identifier: MIT
#include "GuiTest.h"
#include "samples/Defects.h"
#include "samples/Sample.h"
#include "validation/frmResults.h"

#include <QPlainTextEdit>

#include <algorithm>
#include <set>
#include <sstream>

namespace {

class SampleCheckTest : public GuiTest
{
};

} // namespace

TEST_F(SampleCheckTest, TheSampleHasExactlyThePlannedDefects)
{
    const support::TempFolder sample;
    const std::string folder = sample.At("s");
    samples::WriteSample(folder);
    settings.values["MSTSDir"] = folder;
    Start();
    dialogs.Answer(host::DialogAnswer::Yes);
    Trigger("mnuStockCheckAll");
    std::multiset<std::string> planned, found;
    for (const samples::Defect &defect : samples::Defects())
        for (std::string line : defect.report)
            if (defect.check == samples::Check::Stock) {
                std::replace(line.begin(), line.end(), '\\', host::path::kSeparator);
                for (std::size_t at; (at = line.find("<MSTS>")) != std::string::npos;)
                    line.replace(at, 6, folder);
                planned.insert(line);
            }
    frmResults &form = Find<frmResults>(*window, "frmResults");
    std::istringstream lines(form.txtResults->toPlainText().toStdString());
    for (std::string line; std::getline(lines, line);)
        found.insert(line);
    EXPECT_EQ(found, planned);

    for (int time = 0; time < 2; ++time) {
        dialogs.AnswerInput(sample.At("all.log"));
        form.Save();
    }
    const std::string saved = sample.Read("all.log"), rule(80, '=');
    std::size_t rules = 0;
    for (std::size_t at = saved.find(rule); at != std::string::npos; at = saved.find(rule, at + 80))
        ++rules;
    EXPECT_EQ(rules, 4u);
}
