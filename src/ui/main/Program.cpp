// SPDX-License-Identifier: MIT
#include "ui/main/Program.h"

#include "app/FileAssociation.h"
#include "app/GivenFile.h"
#include "app/modZELK.h"
#include "host/Console.h"
#include "host/GameFiles.h"
#include "host/Product.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "host/Text.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "ui/dialogs/QtDialogs.h"
#include "ui/main/AccessibleRoles.h"
#include "ui/main/Colours.h"
#include "ui/main/LostWork.h"
#include "ui/main/QtDesktop.h"
#include "ui/main/ToolkitCommandLine.h"

#include <QApplication>

namespace app {

namespace {

constexpr char kUsage[] =
    "Usage: zelk [FILE]\n"
    "Lists, edits and checks Microsoft Train Simulator rolling stock and consists.\n"
    "\n"
    "FILE is opened in a window of its own; without it the installed consists are listed.\n"
    "\n"
#ifndef _WIN32
    "  --dissociate  open consist files as before Edit > Set File Association\n"
#endif
    "  --version     print the version\n"
    "  --help        print this text\n";

#ifndef _WIN32
int dissociate()
{
    try {
        DissociateConsistFiles();
        return 0;
    } catch (const host::RuntimeError &error) {
        host::WriteTo(host::Stream::Error, std::string("zelk: ") + error.what() + "\n");
        return 1;
    }
}
#endif

} // namespace

std::optional<std::string> AnswerTo(std::string_view commandLine)
{
    if (commandLine == "--version")
        return modZELK::MainCaption() + "\n";
    if (commandLine == "--help")
        return kUsage;
    return std::nullopt;
}

std::unique_ptr<frmMain> StartMainWindow(const install::Environment &environment, Desktop &desktop,
                                         Printers &printers, const std::string &commandLine)
{
    const std::string file = FileGivenBy(commandLine, environment.files);
    auto window = std::make_unique<frmMain>(environment, desktop, printers, file);
    window->setWindowTitle(QString::fromStdString(modZELK::MainCaption()));
    if (!file.empty())
        window->OpenFile(file);
    window->show();
    return window;
}

int RunProgram(int argc, char **argv)
{
    const std::string line = host::CommandLine(argc, argv);
    const std::string_view given = host::TrimBlanks(line);
    if (const auto answer = AnswerTo(given))
        return host::WriteTo(host::Stream::Output, *answer) ? 1 : 0;
#ifndef _WIN32
    if (given == "--dissociate")
        return dissociate();
#endif

    const int givenArguments = argc;
    QApplication application(argc, argv);
    QApplication::setApplicationName(QString::fromLatin1(host::product::kName.data()));
    DressApplication(application);
    NameAccessibleRoles();
    QtDialogs dialogs;
    QtDesktop desktop;
    QtPrinters printers;
    host::GameFiles files;
    const std::unique_ptr<host::SettingsStore> settings = host::UserSettings();
    install::Installation installation;
    korvat::ModelLibrary shapes(files);
    // The first window to close may be a message about the file on the command line.
    QApplication::setQuitOnLastWindowClosed(false);
    const auto window =
        StartMainWindow({dialogs, files, *settings, installation, shapes}, desktop, printers,
                        CommandLineAfterToolkit(givenArguments, argc, argv));
    OfferLostWork(*window);
    QApplication::setQuitOnLastWindowClosed(true);
    return QApplication::exec();
}

} // namespace app
