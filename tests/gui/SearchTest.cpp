// SPDX-License-Identifier: MIT
// Tests the searches above the lists, the columns of figures and the strip with the train sheet.
#include "GuiTest.h"

#include "ui/document/EditorLayout.h"
#include "ui/document/TrainStrip.h"
#include "ui/main/WindowSettings.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/SearchField.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QLocale>
#include <QMenu>
#include <QToolButton>

using document::ListView;
using document::SearchField;
using document::TrainStrip;

namespace {

/// Two engines of 20 m and 100 t, a wagon of 12 m and 30 t, one without a readable mass, and one
/// without a shape.
class SearchTest : public GuiTest
{
protected:
    SearchTest()
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
    ~SearchTest() override
    {
        for (frmDocument *document : window ? window->Documents() : std::vector<frmDocument *>())
            document->AllowUnload();
    }
    void stockFile(const std::string &name, const std::string &text)
    {
        game.Write("Trains/Trainset/" + name, "\n" + text);
    }
    ListView &list() const { return Find<ListView>(*window->Documents().front(), "lvConsists"); }
    ListView &train() const { return Find<ListView>(*Active(), "lvConsist"); }
    ListView &stock() const { return Find<ListView>(*Active(), "lvStock"); }
    SearchField &stockField() const { return Find<SearchField>(*Active(), "searchStock"); }
    SearchField &trainField() const { return Find<SearchField>(*Active(), "searchTrain"); }
    SearchField &listField() const
    {
        return Find<SearchField>(*window->Documents().front(), "searchConsists");
    }
    std::string stripText() const
    {
        return Find<TrainStrip>(*Active(), "TrainStrip").Text().toStdString();
    }
    void press(const char *button) { Find<QAbstractButton>(*Active(), button).click(); }
    static void key(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    static std::string shapes(const ListView &view)
    {
        QStringList shapes;
        for (int row = 0; row < view.model()->rowCount(); ++row)
            shapes << view.model()->index(row, 2).data().toString();
        return shapes.join(QLatin1Char(' ')).toStdString();
    }
    bool becomes(const ListView &view, const std::string &expected) const
    {
        const bool is = Wait([&] { return shapes(view) == expected; });
        EXPECT_EQ(shapes(view), expected);
        return is;
    }
    /// Returns the texts of all cells of a row, joined by "|".
    static std::string row(const ListView &view, int row)
    {
        QStringList cells;
        for (int column = 0; column < view.model()->columnCount(); ++column)
            cells << view.model()->index(row, column).data().toString();
        return cells.join(QLatin1Char('|')).toStdString();
    }
    /// Returns the marked units of the train.
    std::string marked() const
    {
        QStringList shapes;
        for (int row = 0; row < train().model()->rowCount(); ++row)
            if (train().model()->index(row, 0).data(Qt::BackgroundRole).isValid())
                shapes << train().model()->index(row, 2).data().toString();
        return shapes.join(QLatin1Char(' ')).toStdString();
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

constexpr char kAll[] = "box hopper gp38a gp38b Oil";

} // namespace

TEST_F(SearchTest, StockFieldHidesWhatDoesNotMatch)
{
    Start();
    OpenEditor("Coal");
    const struct
    {
        const char *text, *shown;
    } rows[] = {
        {"pack", "gp38a gp38b"},
        {"b hopper", "hopper"},
        {"big blue", "gp38a gp38b"},
        {"\"coal hop\"", "hopper"},
        {"type:engine", "gp38a gp38b"},
        {"folder:box length<11.5", "hopper"},
        {"mass<=30t", "box"},
        {"missing:shape", "Oil"},
        {"length>", kAll},
        {"nothing at all", ""},
        {"", kAll},
    };
    for (const auto &each : rows) {
        stockField().setText(QString::fromUtf8(each.text));
        EXPECT_TRUE(becomes(stock(), each.shown)) << each.text;
    }
}

TEST_F(SearchTest, SearchChangesNeitherCaptionNorCountsNorFilter)
{
    Start();
    OpenEditor("Coal");
    const std::string caption = Active()->Caption();
    const auto heading = [this] {
        for (const QLabel *label : Active()->findChildren<QLabel *>())
            if (label->text().startsWith(QLatin1String("Available installed stock")))
                return label->text().toStdString();
        return std::string();
    };
    stockField().setText(QStringLiteral("hopper"));
    trainField().setText(QStringLiteral("hopper"));
    EXPECT_EQ(heading(), "Available installed stock (5)");
    EXPECT_EQ(Active()->Caption(), caption);
    EXPECT_EQ(Active()->Filter(), "");
    EXPECT_EQ(shapes(train()), "box hopper") << "the train hides nothing";
    EXPECT_EQ(stockField().Remark().left(6), QStringLiteral("1 of 5"));

    // Together with the filter.
    dialogs.AnswerInput("Box*");
    Trigger("mnuViewFilter");
    EXPECT_TRUE(becomes(stock(), "hopper"));
    EXPECT_TRUE(Wait([&] {
        return heading() == "Available installed stock (2), filtered on Box*";
    })) << heading();
    EXPECT_TRUE(Wait([&] { return Status() == "Installed stock list loaded: 2 items"; }));
    stockField().clear();
    EXPECT_TRUE(becomes(stock(), "box hopper"));
}

TEST_F(SearchTest, HiddenRowsLoseTheirSelection)
{
    Start();
    OpenEditor("Coal");
    stock().SelectRow(1);
    stockField().setText(QStringLiteral("hop"));
    EXPECT_EQ(stock().SelectedRow(), 0) << "the row is still shown";
    press("cmdMove0");
    EXPECT_EQ(shapes(train()), "box hopper hopper");
    stockField().setText(QStringLiteral("gp38"));
    EXPECT_EQ(stock().SelectedRow(), -1);
    EXPECT_TRUE(stock().SelectedRows().empty());
    EXPECT_FALSE(stock().selectionModel()->hasSelection());
    stockField().clear();
    EXPECT_EQ(stock().SelectedRow(), -1);
    press("cmdMove0");
    EXPECT_EQ(shapes(train()), "box hopper hopper") << "no stock is selected";

    stock().SelectRow(4);
    stock().header()->sectionClicked(2);
    stockField().setText(QStringLiteral("type:wagon"));
    EXPECT_TRUE(becomes(stock(), "box hopper Oil"));
    EXPECT_EQ(stock().SelectedRow(), 2);
}

TEST_F(SearchTest, ConsistListHidesAndKeepsWhatIsSelected)
{
    Start();
    for (const int selected : {0, 2})
        list().selectionModel()->select(list().model()->index(selected, 0),
                                        QItemSelectionModel::Select | QItemSelectionModel::Rows);
    listField().setText(QStringLiteral("gp38"));
    EXPECT_EQ(RowsOf(list()), "GP38 Local");
    EXPECT_EQ(list().SelectedRows(), std::vector<int>{0});
    listField().setText(QStringLiteral("o"));
    EXPECT_EQ(RowsOf(list()), "Coal Freight North GP38 Local");
    EXPECT_EQ(list().SelectedRows(), std::vector<int>{2});
    listField().setText(QStringLiteral("has:oil"));
    EXPECT_TRUE(Wait([&] { return RowsOf(list()) == "GP38 Local"; })) << RowsOf(list());
    listField().setText(QStringLiteral("has:Boxcars/hopper.wag coal"));
    EXPECT_TRUE(Wait([&] { return RowsOf(list()) == "Coal"; })) << RowsOf(list());
    EXPECT_EQ(Active()->Caption(), "Consist List 1");
    Trigger("mnuFileProperties");
    EXPECT_NE(dialogs.Log().find("Count:\t3"), std::string::npos) << dialogs.Log();

    // Rows are opened by what they show.
    QTest::keyClick(&list(), Qt::Key_Home);
    QTest::keyClick(&list(), Qt::Key_Return);
    EXPECT_EQ(Active()->Caption(), "Consist - Coal");
}

TEST_F(SearchTest, SearchForVehiclesFollowsSaves)
{
    Start();
    listField().setText(QStringLiteral("has:hopper"));
    ASSERT_TRUE(Wait([&] { return RowsOf(list()) == "Coal GP38 Local"; })) << RowsOf(list());
    OpenEditor("Coal");
    train().SelectRow(1);
    press("cmdMove1");
    press("cmdAction1");
    EXPECT_TRUE(Wait([&] { return RowsOf(list()) == "GP38 Local"; })) << RowsOf(list());
}

TEST_F(SearchTest, KeysMoveBetweenFieldAndList)
{
    Start();
    key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &listField());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("north"));
    EXPECT_EQ(RowsOf(list()), "Freight North");
    key(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &list());
    EXPECT_EQ(list().SelectedRow(), 0);
    key(Qt::Key_K, Qt::ControlModifier);
    key(Qt::Key_Escape);
    EXPECT_EQ(listField().text(), QString());
    EXPECT_EQ(QApplication::focusWidget(), &listField()) << "Esc first clears the field";
    EXPECT_EQ(RowsOf(list()), "Coal Freight North GP38 Local");
    EXPECT_EQ(list().SelectedRow(), 1);
    key(Qt::Key_Escape);
    EXPECT_EQ(QApplication::focusWidget(), &list());

    OpenEditor("Coal");
    key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &trainField());
    key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &stockField());
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("oil"));
    key(Qt::Key_Down);
    EXPECT_EQ(QApplication::focusWidget(), &stock());
    key(Qt::Key_Insert);
    EXPECT_EQ(shapes(train()), "box hopper Oil");
    stock().setFocus();
    key(Qt::Key_K, Qt::ControlModifier);
    EXPECT_EQ(QApplication::focusWidget(), &stockField()) << "the list last entered";
}

TEST_F(SearchTest, TrainFieldMarksMatchesAndDownGoesToTheNext)
{
    WriteConsist("Mixed", {"box", "hopper", "box", "gone", "hopper"});
    Start();
    OpenEditor("Mixed");
    trainField().setFocus();
    QTest::keyClicks(&trainField(), QStringLiteral("hop"));
    EXPECT_EQ(marked(), "hopper hopper");
    EXPECT_EQ(train().SelectedRow(), -1) << "typing selects nothing";
    EXPECT_EQ(trainField().Remark(), QStringLiteral("2 of 5"));
    for (const int row : {1, 4, 1}) {
        key(Qt::Key_Down);
        EXPECT_EQ(train().SelectedRow(), row);
        EXPECT_EQ(QApplication::focusWidget(), &trainField());
    }
    key(Qt::Key_Up);
    EXPECT_EQ(train().SelectedRow(), 4);
    key(Qt::Key_Return);
    EXPECT_EQ(QApplication::focusWidget(), &train());
    EXPECT_EQ(train().SelectedRow(), 4);
    key(Qt::Key_Delete);
    EXPECT_EQ(marked(), "hopper") << "the marks follow edits";
    EXPECT_EQ(trainField().Remark(), QStringLiteral("1 of 4"));

    trainField().setText(QStringLiteral("name:coal"));
    EXPECT_TRUE(Wait([this] { return marked() == "hopper"; })) << marked();
    trainField().setText(QStringLiteral("missing:vehicle"));
    EXPECT_TRUE(Wait([this] { return marked() == "gone"; })) << marked();
    trainField().clear();
    EXPECT_EQ(marked(), "");
    EXPECT_EQ(trainField().Remark(), QString());
}

TEST_F(SearchTest, ColumnsAreShownByTheHeaderMenuAndSorted)
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

TEST_F(SearchTest, ColumnsAndUnitsAreRemembered)
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

TEST_F(SearchTest, BadSettingsOfColumnsAreIgnored)
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

TEST_F(SearchTest, StripFollowsEditsInThreeUnitSystems)
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

TEST_F(SearchTest, StripNamesMissingVehiclesAndIsReadToTheUser)
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

TEST_F(SearchTest, RowsAreDescribedToScreenReaders)
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

TEST_F(SearchTest, SelectingFromOutsideEntersTheList)
{
    Start();
    OpenEditor("Coal");
    stock().setFocus();
    EXPECT_FALSE(Active()->TrainIsActive());
    train().selectionModel()->select(train().model()->index(1, 0),
                                     QItemSelectionModel::Select | QItemSelectionModel::Rows);
    EXPECT_TRUE(Active()->TrainIsActive()) << "screen readers do not move the focus";
    EXPECT_EQ(QApplication::focusWidget(), &train());
    stock().setFocus();
    stock().SelectRow(0);
    key(Qt::Key_Return, Qt::ControlModifier);
    EXPECT_EQ(shapes(train()), "box hopper box");
    EXPECT_EQ(QApplication::focusWidget(), &stock()) << "the program has selected the new unit";
}

TEST_F(SearchTest, ListShowsTheFiguresOfTheSelectedConsist)
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

TEST_F(SearchTest, WindowsCloseWhileFiguresAreRead)
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
