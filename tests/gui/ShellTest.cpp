// SPDX-License-Identifier: MIT
// Tests the main window's use of the clipboard, other programs, printers and system information.
#include "GuiTest.h"

#include "host/Path.h"
#include "ui/dialogs/frmResults.h"
#include "ui/main/QtDesktop.h"
#include "ui/print/PrintJobs.h"

#include <QAbstractItemView>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QDoubleSpinBox>
#include <QGuiApplication>
#include <QPlainTextEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTreeWidget>

#include <algorithm>

namespace {

class ShellTest : public GuiTest
{
protected:
    void select(int row)
    {
        auto &list = Find<QAbstractItemView>(*Active(), "lvConsists");
        list.setCurrentIndex(list.model()->index(row, 0));
    }
    static QString clipboard() { return QGuiApplication::clipboard()->text(); }
    /// Returns the number of pages that a PDF file declares, or 0 if it is not a PDF file.
    int pagesOf(const std::string &name) const
    {
        if (!game.Exists(name))
            return 0;
        const std::string pdf = game.Read(name);
        const std::size_t at = pdf.find("/Count ");
        return pdf.starts_with("%PDF-") && at != std::string::npos ? std::stoi(pdf.substr(at + 7))
                                                                   : 0;
    }
};

} // namespace

TEST_F(ShellTest, ClipboardHoldsTheNameOfAConsist)
{
    Start();
    QGuiApplication::clipboard()->setText(QStringLiteral("before"));
    select(0);
    Trigger("mnuEditCopy");
    EXPECT_EQ(clipboard(), QStringLiteral("Coal"));
    dialogs.AnswerInput("Coal 2");
    Trigger("mnuEditPaste");
    EXPECT_EQ(ShapesIn(ConsistFile("Coal 2")), "box hopper");
    const auto &list = Find<QAbstractItemView>(*Active(), "lvConsists");
    EXPECT_EQ(RowsOf(list), "Coal Freight North GP38 Local") << "until it is refreshed";
    Trigger("mnuViewRefresh");
    EXPECT_EQ(RowsOf(list), "Coal 2 Coal Freight North GP38 Local");
    select(1);
    dialogs.Answer(host::DialogAnswer::Yes);
    Trigger("mnuEditCut");
    EXPECT_FALSE(game.Exists("Trains/Consists/Coal.con"));
    EXPECT_EQ(Status(),
              host::path::Normalise(ConsistFile("Coal")) + " was moved to the wastebasket.");
    EXPECT_EQ(RowsOf(list), "Coal 2 Coal Freight North GP38 Local");
    Find<QAbstractItemView>(*Active(), "lvConsists").selectionModel()->clear();
    Trigger("mnuEditCopy");
    EXPECT_EQ(clipboard(), QString()) << "nothing is selected";
    EXPECT_EQ(dialogs.TakeLog(), "input|Copy Consist|Enter new consist name:|Copy of Coal\n"
                                 "information|Paste|Created " +
                                     host::path::Normalise(ConsistFile("Coal 2")) +
                                     "\nquestion (No)|Delete|Delete Coal ?\n");
    EXPECT_EQ(Status(), "");
}

TEST_F(ShellTest, StartsProgramsOfTheInstallationAndReportsFailures)
{
    game.Write("train.exe");
    Start();
    const support::ScopedVariable none("PATH", game.At("nowhere"));
    Trigger("mnuViewTS");
    if (const std::string log = dialogs.TakeLog(); !log.empty()) { // not on Windows
        EXPECT_EQ(log, "critical|View MSTS|" + game.At("train.exe") +
                           " is a Windows program. It can be started here once Wine is installed "
                           "(the package \"wine\" of your distribution).\n");
        EXPECT_EQ(desktop.log, "");
    }
    Trigger("mnuHelpContents");
    EXPECT_NE(desktop.log.find("index.html\n"), std::string::npos) << desktop.log;
    Trigger("mnuHelpWeb");
    EXPECT_TRUE(desktop.log.ends_with("web|https://www.openrails.org\n")) << desktop.log;
    desktop.refuses = true;
    Trigger("mnuHelpSearchForHelpOn");
    EXPECT_NE(dialogs.TakeLog().find("search.html cannot be shown"), std::string::npos);
    Trigger("mnuHelpWeb");
    EXPECT_EQ(dialogs.TakeLog(), "critical|ZELK|https://www.openrails.org cannot be shown: there "
                                 "is no browser for it.\n");
}

TEST_F(ShellTest, EachKindOfWindowPrintsUnderItsOwnName)
{
    Start();
    printers.file = game.At("list.pdf");
    Trigger("mnuFilePrint");
    OpenEditor("GP38 Local");
    printers.file = game.At("consist.pdf");
    Trigger("mnuFilePrint");
    window->ShowTextWindow("#Stock check of x", "ERROR: x\r\n");
    printers.file = game.At("results.pdf");
    Find<QPushButton>(*window, "cmdPrint").click();
    EXPECT_EQ(printers.log, "print|Print Consist List|Print Consist List\n"
                            "print|Print Consist|Print Consist\n"
                            "print|Print Results|Print Results\n");
    for (const char *file : {"list.pdf", "consist.pdf", "results.pdf"})
        EXPECT_EQ(pagesOf(file), 1) << file;
    EXPECT_EQ(dialogs.TakeLog(), "");
    printers.file = game.At("no folder/x.pdf");
    Trigger("mnuFilePrint");
    EXPECT_TRUE(dialogs.TakeLog().starts_with("critical|Print Consist|Nothing could be printed"));
}

TEST_F(ShellTest, PrintoutsHaveAsManyPagesAsTheirContentNeeds)
{
    Start();
    QStringList names;
    std::vector<QStringList> rows;
    QString text;
    for (int i = 0; i < 400; ++i) {
        names << QStringLiteral("Consist %1").arg(i);
        rows.push_back({names.back(), QString(500, QLatin1Char('x'))});
        text += QStringLiteral("ERROR: %1 ").arg(i) + QString(300, QLatin1Char('y')) +
                QLatin1Char('\n');
    }
    QImage picture(3000, 400, QImage::Format_RGB32);
    picture.fill(Qt::darkGreen);
    const struct
    {
        std::unique_ptr<app::Printout> content;
        int least, most;
    } prints[] = {
        {app::PrintNames(names), 2, 4},
        {app::PrintTable({{QStringLiteral("A"), 0.5}, {QStringLiteral("B"), 0.5}}, rows), 5, 12},
        {app::PrintText(text), 15, 60},
        {app::PrintPicture(picture), 1, 1},
        {app::PrintNames({}), 1, 1}};
    for (std::size_t i = 0; i < std::size(prints); ++i) {
        const std::string name = "print" + std::to_string(i) + ".pdf";
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFileName(QString::fromStdString(game.At(name)));
        const QString title(200, QLatin1Char('T'));
        ASSERT_TRUE(app::Print(printer, {title, title, title}, *prints[i].content));
        EXPECT_GE(pagesOf(name), prints[i].least) << i;
        EXPECT_LE(pagesOf(name), prints[i].most) << i;
        printer.setFromTo(1, 1);
        ASSERT_TRUE(app::Print(printer, {title, {}, {}}, *prints[i].content));
        EXPECT_EQ(pagesOf(name), 1) << i;
    }
}

TEST_F(ShellTest, PageSetupAppliesToFiles)
{
    QPrinter printer(QPrinter::HighResolution);
    printer.setOutputFormat(QPrinter::PdfFormat);
    printer.setPageLayout(QPageLayout(QPageSize(QPageSize::A4), QPageLayout::Portrait,
                                      QMarginsF(10, 11, 12, 13), QPageLayout::Millimeter));
    app::QtPrinters system;
    const QPageLayout before = printer.pageLayout();
    OnNextDialog([](QDialog &dialog) { dialog.accept(); });
    system.SetUpPage(printer);
    EXPECT_TRUE(printer.pageLayout().isEquivalentTo(before));
    const auto choose = [](QDialog &dialog) {
        Find<QComboBox>(dialog, "cboPaper").setCurrentText(QPageSize::name(QPageSize::A5));
        Find<QComboBox>(dialog, "cboOrientation").setCurrentIndex(1);
        Find<QDoubleSpinBox>(dialog, "txtTop").setValue(20);
    };
    OnNextDialog(choose);
    system.SetUpPage(printer);
    EXPECT_TRUE(printer.pageLayout().isEquivalentTo(before)) << "cancelled";
    OnNextDialog([&](QDialog &dialog) {
        choose(dialog);
        dialog.accept();
    });
    system.SetUpPage(printer);
    EXPECT_TRUE(printer.pageLayout().isEquivalentTo(
        QPageLayout(QPageSize(QPageSize::A5), QPageLayout::Landscape, QMarginsF(10, 20, 12, 13),
                    QPageLayout::Millimeter)));
}

TEST_F(ShellTest, AboutShowsVersionsAndFactsForABugReport)
{
    Start();
    std::string versions;
    QString facts;
    OnNextDialog([&](QDialog &about) {
        EXPECT_EQ(about.objectName(), QStringLiteral("frmAbout"));
        versions = RowsOf(Find<QTreeWidget>(about, "lvHistory"));
        OnNextDialog([&](QDialog &info) {
            facts = Find<QPlainTextEdit>(info, "txtFacts").toPlainText();
            EXPECT_TRUE(QRect(0, 0, 640, 480).contains(QRect({0, 0}, info.frameSize())));
            Find<QPushButton>(info, "cmdCopy").click();
        });
        Find<QPushButton>(about, "cmdSysInfo").click();
    });
    Trigger("mnuHelpAbout");
    EXPECT_EQ(versions, "1.0-50/First public version 1.0-74/Various bug fixes "
                        "1.0-75/Second public version");
    if (desktop.log.empty()) { // nothing is started: this system has no such tool
        for (const char *fact : {"ZELK v1.0-75", "Qt: ", "OpenGL: ", "MSTS folder: "})
            EXPECT_TRUE(facts.contains(QLatin1String(fact))) << fact;
        EXPECT_TRUE(facts.contains(QString::fromStdString(game.Path())));
        EXPECT_EQ(clipboard(), facts);
    }
}
