// SPDX-License-Identifier: MIT
#include "ui/main/QtDesktop.h"

#include "app/FileAssociation.h"
#include "host/RuntimeError.h"
#include "ui/print/PageSetup.h"

#include <QApplication>
#include <QDesktopServices>
#include <QDir>
#include <QFileInfo>
#include <QPageSetupDialog>
#include <QPrintDialog>
#include <QPrinter>
#include <QProcess>
#include <QUrl>

namespace app {

void QtDesktop::Start(const ProgramStart &start)
{
    QProcess process;
    process.setProgram(QString::fromStdString(start.program));
    QStringList arguments;
    for (const std::string &argument : start.arguments)
        arguments << QString::fromStdString(argument);
    process.setArguments(arguments);
    process.setWorkingDirectory(QString::fromStdString(start.folder));
    if (!start.winePrefix.empty()) {
        QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
        environment.insert(QStringLiteral("WINEPREFIX"), QString::fromStdString(start.winePrefix));
        process.setProcessEnvironment(environment);
    }
    // Discard its output. Otherwise a reader of our output would wait until that program ends.
    process.setStandardOutputFile(QProcess::nullDevice());
    process.setStandardErrorFile(QProcess::nullDevice());
    if (!process.startDetached())
        throw host::RuntimeError(host::ErrorNumber::PathFileAccess,
                                 start.program + " cannot be started in " + start.folder);
}

bool QtDesktop::Open(const std::string &file)
{
    return QDesktopServices::openUrl(QUrl::fromLocalFile(QString::fromStdString(file)));
}

bool QtDesktop::OpenWeb(const std::string &address)
{
    return QDesktopServices::openUrl(QUrl(QString::fromStdString(address)));
}

void QtDesktop::AssociateConsistFiles()
{
    app::AssociateConsistFiles(
        QDir::toNativeSeparators(QCoreApplication::applicationFilePath()).toStdString());
}

bool QtPrinters::Choose(QPrinter &printer, const QString &job)
{
    // Each job prints to a new file, in the folder of the job before.
    if (const QString before = printer.outputFileName(); !before.isEmpty())
        printer.setOutputFileName(QFileInfo(before).dir().filePath(job + QStringLiteral(".pdf")));
    QPrintDialog dialog(&printer, QApplication::activeWindow());
    dialog.setWindowTitle(job);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange);
    return dialog.exec() == QDialog::Accepted;
}

void QtPrinters::SetUpPage(QPrinter &printer)
{
    if (printer.outputFormat() != QPrinter::NativeFormat) {
        PageSetup dialog(printer.pageLayout(), QApplication::activeWindow());
        if (dialog.exec() == QDialog::Accepted)
            printer.setPageLayout(dialog.Layout());
        return;
    }
    QPageSetupDialog dialog(&printer, QApplication::activeWindow());
    dialog.setWindowTitle(QStringLiteral("Page Setup"));
    dialog.exec();
}

} // namespace app
