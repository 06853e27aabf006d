// SPDX-License-Identifier: MIT
// Tests the picture of a 3D window: on the screen, saved and printed.
#include "ViewsFixture.h"

#include "host/Path.h"

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QImage>
#include <QLineEdit>

#include <filesystem>
#include <utility>

using viewer::ViewerPane;

namespace {

class ViewPicturesTest : public ViewsTest
{
};

} // namespace

TEST_F(ViewPicturesTest, RestoresThePictureAfterHidingAndResizing)
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

TEST_F(ViewPicturesTest, SavingWritesNumberedPictures)
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

TEST_F(ViewPicturesTest, PathOfASavedPictureStaysVisible)
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

TEST_F(ViewPicturesTest, OpensTheFolderOfPictures)
{
    Start();
    Trigger("mnuViewPictures");
    EXPECT_EQ(desktop.log, "open|" + host::path::Normalise(game.At("Shots")) + "\n");
    desktop.refuses = true;
    Trigger("mnuViewPictures");
    EXPECT_EQ(dialogs.TakeLog(), "critical|Open Pictures Folder|" + game.At("Shots") +
                                     " cannot be opened: there is no program for it.\n");
}

TEST_F(ViewPicturesTest, PrintsThePicture)
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
