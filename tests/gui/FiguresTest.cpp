// SPDX-License-Identifier: MIT
// Tests the columns of figures and the strip with the train sheet.
#include "ListsTest.h"

#include "ui/document/TrainStrip.h"
#include "ui/main/WindowSettings.h"

#include <QHeaderView>
#include <QMenu>
#include <QToolButton>

using document::ListView;
using document::TrainStrip;

namespace {

class FiguresTest : public ListsTest
{
protected:
    std::string stripText() const
    {
        return Find<TrainStrip>(*Active(), "TrainStrip").Text().toStdString();
    }
    /// Returns the texts of all cells of a row, joined by "|".
    static std::string row(const ListView &view, int row)
    {
        QStringList cells;
        for (int column = 0; column < view.model()->columnCount(); ++column)
            cells << view.model()->index(row, column).data().toString();
        return cells.join(QLatin1Char('|')).toStdString();
    }
    /// Chooses entries of the menu that Ctrl+0 opens in a list.
    static void toggleColumns(ListView &view, const std::vector<int> &columns)
    {
        for (const int column : columns) {
            view.setFocus();
            key(Qt::Key_0, Qt::ControlModifier);
            auto &menu = Find<QMenu>(view, "mnuColumns");
            menu.actions().at(column)->trigger();
            menu.close();
            QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
        }
    }
    static std::string headers(const ListView &view)
    {
        QStringList titles;
        for (int column = 0; column < view.model()->columnCount(); ++column)
            titles << view.model()->headerData(column, Qt::Horizontal).toString();
        return titles.join(QLatin1Char('|')).toStdString();
    }
    void chooseUnits(int index)
    {
        Find<QToolButton>(*Active(), "cmdUnits").menu()->actions().at(index)->trigger();
    }
};

} // namespace

TEST_F(FiguresTest, ColumnsAreShownByTheHeaderMenuAndSorted)
{
    Start();
    OpenEditor("Coal");
    EXPECT_EQ(headers(stock()), "Type|Folder|Shape");
    stock().SelectRow(2);
    toggleColumns(stock(), {2, 0, 6}); // in any order
    EXPECT_TRUE(stock().selectionModel()->isRowSelected(2)) << "new columns, too";
    EXPECT_EQ(headers(stock()), "Type|Folder|Shape|Name|Mass|Brakes");
    EXPECT_TRUE(Wait([this] {
        return row(stock(), 2) == "Engine|GP38 Pack|gp38a|Big Blue|100 t|Air_single_pipe";
    })) << row(stock(), 2);
    EXPECT_TRUE(Wait([this] { return row(stock(), 4) == "Wagon|Tankers|Oil|Tank|?|?"; }));
    EXPECT_EQ(row(stock(), 1), "Wagon|Boxcars|hopper|Coal Hopper|?|?");
    const QModelIndex mass = stock().model()->index(0, 4);
    EXPECT_EQ(mass.data(Qt::TextAlignmentRole).toInt(), Qt::AlignRight | Qt::AlignVCenter);
    EXPECT_FALSE(mass.siblingAtColumn(3).data(Qt::TextAlignmentRole).isValid());
    EXPECT_NE(mass.siblingAtRow(1).data(Qt::ToolTipRole).toString(), QString());
    EXPECT_EQ(headers(train()), "Type|Folder|Shape") << "each list has its own columns";

    stock().header()->sectionClicked(4);
    EXPECT_TRUE(becomes(stock(), "box gp38a gp38b hopper Oil"));
    stock().setFocus();
    key(Qt::Key_5, Qt::ControlModifier);
    EXPECT_TRUE(becomes(stock(), "gp38a gp38b box hopper Oil")) << "unknown masses stay last";
    EXPECT_EQ(stock().header()->sortIndicatorSection(), 4);
    toggleColumns(stock(), {0});
    EXPECT_EQ(stock().header()->sortIndicatorSection(), 3) << "Mass moved to the left";
    key(Qt::Key_9, Qt::ControlModifier);
    EXPECT_EQ(shapes(stock()), "gp38a gp38b box hopper Oil") << "there is no ninth column";

    toggleColumns(train(), {1});
    EXPECT_TRUE(Wait([this] { return row(train(), 0) == "Wagon|Boxcars|box|12 m"; }));
    chooseUnits(1);
    EXPECT_EQ(row(train(), 0), "Wagon|Boxcars|box|39.4 ft");
}

TEST_F(FiguresTest, ColumnsAndUnitsAreRemembered)
{
    Start();
    OpenEditor("Coal");
    toggleColumns(stock(), {0, 2});
    toggleColumns(train(), {3});
    stock().header()->resizeSection(3, 77);
    stock().header()->sectionClicked(4);
    chooseUnits(2);
    const std::vector<int> widths = stock().ColumnWidths();
    window->close();
    window.reset();
    StartOnly();
    OpenEditor("Coal");
    EXPECT_EQ(headers(stock()), "Type|Folder|Shape|Name|Mass");
    EXPECT_EQ(headers(train()), "Type|Folder|Shape|Power");
    EXPECT_EQ(stock().ColumnWidths(), widths);
    EXPECT_TRUE(Wait([this] { return row(stock(), 0) == "Wagon|Boxcars|box|Van|29.5 t-uk"; }))
        << row(stock(), 0);
    EXPECT_TRUE(becomes(stock(), "box gp38a gp38b hopper Oil")) << "sorted when they are known";
    toggleColumns(stock(), {0, 2});
    window->close();
    EXPECT_TRUE(app::ReadWindowSettings(settings).editors.stockFigures.empty());
}

TEST_F(FiguresTest, BadSettingsOfColumnsAreIgnored)
{
    for (const auto &[name, value] : {std::pair{"StockFigures", "0 99999 77 100 -1 3 2 -5"},
                                      {"ConsistFigures", "x"},
                                      {"Units", "7"},
                                      {"StockOrder", "12 1"}})
        settings.WriteTo("Windows", name, value);
    Start();
    OpenEditor("Coal");
    EXPECT_EQ(headers(stock()), "Type|Folder|Shape|Name|Mass");
    EXPECT_EQ(headers(train()), "Type|Folder|Shape");
    for (const int width : stock().ColumnWidths())
        EXPECT_LT(width, 1000);
}

TEST_F(FiguresTest, StripFollowsEditsInThreeUnitSystems)
{
    WriteConsist("New", {});
    Start();
    OpenEditor("New");
    EXPECT_EQ(stripText(), "An empty train has no figures.");
    stock().SelectRow(2);
    press("cmdMove0");
    const std::string engine = "Units: 1\nLength: 20 m\nMass: 100 t\nPower: 2,000 kW\n"
                               "Starting effort: 300 kN\n";
    EXPECT_TRUE(Wait([&] { return stripText().starts_with(engine); })) << stripText();
    stock().SelectRow(0);
    press("cmdMove0");
    EXPECT_TRUE(Wait([&] {
        return stripText().starts_with("Units: 2\nLength: 32 m\nMass: 130 t\n");
    })) << stripText();
    stock().SelectRow(1);
    press("cmdMove0");
    EXPECT_TRUE(Wait([&] {
        return stripText().starts_with("Units: 3\nLength: 43 m\nMass: \u2265 130 t, 1 unknown\n");
    })) << stripText();
    chooseUnits(1);
    EXPECT_TRUE(
        stripText().starts_with("Units: 3\nLength: 141 ft\nMass: \u2265 143 t-us, 1 unknown\n"
                                "Power: 2,680 hp\n"))
        << stripText();
    chooseUnits(2);
    EXPECT_TRUE(
        stripText().starts_with("Units: 3\nLength: 141 ft\nMass: \u2265 128 t-uk, 1 unknown\n"))
        << stripText();
    chooseUnits(0);
    press("cmdMove2");
    EXPECT_EQ(stripText(), "An empty train has no figures.");
}

TEST_F(FiguresTest, StripNamesMissingVehiclesAndIsReadToTheUser)
{
    WriteConsist("Gone", {"box", "nowhere", "nowhere"});
    Start();
    OpenEditor("Gone");
    EXPECT_TRUE(Wait([this] {
        return stripText().find("Missing: Boxcars/nowhere.wag") != std::string::npos;
    })) << stripText();
    EXPECT_NE(stripText().find("Mass: \u2265 30 t, 2 unknown"), std::string::npos);
    const auto &strip = Find<TrainStrip>(*Active(), "TrainStrip");
    EXPECT_TRUE(strip.lblTrainSheet->Lines().front().startsWith(
        QStringLiteral("3 units  \u00B7  1 vehicle missing  \u00B7  \u2265 12 m, 2 unknown")));
    EXPECT_LE(strip.lblTrainSheet->Lines().size(), 2);
    EXPECT_EQ(strip.lblTrainSheet->accessibleName(), QStringLiteral("Train sheet"));
    EXPECT_EQ(strip.cmdUnits->accessibleDescription().toStdString(), stripText());
    EXPECT_EQ(strip.cmdUnits->accessibleName(), QStringLiteral("Train sheet, units: Metric"));

    stockFile("Boxcars/nowhere.wag", "Wagon ( n Size ( 3m 4m 9m ) Mass ( 10t ) )");
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(Wait([this] {
        return stripText().starts_with("Units: 3\nLength: 30 m\nMass: 50 t\n");
    })) << stripText();
}

TEST_F(FiguresTest, RowsAreDescribedToScreenReaders)
{
    WriteConsist("Mixed", {"hopper", "nowhere"});
    Start();
    OpenEditor("Mixed");
    const auto described = [](const ListView &view, int row) {
        return view.model()
            ->index(row, 1)
            .data(Qt::AccessibleDescriptionRole)
            .toString()
            .toStdString();
    };
    const std::string hopper = "hopper in Boxcars, Name Coal Hopper, Length 11 m, Mass not known, "
                               "Coupling not known, Brakes not known";
    EXPECT_TRUE(Wait([&] { return described(stock(), 1) == hopper; })) << described(stock(), 1);
    EXPECT_TRUE(Wait([&] { return described(stock(), 2).find("Brakes") != std::string::npos; }));
    EXPECT_EQ(
        described(stock(), 2),
        "gp38a in GP38 Pack, Name Big Blue, Length 20 m, Mass 100 t, Power 2,000 kW, Max speed "
        "120 km/h, Coupling Automatic, Brakes Air_single_pipe");
    EXPECT_TRUE(Wait([&] { return described(train(), 1).find("missing: ") != std::string::npos; }))
        << described(train(), 1);
    EXPECT_TRUE(described(train(), 1).starts_with("nowhere in Boxcars. ")) << described(train(), 1);
    train().SelectRow(0);
    press("cmdMove5");
    trainField().setText(QStringLiteral("hop"));
    chooseUnits(1);
    const std::string flipped =
        "hopper in Boxcars, flipped, Name Coal Hopper, Length 36.1 ft, Mass "
        "not known, Coupling not known, Brakes not known, matches the search";
    EXPECT_EQ(described(train(), 0), flipped);
}

TEST_F(FiguresTest, ListShowsTheFiguresOfTheSelectedConsist)
{
    Start();
    EXPECT_EQ(stripText(), "Select a consist to see its figures.");
    list().SelectRow(0);
    const std::string coal = "Units: 2\nLength: 23 m\nMass: \u2265 30 t, 1 unknown\n";
    EXPECT_TRUE(Wait([&] { return stripText().starts_with(coal); })) << stripText();
    list().SelectRow(1);
    EXPECT_TRUE(Wait([&] { return stripText().starts_with("Units: 1\nLength: 12 m\n"); }))
        << stripText();
    stockFile("Boxcars/box.wag", "Wagon ( b Size ( 3m 4m 14m ) Mass ( 30t ) )");
    Trigger("mnuViewRefresh");
    list().SelectRow(1);
    EXPECT_TRUE(Wait([&] { return stripText().starts_with("Units: 1\nLength: 14 m\n"); }))
        << stripText();
    game.Write("Trains/Consists/Coal.con", "not a consist");
    list().SelectRow(0);
    EXPECT_TRUE(Wait([&] { return stripText().starts_with("No figures: "); })) << stripText();
    list().SelectRow(-1);
    EXPECT_TRUE(Wait([&] { return stripText() == "Select a consist to see its figures."; }));
}

TEST_F(FiguresTest, WindowsCloseWhileFiguresAreRead)
{
    std::vector<std::string> units;
    for (int i = 0; i < 1500; ++i) {
        const std::string name = "w" + std::to_string(i);
        stockFile("Many/" + name + ".wag", "Wagon ( w Mass ( 10t ) Size ( 3m 4m 9m ) )");
        units.push_back(name);
    }
    Start();
    window->OpenFile(ConsistFile("Coal"));
    stockField().setText(QStringLiteral("length>8"));
    Active()->close();
    window->OpenFile(ConsistFile("Coal"));
    EXPECT_TRUE(Wait([this] { return stock().model()->rowCount() >= 1500; }));
    stockField().setText(QStringLiteral("length>8 length<10"));
    EXPECT_TRUE(Wait([this] { return stock().model()->rowCount() == 1500; }))
        << stock().model()->rowCount();
    Trigger("mnuViewRefresh");
    EXPECT_TRUE(window->close()) << "in the middle of the reading";
}
