// SPDX-License-Identifier: MIT
#include "ui/health/frmHealth.h"

#include "../content/MadeReport.h"
#include "GuiTest.h"
#include "content/HealthSettings.h"
#include "host/Path.h"
#include "ui/health/HealthFilterBar.h"
#include "ui/health/HealthView.h"

#include <QAbstractItemModelTester>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPlainTextEdit>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>

#include <filesystem>

using content::Profile;
using content::Profiles;
using health::HealthModel;

namespace {

/// The sample of GuiTest with complete vehicles, but for one consist that names a vehicle of
/// another folder, one with a vehicle that is nowhere, and a wagon whose shape is missing.
class frmHealthTest : public GuiTest
{
protected:
    frmHealthTest()
    {
        for (const char *file : {"GP38 Pack/gp38a.eng", "GP38 Pack/gp38b.eng", "Boxcars/box.wag",
                                 "Boxcars/hopper.wag", "Tankers/Oil.wag"})
            writeStock(file, "");
        writeStock("Boxcars/hopper.wag", "WagonShape ( lost.s )");
        WriteConsist("Coal", {"box", "nowhere"});
    }
    void writeStock(const std::string &file, const std::string &blocks)
    {
        game.Write("Trains/Trainset/" + file,
                   "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( w " + blocks + " )\r\n");
    }
    frmHealth &open(const char *command = "mnuStockHealth")
    {
        if (!window)
            Start();
        Trigger(command);
        frmHealth &form = *window->findChildren<frmHealth *>().back();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&form));
        EXPECT_TRUE(Wait([&form] { return !form.Running(); }));
        return form;
    }
    void runAgain(frmHealth &form)
    {
        QTest::keyClick(&form, Qt::Key_F5);
        EXPECT_TRUE(Wait([&form] { return !form.Running(); }));
    }
    static std::string summaryOf(const frmHealth &form)
    {
        return Find<QLabel>(form, "lblSummary").text().toStdString();
    }
    static std::string hiddenOf(const frmHealth &form)
    {
        return form.filterBar->lblHidden->text().toStdString();
    }
    static std::string emptyTextOf(const frmHealth &form)
    {
        const auto &label = Find<QLabel>(form, "lblEmpty");
        return label.isVisible() ? label.text().toStdString() : "";
    }
    /// Returns the texts of the rows below, one line each, with two blanks for each level.
    static std::string linesOf(const QAbstractItemModel &rows, const QModelIndex &parent = {},
                               const std::string &indent = {})
    {
        std::string lines;
        for (int row = 0; row < rows.rowCount(parent); ++row) {
            const QModelIndex index = rows.index(row, 0, parent);
            lines += indent + index.data().toString().toStdString() + '\n' +
                     linesOf(rows, index, indent + "  ");
        }
        return lines;
    }
    static std::string linesOf(const frmHealth &form) { return linesOf(*form.tvFindings->model()); }
    /// Selects the row alone, whatever keys the last event held.
    static void makeCurrent(const frmHealth &form, const QModelIndex &row)
    {
        form.tvFindings->selectionModel()->setCurrentIndex(
            row, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    }
    /// Makes the first row with this text the current one, with all rows above it expanded.
    static QModelIndex go(const frmHealth &form, const QString &text)
    {
        form.tvFindings->expandAll();
        const QModelIndexList found =
            form.tvFindings->model()->match(form.tvFindings->model()->index(0, 0), Qt::DisplayRole,
                                            text, 1, Qt::MatchContains | Qt::MatchRecursive);
        EXPECT_FALSE(found.isEmpty()) << text.toStdString() << " is not in\n" << linesOf(form);
        if (found.isEmpty())
            return {};
        makeCurrent(form, found.front());
        form.tvFindings->setFocus();
        return found.front();
    }
    static QModelIndex leaf(const frmHealth &form, const QString &text)
    {
        const QModelIndex row = go(form, text);
        const QModelIndex below = form.tvFindings->model()->index(0, 0, row);
        makeCurrent(form, below);
        return below;
    }
    QList<frmHealth *> forms() const { return window->findChildren<frmHealth *>(); }
};

constexpr char kAll[] = R"(Single files
  Trains/Trainset/Boxcars/lost.s
    Trains/Trainset/Boxcars/hopper.wag, line 3
  Trains/Trainset/Boxcars/nowhere.wag
    Trains/Consists/Coal.con, line 15
  Trains/Trainset/Boxcars/Oil.wag
    Trains/Consists/GP38 Local.con, line 19
)";

} // namespace

TEST_F(frmHealthTest, ShowsCausesWantedFilesAndWhoWantsThem)
{
    Start();
    QTest::keyClick(window.get(), Qt::Key_H, Qt::ControlModifier);
    frmHealth &form = *forms().front();
    const QAbstractItemModelTester tester(form.tvFindings->model(),
                                          QAbstractItemModelTester::FailureReportingMode::Warning);
    ASSERT_TRUE(Wait([&form] { return !form.Running(); }));
    EXPECT_EQ(form.Caption(), "Health Report");
    EXPECT_EQ(linesOf(form), kAll);
    EXPECT_EQ(summaryOf(form), "3 findings");
    EXPECT_EQ(hiddenOf(form), "0 findings are hidden by the filters");
    EXPECT_EQ(form.filterBar->chkSeverities[2]->text(), QStringLiteral("&Errors: 3"));
    EXPECT_EQ(Status(), "Health report: 3 findings");
    const QModelIndex row = leaf(form, QStringLiteral("Oil.wag"));
    EXPECT_EQ(row.data(Qt::AccessibleTextRole).toString().toStdString(),
              "error: Trains/Consists/GP38 Local.con, line 19");
    EXPECT_EQ(row.parent().data(Qt::AccessibleTextRole).toString().toStdString(),
              "error: Trains/Trainset/Boxcars/Oil.wag, 1 finding");
    const std::string details = form.txtDetails->toPlainText().toStdString();
    for (const char *const part :
         {"exists, but in another folder", "Wanted by: Trains/Consists/GP38 Local.con, line 19",
          "Looked for:\n", "    Trains/Trainset/Boxcars/Oil.wag\n",
          "Candidates:\n    Trains/Trainset/Tankers/Oil.wag\n", "Rule: wrong-folder"})
        EXPECT_NE(details.find(part), std::string::npos) << part << " is not in\n" << details;
}

TEST_F(frmHealthTest, CompleteInstallationShowsWhatWasChecked)
{
    writeStock("Boxcars/hopper.wag", "");
    WriteConsist("Coal", {"box"});
    WriteConsist("GP38 Local", {"box", "hopper"});
    EXPECT_EQ(emptyTextOf(open()), "No problems found\n\nChecked: 3 stock folders, 3 consists, 0 "
                                   "services, 0 activities, 0 timetables.");
    Find<QAbstractItemView>(*Active(), "lvConsists")
        .setCurrentIndex(Find<QAbstractItemView>(*Active(), "lvConsists").model()->index(1, 0));
    EXPECT_EQ(emptyTextOf(open("mnuConsistHealth")),
              "No problems found\n\nChecked: 1 consist and everything that is needed.");
}

TEST_F(frmHealthTest, ReportOfConsistsCoversOnlyTheirNeeds)
{
    Start();
    auto &list = Find<QAbstractItemView>(*Active(), "lvConsists");
    list.setCurrentIndex(list.model()->index(0, 0));
    frmHealth &form = open("mnuConsistHealth");
    EXPECT_EQ(form.Caption(), "Health of Coal");
    EXPECT_EQ(linesOf(form), "Single files\n"
                             "  Trains/Trainset/Boxcars/nowhere.wag\n"
                             "    Trains/Consists/Coal.con, line 15\n");
    form.close();
    list.clearSelection();
    Trigger("mnuConsistHealth");
    EXPECT_EQ(dialogs.TakeLog(), "critical|Health of Selected Consists|Nothing selected!\n");
}

TEST_F(frmHealthTest, FiltersHideRowsAndStateHowMany)
{
    frmHealth &form = open();
    QTest::keyClick(&form, Qt::Key_F, Qt::ControlModifier);
    ASSERT_TRUE(form.filterBar->txtSearch->hasFocus());
    QTest::keyClicks(form.filterBar->txtSearch, QStringLiteral("LOST"));
    QTest::keyClick(form.filterBar->txtSearch, Qt::Key_Return);
    EXPECT_EQ(linesOf(form), "Single files\n  Trains/Trainset/Boxcars/lost.s\n"
                             "    Trains/Trainset/Boxcars/hopper.wag, line 3\n");
    EXPECT_EQ(hiddenOf(form), "2 findings are hidden by the filters");
    EXPECT_TRUE(form.tvFindings->hasFocus());
    QTest::keyClick(&form, Qt::Key_E, Qt::AltModifier);
    EXPECT_TRUE(Wait([&] { return linesOf(form).empty(); }));
    EXPECT_EQ(emptyTextOf(form), "The filters hide all findings.");
    QTest::mouseClick(form.filterBar->cmdShowAll, Qt::LeftButton);
    EXPECT_EQ(linesOf(form), kAll);
    EXPECT_FALSE(form.filterBar->cmdShowAll->isVisible());
    QTest::keyClicks(form.filterBar->txtSearch, QStringLiteral("oil"));
    EXPECT_TRUE(Wait([&] { return hiddenOf(form).starts_with("2 "); })) << "without Return";
}

TEST_F(frmHealthTest, SimulatorIsKeptForTheInstallation)
{
    writeStock("Boxcars/box.wag", "WagonShape ( b.s )");
    game.Write("Trains/Trainset/Boxcars/b.s",
               "SIMISA@@@@@@@@@@JINX0s1t______\r\n\r\nshape ( images ( 0 ) )\r\n"); // MSTS wants a
                                                                                    // descriptor
    frmHealth &form = open();
    const std::string both = linesOf(form);
    EXPECT_NE(both.find("b.sd"), std::string::npos) << both;
    form.filterBar->cboSimulators->setFocus();
    QTest::keyClick(form.filterBar->cboSimulators, Qt::Key_End);
    EXPECT_EQ(linesOf(form), kAll);
    EXPECT_EQ(hiddenOf(form), "0 findings are hidden by the filters");
    EXPECT_EQ(content::KeptProfiles(settings, game.Path()), Profiles(Profile::OpenRails));
    form.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
    frmHealth &again = open();
    EXPECT_EQ(again.filterBar->cboSimulators->currentText(), QStringLiteral("Open Rails"));
    EXPECT_EQ(linesOf(again), kAll);
    settings.readOnly = true;
    again.filterBar->cboSimulators->setCurrentIndex(0);
    EXPECT_EQ(linesOf(again), both);
    EXPECT_EQ(dialogs.TakeLog().substr(0, 23), "critical|Health Report|");
}

TEST_F(frmHealthTest, ReturnAndDoubleClickLeadThere)
{
    frmHealth &form = open();
    leaf(form, QStringLiteral("Oil.wag"));
    QTest::keyClick(form.tvFindings, Qt::Key_Return);
    ASSERT_EQ(window->Documents().size(), 2U);
    EXPECT_EQ(Active()->Caption(), "Consist - " + game.Shown("Trains/Consists/GP38 Local.con"));
    const QModelIndex wagon = leaf(form, QStringLiteral("lost.s"));
    form.tvFindings->scrollTo(wagon);
    const QPoint place = form.tvFindings->visualRect(wagon).center();
    QTest::mouseClick(form.tvFindings->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseDClick(form.tvFindings->viewport(), Qt::LeftButton, {}, place);
    QTest::mouseRelease(form.tvFindings->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(desktop.log,
              "open|" + host::path::Join(game.Path(), "Trains/Trainset/Boxcars") + "\n")
        << "a wagon without its shape";
    const QModelIndex cause = go(form, QStringLiteral("Single files"));
    QTest::keyClick(form.tvFindings, Qt::Key_Return);
    EXPECT_FALSE(form.tvFindings->isExpanded(cause)) << "other rows fold";
    EXPECT_EQ(window->Documents().size(), 2U);
}

TEST_F(frmHealthTest, CopyIsATextForHelp)
{
    frmHealth &form = open();
    go(form, QStringLiteral("Oil.wag"));
    QTest::keyClick(form.tvFindings, Qt::Key_C, Qt::ControlModifier);
    const std::string text = QGuiApplication::clipboard()->text().toStdString();
    EXPECT_TRUE(text.starts_with("ZELK 1.0-75, health report for MSTS and Open Rails\nerror: "))
        << text;
    EXPECT_NE(text.find("\nRule: wrong-folder\nWanted: Trains/Trainset/Boxcars/Oil.wag\nWanted by: "
                        "Trains/Consists/GP38 Local.con, line 19\n"),
              std::string::npos)
        << text;
    form.CopyPath();
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(),
              host::path::Join(game.Path(), "Trains/Trainset/Boxcars/Oil.wag"));
}

TEST_F(frmHealthTest, NextReportComparesWithWhatWasAccepted)
{
    frmHealth &form = open();
    go(form, QStringLiteral("Single files"));
    QTest::mouseClick(form.cmdAccept, Qt::LeftButton);
    EXPECT_EQ(summaryOf(form), "0 new, 0 changed, 0 gone, 3 known");
    EXPECT_EQ(hiddenOf(form), "3 findings are hidden by the filters (3 known)");
    EXPECT_TRUE(emptyTextOf(form).starts_with("Nothing new: all findings are known."));
    WriteConsist("Coal", {"box"});
    WriteConsist("Freight North", {"none"});
    std::filesystem::remove(host::path::ToDisk(game.At("Trains/Trainset/Tankers/Oil.wag")));
    runAgain(form);
    EXPECT_EQ(summaryOf(form), "1 new, 1 changed, 1 gone, 1 known");
    EXPECT_EQ(linesOf(form), "Single files\n"
                             "  Trains/Trainset/Boxcars/none.wag\n"
                             "    Trains/Consists/Freight North.con, line 11\n"
                             "  Trains/Trainset/Boxcars/Oil.wag\n"
                             "    Trains/Consists/GP38 Local.con, line 19\n");
    form.close();
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);

    frmHealth &next = open();
    EXPECT_EQ(summaryOf(next), "1 new, 1 changed, 1 gone, 1 known");
    QTest::keyClick(&next, Qt::Key_K, Qt::AltModifier);
    EXPECT_TRUE(Wait([&] { return hiddenOf(next) == "0 findings are hidden by the filters"; }));
    const QModelIndex known = go(next, QStringLiteral("lost.s"));
    EXPECT_EQ(known.siblingAtColumn(HealthModel::State).data().toString(), QStringLiteral("known"));
    next.Withdraw();
    next.DropGone();
    EXPECT_EQ(summaryOf(next), "2 new, 1 changed, 0 gone, 0 known");
    next.AcceptAll();
    EXPECT_EQ(summaryOf(next), "0 new, 0 changed, 0 gone, 3 known");
}

TEST_F(frmHealthTest, DamagedListOfKnownFindingsIsReportedAndKept)
{
    const std::string file = content::KnownFindings(files, game.Path()).File();
    std::filesystem::create_directories(host::path::ToDisk(file).parent_path());
    files.WriteFile(file, "My own notes\n");
    frmHealth &form = open();
    const std::string log = dialogs.TakeLog();
    EXPECT_TRUE(log.starts_with("critical|Health Report|" + file + ": ")) << log;
    EXPECT_EQ(linesOf(form), kAll);
    form.AcceptAll();
    EXPECT_TRUE(dialogs.TakeLog().starts_with("critical|Accept as Known|" + file));
    EXPECT_EQ(files.ReadFile(file), "My own notes\n");
    EXPECT_EQ(linesOf(form), kAll);
    runAgain(form);
    EXPECT_EQ(dialogs.TakeLog(), "") << "the fault is not news";
}

TEST_F(frmHealthTest, EscStopsAndTheReportSaysSo)
{
    Start();
    Trigger("mnuStockHealth");
    frmHealth &form = *forms().front();
    ASSERT_TRUE(form.Running());
    EXPECT_EQ(form.cmdRun->text(), QStringLiteral("S&top"));
    QTest::keyClick(&form, Qt::Key_Escape);
    ASSERT_TRUE(Wait([&form] { return !form.Running(); }));
    EXPECT_TRUE(form.isVisible()) << "only a second Esc closes the window";
    EXPECT_TRUE(summaryOf(form).starts_with("STOPPED: this report is not complete."));
    EXPECT_EQ(Status(), "Health report stopped");
    EXPECT_FALSE(Find<QProgressBar>(*window, "sbStatusBarProgress").isVisible());
    form.AcceptAll();
    EXPECT_FALSE(form.cmdAccept->isEnabled());
    EXPECT_EQ(content::KnownFindings(files, game.Path()).Findings().Size(), 0U);
    runAgain(form);
    EXPECT_EQ(linesOf(form), kAll);
    QTest::keyClick(&form, Qt::Key_Escape);
    EXPECT_FALSE(form.isVisible());
}

TEST_F(frmHealthTest, OneReportRunsAtATime)
{
    Start();
    Trigger("mnuStockHealth");
    Trigger("mnuStockHealth");
    EXPECT_EQ(forms().size(), 1U) << "the same report has one window";
    Find<QAbstractItemView>(*Active(), "lvConsists")
        .setCurrentIndex(Find<QAbstractItemView>(*Active(), "lvConsists").model()->index(0, 0));
    Trigger("mnuConsistHealth");
    EXPECT_EQ(dialogs.TakeLog(),
              "information|Health Report|A health report is running.  Wait until "
              "it has ended, or press Esc in its window to stop it.\n");
    EXPECT_TRUE(window->close()) << "during the run";
    EXPECT_TRUE(window->findChildren<frmHealth *>().empty() || !forms().front()->Running());
}

TEST_F(frmHealthTest, WindowMenuListsReports)
{
    frmHealth &form = open();
    auto &menu = Find<QMenu>(*window, "mnuWindow");
    Q_EMIT menu.aboutToShow();
    QAction &item = Find<QAction>(*window, "mnuWindowList2");
    EXPECT_EQ(item.text(), QStringLiteral("&2 Health Report"));
    form.showMinimized();
    item.trigger();
    EXPECT_FALSE(form.isMinimized());
}

TEST_F(frmHealthTest, NeedsAnInstallation)
{
    settings.values.erase("MSTSDir");
    Start();
    dialogs.TakeLog();
    Trigger("mnuStockHealth");
    EXPECT_EQ(dialogs.TakeLog(),
              "critical|Health Report|MSTS does not appear to be installed on this system!\n");
    EXPECT_TRUE(forms().empty());
}

TEST_F(frmHealthTest, SavesWhatIsShownWholeOrNotAtAll)
{
    frmHealth &form = open();
    QTest::keyClicks(form.filterBar->txtSearch, QStringLiteral("lost"));
    QTest::keyClick(form.filterBar->txtSearch, Qt::Key_Return);
    const auto save = [&](const char *name) {
        dialogs.AnswerFile(game.At(name));
        QTest::keyClick(&form, Qt::Key_S, Qt::ControlModifier);
        return dialogs.TakeLog();
    };
    EXPECT_EQ(save("r.html"), "save|Save Health Report|Health Report.html\n");
    EXPECT_EQ(Status(), "Saved 1 finding in " + game.At("r.html") + "; 2 hidden by the filters");
    save("r.csv");
    save("r.JSON");
    save("r");
    EXPECT_EQ(game.Read("r.html").substr(0, 15), "<!DOCTYPE html>");
    EXPECT_EQ(game.Read("r.JSON").front(), '[');
    for (const char *const name : {"r.html", "r.csv", "r.JSON"}) {
        EXPECT_NE(game.Read(name).find("lost.s"), std::string::npos) << name;
        EXPECT_EQ(game.Read(name).find("Oil"), std::string::npos) << name;
    }
    const std::string before = game.Read("r.csv");
    form.filterBar->ShowAll();
    EXPECT_EQ(save("r.csv"),
              "save|Save Health Report|Health Report.html\nquestion|Save Health Report|" +
                  game.At("r.csv") + " already exists.  Do you want to overwrite it?\n");
    EXPECT_EQ(game.Read("r.csv"), before) << "the question was cancelled";
    dialogs.Answer(host::DialogAnswer::Yes);
    save("r.csv");
    EXPECT_NE(game.Read("r.csv"), before);
    EXPECT_NE(save("none/r.csv").find("\ncritical|Save Health Report|" + game.At("none/r.csv")),
              std::string::npos);
}

TEST_F(frmHealthTest, NewReportKeepsExpandedAndSelectedRows)
{
    frmHealth &form = open();
    form.tvFindings->collapseAll();
    auto &rows = *form.tvFindings->model();
    const QModelIndex cause = rows.index(0, 0);
    form.tvFindings->expand(cause);
    makeCurrent(form, rows.index(2, 0, cause));
    WriteConsist("Another", {"away"});
    runAgain(form);
    EXPECT_EQ(rows.rowCount(rows.index(0, 0)), 4);
    EXPECT_TRUE(form.tvFindings->isExpanded(rows.index(0, 0)));
    EXPECT_FALSE(form.tvFindings->isExpanded(rows.index(0, 0, rows.index(0, 0))));
    EXPECT_EQ(form.tvFindings->currentIndex().data().toString(),
              QStringLiteral("Trains/Trainset/Boxcars/Oil.wag"));
    EXPECT_EQ(form.tvFindings->selectionModel()->selectedRows().size(), 1);
}

TEST_F(frmHealthTest, LargeReportIsShownLazily)
{
    constexpr int kFindings = 100000;
    Start();
    auto *form = new frmHealth(window->Environment(), "/game", {}, window.get());
    form->show();
    form->ShowIndex(MadeReport::Large(kFindings).Index());
    EXPECT_EQ(summaryOf(*form), "100000 findings");
    auto &rows = *form->tvFindings->model();
    ASSERT_EQ(rows.rowCount(), 2);
    for (int row = 0; row < 2; ++row) {
        makeCurrent(*form, rows.index(row, 0));
        QTest::keyClick(form->tvFindings, Qt::Key_Asterisk);
        EXPECT_TRUE(form->tvFindings->isExpanded(rows.index(row, 0)));
        EXPECT_FALSE(form->tvFindings->isExpanded(rows.index(0, 0, rows.index(row, 0))));
        EXPECT_EQ(rows.rowCount(rows.index(row, 0)), kFindings / 2);
    }
    form->tvFindings->scrollToBottom();
    form->filterBar->txtSearch->setText(QStringLiteral("train9999.con"));
    QTest::keyClick(form->filterBar->txtSearch, Qt::Key_Return);
    EXPECT_EQ(form->tvFindings->Rows().Tree()->Shown(), 10U);
    EXPECT_TRUE(form->tvFindings->isExpanded(rows.index(0, 0)));
    form->filterBar->ShowAll();
    EXPECT_EQ(form->tvFindings->Rows().Tree()->Hidden(), 0U);
    form->filterBar->chkSeverities[2]->click();
    EXPECT_EQ(form->tvFindings->Rows().Tree()->Hidden(), 33333U);
    form->close();
}

TEST_F(frmHealthTest, EveryControlHasANameAndAKey)
{
    frmHealth &form = open();
    const auto controls = form.findChildren<QWidget *>();
    for (const QWidget *control : controls) {
        const bool takesFocus = control->isVisible() && control->isEnabled() &&
                                (control->focusPolicy() & Qt::TabFocus) && !control->focusProxy();
        EXPECT_FALSE(takesFocus && control->accessibleName().isEmpty())
            << control->metaObject()->className() << ' ' << control->objectName().toStdString();
    }
    form.filterBar->txtSearch->setFocus();
    std::string order;
    for (int i = 0; i < 13; ++i) {
        order += QApplication::focusWidget()->objectName().toStdString() + ' ';
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    }
    EXPECT_EQ(order, "txtSearch cboSimulators chkErrors chkWarnings chkNotes chkKnown tvFindings "
                     "txtDetails cmdRun cmdAccept cmdCopy cmdPrint cmdSave ");
}
