// SPDX-License-Identifier: MIT
#include "ui/main/frmMain.h"

#include "GuiTest.h"
#include "host/Path.h"
#include "support/KnownFolders.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QDropEvent>
#include <QMdiArea>
#include <QMimeData>
#include <QStatusBar>

using document::WindowMode;

namespace {

class frmMainTest : public GuiTest
{
protected:
    std::string captions() const
    {
        std::string text;
        for (const frmDocument *document : window->Documents())
            text += document->Caption() + "\n";
        return text;
    }
    QRect areaRect() const
    {
        return QRect(QPoint(0, 0), Find<QMdiArea>(*window, "mdiArea").maximumViewportSize());
    }
};

} // namespace

TEST_F(frmMainTest, StartsWithAListOfTheInstalledConsists)
{
    Start();
    EXPECT_EQ(window->windowTitle(), QStringLiteral("ZELK v1.0-75"));
    EXPECT_EQ(captions(), "Consist List 1\n");
    EXPECT_EQ(RowsOf(Find<QAbstractItemView>(*Active(), "lvConsists")),
              "Coal Freight North GP38 Local");
    EXPECT_EQ(dialogs.Log(), "");
    EXPECT_EQ(window->size(), QSize(900, 640));
}

TEST_F(frmMainTest, FileOnTheCommandLineOpensInsteadOfTheList)
{
    Start(ConsistFile("Coal"));
    EXPECT_EQ(captions(), "Consist - " + ConsistFile("Coal") + "\n");
    EXPECT_EQ(RowsOf(Find<QAbstractItemView>(*Active(), "lvConsist")),
              "Wagon/Boxcars/box Wagon/Boxcars/hopper");
}

TEST_F(frmMainTest, MissingConsistStartsANewOneOfThatName)
{
    StartOnly(ConsistFile("New Train"));
    EXPECT_EQ(Active()->FileName(), ConsistFile("New Train"));
    EXPECT_TRUE(Active()->Changed());
    EXPECT_TRUE(Wait([this] { return Status().find("5 items") != std::string::npos; }));
    EXPECT_NE(Status().find("New Train.con does not exist yet"), std::string::npos) << Status();
    EXPECT_FALSE(game.Exists("Trains/Consists/New Train.con"));
}

TEST_F(frmMainTest, RefusesOtherFilesWithAMessage)
{
    Start();
    const std::string binary = game.Write("Trains/Consists/bin.con", std::string("\0\1\2\3", 4));
    const std::string checkThePath =
        "\n\nCheck the path, and the location under File > Set MSTS Location.\n";
    const struct
    {
        std::string path, log;
    } rows[] = {
        {"a.W", "critical|Open File|World files not supported in this version!\n"},
        {"a.wx", "critical|Open File|File type not supported!\n"},
        {"a.con.bak", "critical|Open File|File type not supported!\n"},
        {"/none/a.eng", "critical|Open File|/none/a.eng: there is no such folder" + checkThePath},
        {"/none/a.act", "critical|Open File|/none/a.act: there is no such folder" + checkThePath},
    };
    for (const auto &row : rows) {
        window->OpenFile(row.path);
        EXPECT_EQ(dialogs.TakeLog(), row.log) << row.path;
    }
    window->OpenFile(binary);
    const std::string log = dialogs.TakeLog();
    EXPECT_EQ(log.rfind("critical|Open File|", 0), 0u) << log;
    EXPECT_NE(log.find(binary), std::string::npos) << log;
    EXPECT_EQ(captions(), "Consist List 1\n") << "only the list is open";
}

TEST_F(frmMainTest, WindowNumbersCountByModeAndAreNotReused)
{
    Start();
    Trigger("mnuFileNewConsistList");
    Trigger("mnuFileNewConsist");
    Active()->AllowUnload();
    Active()->close();
    Trigger("mnuFileNewConsist");
    EXPECT_TRUE(Wait([this] { return window->Documents().size() == 3; }));
    EXPECT_EQ(captions(), "Consist List 1\nConsist List 2\nConsist 2\n");
    EXPECT_THROW(window->NewDocumentWindow(static_cast<WindowMode>(4), ""), host::RuntimeError);
    EXPECT_NE(window->NewDocumentWindow(WindowMode::ConsistView, ""), nullptr);
    EXPECT_EQ(Active()->Caption(), "Stock Item 1");
}

TEST_F(frmMainTest, OpensDroppedFiles)
{
    Start();
    QMimeData data;
    data.setUrls({QUrl::fromLocalFile(QString::fromStdString(ConsistFile("Coal"))),
                  QUrl(QStringLiteral("https://localhost/x.con"))});
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &enter);
    EXPECT_TRUE(enter.isAccepted());
    QDropEvent drop(QPointF(5, 5), Qt::CopyAction, &data, Qt::LeftButton, Qt::NoModifier);
    QCoreApplication::sendEvent(window.get(), &drop);
    EXPECT_TRUE(Wait([this] { return window->Documents().size() == 2; }));
    EXPECT_EQ(Active()->FileName(), host::path::Normalise(ConsistFile("Coal")));
}

TEST_F(frmMainTest, WritesSettingsAtTheEnd)
{
    settings.values["MSTSDir"] = " $msts ";
    settings.values["ScreenShotDir"] = "/pictures";
    support::KnownFolders known(home.Folder().At(".config"));
    known.Register(game.Path());
    Start();
    EXPECT_EQ(RowsOf(Find<QAbstractItemView>(*Active(), "lvConsists")),
              "Coal Freight North GP38 Local");
    window->resize(800, 500);
    window->move(20, 30);
    ASSERT_TRUE(Wait([this] { return window->pos() == QPoint(20, 30); }));
    const std::map<std::string, std::string, std::less<>> before = settings.values;
    EXPECT_EQ(before.at("MainWidth"), "13500") << "nothing is written before the end";
    window->close();
    const std::map<std::string, std::string, std::less<>> expected = {
        {"MainLeft", "300"},    {"MainTop", "450"},       {"MainWidth", "12000"},
        {"MainHeight", "7500"}, {"MSTSDir", game.Path()}, {"ScreenShotDir", "/pictures"}};
    EXPECT_EQ(settings.values, expected);
}

TEST_F(frmMainTest, UnwritableSettingsAreReportedOnceAndTheProgramEnds)
{
    Start();
    settings.readOnly = true;
    EXPECT_TRUE(window->close());
    const std::string log = dialogs.TakeLog();
    EXPECT_TRUE(log.starts_with("critical|Save Settings|ZELK.ini\n")) << log;
    EXPECT_EQ(log.find("critical", 1), log.npos) << log;
    window->close();
    EXPECT_EQ(dialogs.TakeLog(), "");
}

TEST_F(frmMainTest, ClosingAsksAboutEveryChangedConsistAndCancelKeepsAll)
{
    Start();
    for (const char *name : {"Coal", "Freight North"})
        OpenEditor(name).findChild<QAbstractButton *>(QStringLiteral("cmdMove5"))->click();
    dialogs.Answer(host::DialogAnswer::No);
    dialogs.Answer(host::DialogAnswer::Cancel);
    EXPECT_FALSE(window->close());
    EXPECT_EQ(window->Documents().size(), 3u);
    EXPECT_TRUE(window->isVisible());
    const std::string question =
        "question|Close|Consist has changed.  All changes will be lost if you do not save it.  "
        "Do you want to save it before closing?\n";
    EXPECT_EQ(dialogs.TakeLog(), question + question);

    dialogs.Answer(host::DialogAnswer::No);
    dialogs.Answer(host::DialogAnswer::No);
    EXPECT_TRUE(window->close());
    EXPECT_EQ(dialogs.TakeLog(), question + question) << "each question is asked once";
    EXPECT_TRUE(window->Documents().empty());
}

TEST_F(frmMainTest, TilingFillsTheAreaAndFollowsItWhenLocked)
{
    Start();
    Trigger("mnuWindowNewWindow");
    Trigger("mnuWindowTileHorizontal");
    const auto first = [this] { return window->Documents().front()->geometry(); };
    EXPECT_EQ(first(), app::StackedTiles(areaRect(), 2)[0]);
    Trigger("mnuWindowLockTiling");
    Trigger("mnuWindowTileVertical");
    window->resize(1000, 700);
    ASSERT_TRUE(Wait([&] { return first() == app::SideBySideTiles(areaRect(), 2)[0]; }));
    EXPECT_GT(first().width(), 480);

    for (const char *command : {"mnuWindowCascade", "mnuWindowArrangeIcons"}) {
        Trigger(command);
        const QRect before = first();
        window->resize(window->width() - 50, 700);
        QCoreApplication::processEvents();
        EXPECT_EQ(first(), before) << command;
    }
}

TEST_F(frmMainTest, WindowsGrowWithTheAreaUntilTheUserResizesThem)
{
    Start();
    window->resize(433, 433);
    frmDocument &editor = OpenEditor("Coal"), &other = OpenEditor("Freight North");
    EXPECT_EQ(editor.size(), areaRect().size());
    other.resize(350, 300);
    editor.move(30, 20);
    window->resize(560, 600);
    EXPECT_TRUE(Wait([&] { return editor.size() == QSize(areaRect().width(), 440); }));
    EXPECT_TRUE(areaRect().contains(editor.geometry()));
    window->resize(1000, 700);
    EXPECT_TRUE(Wait([&] { return editor.size() == QSize(660, 440); }));
    window->resize(500, 500);
    QCoreApplication::processEvents();
    EXPECT_EQ(editor.size(), QSize(660, 440));
    EXPECT_EQ(other.size(), QSize(350, 300));
}

TEST_F(frmMainTest, MinimisedWindowsAreAtTheBottomBelowTheTiles)
{
    Start();
    Trigger("mnuWindowNewWindow");
    window->Documents().front()->showMinimized();
    Trigger("mnuWindowTileVertical");
    const QRect icon = window->Documents().front()->geometry();
    EXPECT_EQ(icon.bottomLeft(), areaRect().bottomLeft());
    EXPECT_EQ(window->Documents().back()->geometry(), areaRect().adjusted(0, 0, 0, -icon.height()));
}

TEST_F(frmMainTest, LocationCannotChangeWhileAConsistIsEdited)
{
    Start();
    OpenEditor("Coal");
    Trigger("mnuFileSetMSTSLoc");
    EXPECT_EQ(dialogs.TakeLog(), "critical|Set MSTS Location|Can't change MSTS location whilst "
                                 "editting a consist!\n");
}

TEST_F(frmMainTest, CommandsWithoutAWindowDoNothing)
{
    Start();
    window->Documents().front()->close();
    ASSERT_TRUE(Wait([this] { return window->Documents().empty(); }));
    for (const char *name :
         {"mnuFileClose", "mnuFileSave", "mnuViewRefresh", "mnuConsistEdit", "mnuWindowCascade"})
        EXPECT_FALSE(Find<QAction>(*window, name).isEnabled()) << name;
    window->SaveDocument(false);
    for (const int code : {0, 1, 2, 3})
        window->Arrange(static_cast<app::Arrangement>(code));
    EXPECT_EQ(dialogs.Log(), "");
}
