// SPDX-License-Identifier: MIT
// Tests mouse, keys and scroll bars in 3D windows.
#include "ViewsFixture.h"

#include <QLabel>
#include <QWheelEvent>

namespace {

class ViewCameraTest : public ViewsTest
{
protected:
    void wheel(QPointF at)
    {
        QWheelEvent turn(at, canvas().mapToGlobal(at), {}, {0, 120}, {}, {}, Qt::NoScrollPhase,
                         false);
        QCoreApplication::sendEvent(&canvas(), &turn);
    }
    QPointF middle() { return {canvas().width() / 2.0, canvas().height() / 2.0}; }
    viewer::Sight sight()
    {
        return {camera(), static_cast<float>(canvas().width()),
                static_cast<float>(canvas().height())};
    }
    /// Returns the point of the wagon that the canvas shows there.
    korvat::Vec3 wagonAt(float x, float y)
    {
        const viewer::Sight seen = sight();
        const auto hit = viewer::Pick(scene().Models, {seen.Eye(), seen.Through(x, y)});
        EXPECT_TRUE(hit) << "no wagon at " << x << ' ' << y;
        return seen.PointAt(x, y, hit ? hit->distance : 0);
    }
    void expectShownAt(const korvat::Vec3 &point, float x, float y, const char *name)
    {
        const viewer::Sight seen = sight();
        const korvat::Vec3 there = seen.PointAt(x, y, seen.DepthOf(point));
        EXPECT_LT(korvat::Length(there - point), 0.01f) << name;
    }
};

} // namespace

TEST_F(ViewCameraTest, MouseWheelAndKeysMoveTheCamera)
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
    drag(Qt::BackButton, {40, 40});
    expectNear(camera(), {10, 3, -16, 0, 3, -16}, "other buttons do nothing");
    QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, {canvas().width() / 2, 5});
    expectNear(camera(), kSide, "a double click on the sky resets");
    wheel(middle());
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

TEST_F(ViewCameraTest, DragOverTheTargetKeepsItsDirection)
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

TEST_F(ViewCameraTest, TurnedViewKeepsItsDistance)
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

TEST_F(ViewCameraTest, ScrollBarsMoveTheCameraAndFollowIt)
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

TEST_F(ViewCameraTest, MiddleButtonAndWheelKeepWhatIsUnderTheMouse)
{
    viewCoal();
    pane().hscView->setValue(10);
    const viewer::CameraPose before = camera();
    const QPoint from = middle().toPoint() - QPoint(100, 50), to = from + QPoint(70, 45);
    const auto x = static_cast<float>(to.x()), y = static_cast<float>(to.y());
    const korvat::Vec3 held = wagonAt(static_cast<float>(from.x()), static_cast<float>(from.y()));
    drag(Qt::MiddleButton, to - from, from);
    expectShownAt(held, x, y, "dragged");
    EXPECT_EQ(camera().CamX, before.CamX) << "neither nearer nor turned";
    EXPECT_NEAR(camera().LookAtZ - camera().CamZ, 0, 1e-3);
    EXPECT_NEAR(pane().hscView->value(), camera().LookAtZ + 30, 0.51) << "the bar follows";
    wheel(to);
    expectShownAt(held, x, y, "nearer");
    EXPECT_LT(camera().CamX, before.CamX);
    for (int notch = 0; notch < 100; ++notch)
        wheel(to);
    expectShownAt(held, x, y, "very near");
    EXPECT_GT(camera().CamX, held.x) << "not through the wagon";
}

TEST_F(ViewCameraTest, DoubleClickMakesAVehicleTheTargetAndShowsItsName)
{
    viewCoal();
    auto &label = Find<QLabel>(pane(), "lblVehicle");
    QTimer &timer = pane().Camera().tmrCamera;
    pane().hscView->setValue(10);
    EXPECT_FALSE(label.isVisible());
    QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, middle().toPoint() + QPoint(40, 0));
    ASSERT_TRUE(Wait([&timer] { return !timer.isActive(); }));
    const korvat::Vec3 wagon = viewer::MiddleOf(viewer::CornersOfObject(scene().Models, 2));
    expectNear(camera(), {wagon.x + 10, wagon.y, wagon.z, wagon.x, wagon.y, wagon.z}, "the wagon");
    EXPECT_NEAR(wagon.z, -20, 0.1);
    EXPECT_TRUE(label.isVisible());
    EXPECT_EQ(label.text(), QStringLiteral("2. Boxcars/hopper"));
    EXPECT_EQ(label.accessibleName(), label.text());
    EXPECT_EQ(Status(), "2. Boxcars/hopper");
    QTest::mouseDClick(&canvas(), Qt::LeftButton, {}, {5, 5});
    expectNear(camera(), kSide, "beside the wagons");
    EXPECT_FALSE(label.isVisible());
    EXPECT_FALSE(timer.isActive()) << "the reset is immediate";
}

TEST_F(ViewCameraTest, CommandsShowTheWholeTrain)
{
    viewCoal();
    pane().Camera().SetAnimated(true);
    QTimer &timer = pane().Camera().tmrCamera;
    const auto allShown = [this] {
        for (const korvat::Vec3 &corner : viewer::CornersOf(scene().Models)) {
            const viewer::Sight seen = sight();
            const korvat::Vec3 way = corner - seen.Eye();
            const korvat::Vec3 right = seen.Across(1, 0, 1), down = seen.Across(0, 1, 1);
            const float depth = seen.DepthOf(corner);
            const float x = korvat::Dot(way, right) / korvat::Dot(right, right) / depth;
            const float y = korvat::Dot(way, down) / korvat::Dot(down, down) / depth;
            if (depth <= 0 || std::abs(x) > static_cast<float>(canvas().width()) / 2 ||
                std::abs(y) > static_cast<float>(canvas().height()) / 2)
                return false;
        }
        return true;
    };
    EXPECT_FALSE(allShown()) << "in the first view";
    const struct
    {
        const char *command;
        Qt::Key key;
        korvat::Vec3 from; ///< direction in which the camera is
    } rows[] = {{"mnuViewShowAll", Qt::Key_End, {1, 0, 0}},
                {"mnuViewFromFront", Qt::Key_1, {0, 0, 1}},
                {"mnuViewFromRear", Qt::Key_2, {0, 0, -1}},
                {"mnuViewFromAbove", Qt::Key_3, {0, 1, 0}}};
    for (const auto &row : rows) {
        const viewer::CameraPose before = camera();
        canvas().setFocus();
        QTest::keyClick(&canvas(), row.key);
        EXPECT_NE(camera(), before) << row.command << ", by its key";
        EXPECT_TRUE(timer.isActive()) << row.command;
        ASSERT_TRUE(Wait([&timer] { return !timer.isActive(); }));
        EXPECT_TRUE(allShown()) << row.command;
        EXPECT_GT(korvat::Dot(sight().Forward() * -1, row.from), 0.99f) << row.command;
        const viewer::CameraPose shown = camera();
        Trigger(row.command);
        expectNear(camera(), shown, "again");
        ASSERT_TRUE(Wait([&timer] { return !timer.isActive(); }));
    }
    Trigger("mnuViewReset");
    Trigger("mnuViewFromOtherSide");
    expectNear(camera(), {-10, 2, -15, 0, 2, -15}, "the other side");
    QTest::mousePress(&canvas(), Qt::LeftButton, {}, {50, 50});
    EXPECT_FALSE(timer.isActive()) << "a drag begins where the command leads to";
    expectNear(camera(), {-10, 2, -15, 0, 2, -15}, "pressed");
    QTest::mouseRelease(&canvas(), Qt::LeftButton, {}, {50, 50});
}

TEST_F(ViewCameraTest, CommandsForTheCameraNeedA3DWindow)
{
    Start();
    for (const char *name : {"mnuViewShowAll", "mnuViewFromFront", "mnuViewFromOtherSide"}) {
        const QAction &action = Find<QAction>(*window, name);
        EXPECT_FALSE(action.isEnabled());
        EXPECT_TRUE(action.toolTip().endsWith(QLatin1String("(no 3D window is active)")));
    }
    window->OpenFile(stockFile("Boxcars/box.wag"));
    ASSERT_TRUE(loaded());
    const QAction &action = Find<QAction>(*window, "mnuViewShowAll");
    EXPECT_TRUE(action.isEnabled());
    EXPECT_FALSE(action.toolTip().contains(QLatin1String("no 3D window")));
}
