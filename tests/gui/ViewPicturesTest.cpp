// SPDX-License-Identifier: MIT
// Tests the picture of a 3D window: on the screen, saved and printed.
#include "ViewsFixture.h"

#include "host/Path.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QImage>
#include <QLineEdit>
#include <QTimer>

#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <utility>

using viewer::ViewerPane;

namespace {

class ViewPicturesTest : public ViewsTest
{
protected:
    /// Saves a picture of this size, given as in the dialog, with the keyboard.
    void savePicture(const QString &size, bool transparent, const std::string &file)
    {
        OnNextDialog([&](QDialog &dialog) {
            EXPECT_EQ(dialog.objectName(), QStringLiteral("frmSavePicture"));
            auto &sizes = Find<QComboBox>(dialog, "cboSize");
            EXPECT_TRUE(Wait([&] { return sizes.hasFocus(); }));
            sizes.setCurrentIndex(sizes.findText(size, Qt::MatchStartsWith));
            auto &clear = Find<QCheckBox>(dialog, "chkTransparent");
            if (clear.isChecked() != transparent) {
                QTest::keyClick(&sizes, Qt::Key_Tab);
                QTest::keyClick(&clear, Qt::Key_Space);
            }
            EXPECT_EQ(clear.isChecked(), transparent);
            QTest::keyClick(&sizes, Qt::Key_Return);
        });
        dialogs.AnswerFile(file);
        Trigger("mnuFileSavePicture");
    }
    QImage saved(const char *name) { return QImage(QString::fromStdString(game.At(name))); }
    /// Returns the largest difference of a colour between two pictures of the same size.
    static int difference(const QImage &a, const QImage &b)
    {
        int most = a.size() == b.size() ? 0 : 255;
        for (int y = 0; most < 255 && y < a.height(); ++y)
            for (int x = 0; x < a.width(); ++x) {
                const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
                most = std::max({most, std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                 std::abs(qBlue(p) - qBlue(q)), std::abs(qAlpha(p) - qAlpha(q))});
            }
        return most;
    }
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
    view.setWidget(&shown);
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

TEST_F(ViewPicturesTest, SavesPicturesOfAnySizeWhereTheUserWants)
{
    viewCoal();
    pane().hscView->setValue(10);
    game.MakeFolder("Album");
    savePicture(QStringLiteral("2560"), false, game.At("Album/large"));
    EXPECT_EQ(saved("Album/large.png").size(), QSize(2560, 1440)) << "drawn in two tiles";
    EXPECT_FALSE(saved("Album/large.png").hasAlphaChannel());
    EXPECT_EQ(dialogs.TakeLog(), "save|Save Picture As|Coal.png\n");
    EXPECT_NE(Status().find("large.png, 2560"), std::string::npos) << Status();
    EXPECT_EQ(game.Names("Shots").size(), 0u) << "not the folder of screenshots";

    dialogs.Answer(host::DialogAnswer::No);
    dialogs.AnswerFile(game.At("Album/large.png"));
    savePicture(QStringLiteral("%1").arg(pane().Picture().width()), false, "");
    EXPECT_EQ(host::path::Normalise(dialogs.LastFolder()), host::path::Normalise(game.At("Album")));
    EXPECT_NE(dialogs.TakeLog().find("already exists.  Do you want to overwrite it?"),
              std::string::npos);
    EXPECT_EQ(saved("Album/large.png").size(), QSize(2560, 1440)) << "kept";

    const QImage shown = pane().Picture().convertToFormat(QImage::Format_RGB32);
    savePicture(QStringLiteral("%1").arg(shown.width()), false, game.At("Album/same.png"));
    EXPECT_LE(difference(saved("Album/same.png").convertToFormat(QImage::Format_RGB32), shown), 2)
        << "exactly what the window shows";
    dialogs.TakeLog();
    savePicture(QStringLiteral("1024"), false, game.At("Nowhere/x.png"));
    const std::string log = dialogs.TakeLog();
    EXPECT_NE(log.find("critical|"), std::string::npos);
    EXPECT_NE(log.find("x.png"), std::string::npos) << log;
}

TEST_F(ViewPicturesTest, TransparentPicturesHoldOnlyTheVehicles)
{
    viewCoal();
    pane().hscView->setValue(10);
    const QImage before = pane().Picture();
    savePicture(QStringLiteral("1280"), true, game.At("clear.png"));
    const QImage picture = saved("clear.png");
    ASSERT_EQ(picture.size(), QSize(1280, 720));
    EXPECT_EQ(qAlpha(picture.pixel(640, 40)), 0) << "the sky";
    EXPECT_EQ(qAlpha(picture.pixel(640, 700)), 0) << "the ground";
    const QColor wagon = picture.pixelColor(640, 360);
    EXPECT_EQ(wagon.alpha(), 255);
    EXPECT_GT(wagon.blue(), 140);
    EXPECT_LE(difference(pane().Picture(), before), 0) << "the window is as before";
}

TEST_F(ViewPicturesTest, TilesOfALargePictureFitTogether)
{
    viewCoal();
    pane().Camera().SetAnimated(false);
    Trigger("mnuViewShowAll");
    drag(Qt::LeftButton, {90, -60}); // lines cross the tiles aslant
    const QImage large = pane().DrawPicture({4200, 2400}, false);
    ASSERT_EQ(large.size(), QSize(4200, 2400));
    const QImage small = pane().DrawPicture({1050, 600}, false);
    const QImage reduced =
        large.scaled(small.size(), Qt::IgnoreAspectRatio, Qt::SmoothTransformation);
    double sum = 0;
    for (int y = 0; y < small.height(); ++y)
        for (int x = 0; x < small.width(); ++x)
            sum += std::abs(qGray(small.pixel(x, y)) - qGray(reduced.pixel(x, y)));
    EXPECT_LT(sum / (small.width() * small.height()), 6) << "every tile shows its own part";
    // The sky changes slowly, so that a seam would be a step.
    for (int x = 2047; x <= 2049; ++x)
        for (int y = 0; y < 200; ++y)
            EXPECT_LE(std::abs(qRed(large.pixel(x, y)) - qRed(large.pixel(x - 1, y))), 2);
}

TEST_F(ViewPicturesTest, CopiesThePicture)
{
    viewCoal();
    const QImage shown = pane().Picture().convertToFormat(QImage::Format_RGB32);
    Trigger("mnuEditCopyPicture");
    const QImage copied = QGuiApplication::clipboard()->image();
    EXPECT_LE(difference(copied.convertToFormat(QImage::Format_RGB32), shown), 2);
    QGuiApplication::clipboard()->setText(QString());
}
