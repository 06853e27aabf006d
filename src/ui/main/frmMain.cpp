// SPDX-License-Identifier: MIT
#include "ui/main/frmMain.h"

#include "app/modZELK.h"
#include "document/ConsistList.h"
#include "document/WindowMode.h"
#include "host/Folders.h"
#include "host/Guard.h"
#include "host/Product.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "install/Installation.h"
#include "ui/document/StockFigures.h"
#include "ui/document/StockPictures.h"
#include "ui/main/CommandTable.h"
#include "ui/main/DesktopMotion.h"
#include "ui/main/IconSet.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MainStatusBar.h"
#include "ui/main/WindowArranger.h"
#include "ui/main/WindowBounds.h"
#include "validation/TSValidation.h"

#include <QCloseEvent>
#include <QGuiApplication>
#include <QMdiArea>
#include <QMenu>
#include <QMenuBar>
#include <QScreen>
#include <QShortcut>
#include <QToolBar>

#include <algorithm>

using document::Guarded;
using document::WindowMode;

frmMain::frmMain(const install::Environment &environment, app::Desktop &desktop,
                 app::Printers &printers, const std::string &file)
    : m_environment(environment)
    , m_area(new QMdiArea(this))
    , m_switcher(*m_area)
{
    buildFrame();
    buildStatusBar();
    buildMenus();
    buildToolBar();
    m_arranger = std::make_unique<app::WindowArranger>(
        *m_area, std::vector<const QWidget *>{menuBar(), tbToolBar, sbStatusBar}, m_documents);
    m_handlers = std::make_unique<app::Handlers>(
        *this, app::HandlerParts{desktop, printers, *m_menus, *tbToolBar, *sbStatusBar,
                                 m_screenShotFolder});
    loadSettings();
    m_figures = std::make_unique<document::StockFigures>(m_environment, m_windowSettings.editors);
    m_pictures = std::make_unique<document::StockPictures>(m_environment, m_windowSettings.editors);
    updateActions();
    if (file.empty())
        NewDocumentWindow(WindowMode::ConsistList, {});
}

frmMain::~frmMain()
{
    // The windows refer to this object; they must not outlive its members.
    m_handlers->healthWindows.CloseAll();
    m_handlers->replaceWindows.CloseAll();
    for (frmDocument *window : Documents())
        delete window;
}

void frmMain::buildFrame()
{
    setObjectName("frmMain");
    setWindowTitle(QString::fromLatin1(host::product::kName.data()));
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
    // Opens the menu of a window's frame, to move, resize, minimise and restore it.
    auto *frameKey = new QShortcut(Qt::ALT | Qt::Key_Minus, this);
    connect(frameKey, &QShortcut::activated, this, [this] {
        if (frmDocument *window = ActiveDocument())
            window->showSystemMenu();
    });
}

void frmMain::buildMenus()
{
    menuBar()->setAccessibleName(QStringLiteral("Menus"));
    m_menus = std::make_unique<app::MainMenu>(
        *menuBar(), [this](const app::CommandRow &command) { run(command); });
    QMenu &menu = m_menus->MenuOf(app::Menu::Window);
    menu.addSeparator();
    connect(&menu, &QMenu::aboutToShow, this, [this, &menu] { m_handlers->windowList.Fill(menu); });
    // Another program may have replaced vehicles since.
    connect(&m_menus->MenuOf(app::Menu::Stock), &QMenu::aboutToShow, this, &frmMain::updateActions);
}

void frmMain::buildToolBar()
{
    tbToolBar = addToolBar(QStringLiteral("Toolbar"));
    tbToolBar->setObjectName("tbToolBar");
    tbToolBar->setAccessibleName(QStringLiteral("Toolbar"));
    tbToolBar->setMovable(false);
    tbToolBar->setContextMenuPolicy(Qt::PreventContextMenu);
    tbToolBar->setIconSize({24, 24});
    m_menus->FillToolBar(*tbToolBar);
}

void frmMain::loadSettings()
{
    QList<QRect> screens;
    for (const QScreen *screen : QGuiApplication::screens())
        screens << screen->availableGeometry();
    m_windowSettings = app::ReadWindowSettings(m_environment.settings);
    m_menus->ActionOf(app::Command::ViewPreview).setChecked(m_windowSettings.editors.preview);
    m_menus->ActionOf(app::Command::ViewLoads).setChecked(m_windowSettings.loads);
    const bool restores = m_windowSettings.maximised && !m_windowSettings.normal.isEmpty();
    const QRect bounds = app::FitToScreens(
        restores ? m_windowSettings.normal : app::ReadMainBounds(m_environment.settings), screens);
    resize(bounds.size());
    move(bounds.topLeft());
    if (m_windowSettings.maximised)
        setWindowState(Qt::WindowMaximized);
    // Users cannot write to the folders of installed programs.
    const std::optional<std::string> pictures =
        m_environment.settings.Read(host::setting::kScreenshots);
    m_screenShotFolder = pictures ? *pictures : host::ProgramFolder();
    m_environment.installation.SetLocation(
        m_environment.settings.Read(host::setting::kInstallation).value_or(std::string()));
}

void frmMain::saveSettings()
{
    Guarded(m_environment.dialogs, "Save Settings", [this] {
        if (!isMinimized()) {
            app::WriteMainBounds(m_environment.settings, QRect(pos(), size()));
            m_windowSettings.maximised = isMaximized();
            // QWidget::move places the frame of a window, not its content.
            m_windowSettings.normal = normalGeometry().translated(pos() - geometry().topLeft());
        }
        app::WriteWindowSettings(m_environment.settings, m_windowSettings);
        m_environment.settings.Write(host::setting::kInstallation,
                                     m_environment.installation.CurrentFolder());
        m_environment.settings.Write(host::setting::kScreenshots, m_screenShotFolder);
    });
}

/// Runs a command of the menus. The status bar shows only its outcome, or nothing after a failure.
void frmMain::run(const app::CommandRow &command)
{
    SetStatus({});
    if (!Guarded(m_environment.dialogs, windowTitle().toStdString(),
                 [&] { command.run(*m_handlers); }))
        SetStatus({});
}

void frmMain::updateActions()
{
    app::WindowFacts facts;
    if (const frmDocument *active = ActiveDocument()) {
        facts.window = true;
        facts.list = active->Mode() == WindowMode::ConsistList;
        facts.editor = active->Mode() == WindowMode::ConsistEditor;
        facts.view = document::Is3D(active->Mode());
    }
    facts.undo = true;
    std::string undo, redo;
    if (facts.editor) {
        undo = ActiveDocument()->Consist().UndoName();
        redo = ActiveDocument()->Consist().RedoName();
        facts.undo = !undo.empty();
        facts.redo = !redo.empty();
    }
    m_menus->NameStep(app::Command::EditUndo, undo);
    m_menus->NameStep(app::Command::EditRedo, redo);
    facts.saves = std::any_of(m_documents.begin(), m_documents.end(), [](const auto *window) {
        return window->Mode() != WindowMode::ConsistList;
    });
    const std::optional<std::string> change = m_handlers->replaceWindows.Undoable();
    facts.undoReplace = change.has_value();
    if (change)
        m_menus->ActionOf(app::Command::StockUndoReplace)
            .setToolTip(QString::fromStdString(*change));
    m_menus->Update(facts);
    UpdateSceneOptions();
}

void frmMain::UpdateSceneOptions()
{
    m_handlers->scene.ShowState(*m_menus, app::kSceneMarks);
}

void frmMain::stopWork()
{
    m_handlers->checking.Stop();
    m_handlers->healthWindows.Stop();
    for (frmDocument *window : Documents())
        window->StopWork();
}

void frmMain::OpenFile(const std::string &path)
{
    m_handlers->opener.Open(path);
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

void frmMain::OpenVehicleWindow(const std::string &shapeFile, const std::string &vehicle,
                                const std::string &caption)
{
    openWindow(shapeFile, WindowMode::ShapeView, caption, {}, 0, vehicle);
}

void frmMain::ShowLoads(bool shown)
{
    m_windowSettings.loads = shown;
    m_menus->ActionOf(app::Command::ViewLoads).setChecked(shown);
    for (frmDocument *window : Documents())
        window->ShowLoads(shown);
}

frmDocument *frmMain::openWindow(const std::string &fileName, WindowMode mode,
                                 const std::string &caption, const StfNode &node, int number,
                                 const std::string &vehicle)
{
    auto *window = new frmDocument(m_environment, *this, furnishing(), number);
    window->SetFileName(fileName);
    window->SetNode(node);
    window->SetVehicle(vehicle);
    window->SetMode(mode);
    window->ShowLoads(m_windowSettings.loads);
    addWindow(window);
    if (!Guarded(m_environment.dialogs, "Open File", [window] { window->LoadForm(); })) {
        delete window;
        SetStatus({});
        return nullptr;
    }
    window->SetCaption(caption);
    window->show();
    m_arranger->KeepInside(*window);
    return window;
}

void frmMain::addWindow(frmDocument *window)
{
    m_documents.push_back(window);
    connect(window, &frmDocument::Unloading, this, [this, window] {
        std::erase(m_documents, window);
        m_arranger->Forget(*window);
    });
    connect(window, &frmDocument::Closing, this, [this, window] { m_switcher.Leave(*window); });
    connect(window, &QObject::destroyed, this, &frmMain::updateActions);
    connect(window, &frmDocument::StepsChanged, this, &frmMain::updateActions);
    connect(window, &frmDocument::OptionsChanged, this, &frmMain::UpdateSceneOptions);
    connect(window, &frmDocument::Saved, this, [this, window](const std::string &path) {
        for (frmDocument *other : Documents())
            if (other != window)
                other->ShowSavedElsewhere(path);
        m_handlers->replaceWindows.FollowSave();
    });
    m_area->addSubWindow(window);
    m_arranger->Add(*window);
}

document::Furnishing frmMain::furnishing()
{
    const auto popUp = [this](app::Menu menu) {
        return [this, menu](const QPoint &at) { m_menus->MenuOf(menu).popup(at); };
    };
    return {app::TintedIcon,
            popUp(app::Menu::Consist),
            [this](const QPoint &at) { popUpEditorMenu(at); },
            &m_windowSettings.editors,
            m_figures.get(),
            m_pictures.get()};
}

/// The menu of stock, with the commands on units in front; those of the clipboard only work in the
/// train.
void frmMain::popUpEditorMenu(const QPoint &at)
{
    std::vector<QAction *> more{m_menus->MenuOf(app::Menu::Units).menuAction()};
    const frmDocument *active = ActiveDocument();
    if (active && active->UnitIsMissing())
        for (const app::Command command :
             {app::Command::UnitsReplace, app::Command::UnitsFindCandidates})
            more.push_back(&m_menus->ActionOf(command));
    if (active && active->TrainIsActive())
        for (const app::Command command :
             {app::Command::EditCut, app::Command::EditCopy, app::Command::EditPaste})
            more.push_back(&m_menus->ActionOf(command));
    m_menus->PopUp(app::Menu::Stock, at, more);
}

frmDocument *frmMain::ActiveDocument() const
{
    return qobject_cast<frmDocument *>(m_area->currentSubWindow());
}

std::vector<frmDocument *> frmMain::Documents() const
{
    return m_documents;
}

void frmMain::Arrange(app::Arrangement how)
{
    m_arranger->Arrange(how);
}

void frmMain::ShowPreview(bool show)
{
    m_pictures->ShowPreview(show);
}

void frmMain::SaveDocument(bool quiet)
{
    frmDocument *window = ActiveDocument();
    if (window && document::Is3D(window->Mode()))
        saveSnapshot(*window);
    else if (window)
        window->SaveConsist(quiet);
}

void frmMain::SaveDocumentAs()
{
    frmDocument *window = ActiveDocument();
    if (window && window->Mode() == WindowMode::ConsistEditor)
        window->SaveConsistAs();
    else
        SaveDocument(false); // a 3D window saves a picture
}

void frmMain::saveSnapshot(frmDocument &window)
{
    if (!Guarded(m_environment.dialogs, "Save Snapshot",
                 [&] { window.SaveSnapshot(m_screenShotFolder); }))
        SetStatus("The picture was not saved.");
}

std::string frmMain::ConsistFolder() const
{
    return document::ConsistFolder(m_environment.installation, m_environment.files);
}

void frmMain::SendFile()
{
    m_handlers->Say("File Send not yet implemented");
}

void frmMain::ShowTextWindow(const std::string &title, const std::string &text)
{
    m_handlers->results.Show(modZELK::TextWindowCaption(title), text);
}

void frmMain::ChooseInstallation()
{
    m_menus->ActionOf(app::Command::FileSetMSTSLoc).trigger();
}

void frmMain::OpenOutside(const std::string &path)
{
    m_handlers->shell.Open(path, "Open");
}

void frmMain::SetStatus(const std::string &text)
{
    sbStatusBar->SetStatus(QString::fromStdString(text));
}

void frmMain::SetProgress(int done, int total)
{
    sbStatusBar->SetProgress(done, total);
    m_stopKey->setEnabled(total > 0 || m_handlers->checking.Running() ||
                          m_handlers->healthWindows.Running());
}

bool frmMain::Animates()
{
    if (!m_animates)
        m_animates = app::DesktopAnimates();
    return *m_animates;
}

void frmMain::WriteLog(const std::string &text)
{
    modZELK::WriteLog(text);
}

void frmMain::Validator_ErrorRaised(const std::string &, const std::string &,
                                    std::int16_t errorCode)
{
    m_handlers->checkView.CountError(errorCode);
}

void frmMain::Validator_MessageRaised(const std::string &message, std::int16_t)
{
    m_handlers->checkView.ShowMessage(message);
}

void frmMain::resizeEvent(QResizeEvent *event)
{
    QMainWindow::resizeEvent(event);
    m_arranger->AreaResized(m_menus->IsChecked(app::Command::WindowLockTiling));
}

void frmMain::closeEvent(QCloseEvent *event)
{
    // Ask every window before one of them closes, so that Cancel keeps all of them.
    for (frmDocument *window : Documents())
        if (!window->QueryUnload()) {
            event->ignore();
            return;
        }
    if (!m_unloading)
        saveSettings();
    m_unloading = true;
    m_handlers->checking.Abandon();
    m_handlers->healthWindows.CloseAll();
    m_handlers->replaceWindows.CloseAll();
    m_handlers->results.CloseAll();
    for (frmDocument *window : Documents()) {
        window->AllowUnload();
        delete window;
    }
    event->accept();
}
