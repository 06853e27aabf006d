// SPDX-License-Identifier: MIT
// Tests the 3D windows, from menus and mouse to the saved files.
#include "GuiTest.h"
#include "korvat/TestShape.h"

#include "host/Folders.h"
#include "host/Path.h"
#include "ui/dialogs/frmResults.h"
#include "ui/view3d/ViewerPane.h"
#include "ui/view3d/sfCanvas.h"
#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>
#include <QScrollBar>
#include <QWheelEvent>

#include <filesystem>
#include <fstream>
#include <set>
#include <utility>

using document::EditorAction;
using document::ListView;
using document::WindowMode;
using host::DialogAnswer;
using viewer::ViewerPane;

namespace {

class ViewsTest : public GuiTest
{
protected:
    void SetUp() override
    {
        if (!sfCanvas::WhyNot().empty())
            GTEST_SKIP() << sfCanvas::WhyNot();
        settings.values["ScreenShotDir"] = game.MakeFolder("Shots");
        game.Write("Trains/Trainset/Boxcars/box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 9, 3)}));
        game.Write("Trains/Trainset/Boxcars/side.dds", LetterFile());
        writeStock("Boxcars/box.wag", "Wagon", 10, "box.s");
        writeStock("Boxcars/hopper.wag", "Wagon", 20, "box.s");
        writeStock("GP38 Pack/gp38a.eng", "Engine", 16, "gone.s");
    }
    void writeStock(const std::string &file, const std::string &type, int length,
                    const std::string &shape)
    {
        game.Write("Trains/Trainset/" + file, "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( \"" +
                                                  type + " X\" Size ( 3m 4m " +
                                                  std::to_string(length) + "m ) WagonShape ( " +
                                                  shape + " ) )\r\n");
    }
    std::string stockFile(const char *name)
    {
        return game.At(std::string("Trains/Trainset/") + name);
    }

    ViewerPane &pane() { return *Active()->findChild<ViewerPane *>(); }
    sfCanvas &canvas() { return *pane().sfViewer; }
    TSView &scene() { return *pane().View(); }
    bool loaded()
    {
        return Wait([this] { return Active()->findChild<ViewerPane *>() && !pane().Loading(); });
    }
    /// Writes the consist "Coal": a wagon of 10 metres and one of 20.
    ViewerPane &viewCoal()
    {
        Start();
        Find<ListView>(*Active(), "lvConsists").SelectRow(0);
        Trigger("mnuConsistView");
        EXPECT_TRUE(loaded());
        return pane();
    }
    void drag(Qt::MouseButton button, QPoint by)
    {
        const QPoint from(100, 100);
        QTest::mousePress(&canvas(), button, {}, from);
        QMouseEvent move(QEvent::MouseMove, QPointF(from + by),
                         canvas().mapToGlobal(QPointF(from + by)), Qt::NoButton, button, {});
        QCoreApplication::sendEvent(&canvas(), &move);
        QTest::mouseRelease(&canvas(), button, {}, from + by);
    }
    viewer::CameraPose camera() { return scene(); }
    static void expectNear(const viewer::CameraPose &got, const viewer::CameraPose &wanted,
                           const char *name)
    {
        const auto near = [](float a, float b) { return std::abs(a - b) < 1e-3f; };
        EXPECT_TRUE(near(got.CamX, wanted.CamX) && near(got.CamY, wanted.CamY) &&
                    near(got.CamZ, wanted.CamZ) && near(got.LookAtX, wanted.LookAtX) &&
                    near(got.LookAtY, wanted.LookAtY) && near(got.LookAtZ, wanted.LookAtZ))
            << name << ": " << got.CamX << ' ' << got.CamY << ' ' << got.CamZ << " to "
            << got.LookAtX << ' ' << got.LookAtY << ' ' << got.LookAtZ;
    }
    /// Returns whether the canvas shows the wagon in the middle of the picture.
    bool showsWagon() { return showsWagon(canvas()); }
    static bool showsWagon(sfCanvas &where)
    {
        const QImage picture = where.Picture();
        const QColor middle = picture.pixelColor(picture.width() / 2, picture.height() / 2);
        const bool white = middle.red() > 240 && middle.green() > 240;
        const bool blue = middle.red() < 20 && middle.blue() > 140;
        return white || blue;
    }
};

const viewer::CameraPose kSide{10, 2, -15, 0, 2, -15};

} // namespace

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

TEST_F(ViewsTest, MouseWheelAndKeysMoveTheCamera)
{
    viewCoal();
    QTest::mouseMove(&canvas(), {50, 50});
    expectNear(camera(), kSide, "no button");
    drag(Qt::LeftButton, {314, 0});
    EXPECT_NEAR(camera().CamZ, -5, 0.02) << "a quarter turn";
    EXPECT_EQ(Status(), "Move(314,0)");
    Trigger("mnuViewReset");
    expectNear(camera(), kSide, "reset");
    drag(Qt::RightButton, {0, 100});
    expectNear(camera(), {10, 3, -15, 0, 3, -15}, "pan up");
    EXPECT_EQ(pane().vscView->value(), 3);
    drag(Qt::RightButton, {40, 0});
    expectNear(camera(), {10, 3, -16, 0, 3, -16}, "pan right");
    drag(Qt::MiddleButton, {40, 40});
    expectNear(camera(), {10, 3, -16, 0, 3, -16}, "the middle button does nothing");
    QTest::mouseDClick(&canvas(), Qt::LeftButton);
    expectNear(camera(), kSide, "a double click resets");
    QWheelEvent turn({50, 50}, canvas().mapToGlobal(QPointF(50, 50)), {}, {0, 120}, {}, {},
                     Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&canvas(), &turn);
    expectNear(camera(), {9, 2, -15, 0, 2, -15}, "nearer");
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_Right);
    expectNear(camera(), {9, 2, -14, 0, 2, -14}, "right is towards the front");
    QTest::keyClick(&canvas(), Qt::Key_Left);
    QTest::keyClick(&canvas(), Qt::Key_Left);
    EXPECT_EQ(pane().hscView->value(), 14);
    QTest::keyClick(&canvas(), Qt::Key_Up);
    expectNear(camera(), {9, 3, -16, 0, 2, -16}, "up lifts the camera alone");
    QTest::keyClick(&canvas(), Qt::Key_Down);
    EXPECT_EQ(pane().vscView->value(), 2);
}

TEST_F(ViewsTest, DragOverTheTargetKeepsItsDirection)
{
    viewCoal();
    const QPoint from(100, 200);
    QPoint at = from;
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, at);
    for (int i = 0; i < 157; ++i) { // hands are unsteady
        at += QPoint(i % 2 ? 1 : -1, -1);
        QMouseEvent move(QEvent::MouseMove, QPointF(at), canvas().mapToGlobal(QPointF(at)),
                         Qt::NoButton, Qt::LeftButton, {});
        QCoreApplication::sendEvent(&canvas(), &move);
    }
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, at);
    EXPECT_NEAR(camera().CamY, 2 + 10 * std::sin(157 / 200.0), 0.01);
    EXPECT_NEAR(camera().CamX, 10 * std::cos(157 / 200.0), 0.01);
    expectNear({10, 2, -15, camera().LookAtX, camera().LookAtY, camera().LookAtZ}, kSide, "target");
    drag(Qt::LeftButton, {0, -157});
    EXPECT_LT(camera().CamZ, -20) << "from above, the next drag swings it along the train";
}

TEST_F(ViewsTest, TurnedViewKeepsItsDistance)
{
    viewCoal();
    drag(Qt::LeftButton, {314, 0});
    const viewer::CameraPose turned = camera();
    pane().hscView->setValue(30);
    expectNear(camera(), {turned.CamX, 2, turned.CamZ + 15, 0, 2, 0}, "the scroll bar");
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_Left);
    expectNear(camera(), {turned.CamX, 2, turned.CamZ + 14, 0, 2, -1}, "an arrow key");
    Trigger("mnuViewReset");
    drag(Qt::LeftButton, {1, 0});
    for (int i = 0; i < 10; ++i)
        drag(Qt::RightButton, {1, 0});
    EXPECT_NEAR(camera().LookAtZ, -25, 0.01) << "ten steps of one metre";
    EXPECT_NEAR(camera().LookAtX, -0.05, 0.01);
}

TEST_F(ViewsTest, ScrollBarsMoveTheCameraAndFollowIt)
{
    viewCoal();
    pane().hscView->setValue(30);
    expectNear(camera(), {10, 2, 0, 0, 2, 0}, "the front");
    pane().hscView->setValue(0);
    expectNear(camera(), {10, 2, -30, 0, 2, -30}, "the end");
    pane().vscView->setValue(12);
    expectNear(camera(), {10, 12, -30, 0, 2, -30}, "from above");
    Trigger("mnuViewReset");
    EXPECT_EQ(pane().hscView->value(), 15);
    EXPECT_EQ(pane().vscView->value(), 2);
    drag(Qt::RightButton, {0, 130});
    EXPECT_EQ(pane().vscView->value(), 3);
    EXPECT_NEAR(camera().CamY, 3.3f, 1e-4) << "the bar rounds, the camera does not";
    drag(Qt::RightButton, {0, -1000});
    EXPECT_EQ(pane().vscView->value(), 3) << "below its range the bar stays";
}

TEST_F(ViewsTest, RestoresThePictureAfterHidingAndResizing)
{
    viewCoal();
    pane().hscView->setValue(10);
    ASSERT_TRUE(Wait([this] { return showsWagon(); }));
    frmDocument &view = *Active();
    view.showMaximized();
    EXPECT_TRUE(Wait([this] { return showsWagon(); })) << "maximised";
    view.showNormal();
    view.hide();
    QTest::qWait(20);
    view.show();
    EXPECT_TRUE(Wait([this] { return showsWagon(); })) << "after it was hidden";
    ViewerPane &shown = pane();
    view.setWidget(nullptr);
    shown.setParent(nullptr);
    shown.resize(300, 200);
    shown.show();
    EXPECT_TRUE(Wait([&shown] { return showsWagon(*shown.sfViewer); })) << "in another window";
    delete &shown;
}

TEST_F(ViewsTest, SavingWritesNumberedPictures)
{
    viewCoal();
    Trigger("mnuFileSave");
    EXPECT_EQ(Status(), "Done");
    game.Write("Shots/ZELKC-0002.png", "someone else's");
    Trigger("mnuFileSaveAs");
    EXPECT_EQ(game.Names("Shots"),
              (std::vector<std::string>{"ZELKC-0001.png", "ZELKC-0002.png", "ZELKC-0003.png"}));
    EXPECT_EQ(game.Read("Shots/ZELKC-0002.png"), "someone else's");
    const QImage picture(QString::fromStdString(game.At("Shots/ZELKC-0003.png")));
    EXPECT_EQ(picture.size(), canvas().size() * canvas().devicePixelRatioF());
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    Trigger("mnuFileSaveAll");
    EXPECT_TRUE(game.Exists("Shots/ZELKC-0004.png"));
    EXPECT_TRUE(game.Exists("Shots/ZELKS-0001.png"));
    EXPECT_EQ(dialogs.TakeLog(), "");
    std::filesystem::remove_all(game.At("Shots"));
    Trigger("mnuFileSave");
    const std::string log = dialogs.TakeLog();
    EXPECT_EQ(log.rfind("critical|Save Snapshot|", 0), 0u) << log;
    EXPECT_NE(log.find("ZELKS-0001.png"), std::string::npos) << log;
    EXPECT_EQ(Status(), "The picture was not saved.");
}

TEST_F(ViewsTest, PathOfASavedPictureStaysVisible)
{
    viewCoal();
    const QSize before = canvas().size();
    auto &bar = Find<QWidget>(pane(), "savedPictureBar");
    EXPECT_FALSE(bar.isVisible());
    Trigger("mnuFileSave");
    Trigger("mnuFileSave");
    const std::string file = host::path::Join(game.At("Shots"), "ZELKC-0002.png");
    auto &path = Find<QLineEdit>(bar, "txtSavedPicture");
    EXPECT_TRUE(bar.isVisible());
    EXPECT_EQ(path.text().toStdString(), file);
    QTest::qWait(50);
    EXPECT_EQ(canvas().size(), before) << "pictures of one view have one size";
    const viewer::CameraPose still = camera();
    QTest::mousePress(&bar, Qt::LeftButton, {}, {3, 3});
    QTest::mouseMove(&bar, {60, 3});
    QTest::mouseRelease(&bar, Qt::LeftButton, {}, {60, 3});
    expectNear(camera(), still, "the bar is not the canvas");

    canvas().setFocus();
    for (int i = 0; i < 20 && !path.hasFocus(); ++i)
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(path.hasFocus()) << "by keyboard";
    QTest::keyClick(&path, Qt::Key_A, Qt::ControlModifier);
    QTest::keyClick(&path, Qt::Key_C, Qt::ControlModifier);
    EXPECT_EQ(QGuiApplication::clipboard()->text().toStdString(), file);
    QTest::keyClick(&path, Qt::Key_Tab);
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
    EXPECT_EQ(std::exchange(desktop.log, {}), "open|" + file + "\n");
    Find<QAbstractButton>(bar, "cmdOpenPictureFolder").click();
    EXPECT_EQ(std::exchange(desktop.log, {}),
              "open|" + host::path::Normalise(game.At("Shots")) + "\n");
    std::filesystem::remove(file);
    files.Refresh();
    Find<QAbstractButton>(bar, "cmdOpenPicture").click();
    EXPECT_EQ(dialogs.TakeLog(), "critical|Open|" + file + " does not exist!\n");
    Find<QAbstractButton>(bar, "cmdHidePicture").click();
    EXPECT_FALSE(bar.isVisible());
    EXPECT_TRUE(canvas().hasFocus());
}

TEST_F(ViewsTest, OpensTheFolderOfPictures)
{
    Start();
    Trigger("mnuViewPictures");
    EXPECT_EQ(desktop.log, "open|" + host::path::Normalise(game.At("Shots")) + "\n");
    desktop.refuses = true;
    Trigger("mnuViewPictures");
    EXPECT_EQ(dialogs.TakeLog(), "critical|Open Pictures Folder|" + game.At("Shots") +
                                     " cannot be opened: there is no program for it.\n");
}

TEST_F(ViewsTest, PrintsThePicture)
{
    viewCoal();
    printers.file = game.At("view.pdf");
    Trigger("mnuFilePrint");
    EXPECT_EQ(printers.log, "print|Print Consist View|Print Consist View\n");
    EXPECT_NE(game.Read("view.pdf").find("/Subtype /Image"), std::string::npos);
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    Trigger("mnuFilePrint");
    EXPECT_NE(printers.log.find("Print Stock View"), std::string::npos);
    EXPECT_EQ(dialogs.TakeLog(), "");
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
