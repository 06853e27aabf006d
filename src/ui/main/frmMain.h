// SPDX-License-Identifier: MIT
#pragma once

#include "host/Dialogs.h"
#include "install/Environment.h"
#include "install/Installation.h"
#include "ui/document/DocumentHost.h"
#include "ui/document/frmDocument.h"
#include "ui/main/MdiLayout.h"
#include "ui/main/WindowSettings.h"
#include "ui/main/WindowSwitcher.h"

#include <QMainWindow>

#include <array>
#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <vector>

class QMdiArea;
class QShortcut;
class QToolBar;
class TSValidation;

namespace document {
class StockFigures;
class StockPictures;
} // namespace document
namespace app {

class Desktop;
class MainMenu;
class MainStatusBar;
class Printers;
class WindowArranger;
struct CommandRow;
struct Handlers;

} // namespace app

/// The main window: menus, toolbar and status bar around the document windows. CommandTable.h lists
/// the commands of the menus, which work on the active document window. Closing the main window
/// ends the program.
class frmMain : public QMainWindow, public document::DocumentHost
{
    Q_OBJECT

public:
    /// Reads the settings. Without a file to open, starts with a list of the installed consists.
    frmMain(const install::Environment &environment, app::Desktop &desktop, app::Printers &printers,
            const std::string &file);
    ~frmMain() override;

    /// Opens a file of any kind in a new window, or shows a message with the reason why not.
    void OpenFile(const std::string &path);
    /// Opens a new numbered window. Returns null if it could not be filled, after a message. Error
    /// 9 for a number that is not a mode.
    frmDocument *NewDocumentWindow(document::WindowMode mode, const std::string &fileName);
    /// Returns the active document window, or null.
    frmDocument *ActiveDocument() const;
    /// Returns all document windows in the order in which they were opened.
    std::vector<frmDocument *> Documents() const;
    /// Arranges the windows and remembers the arrangement.
    void Arrange(app::Arrangement how);
    /// Shows or hides the preview in all consist editors.
    void ShowPreview(bool show);
    /// Asks for a name and saves the active document window under it. A 3D window saves a
    /// screenshot.
    void SaveDocumentAs();
    /// Sets the check marks of the commands for the content of the active 3D window.
    void UpdateSceneOptions();
    /// Returns the folder of the consists as the disk spells it, in which file dialogs start; "" if
    /// it is missing.
    std::string ConsistFolder() const;
    /// A command that is not in any menu: reports that it is not implemented.
    void SendFile();

    /// Enables the commands again, after something that they depend on has changed.
    void UpdateCommands() { updateActions(); }

    const install::Environment &Environment() const { return m_environment; }
    void OpenDocumentWindow(const std::string &fileName, document::WindowMode mode,
                            const std::string &caption, const StfNode &node) override;
    void OpenVehicleWindow(const std::string &shapeFile, const std::string &vehicle,
                           const std::string &caption) override;
    void SaveDocument(bool quiet) override;
    void ShowTextWindow(const std::string &title, const std::string &text) override;
    void OpenOutside(const std::string &path) override;
    void ChooseInstallation() override;
    void SetStatus(const std::string &text) override;
    void SetProgress(int done, int total) override;
    /// Shows or hides the loads of vehicles in all 3D windows, now and in later ones.
    void ShowLoads(bool shown) override;
    bool Animates() override;
    void WriteLog(const std::string &text) override;

    /// The events of the validator during a check. The status bar shows its messages and the number
    /// of errors.
    void Validator_ErrorRaised(const std::string &dependentFile, const std::string &fileName,
                               std::int16_t errorCode);
    void Validator_MessageRaised(const std::string &message, std::int16_t level);
    /// The validator of the last check command; null before the first.
    std::unique_ptr<TSValidation> Validator;

protected:
    void closeEvent(QCloseEvent *event) override;
    void resizeEvent(QResizeEvent *event) override;

private:
    void buildFrame();
    void buildStatusBar();
    void buildMenus();
    void buildToolBar();
    void loadSettings();
    void saveSettings();
    void run(const app::CommandRow &command);
    void updateActions();
    void stopWork();
    frmDocument *openWindow(const std::string &fileName, document::WindowMode mode,
                            const std::string &caption, const StfNode &node, int number,
                            const std::string &vehicle = {});
    void addWindow(frmDocument *window);
    document::Furnishing furnishing();
    void popUpEditorMenu(const QPoint &at);
    void saveSnapshot(frmDocument &window);

    install::Environment m_environment;
    std::string m_screenShotFolder;
    app::WindowSettings m_windowSettings; ///< read at the start; editors update their part
    std::unique_ptr<document::StockFigures> m_figures;
    std::unique_ptr<document::StockPictures> m_pictures;
    QMdiArea *m_area;
    app::WindowSwitcher m_switcher;
    QToolBar *tbToolBar = nullptr;
    app::MainStatusBar *sbStatusBar = nullptr;
    QShortcut *m_stopKey = nullptr;
    std::vector<frmDocument *> m_documents; ///< in the order in which they were opened
    std::array<int, document::kWindowModes>
        m_counters{}; ///< numbers given to windows so far, by mode
    bool m_unloading = false;
    std::optional<bool> m_animates; ///< empty before the first 3D window
    std::unique_ptr<app::MainMenu> m_menus;
    std::unique_ptr<app::WindowArranger> m_arranger;
    std::unique_ptr<app::Handlers> m_handlers;
};
