// SPDX-License-Identifier: MIT
// Tests the searches above the lists.
#include "ListsTest.h"

#include <QApplication>
#include <QHeaderView>
#include <QLabel>
#include <QToolButton>

using document::SearchField;

namespace {

class SearchTest : public ListsTest
{
protected:
    SearchField &listField() const
    {
        return Find<SearchField>(*window->Documents().front(), "searchConsists");
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
};

constexpr char kAll[] = "box hopper gp38a gp38b Oil";

} // namespace

TEST_F(SearchTest, ButtonInTheFieldClearsIt)
{
    Start();
    for (const char *text : {"first", "second"}) {
        listField().setText(QString::fromLatin1(text));
        auto *button = listField().findChild<QToolButton *>();
        ASSERT_TRUE(button);
        EXPECT_EQ(button->accessibleName(), QStringLiteral("Clear: Search the consists"));
        EXPECT_TRUE(QTest::qWaitFor([&] { return button->property("opacity").toDouble() == 1; }));
        button->click();
        EXPECT_EQ(listField().text(), QString());
    }
}

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
