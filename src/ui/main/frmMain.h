// SPDX-License-Identifier: MIT
#pragma once

#include "app/CheckCommands.h"
#include "app/ShellCommands.h"
#include "host/Dialogs.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/frmDocument.h"
#include "ui/main/MainMenu.h"
#include "ui/main/MdiLayout.h"
#include "ui/main/WindowSettings.h"
#include "ui/main/WindowSwitcher.h"

#include <QElapsedTimer>
#include <QMainWindow>

#include <array>
#include <cstdint>
#include <deque>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMdiArea;
class QPrinter;
class QShortcut;
class frmResults;

namespace host {
class GameFiles;
class SettingsStore;
} // namespace host

namespace app {

class Desktop;
class MainStatusBar;
class Printers;
struct PrintJob;

/// What the main window works with; everything must outlive it.
struct Services
{
    host::Dialogs &dialogs;
    host::GameFiles &files;
    host::SettingsStore &settings;
    Desktop &desktop;
    Printers &printers;
};

} // namespace app

/// The main window: menus, toolbar and status bar around the document windows. Commands work on the
/// active document window. Closing it closes the program.
class frmMain : public QMainWindow, public document::DocumentHost, public app::CheckHost
{
    Q_OBJECT

public:
    /// Reads the settings. Without a file to open it begins with a list of the installed consists.
    frmMain(const app::Services &services, const std::string &file);
    ~frmMain() override;

    /// Opens a file of any kind in a window of its own, or says why not.
    void OpenFile(const std::string &path);
    /// Opens a new numbered window. Returns null if it could not be filled, after a message. Error
    /// 9 for a number that is not a mode.
    frmDocument *NewDocumentWindow(document::WindowMode mode, const std::string &fileName);
    /// The active document window, or null.
    frmDocument *ActiveDocument() const;
    /// All document windows in the order in which they were opened.
    std::vector<frmDocument *> Documents() const;
    /// Arranges the windows and remembers how.
    void Arrange(app::Arrangement how);
    /// A command that no menu has: says that it is not there yet.
    void SendFile();

    host::Dialogs &Dialogs() override { return m_services.dialogs; }
    host::GameFiles &Files() override { return m_services.files; }
    const install::Installation &Installation() override { return m_installation; }
    korvat::ModelSource &Shapes() override { return m_shapes; }
    void OpenDocumentWindow(const std::string &fileName, document::WindowMode mode,
                            const std::string &caption, const StfNode &node) override;
    void SaveDocument(bool quiet) override;
    void ShowTextWindow(const std::string &title, const std::string &text) override;
    void OpenOutside(const std::string &path) override;
    void SetStatus(const std::string &text) override;
    void SetProgress(int done, int total) override;
    void WriteLog(const std::string &text) override;

    TSValidation &NewValidator() override;
    void ProcessEvents() override;
    std::string Now() override;
    void ShowResults(const std::string &caption, const std::string &text) override;
    /// What the validator tells while it checks: the status bar shows its progress and counts its
    /// errors.
    void Validator_ErrorRaised(const std::string &dependentFile, const std::string &fileName,
                               std::int16_t errorCode);
    void Validator_MessageRaised(const std::string &message, std::int16_t level);
    /// Of the last check command; null before the first.
    std::unique_ptr<TSValidation> Validator;

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;
    void dragEnterEvent(QDragEnterEvent *event) override;
    void dropEvent(QDropEvent *event) override;

private:
    // frmMain.cpp
    void buildFrame();
    void buildMenus();
    void buildToolBar();
    void buildStatusBar();
    void loadSettings();
    void saveSettings();
    frmDocument *openWindow(const std::string &fileName, document::WindowMode mode,
                            const std::string &caption, const StfNode &node, int number);
    void addWindow(frmDocument *window);
    void giveSize(frmDocument &window);
    void growWindows();
    QSize areaSize() const;
    void keepInside(frmDocument &window);
    void updateActions();
    void stopWork();
    void cascade();
    QRect roomForTiles() const;
    void arrangeTiles(const std::vector<frmDocument *> &windows, app::Arrangement how);
    void arrangeIcons();
    std::vector<frmDocument *> documents(bool minimised) const;
    QAction *command(const char *name) const;
    std::string consistFolder() const;
    QMenu *menu(const char *name) const;
    document::Furnishing furnishing();

    // frmMainDrop.cpp
    void openDropped(const std::vector<std::string> &paths);
    void offerLocation(const std::string &folder);

    // frmMainCommands.cpp
    std::vector<app::MenuEntry> menuTable();
    std::vector<app::MenuEntry> fileMenu();
    std::vector<app::MenuEntry> editMenu();
    std::vector<app::MenuEntry> consistMenu();
    std::vector<app::MenuEntry> stockMenu();
    std::vector<app::MenuEntry> viewMenu();
    std::vector<app::MenuEntry> windowMenu();
    std::vector<app::MenuEntry> helpMenu();
    std::function<void()> doing(void (frmMain::*handler)());
    std::function<void()> arranging(app::Arrangement how);
    std::function<void()> saying(const char *text);
    void newConsist();
    void newConsistList();
    void openFileDialog();
    void closeActive();
    void closeAll();
    void save();
    void saveAs();
    void saveAll();
    void setMstsLocation();
    bool mayChangeLocation();
    void changeLocation(const std::string &location);
    void editSelectedConsist();
    static std::string onlyOne(const frmDocument &list, const char *verb);
    void remarkOnOpened(const frmDocument &list, const std::string &remark);
    bool mayDropChanges();
    void refresh();
    void filter();
    void toggleToolBar();
    void toggleStatusBar();
    void listWindows();
    void listWindow(QWidget &window, const QString &caption, bool active,
                    const std::function<void()> &activate);

    // frmMainChecks.cpp
    std::optional<app::CheckTarget> checkTarget() const;
    void checkDependencies();
    void checkConsistStock();
    void checkAllStock();
    void checkStockTextures();
    std::vector<frmResults *> resultWindows() const;

    // frmMainShell.cpp
    void copyConsist();
    void pasteConsist();
    void cutConsist();
    void startSimulator();
    void startEditors();
    void startShapeViewer();
    void setFileAssociation();
    void showHelpContents();
    void showHelpSearch();
    void showWebSite();
    void showAbout();
    void showSystemInfo(QWidget &parent);
    QPrinter &printer();
    void printActive();
    void print(const app::PrintJob &job);
    void pageSetup();

    // frmMainViews.cpp
    void openStock(const std::string &path);
    void openActivity(const std::string &path);
    void openNextLooseConsist();
    void viewSelectedConsist();
    void viewSelectedShape();
    void resetView();
    void showProperties();
    void saveSnapshot(frmDocument &window);
    void openPicturesFolder();

    /// A loose consist of an activity that waits for its window.
    struct LooseConsist
    {
        std::string file;
        int number = 0, total = 0;
        StfNode trainCfg;
    };

    app::Services m_services;
    korvat::ModelLibrary m_shapes;
    install::Installation m_installation;
    app::ShellCommands m_shell;
    std::unique_ptr<QPrinter> m_printer; ///< made when it is first needed
    std::string m_screenShotFolder;
    std::string m_lastFolder;             ///< of the file opened last, "" before the first
    app::WindowSettings m_windowSettings; ///< read at the start; editors keep their part current
    QMdiArea *m_area;
    app::WindowSwitcher m_switcher;
    QToolBar *tbToolBar = nullptr;
    app::MainStatusBar *sbStatusBar = nullptr;
    app::CheckCommands m_checks;
    int m_errorsFound = 0;       ///< by the check that runs or was the last
    QElapsedTimer m_sinceEvents; ///< when a check last let window events run
    QShortcut *m_stopKey = nullptr;
    std::vector<frmDocument *> m_documents;            ///< in the order of opening
    std::map<const frmDocument *, QSize> m_givenSizes; ///< for want of a size of the user's
    std::vector<QAction *> m_windowItems; ///< the list of windows at the end of the Window menu
    std::array<int, document::kWindowModes>
        m_counters{}; ///< numbers given to windows so far, by mode
    std::deque<LooseConsist> m_looseConsists;
    app::Arrangement m_tiling = app::Arrangement::Cascade;
    bool m_unloading = false;
};
