// SPDX-License-Identifier: MIT
#pragma once

#include "app/Desktop.h"
#include "document/ConsistTree.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "support/Environment.h"
#include "support/MemorySettings.h"
#include "support/ScriptedDialogs.h"
#include "support/TempFolder.h"
#include "ui/main/frmMain.h"
#include "ui/print/Printers.h"

#include <QAction>
#include <QTest>
#include <gtest/gtest.h>

#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

class QAbstractItemView;
class QDialog;
class QMimeData;

using support::MemorySettings;

/// A desktop that starts nothing and records each request on a line: "start|program
/// arguments|folder|prefix", "open|file", "web|address", "associate". It deletes files for the
/// wastebasket.
class RecordingDesktop : public app::Desktop
{
public:
    void Start(const app::ProgramStart &start) override;
    bool Open(const std::string &file) override;
    bool OpenWeb(const std::string &address) override;
    void AssociateConsistFiles() override;
    bool MoveToWastebasket(const std::string &file) override;

    std::string log;
    bool refuses = false; ///< if set, all requests fail
};

/// Prints into `file`, or cancels if it is empty.
class FilePrinters : public app::Printers
{
public:
    bool Choose(QPrinter &printer, const QString &job) override;
    void SetUpPage(QPrinter &printer) override;

    std::string file, log;
};

/// The real main window on a private small installation, with scripted dialogs and settings in
/// memory.
class GuiTest : public testing::Test
{
public:
    /// Starts the program as its entry point does and waits for the window.
    frmMain &Start(const std::string &commandLine = {});
    /// Like Start, but does not wait for stock lists.
    frmMain &StartOnly(const std::string &commandLine = {});

    std::string WriteConsist(const std::string &name, const std::vector<std::string> &shapes);
    std::string ConsistFile(const std::string &name) const;
    /// Returns the shapes of the units in a consist file on disk, joined by blanks.
    std::string ShapesIn(const std::string &path);

    frmDocument &OpenEditor(const std::string &name);
    frmDocument *Active() const { return window->ActiveDocument(); }
    void Trigger(const char *command);
    std::string Status() const;

protected:
    GuiTest();
    ~GuiTest() override;

    support::ScopedHome home;
    support::TempFolder game;
    support::ScriptedDialogs dialogs;
    host::GameFiles files;
    MemorySettings settings;
    install::Installation installation;
    korvat::ModelLibrary shapeSource{files};
    RecordingDesktop desktop;
    FilePrinters printers;
    std::unique_ptr<frmMain> window;
};

template <typename Widget> Widget &Find(const QObject &parent, const char *name)
{
    auto *widget = parent.findChild<Widget *>(QLatin1String(name));
    if (!widget)
        throw std::runtime_error(std::string("no control named ") + name);
    return *widget;
}

/// Returns the rows of a list as text, with columns joined by "/" and rows by blanks.
std::string RowsOf(const QAbstractItemView &list);
/// Waits until the condition holds. Returns false after some seconds.
bool Wait(const std::function<bool()> &condition);
/// Drags the data over a window, drops it there, and lets the window process it.
void DropOn(QWidget &window, const QMimeData &data);
/// Runs `act` on the modal dialog that the next call opens, and closes the dialog if `act` did not.
void OnNextDialog(const std::function<void(QDialog &)> &act);
