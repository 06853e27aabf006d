// SPDX-License-Identifier: MIT
// Tests what 3D windows show, from the menus to the release of the models.
#include "ViewsFixture.h"

#include "host/Folders.h"
#include "host/Path.h"
#include "ui/dialogs/frmResults.h"

#include <QAbstractButton>

#include <filesystem>
#include <fstream>
#include <set>

using document::EditorAction;
using document::ListView;
using document::WindowMode;
using host::DialogAnswer;
using viewer::ViewerPane;

TEST_F(ViewsTest, ListShowsAConsistInASideView)
{
    Start();
    Trigger("mnuConsistView");
    EXPECT_EQ(dialogs.TakeLog(), "critical|View Consist|Nothing selected!\n");
    const WId before = window->winId();
    Find<ListView>(*Active(), "lvConsists").SelectRow(0);
    QTest::keyClick(&Find<ListView>(*Active(), "lvConsists"), Qt::Key_Return, Qt::ShiftModifier);
    ASSERT_TRUE(loaded());
    EXPECT_EQ(Active()->Caption(), "Consist - Coal");
    EXPECT_EQ(Active()->Mode(), WindowMode::ConsistView);
    EXPECT_EQ(window->winId(), before) << "the main window is not recreated";
    EXPECT_TRUE(window->isActiveWindow());
    EXPECT_EQ(Status(), "Done");
    EXPECT_EQ(scene().Models.Count(), 2);
    expectNear(camera(), kSide, "the middle of the train");
    EXPECT_EQ(pane().hscView->maximum(), 30);
    EXPECT_EQ(pane().hscView->value(), 15);
    EXPECT_EQ(pane().vscView->value(), 2);
    EXPECT_EQ(dialogs.Log(), "");
    pane().hscView->setValue(10); // the middle of the 20-metre wagon
    EXPECT_TRUE(Wait([this] { return showsWagon(); }));
    EXPECT_FALSE(Find<QAction>(*window, "mnuViewFilter").isEnabled());
    EXPECT_TRUE(Find<QAction>(*window, "mnuViewReset").isEnabled());
}

TEST_F(ViewsTest, FilesOfEachKindOpenInTheRightWindow)
{
    Start();
    const std::string folder = game.At("Trains/Trainset/Boxcars/");
    const struct
    {
        std::string file, caption, shown;
    } rows[] = {{folder + "box.wag", "Wagon - Wagon X", host::path::Join(folder, "box.s")},
                {stockFile("GP38 Pack/gp38a.eng"), "Engine - Engine X",
                 host::path::Join(game.At("Trains/Trainset/GP38 Pack/"), "gone.s")},
                {folder + "box.s", "Shape - " + folder + "box.s", folder + "box.s"}};
    for (const auto &row : rows) {
        window->OpenFile(row.file);
        ASSERT_TRUE(loaded()) << row.file;
        EXPECT_EQ(Active()->Caption(), row.caption);
        EXPECT_EQ(Active()->FileName(), row.shown);
        EXPECT_EQ(Active()->Mode(), WindowMode::ShapeView);
        EXPECT_EQ(dialogs.TakeLog(), "") << "a missing shape leaves the window empty";
    }
    EXPECT_EQ(pane().hscView->maximum(), 0);
    window->OpenFile(stockFile("Tankers/Oil.wag"));
    const std::string log = dialogs.TakeLog();
    EXPECT_TRUE(log.starts_with("critical|Open File|" + stockFile("Tankers/Oil.wag") +
                                ": there is no Wagon block\n"))
        << log;
}

TEST_F(ViewsTest, LooseConsistsOpenOneAfterTheOther)
{
    std::string items;
    for (const char *wagon : {"box", "hopper", "box"})
        items +=
            std::string("ActivityObject ( Train_Config ( TrainCfg ( \"\" Wagon ( WagonData ( ") +
            wagon + " Boxcars ) ) ) ) )\n";
    const std::string file =
        game.Write("a.act", "SIMISA@@@@@@@@@@JINX0a0t______\n\nTr_Activity ( Tr_Activity_File ( "
                            "ActivityObjects (\n" +
                                items + ") ) )\n");
    const auto opened = [&](const char *answer, std::size_t windows) {
        dialogs.AnswerInput(answer);
        window->OpenFile(file);
        EXPECT_TRUE(Wait([&] { return window->Documents().size() >= windows; }));
        QTest::qWait(600); // there are no more
        std::string captions;
        for (frmDocument *document : window->Documents())
            captions += document->Caption() + "\n";
        return captions;
    };
    Start("none.w"); // without a list window
    dialogs.TakeLog();
    const auto caption = [&](int number) {
        return "Loose Consist " + std::to_string(number) + " from " + file + "\n";
    };
    EXPECT_EQ(opened("", 0), "");
    EXPECT_EQ(dialogs.TakeLog(),
              "input|Activity Loose Consists|Found 3 loose consist(s) in activity " + file +
                  "\n\nWhich do you want to load?|*\n");
    EXPECT_EQ(opened("2,3", 1), caption(2));
    EXPECT_TRUE(Wait([&] { return pane().hscView->maximum() == 20; }));
    EXPECT_EQ(opened("*", 4), caption(2) + caption(1) + caption(2) + caption(3));
    Trigger("mnuViewRefresh");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(scene().Models.Count(), 1) << "the train outlives its file";
    EXPECT_EQ(Active()->Caption() + "\n", caption(3)) << "and the window keeps its caption";
}

TEST_F(ViewsTest, EditorShowsItsConsistSavedOrNot)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    const std::string before = game.Read("Trains/Consists/Coal.con");
    editor.ActionClick(EditorAction::ViewConsist);
    ASSERT_TRUE(loaded());
    EXPECT_EQ(Active()->FileName(), ConsistFile("Coal"));
    EXPECT_EQ(Active()->Caption(), editor.Caption());
    const auto show = [&](DialogAnswer answer) {
        editor.setFocus();
        Find<ListView>(editor, "lvConsist").SelectRow(0);
        Find<QAbstractButton>(editor, "cmdMove5").click();
        dialogs.Answer(answer);
        editor.ActionClick(EditorAction::ViewConsist);
        EXPECT_EQ(dialogs.TakeLog(), "question|View Consist|Consist has changed.  Do you want to "
                                     "save it before viewing the consist?\n");
        return window->Documents().size();
    };
    EXPECT_EQ(show(DialogAnswer::Cancel), 3u);
    EXPECT_EQ(show(DialogAnswer::No), 4u);
    const std::string scratch = host::path::Join(host::ProgramFolder(), "Temporary Consist.con");
    EXPECT_EQ(Active()->FileName(), scratch);
    EXPECT_EQ(Active()->Caption(), editor.Caption());
    EXPECT_TRUE(editor.Changed());
    EXPECT_EQ(editor.FileName(), ConsistFile("Coal"));
    EXPECT_EQ(game.Read("Trains/Consists/Coal.con"), before);
    EXPECT_EQ(ShapesIn(scratch), "box hopper");
    Find<QAbstractButton>(editor, "cmdMove5").click();
    EXPECT_EQ(editor.Caption(), "Consist - Coal") << "the copy's name stays in the copy";
    std::filesystem::remove(scratch);
    dialogs.Answer(DialogAnswer::Yes); // the question about overwriting
    dialogs.Answer(DialogAnswer::Yes);
    editor.ActionClick(EditorAction::ViewConsist);
    EXPECT_FALSE(editor.Changed());
    EXPECT_EQ(Active()->FileName(), ConsistFile("Coal"));
}

TEST_F(ViewsTest, EditorShowsTheSelectedStock)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    Trigger("mnuStockViewShape");
    editor.ActionClick(EditorAction::ViewShape);
    EXPECT_EQ(dialogs.TakeLog(), "critical|View Shape|Nothing selected!\n"
                                 "critical|View Shape|Nothing selected to view\n");
    auto &train = Find<ListView>(editor, "lvConsist");
    train.setFocus();
    train.SelectRow(1);
    Find<QAbstractButton>(editor, "cmdMove5").click(); // flips it
    train.SelectRow(1);
    Trigger("mnuConsistViewShape");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(Active()->Caption(), "Wagon* - hopper");
    EXPECT_TRUE(Active()->FileName().ends_with("box.s")) << Active()->FileName();
    editor.setFocus();
    Find<ListView>(editor, "lvStock").setFocus();
    Find<ListView>(editor, "lvStock").SelectRow(0);
    editor.ActionClick(EditorAction::ViewShape);
    EXPECT_EQ(Active()->Caption(), "Wagon - box");
    editor.AllowUnload();
}

TEST_F(ViewsTest, PropertiesListWhatIsShown)
{
    Start();
    Trigger("mnuFileProperties");
    const std::string path = host::path::Join(game.Path(), "Trains/Consists");
    EXPECT_EQ(dialogs.TakeLog(),
              "information|All Consists Properties|Path:\t" + path + "\r\n\r\nCount:\t3\n");
    dialogs.AnswerInput("gp");
    Trigger("mnuViewFilter");
    dialogs.TakeLog();
    Trigger("mnuFileProperties");
    EXPECT_EQ(dialogs.TakeLog(), "information|All Consists Properties|Path:\t" + path +
                                     "\r\n\r\nCount:\t1 (Filtered on gp)\n");
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    Trigger("mnuFileProperties");
    auto *report = window->findChild<frmResults *>();
    ASSERT_TRUE(report);
    EXPECT_EQ(report->Caption(), "Properties of Wagon - Wagon X");
    EXPECT_EQ(report->Text(), "Shape Textures: 1\r\n1\tside.dds");
    report->close();
    window->OpenDocumentWindow(ConsistFile("Coal"), WindowMode::ConsistView, "Consist - Coal", {});
    ASSERT_TRUE(loaded());
    Trigger("mnuFileProperties");
    const auto reports = window->findChildren<frmResults *>();
    ASSERT_FALSE(reports.empty());
    EXPECT_EQ(reports.back()->Caption(), "Properties of Consist - Coal");
    EXPECT_EQ(reports.back()->Text(), "All Consist Textures\r\n\r\nItem 1 Textures: 1\r\n1\tside"
                                      ".dds\r\n\r\nItem 2 Textures: 1\r\n1\tside.dds");
    reports.back()->close();
}

TEST_F(ViewsTest, ReportsWhatCannotBeShownAndShowsTheRest)
{
    Start();
    WriteConsist("Gappy", {"box", "gone", "holed", "box"});
    writeStock("Boxcars/holed.wag", "Wagon", 12, "gone.s");
    window->OpenDocumentWindow(game.Write("Trains/Consists/Bare.con", "Train ( TrainCfg ( x ) )"),
                               WindowMode::ConsistView, "Bare", {});
    EXPECT_EQ(dialogs.TakeLog(),
              "critical|Open File|No consist to display: " + ConsistFile("Bare") + " (x)\n");
    window->OpenDocumentWindow(ConsistFile("Gappy"), WindowMode::ConsistView, "Gappy", {});
    ASSERT_TRUE(loaded());
    EXPECT_EQ(scene().Models.Count(), 2);
    EXPECT_EQ(
        dialogs.TakeLog(),
        "critical|LoadShape|" + host::path::Join(game.Path(), "Trains/Trainset/Boxcars/gone.wag") +
            " does not exist!\ncritical|LoadShape|" +
            host::path::Join(game.Path(), "Trains/Trainset/Boxcars/gone.s") + " does not exist!\n");
    EXPECT_FLOAT_EQ(scene().Models.Item(2).Z(), -27) << "after a gap of 12 metres";
    EXPECT_EQ(pane().hscView->maximum(), 32);
    std::filesystem::remove(stockFile("Boxcars/side.dds"));
    files.Refresh();
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    EXPECT_EQ(Status(), "Done. Texture side.dds is missing");
}

TEST_F(ViewsTest, ReportsATrainTooLongForTheScrollBar)
{
    writeStock("Boxcars/hopper.wag", "Wagon", 70000, "box.s");
    viewCoal();
    EXPECT_EQ(dialogs.TakeLog(), "critical|View Consist|the length of the train in "
                                 "metres is 70010 and does not fit into 16 bits\n");
    EXPECT_EQ(scene().Models.Count(), 2);
    EXPECT_EQ(pane().hscView->maximum(), 0);
    Trigger("mnuViewReset");
    expectNear(camera(), {10, 2, -35005, 0, 2, -35005}, "its middle");
}

TEST_F(ViewsTest, WindowsShareModelsAndEitherMayClose)
{
    viewCoal();
    frmDocument &first = *Active();
    window->OpenDocumentWindow(ConsistFile("Coal"), WindowMode::ConsistView, "again", {});
    ASSERT_TRUE(loaded());
    sfCanvas &second = canvas();
    pane().hscView->setValue(10);
    first.findChild<ViewerPane *>()->hscView->setValue(10);
    EXPECT_TRUE(showsWagon(second));
    EXPECT_TRUE(showsWagon(*first.findChild<sfCanvas *>()));
    EXPECT_EQ(scene().Models.Item(1).Model().Loaded(),
              first.findChild<ViewerPane *>()->View()->Models.Item(2).Model().Loaded());
    first.close();
    ASSERT_TRUE(Wait([this] { return window->Documents().size() == 2; }));
    Active()->resize(Active()->size() - QSize(40, 30));
    EXPECT_TRUE(showsWagon(second));
    EXPECT_EQ(scene().Models.Count(), 2);
}

TEST_F(ViewsTest, WindowRespondsDuringALayout)
{
    WriteConsist("Long", std::vector<std::string>(2000, "box"));
    Start();
    window->OpenDocumentWindow(ConsistFile("Long"), WindowMode::ConsistView, "Long", {});
    ASSERT_TRUE(Wait([this] { return scene().Models.Count() > 3; }));
    ASSERT_TRUE(pane().Loading());
    expectNear(camera(), {10, 2, 0, 0, 2, 0}, "not moved to the middle yet");
    EXPECT_EQ(pane().hscView->maximum(), 0);
    drag(Qt::RightButton, {0, 100});
    expectNear(camera(), {10, 3, 0, 0, 3, 0}, "the mouse works");
    Trigger("mnuFileSave");
    EXPECT_TRUE(game.Exists("Shots/ZELKC-0001.png"));
    Trigger("mnuFileProperties");
    auto *report = window->findChild<frmResults *>();
    ASSERT_TRUE(report);
    EXPECT_EQ(report->Text().rfind("All Consist Textures\r\n\r\nItem 1 Textures: 1\r\n", 0), 0u);
    report->close();
    Active()->resize(Active()->size() - QSize(60, 40));
    Active()->showMinimized();
    Active()->showNormal();
    Trigger("mnuViewReset");
    expectNear(camera(), {10, 2, 0, 0, 2, 0}, "reset");
    EXPECT_TRUE(pane().Loading());
    WriteConsist("Long", {"hopper"});
    Trigger("mnuViewRefresh"); // starts again, with another train
    drag(Qt::LeftButton, {157, 0});
    const viewer::CameraPose turned = camera();
    ASSERT_TRUE(loaded());
    expectNear(camera(), {turned.CamX, 2, turned.CamZ - 10, 0, 2, -10},
               "turned, and at the middle");
    EXPECT_EQ(scene().Models.Count(), 1);
    EXPECT_EQ(pane().hscView->maximum(), 20);
    Trigger("mnuViewRefresh");
    EXPECT_EQ(pane().hscView->maximum(), 0) << "nothing of the last train is left";
    EXPECT_EQ(dialogs.TakeLog(), "");
}

TEST_F(ViewsTest, EscStopsALongLoading)
{
    WriteConsist("Long", std::vector<std::string>(3000, "box"));
    Start();
    window->OpenDocumentWindow(ConsistFile("Long"), WindowMode::ConsistView, "Long", {});
    ASSERT_TRUE(Wait([this] { return pane().View()->Models.Count() > 3; }));
    QTest::keyClick(window.get(), Qt::Key_Escape);
    EXPECT_FALSE(pane().Loading());
    const int there = scene().Models.Count();
    EXPECT_LT(there, 3000);
    EXPECT_EQ(pane().hscView->maximum(), 10 * there);
    EXPECT_EQ(Status(), "Stopped after " + std::to_string(there) + " of 3000 vehicles");
}

TEST_F(ViewsTest, ClosingReleasesEverything)
{
    host::AppendTraceLine("test"); // on Windows all programs share the log
    const auto traceBegin = std::filesystem::file_size(host::TraceLogFile());
    viewCoal();
    frmDocument &coal = *Active();
    window->OpenDocumentWindow(ConsistFile("GP38 Local"), WindowMode::ConsistView, "Local", {});
    Active()->close(); // while it loads
    WriteConsist("Long", std::vector<std::string>(2000, "box"));
    window->OpenDocumentWindow(ConsistFile("Long"), WindowMode::ConsistView, "Long", {});
    ASSERT_TRUE(Wait([this] { return scene().Models.Count() > 3; }));
    Active()->close(); // in the middle of loading
    coal.LoadForm();   // a second scene replaces the first
    auto &shown = *coal.findChild<ViewerPane *>();
    ASSERT_TRUE(Wait([&shown] { return !shown.Loading(); }));
    EXPECT_EQ(shown.View()->Models.Count(), 2);
    coal.close();
    EXPECT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
    std::ifstream log(host::TraceLogFile());
    log.seekg(static_cast<std::streamoff>(traceBegin));
    std::set<std::string> alive; // types and addresses of the objects
    std::size_t created = 0;
    for (std::string line; std::getline(log, line);) {
        const std::string who = line.size() > 11 ? line.substr(11) : "";
        if (line.find(" > tsview") != line.npos) {
            EXPECT_TRUE(alive.insert(who).second) << line;
            ++created;
        } else if (line.find(" < tsview") != line.npos) {
            EXPECT_EQ(alive.erase(who), 1u) << line;
        }
    }
    EXPECT_EQ(alive, std::set<std::string>());
    EXPECT_GT(created, 10u);
}

TEST_F(ViewsTest, ChangedFilesReachEveryWindowAndKeepTheCamera)
{
    viewCoal();
    auto &coal = pane();
    coal.hscView->setValue(10);
    const viewer::CameraPose pose = camera();
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    auto &box = pane();
    const auto colourOf = [](viewer::ViewerPane &shown) {
        const QImage picture = shown.Picture();
        return picture.pixelColor(picture.width() / 2 + 30, picture.height() / 2);
    };
    game.Write("Trains/Trainset/Boxcars/side.dds", PictureFile({250, 0, 0, 255}));
    const auto isRed = [](const QColor &colour) {
        return colour.red() > 200 && colour.green() < 60;
    };
    EXPECT_TRUE(Wait([&] { return isRed(colourOf(coal)) && isRed(colourOf(box)); }));
    game.Write("Trains/Trainset/Boxcars/side.dds", "half");
    EXPECT_TRUE(Wait([this] { return Status().find("the view keeps") != std::string::npos; }));
    EXPECT_TRUE(isRed(colourOf(coal)));
    std::filesystem::remove(game.At("Trains/Trainset/Boxcars/side.dds"));
    game.Write("Trains/Trainset/Boxcars/new.dds", PictureFile({0, 250, 0, 255}));
    std::filesystem::rename(game.At("Trains/Trainset/Boxcars/new.dds"),
                            game.At("Trains/Trainset/Boxcars/side.dds"));
    EXPECT_TRUE(Wait([&] { return colourOf(box).green() > 200 && colourOf(coal).green() > 200; }))
        << "saved as editors do";
    EXPECT_EQ(static_cast<const viewer::CameraPose &>(*coal.View()), pose);
    EXPECT_EQ(dialogs.TakeLog(), "");
}
