// SPDX-License-Identifier: MIT
#include "ui/print/PrintJobs.h"

#include "app/modZELK.h"

#include <QDateTime>
#include <QLocale>

namespace app {

namespace {

constexpr char kDot[] = "  \xC2\xB7  "; // separates the facts of a line

} // namespace

PageFrame FrameOf(const std::string &title, const std::vector<std::string> &facts)
{
    std::string subtitle;
    for (const std::string &fact : facts)
        if (!fact.empty())
            subtitle += (subtitle.empty() ? "" : kDot) + fact;
    return {QString::fromStdString(title), QString::fromStdString(subtitle),
            QString::fromStdString(modZELK::MainCaption() + kDot) +
                QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat)};
}

PrintJob ResultsJob(const std::string &caption, const std::string &text)
{
    return {"Print Results", FrameOf(caption, {}),
            PrintText(text.empty() ? QStringLiteral("Nothing was found.")
                                   : QString::fromStdString(text))};
}

} // namespace app
