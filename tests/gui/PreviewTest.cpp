// SPDX-License-Identifier: MIT
// Pictures of vehicles in consist editors: the preview, and the rows of the stock list.
#include "ViewsFixture.h"

#include "ui/view3d/VehiclePictures.h"
#include "ui/view3d/VehiclePreview.h"

#include <QHeaderView>
#include <QLabel>

#include <algorithm>

using document::ListView;
using viewer::VehiclePictures;
using viewer::VehiclePreview;

namespace {

class PreviewTest : public ViewsTest
{
protected:
    /// An installation with two vehicles of different shape and one whose shape is missing.
    void SetUp() override
    {
        ViewsTest::SetUp();
        game.Write("Trains/Trainset/Boxcars/tall.s",
                   ShapeText({SidePanel(1, 1, {0, 3, 0}, 4, 6), EndPanel(2, 1, {0, 3, 0}, 2, 6)}));
        writeStock("Boxcars/hopper.wag", "Wagon", 20, "tall.s");
    }
    void openCoal(bool preview)
    {
        Start();
        if (preview)
            Trigger("mnuViewPreview");
        OpenEditor("Coal");
        ASSERT_TRUE(Wait([&] { return stock().model()->rowCount() == 5; }));
    }
    ListView &stock() { return Find<ListView>(*Active(), "lvStock"); }
    VehiclePreview &preview() { return Find<VehiclePreview>(*Active(), "VehiclePreview"); }
    QString text() { return preview().picPreview->Text(); }
    QString name() { return preview().lblPreview->text(); }
    /// Selects the stock of this shape name, as a user who has gone to the list.
    void select(const char *shape)
    {
        stock().setFocus();
        for (int row = 0; row < stock().model()->rowCount(); ++row)
            if (stock().model()->index(row, 2).data().toString() == QLatin1String(shape))
                stock().SelectRow(row);
    }
    QImage live(const char *shape)
    {
        select(shape);
        EXPECT_TRUE(Wait([&] {
            return preview().IsLive() && name().endsWith(QLatin1String(shape));
        })) << text().toStdString();
        return preview().picPreview->Picture();
    }
    /// Returns the number of pixels that are not of the background.
    static int drawn(const QImage &picture)
    {
        int count = 0;
        for (int y = 0; y < picture.height(); ++y)
            for (int x = 0; x < picture.width(); ++x)
                count += picture.pixel(x, y) != picture.pixel(0, 0);
        return count;
    }
};

TEST_F(PreviewTest, ShowsTheVehicleOfTheListThatWasUsedLast)
{
    openCoal(true);
    EXPECT_TRUE(preview().isVisible());
    EXPECT_TRUE(Wait([&] { return text().startsWith(QStringLiteral("Select a vehicle")); }));
    const QImage box = live("box"), hopper = live("hopper");
    EXPECT_GT(drawn(box), box.width() * box.height() / 20);
    EXPECT_NE(box, hopper);
    EXPECT_EQ(live("box"), box);

    auto &train = Find<ListView>(*Active(), "lvConsist");
    train.setFocus();
    train.SelectRow(1);
    EXPECT_TRUE(
        Wait([&] { return preview().IsLive() && name().endsWith(QStringLiteral("hopper")); }));
    EXPECT_EQ(preview().picPreview->Picture(), hopper);
}

TEST_F(PreviewTest, TurnsWithTheMouseAndTheKeys)
{
    openCoal(true);
    const QImage first = live("box");
    viewer::TurningPicture &picture = *preview().picPreview;
    const auto differs = [&](const QImage &from) {
        return Wait([&] { return picture.Picture() != from; });
    };
    QTest::keyClick(&picture, Qt::Key_Left);
    EXPECT_TRUE(differs(first));
    QTest::keyClick(&picture, Qt::Key_Home);
    EXPECT_TRUE(Wait([&] { return picture.Picture() == first; }));
    const QPoint from(20, 20), to(60, 30);
    QTest::mousePress(&picture, Qt::LeftButton, {}, from);
    QMouseEvent move(QEvent::MouseMove, QPointF(to), picture.mapToGlobal(QPointF(to)), Qt::NoButton,
                     Qt::LeftButton, {});
    QCoreApplication::sendEvent(&picture, &move);
    QTest::mouseRelease(&picture, Qt::LeftButton, {}, to);
    EXPECT_TRUE(differs(first));
    QTest::mouseDClick(&picture, Qt::LeftButton);
    EXPECT_TRUE(Wait([&] { return picture.Picture() == first; }));
    QTest::keyClick(&picture, Qt::Key_Plus);
    EXPECT_TRUE(Wait([&] { return drawn(picture.Picture()) > drawn(first); }));
}

TEST_F(PreviewTest, SaysWhyThereIsNoPicture)
{
    openCoal(true);
    live("box");
    select("gp38a");
    EXPECT_TRUE(Wait([&] { return text().contains(QStringLiteral("gone.s")); }));
    EXPECT_TRUE(text().startsWith(QStringLiteral("This vehicle cannot be shown")));
    EXPECT_FALSE(preview().IsLive());
    live("box");
    stock().SelectRow(-1);
    EXPECT_TRUE(Wait([&] { return text().startsWith(QStringLiteral("Select a vehicle")); }));
    EXPECT_EQ(name(), QString());
    EXPECT_EQ(dialogs.Log(), "");
}

TEST_F(PreviewTest, ShowsAChangedShapeAfterARefresh)
{
    openCoal(true);
    const QImage before = live("box");
    game.Write("Trains/Trainset/Boxcars/box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 3, 3)}));
    Trigger("mnuViewRefresh");
    ASSERT_TRUE(Wait([&] { return stock().model()->rowCount() == 5; }));
    EXPECT_NE(live("box"), before);
}

TEST_F(PreviewTest, IsRememberedAndHiddenAtFirst)
{
    openCoal(false);
    EXPECT_FALSE(preview().isVisible());
    Trigger("mnuViewPreview");
    EXPECT_TRUE(preview().isVisible());
    Find<QAction>(*Active(), "mnuStockPictures").trigger();
    window->close();
    EXPECT_EQ(settings.windows["Preview"], "1");
    EXPECT_EQ(settings.windows["StockPictures"], "1");
    window.reset();
    openCoal(false);
    EXPECT_TRUE(preview().isVisible());
    EXPECT_TRUE(Find<QAction>(*window, "mnuViewPreview").isChecked());
    EXPECT_FALSE(stock().PictureSize().isEmpty());
    Trigger("mnuViewPreview");
    EXPECT_FALSE(preview().isVisible());
}

TEST_F(PreviewTest, RowsOfTheStockListShowPictures)
{
    openCoal(false);
    const int height = stock().visualRect(stock().model()->index(0, 0)).height(),
              width = stock().header()->sectionSize(0);
    auto &choice = Find<QAction>(*Active(), "mnuStockPictures");
    choice.trigger();
    const auto pictures = [&] {
        int count = 0;
        for (int row = 0; row < stock().model()->rowCount(); ++row)
            count += !stock()
                          .model()
                          ->index(row, 0)
                          .data(ListView::kPictureRole)
                          .value<QPixmap>()
                          .isNull();
        return count;
    };
    // Of the other three, one lacks its shape, and two are empty files.
    EXPECT_TRUE(Wait([&] { return pictures() == 2; }));
    EXPECT_GT(stock().visualRect(stock().model()->index(0, 0)).height(), height);
    EXPECT_GT(stock().header()->sectionSize(0), width);
    choice.trigger();
    EXPECT_EQ(pictures(), 0);
    EXPECT_TRUE(
        Wait([&] { return stock().visualRect(stock().model()->index(0, 0)).height() == height; }));
    EXPECT_EQ(stock().header()->sectionSize(0), width);
}

/// Pictures come from the cache only while their files are as they were.
TEST_F(PreviewTest, KeptPicturesFollowTheirFiles)
{
    Start();
    VehiclePictures pictures(window->Environment(), game.At("kept"));
    const std::string box = stockFile("Boxcars/box.wag");
    QImage kept;
    QObject::connect(&pictures, &VehiclePictures::KeptFound, &pictures,
                     [&](const std::string &, const QImage &picture) { kept = picture; });
    const auto made = [&] {
        QImage picture;
        const auto found =
            QObject::connect(&pictures, &VehiclePictures::ThumbnailReady, &pictures,
                             [&](const std::string &, const QImage &image) { picture = image; });
        pictures.WantThumbnails(pictures, {box});
        EXPECT_TRUE(Wait([&] { return !picture.isNull() && !pictures.IsBusy(); }));
        QObject::disconnect(found);
        return picture;
    };
    // A file that is too new for a record is drawn again.
    QImage first;
    ASSERT_TRUE(Wait([&] {
        first = made();
        pictures.WantKept(box);
        return Wait([&] { return !kept.isNull(); });
    }));
    EXPECT_EQ(kept, first);
    EXPECT_EQ(made(), first);
    game.Write("Trains/Trainset/Boxcars/side.dds", PictureFile(Pixel{200, 20, 20, 255}));
    const QImage red = made();
    EXPECT_NE(red, first);
    game.Write("Trains/Trainset/Boxcars/box.s", ShapeText({SidePanel(1, 1, {0, 2, 0}, 3, 3)}));
    const QImage shorter = made();
    EXPECT_NE(shorter, red);
    writeStock("Boxcars/box.wag", "Wagon", 10, "tall.s");
    EXPECT_NE(made(), shorter);
}

} // namespace
