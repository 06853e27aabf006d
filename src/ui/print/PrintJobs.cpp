// SPDX-License-Identifier: MIT
#include "ui/print/PrintJobs.h"

#include "app/modZELK.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "ui/document/frmDocument.h"

#include <QDateTime>
#include <QLocale>

namespace app {

namespace {

constexpr char kDot[] = "  \xC2\xB7  "; // separates the facts of a line

PageFrame frameOf(const std::string &title, const std::string &subtitle)
{
    return {QString::fromStdString(title), QString::fromStdString(subtitle),
            QString::fromStdString(modZELK::MainCaption() + kDot) +
                QLocale().toString(QDateTime::currentDateTime(), QLocale::ShortFormat)};
}

PrintJob listJob(const frmDocument &window, const install::Installation &installation)
{
    QStringList names;
    for (const std::string &name : window.ShownConsists())
        names << QString::fromStdString(name);
    const std::string facts =
        host::Counted(static_cast<std::size_t>(names.size()), "consist", "consists") + kDot +
        installation.PathOf("Trains\\Consists");
    return {"Print Consist List", frameOf(window.Caption(), facts), PrintNames(std::move(names))};
}

/// The type of a flipped unit ends in "*".
QStringList vehicleRow(std::size_t number, document::StockItem item)
{
    const bool flipped = item.type.ends_with('*');
    if (flipped)
        item.type.pop_back();
    return {QString::number(number), QString::fromStdString(item.type),
            QString::fromStdString(item.folder), QString::fromStdString(item.shape),
            QLatin1String(flipped ? "flipped" : "")};
}

PrintJob consistJob(const frmDocument &window)
{
    const document::ConsistTree &consist = window.Consist();
    std::vector<QStringList> rows;
    for (const document::ConsistRow &row : consist.Rows())
        rows.push_back(vehicleRow(rows.size() + 1, row.item));
    std::string facts = host::Counted(rows.size(), "vehicle", "vehicles");
    if (!window.FileName().empty())
        facts += kDot + window.FileName();
    if (consist.Changed())
        facts += std::string(kDot) + "not saved yet";
    return {"Print Consist", frameOf(window.Caption(), facts),
            PrintTable({{QStringLiteral("No."), 0.07},
                        {QStringLiteral("Type"), 0.12},
                        {QStringLiteral("Folder"), 0.34},
                        {QStringLiteral("Shape"), 0.36},
                        {QStringLiteral("Flip"), 0.11}},
                       std::move(rows))};
}

} // namespace

PrintJob JobOf(frmDocument &window, const install::Installation &installation)
{
    constexpr int listMode = 0, editorMode = 1, consistViewMode = 2;
    if (window.Mode() == listMode)
        return listJob(window, installation);
    if (window.Mode() == editorMode)
        return consistJob(window);
    return {window.Mode() == consistViewMode ? "Print Consist View" : "Print Stock View",
            frameOf(window.Caption(), window.FileName()), PrintPicture(window.Picture())};
}

PrintJob ResultsJob(const std::string &caption, const std::string &text)
{
    return {"Print Results", frameOf(caption, {}),
            PrintText(text.empty() ? QStringLiteral("Nothing was found.")
                                   : QString::fromStdString(text))};
}

} // namespace app
