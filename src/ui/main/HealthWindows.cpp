// SPDX-License-Identifier: MIT
#include "ui/main/HealthWindows.h"

#include "app/OpenRules.h"
#include "app/ShellCommands.h"
#include "host/Dialogs.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "ui/health/frmHealth.h"
#include "ui/main/FileOpener.h"
#include "ui/main/Printing.h"
#include "ui/main/WindowBounds.h"
#include "ui/main/frmMain.h"
#include "ui/print/PrintJobs.h"
#include "viewer/VehicleReader.h"

#include <QScreen>

#include <exception>

namespace app {

namespace {

constexpr char kTitle[] = "Health Report";
/// The offset between the windows of a cascade in pixels, and the number of windows in it.
constexpr int kCascadeStep = 26, kCascadeLength = 8;

} // namespace

HealthWindows::HealthWindows(frmMain &window, FileOpener &opener, ShellCommands &shell,
                             Printing &printing)
    : m_window(window)
    , m_opener(opener)
    , m_shell(shell)
    , m_printing(printing)
{
}

void HealthWindows::Show(const std::string &caption, const std::vector<std::string> &consists)
{
    if (!m_shell.HasInstallation(kTitle))
        return;
    const std::string given = m_window.Environment().installation.CurrentFolder();
    const auto path = host::GamePath::Of(given);
    const std::string folder = path ? path->text : given;
    frmHealth *health = find(folder, consists);
    if (frmHealth *busy = running(); busy && busy != health)
        return refuse();
    if (!health)
        health = &newWindow(folder, consists);
    health->SetCaption(caption);
    health->setWindowState(health->windowState() & ~Qt::WindowMinimized);
    health->show();
    health->raise();
    health->activateWindow();
    health->Run();
}

frmHealth *HealthWindows::find(const std::string &folder,
                               const std::vector<std::string> &consists) const
{
    for (frmHealth *open : Open())
        if (open->Folder() == folder && open->Consists() == consists)
            return open;
    return nullptr;
}

frmHealth &HealthWindows::newWindow(const std::string &folder,
                                    const std::vector<std::string> &consists)
{
    auto *health = new frmHealth(m_window.Environment(), folder, consists, &m_window);
    connectWindow(*health);
    place(*health);
    return *health;
}

void HealthWindows::connectWindow(frmHealth &health)
{
    QObject::connect(&health, &frmHealth::RunRequested, &m_window,
                     [this, &health] { Running() ? refuse() : health.Run(); });
    QObject::connect(&health, &frmHealth::StatusChanged, &m_window,
                     [this](const std::string &text) { m_window.SetStatus(text); });
    QObject::connect(&health, &frmHealth::Progressed, &m_window,
                     [this](int done, int total) { m_window.SetProgress(done, total); });
    QObject::connect(&health, &frmHealth::OpenRequested, &m_window,
                     [this](const std::string &path) { open(path); });
    QObject::connect(&health, &frmHealth::FolderRequested, &m_window,
                     [this](const std::string &path) { openFolder(path); });
    QObject::connect(&health, &frmHealth::PrintRequested, &m_window, [this, &health] {
        m_printing.Print(ResultsJob(health.Caption(), health.ReportText()));
    });
}

void HealthWindows::place(frmHealth &health) const
{
    const auto others = static_cast<int>(Open().size()) % kCascadeLength;
    QRect bounds(QPoint(), health.size());
    bounds.moveCenter(m_window.geometry().center() + QPoint(others, others) * kCascadeStep);
    bounds = WithinScreen(bounds, m_window.screen()->availableGeometry());
    health.move(bounds.topLeft());
    health.resize(bounds.size());
}

void HealthWindows::refuse() const
{
    m_window.Environment().dialogs.Message(
        "A health report is running.  Wait until it has ended, or press Esc in its window to "
        "stop it.",
        kTitle, host::DialogIcon::Information);
}

void HealthWindows::open(const std::string &path)
{
    const OpenKind kind = KindOf(path);
    const bool opens = kind == OpenKind::Consist || kind == OpenKind::Shape ||
                       (kind == OpenKind::Stock && showsShape(path));
    if (!opens) {
        openFolder(path);
        return;
    }
    m_opener.Open(path);
    m_window.activateWindow();
}

/// True if a 3D view can show the vehicle.
bool HealthWindows::showsShape(const std::string &stockFile) const
{
    try {
        const install::Environment &environment = m_window.Environment();
        return environment.files.FileExists(
            viewer::ReadVehicleToShow(environment, stockFile).shapeFile);
    } catch (const std::exception &) {
        return false; // the folder of the vehicle is opened instead
    }
}

/// Opens the folder that contains the file, or the nearest one above it that exists.
void HealthWindows::openFolder(const std::string &path)
{
    host::GameFiles &files = m_window.Environment().files;
    std::string folder = path;
    do
        folder = host::path::Folder(folder);
    while (!files.FolderExists(folder) && host::path::Folder(folder) != folder && folder != ".");
    m_shell.Open(folder, "Show in File Manager");
}

std::vector<frmHealth *> HealthWindows::Open() const
{
    std::vector<frmHealth *> open;
    for (frmHealth *health :
         m_window.findChildren<frmHealth *>(QString(), Qt::FindDirectChildrenOnly))
        if (health->isVisible())
            open.push_back(health);
    return open;
}

frmHealth *HealthWindows::running() const
{
    for (frmHealth *health : Open())
        if (health->Running())
            return health;
    return nullptr;
}

void HealthWindows::Stop()
{
    if (frmHealth *health = running())
        health->Stop();
}

void HealthWindows::CloseAll()
{
    for (frmHealth *health : Open()) {
        health->Abandon();
        health->close();
    }
}

} // namespace app
