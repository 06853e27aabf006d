// SPDX-License-Identifier: MIT
#pragma once

#include "GuiTest.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/SearchField.h"

#include <QAbstractButton>
#include <QApplication>

/// Main windows with stock: two engines of 20 m and 100 t, a wagon of 12 m and 30 t, one without a
/// readable mass, and one without a shape.
class ListsTest : public GuiTest
{
protected:
    ListsTest()
    {
        for (const char *name : {"gp38a", "gp38b"})
            stockFile(std::string("GP38 Pack/") + name + ".eng",
                      "Wagon ( e Name ( \"Big Blue\" ) WagonShape ( e.s ) Size ( 3m 4m 20m ) "
                      "Mass ( 100t ) NumWheels ( 4 ) Coupling ( Type ( Automatic ) ) "
                      "BrakeSystemType ( Air_single_pipe ) )\n"
                      "Engine ( e Type ( Diesel ) MaxPower ( 2000kW ) MaxForce ( 300kN ) "
                      "MaxVelocity ( 120km/h ) )");
        stockFile("Boxcars/box.wag", "Wagon ( b Name ( Van ) WagonShape ( b.s ) "
                                     "Size ( 3m 4m 12m ) Mass ( 30t ) )");
        stockFile("Boxcars/hopper.wag", "Wagon ( h Name ( \"Coal Hopper\" ) WagonShape ( b.s ) "
                                        "Size ( 3m 4m 11m ) Mass ( abc ) )");
        stockFile("Tankers/Oil.wag", "Wagon ( o Name ( Tank ) WagonShape ( gone.s ) )");
        game.Write("Trains/Trainset/Boxcars/b.s");
        game.Write("Trains/Trainset/GP38 Pack/e.s");
    }
    ~ListsTest() override
    {
        for (frmDocument *document : window ? window->Documents() : std::vector<frmDocument *>())
            document->AllowUnload();
    }
    void stockFile(const std::string &name, const std::string &text)
    {
        game.Write("Trains/Trainset/" + name, "\n" + text);
    }
    document::ListView &list() const
    {
        return Find<document::ListView>(*window->Documents().front(), "lvConsists");
    }
    document::ListView &train() const { return Find<document::ListView>(*Active(), "lvConsist"); }
    document::ListView &stock() const { return Find<document::ListView>(*Active(), "lvStock"); }
    document::SearchField &stockField() const
    {
        return Find<document::SearchField>(*Active(), "searchStock");
    }
    document::SearchField &trainField() const
    {
        return Find<document::SearchField>(*Active(), "searchTrain");
    }
    void press(const char *button) { Find<QAbstractButton>(*Active(), button).click(); }
    static void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    static std::string shapes(const document::ListView &view)
    {
        QStringList shapes;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            shapes << view.model()->index(row, 2).data().toString();
        return shapes.join(QLatin1Char(' ')).toStdString();
    }
    bool becomes(const document::ListView &view, const std::string &expected) const
    {
        const bool is = Wait([&] { return shapes(view) == expected; });
        EXPECT_EQ(shapes(view), expected);
        return is;
    }
};
