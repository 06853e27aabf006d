// SPDX-License-Identifier: MIT
// Tests mouse, keys and scroll bars in 3D windows.
#include "ViewsFixture.h"

#include <QWheelEvent>

namespace {

class ViewCameraTest : public ViewsTest
{
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
