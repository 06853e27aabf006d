// SPDX-License-Identifier: MIT
#include "ui/widgets/ListView.h"

#include "ui/document/ConsistListModel.h"
#include "ui/document/StockListModel.h"

#include <QApplication>
#include <QHeaderView>
#include <QHelpEvent>
#include <QImage>
#include <QPixmap>
#include <QTest>
#include <QToolTip>
#include <gtest/gtest.h>

using document::ListView;

namespace {

struct ShownList
{
    ListView list{"lvStock", QStringLiteral("Stock")};
    document::StockListModel model;

    ShownList()
    {
        list.setModel(&model);
        list.FitFirstColumn(QStringLiteral("Engine*"));
        model.Append({{"Wagon", "B", "tank"}, {"Engine", "a", "gp38"}, {"Wagon", "A", "box"}});
        list.resize(400, 200);
        list.show();
        EXPECT_TRUE(QTest::qWaitForWindowExposed(&list));
    }
    int Width() const { return list.columnWidth(0) + list.columnWidth(1) + list.columnWidth(2); }
};

} // namespace

TEST(ListViewTest, ColumnsFillTheWidthUntilTheUserResizesOne)
{
    ShownList shown;
    EXPECT_EQ(shown.Width(), shown.list.viewport()->width());
    shown.list.resize(600, 200);
    EXPECT_EQ(shown.Width(), shown.list.viewport()->width());
    shown.list.header()->resizeSection(1, 77);
    shown.list.resize(500, 200);
    EXPECT_EQ(shown.list.columnWidth(1), 77);
}

TEST(ListViewTest, UsesGivenWidthsIfAllAreUseful)
{
    ShownList shown;
    const std::vector<int> before = shown.list.ColumnWidths();
    for (const std::vector<int> &useless :
         {std::vector<int>{}, {50, 60}, {50, 60, 70, 80}, {50, 60, -1}, {50, 60, 99999}}) {
        shown.list.SizeColumns(useless);
        EXPECT_EQ(shown.list.ColumnWidths(), before);
    }
    const std::vector<int> useful = {50, 60, 170};
    shown.list.SizeColumns(useful);
    shown.list.resize(700, 200);
    EXPECT_EQ(shown.list.ColumnWidths(), useful);
}

TEST(ListViewTest, TypingSearchesTheSearchColumn)
{
    ShownList shown;
    shown.list.SetSearchColumn(2);
    QTest::keyClicks(&shown.list, QStringLiteral("bo"));
    EXPECT_EQ(shown.list.SelectedRow(), 2);
}

TEST(ListViewTest, SortingKeepsTheSelectionOnItsItem)
{
    ShownList shown;
    shown.list.SelectRow(0);
    shown.model.ClickHeader(1);
    EXPECT_EQ(shown.model.Item(0).shape, "gp38") << "A and a compare equal and keep their order";
    EXPECT_EQ(shown.list.SelectedRow(), 2);
    shown.model.ClickHeader(1);
    EXPECT_EQ(shown.model.Item(0).shape, "tank");
    EXPECT_EQ(shown.list.SelectedRow(), 0);
    shown.model.Append({{"Wagon", "0", "first"}});
    EXPECT_EQ(shown.model.Item(3).shape, "first") << "not sorted until requested";
    shown.model.ClickHeader(2);
    EXPECT_EQ(shown.model.Item(1).shape, "first");
}

TEST(ListViewTest, TooltipShowsTruncatedText)
{
    ShownList shown;
    shown.list.header()->resizeSection(1, 200);
    shown.list.header()->resizeSection(2, 40);
    shown.model.Append({{"Wagon", "short", "a name that is too long"}});
    const auto toolTipOf = [&shown](int column) {
        const QRect cell = shown.list.visualRect(shown.model.index(3, column));
        QHelpEvent event(QEvent::ToolTip, cell.center(),
                         shown.list.viewport()->mapToGlobal(cell.center()));
        QApplication::sendEvent(shown.list.viewport(), &event);
        return QToolTip::text().toStdString();
    };
    EXPECT_EQ(toolTipOf(1), "");
    EXPECT_EQ(toolTipOf(2), "a name that is too long");
    QToolTip::hideText();
}

TEST(ListViewTest, OnlyAnEmptyListShowsAHint)
{
    ShownList shown;
    const auto pictureChanges = [&shown] {
        shown.list.SetHint({});
        const QImage without = shown.list.viewport()->grab().toImage();
        shown.list.SetHint(QStringLiteral("Choose the folder, please"));
        return shown.list.viewport()->grab().toImage() != without;
    };
    EXPECT_FALSE(pictureChanges());
    document::StockListModel empty;
    shown.list.setModel(&empty);
    EXPECT_TRUE(pictureChanges());
}

TEST(ListViewTest, FirstKeySelectsTheFocusedRow)
{
    ShownList shown;
    shown.list.setFocus();
    EXPECT_EQ(shown.list.SelectedRow(), -1) << "nothing is selected before a key is pressed";
    QTest::keyClick(&shown.list, Qt::Key_Home);
    EXPECT_EQ(shown.list.SelectedRow(), 0);
}

TEST(ListViewTest, ShowsTenThousandNames)
{
    std::vector<std::string> names;
    names.reserve(10000);
    for (int i = 0; i < 10000; ++i)
        names.push_back("Consist " + std::to_string(i));
    document::ConsistListModel model;
    ListView list("lvConsists", QStringLiteral("Consists"));
    list.setModel(&model);
    model.SetNames(std::move(names));
    list.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&list));
    list.SelectRow(9999);
    EXPECT_EQ(list.SelectedRow(), 9999);
    EXPECT_TRUE(list.viewport()->rect().intersects(list.visualRect(list.currentIndex())));
}

TEST(ListViewTest, IconsHaveTheColourOfTheText)
{
    ListView list("lvConsists", QStringLiteral("Consists"));
    document::ConsistListModel model;
    QPixmap black(64, 64);
    black.fill(Qt::black);
    model.SetRemarkIcon(QIcon(black));
    model.SetNames({"a", "b"});
    list.setModel(&model);
    list.resize(300, 200);
    QPalette colours = list.palette();
    colours.setColor(QPalette::Active, QPalette::Text, Qt::red);
    colours.setColor(QPalette::Inactive, QPalette::Text, Qt::red);
    colours.setColor(QPalette::Active, QPalette::HighlightedText, Qt::green);
    colours.setColor(QPalette::Inactive, QPalette::HighlightedText, Qt::blue);
    list.setPalette(colours);
    list.show();
    list.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&list));
    const QRect plain = list.visualRect(model.index(0, 0));
    model.SetRemarks(0, {QStringLiteral("gone"), QStringLiteral("gone")});
    EXPECT_EQ(list.visualRect(model.index(0, 0)).height(), plain.height())
        << "rows keep their height";
    const auto colourOf = [&](int row) {
        const QRect cell = list.visualRect(model.index(row, 0));
        const QImage drawn = list.viewport()->grab().toImage();
        const QColor colour = drawn.pixelColor(cell.right() - 8, cell.center().y());
        // The frame around the current row tints it a little.
        const auto isOn = [](int part) { return part > 200 ? 255 : part < 60 ? 0 : part; };
        return QColor(isOn(colour.red()), isOn(colour.green()), isOn(colour.blue())).name();
    };
    list.SelectRow(0);
    list.setFocus();
    EXPECT_EQ(colourOf(0), QColor(Qt::green).name());
    EXPECT_EQ(colourOf(1), QColor(Qt::red).name());
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    EXPECT_EQ(colourOf(0), QColor(Qt::blue).name());
}
