// SPDX-License-Identifier: MIT
#include "GuiTest.h"
#include "host/Path.h"
#include "samples/Defects.h"
#include "samples/Sample.h"
#include "ui/dialogs/frmResults.h"

#include <QPlainTextEdit>

#include <algorithm>
#include <set>
#include <sstream>

using SampleCheckTest = GuiTest;

TEST_F(SampleCheckTest, SampleHasExactlyThePlannedDefects)
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
                    line.replace(at, 6, host::path::Normalise(folder));
                planned.insert(line);
            }
    frmResults &form = Find<frmResults>(*window, "frmResults");
    std::istringstream lines(form.txtResults->toPlainText().toStdString());
    for (std::string line; std::getline(lines, line);)
        found.insert(line);
    EXPECT_EQ(found, planned);
}
