// SPDX-License-Identifier: MIT
// The commands of the main window that show something in 3D.
#include "ui/main/frmMain.h"

#include "app/modZELK.h"
#include "host/Guard.h"
#include "host/Path.h"
#include "viewer/LooseConsists.h"
#include "viewer/Numbers.h"
#include "viewer/StockShape.h"

#include <QTimer>

using document::EditorAction;
using document::Guarded;
using document::WindowMode;
using host::DialogIcon;

namespace {

constexpr int kBetweenWindows = 500; ///< milliseconds, so that each is drawn before the next opens

} // namespace

void frmMain::openStock(const std::string &path)
{
    const viewer::StockShape stock = viewer::ReadStockShapeToShow(m_services.files, path);
    const bool wagon = host::path::Extension(path) == "wag";
    OpenDocumentWindow(stock.shapeFile, WindowMode::ShapeView,
                       (wagon ? "Wagon - " : "Engine - ") + stock.name, {});
}

void frmMain::openActivity(const std::string &path)
{
    const std::vector<StfNode> trains = viewer::ReadLooseConsists(m_services.files, path);
    const int total = static_cast<int>(trains.size());
    const std::string answer =
        m_services.dialogs
            .Input("Found " + std::to_string(total) + " loose consist(s) in activity " + path +
                       "\n\nWhich do you want to load?",
                   "Activity Loose Consists", "*")
            .value_or(std::string());
    const bool idle = m_looseConsists.empty();
    for (int i = 1; i <= total; ++i)
        if (answer == "*" || viewer::LeadingNumber(answer) == static_cast<float>(i))
            m_looseConsists.push_back({path, i, total, trains[static_cast<std::size_t>(i - 1)]});
    if (idle)
        openNextLooseConsist();
}

/// The list keeps the item while its window opens, so that only one chain of windows runs.
void frmMain::openNextLooseConsist()
{
    if (m_looseConsists.empty())
        return;
    const LooseConsist item = m_looseConsists.front();
    const std::string number = std::to_string(item.number);
    SetStatus("Loading item " + number + " of " + std::to_string(item.total) + " from " +
              item.file);
    if (item.trainCfg)
        OpenDocumentWindow(item.file, WindowMode::ConsistView,
                           "Loose Consist " + number + " from " + item.file, item.trainCfg);
    else
        m_services.dialogs.Message(item.file + ": loose consist " + number +
                                       " has no Train_Config with a train in it",
                                   "Open File", DialogIcon::Critical);
    m_looseConsists.pop_front();
    if (!m_looseConsists.empty())
        QTimer::singleShot(kBetweenWindows, this, &frmMain::openNextLooseConsist);
}

void frmMain::viewSelectedConsist()
{
    frmDocument *window = ActiveDocument();
    if (!window)
        return;
    const std::string name = window->SelectedConsist();
    if (window->Mode() == WindowMode::ConsistEditor) {
        window->ActionClick(EditorAction::ViewConsist);
    } else if (window->Mode() == WindowMode::ConsistList && !name.empty()) {
        const std::string only = onlyOne(*window, "was opened");
        window->ViewConsist(name);
        remarkOnOpened(*window, only);
    } else {
        m_services.dialogs.Message("Nothing selected!", "View Consist", DialogIcon::Critical);
    }
}

void frmMain::viewSelectedShape()
{
    frmDocument *window = ActiveDocument();
    if (!window)
        return;
    if (window->SelectedItem().empty())
        m_services.dialogs.Message("Nothing selected!", "View Shape", DialogIcon::Critical);
    else
        window->ActionClick(EditorAction::ViewShape);
}

void frmMain::resetView()
{
    if (frmDocument *window = ActiveDocument())
        window->ResetView();
}

void frmMain::showProperties()
{
    if (frmDocument *window = ActiveDocument())
        window->ShowProperties();
}

void frmMain::saveSnapshot(frmDocument &window)
{
    if (!Guarded(m_services.dialogs, "Save Snapshot",
                 [&] { window.SaveSnapshot(m_screenShotFolder); }))
        SetStatus("The picture was not saved.");
}

void frmMain::openPicturesFolder()
{
    m_shell.Open(m_screenShotFolder, "Open Pictures Folder");
}

void frmMain::OpenOutside(const std::string &path)
{
    m_shell.Open(path, "Open");
}

void frmMain::ShowTextWindow(const std::string &title, const std::string &text)
{
    modZELK::ShowTextWindow(*this, title, text);
}
