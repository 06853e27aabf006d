// SPDX-License-Identifier: MIT
// Tests the marks of missing vehicles in the train of an editor and in the list of consists.
#include "GuiTest.h"

#include "content/HealthSettings.h"
#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QHelpEvent>
#include <QIcon>
#include <QToolTip>

#include <filesystem>

using document::ListView;

namespace {

class MissingMarksTest : public GuiTest
{
protected:
    ~MissingMarksTest() override
    {
        for (frmDocument *document : window ? window->Documents() : std::vector<frmDocument *>())
            document->AllowUnload();
    }
    ListView &list() const { return Find<ListView>(*window->Documents().front(), "lvConsists"); }
    ListView &train() const { return Find<ListView>(*Active(), "lvConsist"); }
    ListView &stock() const { return Find<ListView>(*Active(), "lvStock"); }
    static QString dataOf(const ListView &view, int row, int column, int role)
    {
        return view.model()->index(row, column).data(role).toString();
    }
    /// Returns the texts of the marked rows in the last column.
    static std::string marked(const ListView &view)
    {
        const int last = view.model()->columnCount() - 1;
        QStringList rows;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            if (!dataOf(view, row, last, Qt::ToolTipRole).isEmpty())
                rows << dataOf(view, row, last, Qt::DisplayRole);
        return rows.join(QLatin1Char(',')).toStdString();
    }
    static bool becomes(const ListView &view, const std::string &expected)
    {
        const bool is = Wait([&] { return marked(view) == expected; });
        EXPECT_EQ(marked(view), expected);
        return is;
    }
    void writeOil() const { game.Write("Trains/Trainset/Boxcars/Oil.wag"); }
    void removeOil() const { std::filesystem::remove(game.At("Trains/Trainset/Boxcars/Oil.wag")); }
    void press(const char *button) { Find<QAbstractButton>(*Active(), button).click(); }
    std::string oilIsMissing() const
    {
        return "The file " + game.Shown("Trains/Trainset/Boxcars/Oil.wag") +
               " is missing: MSTS and Open Rails do not find this vehicle.";
    }
};

} // namespace

TEST_F(MissingMarksTest, TrainMarksMissingVehiclesAndKeepsItsTexts)
{
    Start();
    OpenEditor("GP38 Local");
    ASSERT_TRUE(becomes(train(), "Oil"));
    EXPECT_EQ(RowsOf(train()), "Wagon/Boxcars/box Wagon/Boxcars/hopper Wagon/Boxcars/Oil");
    EXPECT_EQ(train().visualRect(train().model()->index(2, 0)).height(),
              train().visualRect(train().model()->index(0, 0)).height());
    QAccessibleTableInterface *cells =
        QAccessible::queryAccessibleInterface(&train())->tableInterface();
    for (int column = 0; column < 3; ++column) {
        EXPECT_EQ(dataOf(train(), 2, column, Qt::ToolTipRole).toStdString(), oilIsMissing());
        EXPECT_EQ(dataOf(train(), 0, column, Qt::ToolTipRole), QString());
        const QVariant icon = train().model()->index(2, column).data(Qt::DecorationRole);
        EXPECT_EQ(icon.isValid(), column == 2);
        EXPECT_EQ(cells->cellAt(2, column)->text(QAccessible::Name),
                  dataOf(train(), 2, column, Qt::DisplayRole));
        EXPECT_EQ(cells->cellAt(2, column)->text(QAccessible::Description).toStdString(),
                  "Oil in Boxcars. " + oilIsMissing());
        EXPECT_FALSE(cells->cellAt(0, column)
                         ->text(QAccessible::Description)
                         .contains(QLatin1String("missing")));
    }
}

TEST_F(MissingMarksTest, ToolTipShowsTheRemarkWithoutMarkup)
{
    WriteConsist("Odd", {"<b>odd"});
    Start();
    OpenEditor("Odd");
    ASSERT_TRUE(becomes(train(), "<b>odd"));
    const QPoint at = train().visualRect(train().model()->index(0, 1)).center();
    QHelpEvent help(QEvent::ToolTip, at, train().viewport()->mapToGlobal(at));
    QApplication::sendEvent(train().viewport(), &help);
    EXPECT_NE(QToolTip::text().indexOf(QStringLiteral("&lt;b&gt;odd.wag is missing: MSTS")), -1)
        << QToolTip::text().toStdString();
    QToolTip::hideText();
}

TEST_F(MissingMarksTest, TrainMarksFollowEditsAndF5)
{
    Start();
    OpenEditor("GP38 Local");
    ASSERT_TRUE(becomes(train(), "Oil"));
    train().SelectRow(2);
    press("cmdMove3");
    EXPECT_EQ(marked(train()), "Oil") << "known vehicles are not looked up again";
    EXPECT_EQ(RowsOf(train()), "Wagon/Boxcars/box Wagon/Boxcars/Oil Wagon/Boxcars/hopper");
    EXPECT_NE(dataOf(train(), 1, 2, Qt::ToolTipRole), QString());
    press("cmdMove5");
    EXPECT_NE(dataOf(train(), 1, 2, Qt::ToolTipRole), QString()) << "flipped";

    // An installed vehicle whose shape is missing.
    game.Write("Trains/Trainset/Tankers/Oil.wag", "\nWagon ( Oil WagonShape ( gone.s ) )");
    stock().SelectRow(4);
    press("cmdMove0");
    ASSERT_TRUE(becomes(train(), "Oil,Oil"));
    EXPECT_EQ(dataOf(train(), 3, 2, Qt::ToolTipRole).toStdString(),
              "The file " + game.Shown("Trains/Trainset/Tankers/gone.s") +
                  " is missing: MSTS and Open Rails do not find the shape of this vehicle.");

    writeOil();
    game.Write("Trains/Trainset/Tankers/gone.s");
    dialogs.Answer(host::DialogAnswer::Yes); // drop changes
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(becomes(train(), ""));
    removeOil();
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(becomes(train(), "Oil"));
}

TEST_F(MissingMarksTest, KeptSimulatorDecides)
{
    game.Write("Trains/Trainset/Boxcars/OpenRails/Oil.wag", "\nWagon ( Oil WagonShape ( o.s ) )");
    game.Write("Trains/Trainset/Boxcars/o.s");
    content::KeepProfiles(settings, game.Path(), content::Profile::Msts);
    Start();
    EXPECT_TRUE(becomes(list(), "GP38 Local"));
    OpenEditor("GP38 Local");
    EXPECT_TRUE(becomes(train(), "Oil"));
    content::KeepProfiles(settings, game.Path(), content::Profile::OpenRails);
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(becomes(train(), ""));
}

TEST_F(MissingMarksTest, ListMarksConsistsAndKeepsItsRows)
{
    Start();
    ASSERT_TRUE(becomes(list(), "GP38 Local"));
    EXPECT_EQ(RowsOf(list()), "Coal Freight North GP38 Local");
    EXPECT_EQ(list().model()->columnCount(), 1);
    QAccessibleTableInterface *cells =
        QAccessible::queryAccessibleInterface(&list())->tableInterface();
    EXPECT_EQ(cells->cellAt(2, 0)->text(QAccessible::Name), QStringLiteral("GP38 Local"));
    EXPECT_EQ(cells->cellAt(2, 0)->text(QAccessible::Description).toStdString(), oilIsMissing());
    writeOil();
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(becomes(list(), ""));
    removeOil();
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(becomes(list(), "GP38 Local"));
}

TEST_F(MissingMarksTest, ListFollowsSavesAndTheInstallation)
{
    Start();
    ASSERT_TRUE(becomes(list(), "GP38 Local"));
    OpenEditor("GP38 Local");
    train().SelectRow(2);
    press("cmdMove1");
    EXPECT_EQ(marked(list()), "GP38 Local") << "not saved yet";
    dialogs.Answer(host::DialogAnswer::Yes);
    press("cmdAction2");
    EXPECT_TRUE(becomes(list(), ""));

    support::TempFolder other;
    other.Write("Trains/Consists/Coal.con", game.Read("Trains/Consists/Coal.con"));
    other.Write("Trains/Consists/Empty.con", "\nTrain ( TrainCfg ( Empty ) )");
    installation.SetLocation(other.Path());
    window->Documents().front()->LoadForm();
    EXPECT_TRUE(becomes(list(), "Coal"));
    EXPECT_NE(dataOf(list(), 0, 0, Qt::ToolTipRole)
                  .indexOf(QStringLiteral(
                      "is missing: the stock folder Boxcars is not installed.  The consist has 1 "
                      "other vehicle with a missing file.")),
              -1)
        << dataOf(list(), 0, 0, Qt::ToolTipRole).toStdString();
}

TEST_F(MissingMarksTest, LongListCanBeRestartedAndClosedDuringTheLookUp)
{
    for (int i = 1000; i < 3000; ++i)
        WriteConsist("Ore " + std::to_string(i), {"box", "gone " + std::to_string(i)});
    Start();
    Trigger("mnuViewRefresh");
    Trigger("mnuFileNewConsistList");
    Active()->close();
    dialogs.AnswerInput("Ore 20*");
    Trigger("mnuViewFilter");
    EXPECT_EQ(list().model()->rowCount(), 100);
    EXPECT_TRUE(Wait([this] {
        for (int row = 0; row < list().model()->rowCount(); ++row)
            if (dataOf(list(), row, 0, Qt::ToolTipRole).isEmpty())
                return false;
        return true;
    })) << marked(list());
    dialogs.AnswerInput("*");
    Trigger("mnuViewFilter");
    EXPECT_TRUE(Wait([this] { return !dataOf(list(), 3, 0, Qt::ToolTipRole).isEmpty(); }));
    EXPECT_TRUE(window->close()) << "in the middle of the look-up";
}
