// SPDX-License-Identifier: MIT
#include "GuiTest.h"

#include "document/ConsistTree.h"
#include "host/Path.h"
#include "ui/main/MainStatusBar.h"
#include "ui/main/Program.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QDialog>
#include <QDragEnterEvent>
#include <QDropEvent>
#include <QMimeData>
#include <QPrinter>
#include <QProgressBar>
#include <QTimer>

#include <filesystem>

void RecordingDesktop::Start(const app::ProgramStart &start)
{
    if (refuses)
        throw host::RuntimeError(host::ErrorNumber::PathFileAccess, start.program);
    log += "start|" + start.program;
    for (const std::string &argument : start.arguments)
        log += ' ' + argument;
    log += '|' + start.folder + '|' + start.winePrefix + '\n';
}

bool RecordingDesktop::Open(const std::string &file)
{
    log += "open|" + file + '\n';
    return !refuses;
}

bool RecordingDesktop::OpenWeb(const std::string &address)
{
    log += "web|" + address + '\n';
    return !refuses;
}

void RecordingDesktop::AssociateConsistFiles()
{
    if (refuses)
        throw host::RuntimeError(host::ErrorNumber::PermissionDenied, "SetAssoc.bat");
    log += "associate\n";
}

bool RecordingDesktop::MoveToWastebasket(const std::string &file)
{
    return !refuses && std::filesystem::remove(host::path::ToDisk(file));
}

bool FilePrinters::Choose(QPrinter &printer, const QString &job)
{
    log += "print|" + job.toStdString() + '|' + printer.docName().toStdString() + '\n';
    printer.setOutputFileName(QString::fromStdString(file));
    return !file.empty();
}

void FilePrinters::SetUpPage(QPrinter &printer)
{
    log += "page setup\n";
    printer.setPageOrientation(QPageLayout::Landscape);
}

GuiTest::GuiTest()
{
    settings.values = {{"MSTSDir", game.Path()},
                       {"MainLeft", "0"},
                       {"MainTop", "0"},
                       {"MainWidth", "13500"},
                       {"MainHeight", "9600"}};
    for (const char *file : {"GP38 Pack/gp38a.eng", "GP38 Pack/gp38b.eng", "Boxcars/box.wag",
                             "Boxcars/hopper.wag", "Tankers/Oil.wag"})
        game.Write(std::string("Trains/Trainset/") + file);
    WriteConsist("Coal", {"box", "hopper"});
    WriteConsist("Freight North", {"box"});
    WriteConsist("GP38 Local", {"box", "hopper", "Oil"});
}

GuiTest::~GuiTest() = default;

frmMain &GuiTest::StartOnly(const std::string &commandLine)
{
    window = app::StartMainWindow({dialogs, files, settings, installation, shapeSource}, desktop,
                                  printers, commandLine);
    window->activateWindow();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(window.get()));
    return *window;
}

frmMain &GuiTest::Start(const std::string &commandLine)
{
    StartOnly(commandLine);
    EXPECT_TRUE(QTest::qWaitForWindowActive(window.get()));
    EXPECT_TRUE(Wait([this] { return Status().find("Loading") == std::string::npos; }));
    return *window;
}

std::string GuiTest::WriteConsist(const std::string &name, const std::vector<std::string> &shapes)
{
    std::string text = "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain (\r\n\tTrainCfg ( \"" + name +
                       "\"\r\n\t\tName ( \"" + name + "\" )\r\n\t\tSerial ( 1 )\r\n" +
                       "\t\tMaxVelocity ( 26.82240 1.00000 )\r\n\t\tNextWagonUID ( " +
                       std::to_string(shapes.size()) + " )\r\n\t\tDurability ( 0.50000 )\r\n";
    int uid = 0;
    for (const std::string &shape : shapes)
        text += "\t\tWagon (\r\n\t\t\tWagonData ( " + shape + " Boxcars )\r\n\t\t\tUiD ( " +
                std::to_string(uid++) + " )\r\n\t\t)\r\n";
    return game.Write("Trains/Consists/" + name + ".con", text + "\t)\r\n)\r\n");
}

std::string GuiTest::ConsistFile(const std::string &name) const
{
    return game.At("Trains/Consists/" + name + ".con");
}

std::string GuiTest::ShapesIn(const std::string &path)
{
    document::ConsistTree consist(files);
    consist.Load(path);
    std::string shapes;
    for (const document::ConsistRow &row : consist.Rows())
        shapes += (shapes.empty() ? "" : " ") + row.item.shape;
    return shapes;
}

frmDocument &GuiTest::OpenEditor(const std::string &name)
{
    window->OpenFile(ConsistFile(name));
    frmDocument *editor = Active();
    const auto loaded = [editor] {
        return Find<QAbstractItemView>(*editor, "lvStock").model()->rowCount() == 5;
    };
    EXPECT_TRUE(Wait(loaded));
    return *editor;
}

void GuiTest::Trigger(const char *command)
{
    Find<QAction>(*window, command).trigger();
}

std::string GuiTest::Status() const
{
    return Find<app::MainStatusBar>(*window, "sbStatusBar").Status().toStdString();
}

std::string RowsOf(const QAbstractItemView &list)
{
    const QAbstractItemModel &model = *list.model();
    QStringList rows;
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList columns;
        for (int column = 0; column < model.columnCount(); ++column)
            columns << model.index(row, column).data().toString();
        rows << columns.join(QLatin1Char('/'));
    }
    return rows.join(QLatin1Char(' ')).toStdString();
}

bool Wait(const std::function<bool()> &condition)
{
    return QTest::qWaitFor(condition, 10000);
}

void DropOn(QWidget &window, const QMimeData &data)
{
    const QPoint at(50, 50);
    QDragEnterEvent enter(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &enter);
    QDropEvent drop(at, Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(&window, &drop);
    QTest::qWait(50);
}

void OnNextDialog(const std::function<void(QDialog &)> &act)
{
    auto *watch = new QTimer(QCoreApplication::instance());
    QObject::connect(watch, &QTimer::timeout, watch, [watch, act] {
        auto *dialog = qobject_cast<QDialog *>(QApplication::activeModalWidget());
        if (!dialog)
            return;
        watch->deleteLater();
        watch->stop();
        act(*dialog);
        if (dialog->isVisible())
            dialog->reject();
    });
    watch->start(10);
}
