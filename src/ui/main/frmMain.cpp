// SPDX-License-Identifier: MIT
#include "ui/main/frmMain.h"

#include "app/OpenRules.h"
#include "app/modZELK.h"
#include "document/ConsistList.h"
#include "host/Folders.h"
#include "host/Guard.h"
#include "host/Path.h"
#include "host/Product.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "ui/dialogs/frmResults.h"
#include "ui/main/IconSet.h"
#include "ui/main/MainStatusBar.h"
#include "ui/main/WindowBounds.h"
#include "validation/TSValidation.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMenuBar>
#include <QPrinter>
#include <QScreen>
#include <QShortcut>
#include <QStyle>

#include <algorithm>
#include <initializer_list>

using app::Arrangement;
using document::Guarded;
using document::WindowMode;
using host::DialogIcon;

namespace {

constexpr QSize kListSize(340, 400), kEditorSize(660, 440), kViewSize(880, 520);

void place(QMdiSubWindow &window, const QRect &bounds)
{
    if (window.isMaximized())
        window.showNormal();
    window.setGeometry(bounds);
}

} // namespace

frmMain::frmMain(const app::Services &services, const std::string &file)
    : m_services(services)
    , m_shapes(services.files)
    , m_shell(services.dialogs, services.files, services.desktop, m_installation)
    , m_area(new QMdiArea(this))
    , m_switcher(*m_area)
    , m_checks(*this)
{
    buildFrame();
    buildStatusBar();
    buildMenus();
    buildToolBar();
    loadSettings();
    updateActions();
    if (file.empty())
        NewDocumentWindow(WindowMode::ConsistList, {});
}

frmMain::~frmMain()
{
    // The windows refer to this object; they must not outlive its members.
    for (frmDocument *window : Documents())
        delete window;
}

void frmMain::buildFrame()
{
    setObjectName("frmMain");
    setWindowTitle(QString::fromLatin1(host::product::kName.data()));
    setAcceptDrops(true);
    m_area->setObjectName("mdiArea");
    m_area->setAccessibleName(QStringLiteral("Document windows"));
    m_area->setActivationOrder(QMdiArea::ActivationHistoryOrder);
    m_area->setHorizontalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_area->setBackground(palette().brush(QPalette::Mid));
    setCentralWidget(m_area);
    connect(m_area, &QMdiArea::subWindowActivated, this, &frmMain::updateActions);
}

void frmMain::buildStatusBar()
{
    sbStatusBar = new app::MainStatusBar(this);
    setStatusBar(sbStatusBar);
    m_stopKey = new QShortcut(QKeySequence(Qt::Key_Escape), this);
    m_stopKey->setEnabled(false);
    connect(m_stopKey, &QShortcut::activated, this, &frmMain::stopWork);
    // The menu of a window's frame: to move, resize, minimise and restore it.
    auto *frameKey = new QShortcut(Qt::ALT | Qt::Key_Minus, this);
    connect(frameKey, &QShortcut::activated, this, [this] {
        if (frmDocument *window = ActiveDocument())
            window->showSystemMenu();
    });
}

void frmMain::buildMenus()
{
    menuBar()->setAccessibleName(QStringLiteral("Menus"));
    app::BuildMenus(*menuBar(), menuTable());
    for (const char *name : {"mnuFileMRU0", "mnuFileMRU1", "mnuFileMRU2"})
        command(name)->setVisible(false);
    command("mnuViewToolbar")->setChecked(true);
    command("mnuViewStatusBar")->setChecked(true);
    connect(menu("mnuWindow"), &QMenu::aboutToShow, this, &frmMain::listWindows);
}

void frmMain::buildToolBar()
{
    tbToolBar = addToolBar(QStringLiteral("Toolbar"));
    tbToolBar->setObjectName("tbToolBar");
    tbToolBar->setAccessibleName(QStringLiteral("Toolbar"));
    tbToolBar->setMovable(false);
    tbToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    tbToolBar->setIconSize({24, 24});
    app::BuildToolBar(*tbToolBar, *this,
                      {{"New", "New Consist", "consist-new", "mnuFileNewConsist"},
                       {"Open", "Open File", "open", "mnuFileOpen"},
                       {"Save", "Save Consist", "save", "mnuFileSave"},
                       {"Print", "Print", "print", "mnuFilePrint"},
                       {"", "", "", ""},
                       {"Cut", "Cut", "cut", "mnuEditCut"},
                       {"Copy", "Copy", "copy", "mnuEditCopy"},
                       {"Paste", "Paste", "paste", "mnuEditPaste"},
                       {"", "", "", ""},
                       {"Properties", "View Consist Properties", "edit", "mnuConsistEdit"},
                       {"Render", "View Consist in 3D", "render", "mnuConsistView"},
                       {"Filter", "Filter Consist List", "filter", "mnuViewFilter", "Filter"},
                       {"Options", "View Options", "options", ""}});
}

void frmMain::loadSettings()
{
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens << screen->availableGeometry();
    m_windowSettings = app::ReadWindowSettings(m_services.settings);
    const bool restores = m_windowSettings.maximised && !m_windowSettings.normal.isEmpty();
    const QRect bounds = app::FitToScreens(
        restores ? m_windowSettings.normal : app::ReadMainBounds(m_services.settings), screens);
    resize(bounds.size());
    move(bounds.topLeft());
    if (m_windowSettings.maximised)
        setWindowState(Qt::WindowMaximized);
    // Installed programs lie where users cannot write.
    const std::optional<std::string> pictures =
        m_services.settings.Read(host::setting::kScreenshots);
    m_screenShotFolder = pictures ? *pictures : host::ProgramFolder();
    m_installation.SetLocation(
        m_services.settings.Read(host::setting::kInstallation).value_or(std::string()));
}

void frmMain::saveSettings()
{
    Guarded(m_services.dialogs, "Save Settings", [this] {
        if (!isMinimized()) {
            app::WriteMainBounds(m_services.settings, QRect(pos(), size()));
            m_windowSettings.maximised = isMaximized();
            // Moving a window places its frame.
            m_windowSettings.normal = normalGeometry().translated(pos() - geometry().topLeft());
        }
        app::WriteWindowSettings(m_services.settings, m_windowSettings);
        m_services.settings.Write(host::setting::kInstallation, m_installation.CurrentFolder());
        m_services.settings.Write(host::setting::kScreenshots, m_screenShotFolder);
    });
}

void frmMain::OpenFile(const std::string &path)
{
    SetStatus({});
    const app::OpenKind kind = app::KindOf(path);
    if (const std::string refusal = app::RefusalOf(kind); !refusal.empty()) {
        m_services.dialogs.Message(refusal, "Open File", DialogIcon::Critical);
        return;
    }
    m_lastFolder = host::path::FolderWithSeparator(path);
    if (kind == app::OpenKind::Consist)
        OpenDocumentWindow(path, WindowMode::ConsistEditor, "Consist - " + path, {});
    else if (kind == app::OpenKind::Shape)
        OpenDocumentWindow(path, WindowMode::ShapeView, "Shape - " + path, {});
    else
        Guarded(m_services.dialogs, "Open File",
                [&] { kind == app::OpenKind::Stock ? openStock(path) : openActivity(path); });
}

frmDocument *frmMain::NewDocumentWindow(WindowMode mode, const std::string &fileName)
{
    const auto index = static_cast<std::size_t>(mode);
    if (index >= document::kWindowModes)
        throw host::RuntimeError(host::ErrorNumber::SubscriptOutOfRange,
                                 "window mode " + std::to_string(static_cast<int>(mode)));
    static constexpr const char *names[document::kWindowModes] = {"Consist List", "Consist",
                                                                  "Stock Item", ""};
    const int number = ++m_counters[index];
    return openWindow(fileName, mode, names[index] + (" " + std::to_string(number)), {}, number);
}

void frmMain::OpenDocumentWindow(const std::string &fileName, WindowMode mode,
                                 const std::string &caption, const StfNode &node)
{
    openWindow(fileName, mode, caption, node, 0);
}

frmDocument *frmMain::openWindow(const std::string &fileName, WindowMode mode,
                                 const std::string &caption, const StfNode &node, int number)
{
    auto *window = new frmDocument(*this, furnishing(), number);
    window->SetFileName(fileName);
    window->SetNode(node);
    window->SetMode(mode);
    addWindow(window);
    if (!Guarded(m_services.dialogs, "Open File", [window] { window->LoadForm(); })) {
        delete window;
        SetStatus({});
        return nullptr;
    }
    window->SetCaption(caption);
    window->show();
    keepInside(*window);
    return window;
}

void frmMain::addWindow(frmDocument *window)
{
    m_documents.push_back(window);
    connect(window, &frmDocument::Unloading, this, [this, window] {
        std::erase(m_documents, window);
        m_givenSizes.erase(window);
    });
    connect(window, &frmDocument::Closing, this, [this, window] { m_switcher.Leave(*window); });
    connect(window, &QObject::destroyed, this, &frmMain::updateActions);
    connect(window, &frmDocument::Saved, this, [this, window](const std::string &path) {
        for (frmDocument *other : Documents())
            if (other != window)
                other->ShowSavedElsewhere(path);
    });
    m_area->addSubWindow(window);
    giveSize(*window);
}

/// As large as a window of its kind likes to be, as far as there is room.
void frmMain::giveSize(frmDocument &window)
{
    const QSize wanted = window.Mode() == WindowMode::ConsistList     ? kListSize
                         : window.Mode() == WindowMode::ConsistEditor ? kEditorSize
                                                                      : kViewSize;
    window.resize(wanted.boundedTo(areaSize()).expandedTo({320, 260}));
    m_givenSizes[&window] = window.size();
}

/// Windows that had to do with less room take what there is now, unless somebody has given them
/// another size meanwhile.
void frmMain::growWindows()
{
    const QSize room = areaSize();
    for (frmDocument *window : documents(false)) {
        const QSize size = window->size();
        if (window->isMaximized() || size != m_givenSizes[window] || room != room.expandedTo(size))
            continue;
        giveSize(*window);
        keepInside(*window);
    }
}

/// The room for windows, also before the main window was laid out for the first time.
QSize frmMain::areaSize() const
{
    if (isVisible())
        return m_area->maximumViewportSize();
    const int bars = menuBar()->sizeHint().height() + tbToolBar->sizeHint().height() +
                     sbStatusBar->sizeHint().height();
    return size() - QSize(4, bars + 4);
}

/// A new window may begin anywhere; as much of it as fits is brought into view.
void frmMain::keepInside(frmDocument &window)
{
    const QSize area = areaSize();
    if (window.isMaximized())
        return;
    window.move(std::clamp(window.x(), 0, std::max(0, area.width() - window.width())),
                std::clamp(window.y(), 0, std::max(0, area.height() - window.height())));
}

frmDocument *frmMain::ActiveDocument() const
{
    return qobject_cast<frmDocument *>(m_area->currentSubWindow());
}

std::vector<frmDocument *> frmMain::Documents() const
{
    return m_documents;
}

QAction *frmMain::command(const char *name) const
{
    return findChild<QAction *>(QLatin1String(name), Qt::FindDirectChildrenOnly);
}

QMenu *frmMain::menu(const char *name) const
{
    return menuBar()->findChild<QMenu *>(QLatin1String(name));
}

document::Furnishing frmMain::furnishing()
{
    const auto popUp = [this](const char *name) {
        return [list = menu(name)](const QPoint &at) { list->popup(at); };
    };
    return {app::TintedIcon, popUp("mnuConsist"), popUp("mnuStock"), &m_windowSettings.editors};
}

void frmMain::updateActions()
{
    const frmDocument *active = ActiveDocument();
    const auto is = [active](WindowMode mode) { return active && active->Mode() == mode; };
    const bool list = is(WindowMode::ConsistList), editor = is(WindowMode::ConsistEditor),
               view = active && document::Is3D(active->Mode());
    const auto enable = [this](bool enabled, std::initializer_list<const char *> names) {
        for (const char *name : names)
            command(name)->setEnabled(enabled);
    };
    enable(active != nullptr, {"mnuFileClose", "mnuFilePrint", "mnuViewRefresh", "mnuWindowCascade",
                               "mnuWindowTileHorizontal", "mnuWindowTileVertical",
                               "mnuWindowArrangeIcons", "mnuWindowCloseAll"});
    enable(list || editor, {"mnuViewFilter", "mnuConsistView"});
    enable(editor || view, {"mnuFileSave", "mnuFileSaveAs"});
    enable(
        std::any_of(m_documents.begin(), m_documents.end(),
                    [](const auto *window) { return window->Mode() != WindowMode::ConsistList; }),
        {"mnuFileSaveAll"});
    enable(list, {"mnuConsistEdit", "mnuConsistCheckStock", "mnuEditCut", "mnuEditCopy"});
    enable(editor, {"mnuConsistViewShape", "mnuStockViewShape"});
    enable(view, {"mnuViewReset"});
    enable(list || view, {"mnuFileProperties"});
    // In the list of consists the key shows a consist in 3D.
    command("mnuFileProperties")
        ->setShortcut(view ? QKeySequence(Qt::ALT | Qt::Key_Return) : QKeySequence());
}

void frmMain::SaveDocument(bool quiet)
{
    frmDocument *window = ActiveDocument();
    if (window && document::Is3D(window->Mode()))
        saveSnapshot(*window);
    else if (window)
        window->SaveConsist(quiet);
}

std::string frmMain::consistFolder() const
{
    return document::ConsistFolder(m_installation, m_services.files);
}

void frmMain::SetStatus(const std::string &text)
{
    sbStatusBar->SetStatus(QString::fromStdString(text));
}

void frmMain::SetProgress(int done, int total)
{
    sbStatusBar->SetProgress(done, total);
    m_stopKey->setEnabled(total > 0 || m_checks.Running());
}

void frmMain::WriteLog(const std::string &text)
{
    modZELK::WriteLog(text);
}

void frmMain::stopWork()
{
    m_checks.Stop();
    for (frmDocument *window : Documents())
        window->StopWork();
}

void frmMain::Arrange(Arrangement how)
{
    m_tiling = how;
    const std::vector<frmDocument *> open = documents(false);
    if (how == Arrangement::Cascade)
        cascade();
    else if (how != Arrangement::ArrangeIcons && !open.empty())
        arrangeTiles(open, how);
    arrangeIcons();
}

/// In stacking order, so that the active window stays in front.
void frmMain::cascade()
{
    std::vector<QMdiSubWindow *> windows;
    for (QMdiSubWindow *window : m_area->subWindowList(QMdiArea::StackingOrder))
        if (window->isVisible() && !window->isMinimized())
            windows.push_back(window);
    if (windows.empty())
        return;
    const int titleHeight = style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const std::vector<QRect> places =
        app::Cascaded(roomForTiles(), static_cast<int>(windows.size()), kEditorSize, titleHeight);
    for (std::size_t i = 0; i < windows.size(); ++i)
        place(*windows[i], places[i]);
}

/// The area without the row of minimised windows.
QRect frmMain::roomForTiles() const
{
    QRect area(QPoint(0, 0), m_area->maximumViewportSize());
    if (const auto icons = documents(true); !icons.empty())
        area.setHeight(area.height() - icons.front()->height());
    return area;
}

void frmMain::arrangeTiles(const std::vector<frmDocument *> &windows, Arrangement how)
{
    QSize least(1, 1);
    for (const frmDocument *window : windows)
        least = least.expandedTo(window->minimumSize());
    const int count = static_cast<int>(windows.size());
    const std::vector<QRect> tiles = how == Arrangement::TileHorizontally
                                         ? app::StackedTiles(roomForTiles(), count, least)
                                         : app::SideBySideTiles(roomForTiles(), count, least);
    for (std::size_t i = 0; i < windows.size(); ++i)
        place(*windows[i], tiles[i]);
}

void frmMain::arrangeIcons()
{
    const std::vector<frmDocument *> icons = documents(true);
    if (icons.empty())
        return;
    const std::vector<QRect> places = app::IconRow(
        m_area->viewport()->rect(), icons.front()->size(), static_cast<int>(icons.size()));
    for (std::size_t i = 0; i < icons.size(); ++i)
        icons[i]->move(places[i].topLeft());
}

std::vector<frmDocument *> frmMain::documents(bool minimised) const
{
    std::vector<frmDocument *> found;
    for (frmDocument *window : m_documents)
        if (window->isVisible() && window->isMinimized() == minimised)
            found.push_back(window);
    return found;
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    if (command("mnuWindowLockTiling")->isChecked() &&
        (m_tiling == Arrangement::TileHorizontally || m_tiling == Arrangement::TileVertically))
        Arrange(m_tiling);
    else
        growWindows();
}

void frmMain::closeEvent(QCloseEvent *event)
{
    // Every window is asked before one of them goes, so that Cancel leaves all of them.
    for (frmDocument *window : Documents())
        if (!window->QueryUnload()) {
            event->ignore();
            return;
        }
    if (!m_unloading)
        saveSettings();
    m_unloading = true;
    m_checks.Abandon();
    for (frmResults *results : resultWindows())
        results->close();
    for (frmDocument *window : Documents()) {
        window->AllowUnload();
        delete window;
    }
    event->accept();
}
