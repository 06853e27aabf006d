// SPDX-License-Identifier: MIT
// Tests the check commands through the main window.
#include "GuiTest.h"
#include "content/HealthSettings.h"
#include "host/Path.h"
#include "ui/dialogs/QtDialogs.h"
#include "ui/dialogs/frmResults.h"
#include "ui/dialogs/frmSelector.h"
#include "ui/main/Program.h"
#include "ui/widgets/ListView.h"
#include "validation/TSValidation.h"

#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPlainTextEdit>
#include <QProgressBar>
#include <QPushButton>
#include <QThread>
#include <QTimer>

#include <algorithm>

using document::ListView;
using document::WindowMode;
using host::path::Join;

namespace {

class ChecksTest : public GuiTest
{
protected:
    ~ChecksTest() override { window.reset(); }

    std::vector<frmResults *> results() const
    {
        std::vector<frmResults *> open;
        for (frmResults *form : window->findChildren<frmResults *>())
            if (form->isVisible())
                open.push_back(form);
        return open;
    }
    /// Returns the text of the only results window. Fails the test if there is not exactly one.
    std::string report() const
    {
        const std::vector<frmResults *> open = results();
        EXPECT_EQ(open.size(), 1u);
        if (open.empty())
            return "";
        open.front()->txtResults->Finish(); // a long text arrives in slices
        return open.front()->txtResults->toPlainText().toStdString();
    }
    /// Writes wagons in many folders, so that a check of all stock has a middle.
    void writeManyWagons()
    {
        for (int folder = 0; folder < kFolders; ++folder)
            for (int file = 0; file < kInFolder; ++file)
                game.Write("Trains/Trainset/Big " + std::to_string(folder) + "/w" +
                               std::to_string(file) + ".wag",
                           "Wagon ( w WagonShape ( none.s ) )");
    }
    /// Runs `act` once, from an event in the middle of the next check.
    void inTheMiddle(const std::function<void()> &act)
    {
        auto *timer = new QTimer(window.get());
        // A check looks at events at intervals; a slow folder makes sure that it does.
        QObject::connect(&Find<QProgressBar>(*window, "sbStatusBarProgress"),
                         &QProgressBar::valueChanged, timer, [] { QThread::msleep(30); });
        QObject::connect(timer, &QTimer::timeout, timer, [this, timer, act] {
            if (!window->Validator || !window->Validator->Running() ||
                Status().find("Checking (") == std::string::npos)
                return;
            timer->stop();
            timer->deleteLater();
            ++acted;
            act();
        });
        timer->start(0);
    }
    bool barIsVisible() const
    {
        return Find<QProgressBar>(*window, "sbStatusBarProgress").isVisible();
    }

    static constexpr int kFolders = 20, kInFolder = 20;
    int acted = 0;
};

} // namespace

TEST_F(ChecksTest, SearchesSelectedRoutesForConsistsOfTheList)
{
    for (const char *route : {"North", "South"})
        game.Write(std::string("Routes/") + route + "/Services/run.srv",
                   "Service_Definition ( Train_Config ( Coal ) )");
    app::QtDialogs real;
    window = app::StartMainWindow({real, files, settings, installation, shapeSource}, desktop,
                                  printers, {});
    window->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window.get()));
    Find<ListView>(*Active(), "lvConsists").selectAll();
    OnNextDialog([](QDialog &dialog) {
        auto &form = dynamic_cast<frmSelector &>(dialog);
        EXPECT_EQ(form.windowTitle(), QStringLiteral("Select Routes to Check"));
        EXPECT_EQ(form.lvItems->count(), 2);
        form.chkAll->click();
        form.cmdAction[0]->click();
    });
    Trigger("mnuFileCheckDep");
    const auto use = [this](const char *route) {
        return "INFO: " + Join(game.Path(), std::string("Routes/") + route + "/Services/run.srv") +
               " references file " + Join(game.Path(), "Trains/Consists/Coal.con") + "\n";
    };
    EXPECT_EQ(report(), use("North") + use("South"));
    EXPECT_EQ(results().front()->Caption(), "Usage check of Coal|Freight North|GP38 Local");
    EXPECT_EQ(Status(), "Done");
    EXPECT_FALSE(barIsVisible());
    window.reset();
}

TEST_F(ChecksTest, EditorChecksTheStockOfTheLastActiveList)
{
    Start();
    OpenEditor("Coal");
    auto &stock = Find<ListView>(*Active(), "lvStock");
    Trigger("mnuStockCheckDep");
    EXPECT_TRUE(results().empty()) << "nothing is selected";
    stock.setFocus();
    stock.SelectRow(4);
    Trigger("mnuStockCheckDep");
    const std::string text = report(), oil = Active()->SelectedItem();
    EXPECT_EQ(text.find("Check Time  : "), 0u) << text;
    EXPECT_NE(text.find("\nMSTS Path   : " + game.Path() + "\nStock Name  : " + oil +
                        "\n\nERROR: " + oil + " appears CORRUPT\nERROR: " + oil +
                        " referenced by all consists is MISSING\n"),
              std::string::npos)
        << text;
    EXPECT_EQ(results().front()->Caption(), "Usage check of Oil");
    EXPECT_EQ(dialogs.TakeLog(), "select|Select Routes to Check|\n");
}

TEST_F(ChecksTest, ResultsWindowsAreSeparateAndCloseWithTheMainWindow)
{
    Start();
    Find<ListView>(*Active(), "lvConsists").SelectRow(0);
    for (int time = 0; time < 2; ++time) {
        Trigger("mnuConsistCheckStock");
        EXPECT_TRUE(Find<QAction>(*window, "mnuViewFilter").isEnabled());
    }
    ASSERT_EQ(results().size(), 2u);
    EXPECT_NE(results()[0]->pos(), results()[1]->pos()) << "neither hides the other";
    for (const frmResults *form : results())
        EXPECT_TRUE(form->screen()->availableGeometry().contains(form->geometry()));
    EXPECT_EQ(Active()->Mode(), WindowMode::ConsistList) << "commands still work on the document";
    auto &menu = Find<QMenu>(*window->menuBar(), "mnuWindow");
    Q_EMIT menu.aboutToShow();
    ASSERT_EQ(menu.actions().size(), 12);
    EXPECT_EQ(menu.actions().back()->text(), QStringLiteral("&3 Stock check of Coal"));
    menu.actions().back()->trigger();
    EXPECT_TRUE(Wait([this] { return results()[1]->isActiveWindow(); }));
    OpenEditor("Coal");
    EXPECT_FALSE(Find<QAction>(*window, "mnuConsistCheckStock").isEnabled());
    window->close();
    EXPECT_TRUE(results().empty());
}

TEST_F(ChecksTest, LabelCountsFilesThatTheSimulatorFindsElsewhere)
{
    game.Write("Sound/common.sms", "\nTr_SMS ( )");
    game.Write("Trains/Trainset/Boxcars/box.s");
    game.Write("Trains/Trainset/Boxcars/box.sd");
    for (const char *name : {"box", "hopper"})
        game.Write(std::string("Trains/Trainset/Boxcars/") + name + ".wag",
                   "\nWagon ( x WagonShape ( box.s ) Sound ( common.sms ) Thumbnail ( x.ace ) )");
    const struct
    {
        content::Profiles kept;
        const char *label;
    } rows[] = {
        {content::Profiles::Both(), "1 of these files is found elsewhere by the simulator: see "
                                    "Stock > Health Report."},
        {content::Profile::OpenRails, "2 of these files are found elsewhere by the simulator: see "
                                      "Stock > Health Report."},
    };
    Start();
    for (const auto &row : rows) {
        content::KeepProfiles(settings, game.Path(), row.kept);
        dialogs.Answer(host::DialogAnswer::Yes);
        Trigger("mnuStockCheckAll");
        ASSERT_EQ(results().size(), 1u);
        const auto &label = Find<QLabel>(*results().front(), "lblElsewhere");
        EXPECT_TRUE(Wait([&] { return label.isVisible(); }));
        EXPECT_EQ(label.text(), QString::fromLatin1(row.label));
        EXPECT_EQ(report().find("elsewhere"), std::string::npos);
        EXPECT_EQ(results().front()->Text().find("elsewhere"), std::string::npos);
        results().front()->close();
    }
    window->ShowTextWindow("box", "another text");
    QTest::qWait(200);
    EXPECT_TRUE(Find<QLabel>(*results().front(), "lblElsewhere").isHidden())
        << "not the report of a check";
}

TEST_F(ChecksTest, EscStopsTheCheckOfAllStock)
{
    writeManyWagons();
    Start();
    dialogs.Answer(host::DialogAnswer::Yes);
    inTheMiddle([this] {
        EXPECT_TRUE(barIsVisible());
        QTest::keyClick(window.get(), Qt::Key_Escape);
    });
    Trigger("mnuStockCheckAll");
    EXPECT_EQ(acted, 1);
    const std::string text = report();
    EXPECT_NE(text.find("\nSTOPPED at "), std::string::npos) << text;
    EXPECT_EQ(text.find("Tankers"), std::string::npos) << "the last folder was not reached";
    EXPECT_EQ(results().front()->Caption(), "TS Installation Check");
    EXPECT_EQ(Status(), "Check stopped");
    EXPECT_FALSE(barIsVisible());
}

TEST_F(ChecksTest, RunningCheckRefusesAnotherAndSurvivesOtherCommands)
{
    writeManyWagons();
    Start();
    dialogs.Answer(host::DialogAnswer::Yes);
    inTheMiddle([this] {
        dialogs.TakeLog();
        Trigger("mnuStockCheckAll");
        Trigger("mnuFileSetMSTSLoc");
        EXPECT_EQ(dialogs.TakeLog(),
                  "information|Check All Stock|A check is running.  Wait until it has ended, or "
                  "press Esc in the main window to stop it.\ncritical|Set MSTS Location|Can't "
                  "change MSTS location whilst a check is running!\n");
        Active()->close();
        files.Refresh();
        window->OpenFile(ConsistFile("Coal"));
        EXPECT_TRUE(Wait([this] { return Status().find("loaded: ") != std::string::npos; }));
    });
    Trigger("mnuStockCheckAll");
    EXPECT_EQ(acted, 1);
    EXPECT_EQ(window->Documents().size(), 1u);
    const std::string text = report();
    EXPECT_EQ(std::count(text.begin(), text.end(), '\n'), 5 + 2 * kFolders * kInFolder);
    EXPECT_EQ(Status(), "TS Installation check complete  -  805 errors");
}

TEST_F(ChecksTest, ClosingTheProgramEndsTheCheck)
{
    writeManyWagons();
    Start();
    dialogs.Answer(host::DialogAnswer::Yes);
    inTheMiddle([this] { EXPECT_TRUE(window->close()); });
    Trigger("mnuStockCheckAll");
    EXPECT_EQ(acted, 1);
    EXPECT_TRUE(results().empty()) << "no window opens any more";
    EXPECT_FALSE(window->isVisible());
    EXPECT_TRUE(window->Validator->Stopped());
}
