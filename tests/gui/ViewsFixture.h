// SPDX-License-Identifier: MIT
#pragma once

#include "GuiTest.h"
#include "korvat/TestShape.h"

#include "ui/view3d/ViewerPane.h"
#include "ui/view3d/sfCanvas.h"
#include "ui/widgets/ListView.h"

#include <QImage>
#include <QMouseEvent>
#include <QScrollBar>

#include <cmath>
#include <string>

/// The main window on an installation whose wagons have shapes; skipped where there is no 3D.
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

    viewer::ViewerPane &pane() { return *Active()->findChild<viewer::ViewerPane *>(); }
    sfCanvas &canvas() { return *pane().sfViewer; }
    TSView &scene() { return *pane().View(); }
    bool loaded()
    {
        return Wait(
            [this] { return Active()->findChild<viewer::ViewerPane *>() && !pane().Loading(); });
    }
    /// Writes the consist "Coal": a wagon of 10 metres and one of 20.
    viewer::ViewerPane &viewCoal()
    {
        Start();
        Find<document::ListView>(*Active(), "lvConsists").SelectRow(0);
        Trigger("mnuConsistView");
        EXPECT_TRUE(loaded());
        return pane();
    }
    void drag(Qt::MouseButton button, QPoint by, QPoint from = {100, 100})
    {
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

/// The first view of a train.
inline constexpr viewer::CameraPose kSide{10, 2, -15, 0, 2, -15};
