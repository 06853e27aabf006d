// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmSelector.h"

#include "GuiTest.h"
#include "ui/dialogs/QtDialogs.h"

#include <QAccessible>
#include <QCheckBox>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>

namespace {

/// Returns the entries, with "+" before marked ones, joined by "|".
std::string marks(const QListWidget &list)
{
    std::string text;
    for (int row = 0; row < list.count(); ++row)
        text += (row ? "|" : "") +
                std::string(list.item(row)->checkState() == Qt::Checked ? "+" : "") +
                list.item(row)->text().toStdString();
    return text;
}

} // namespace

TEST(frmSelectorTest, ShowsEntriesAndTheDetailOfTheCurrentOne)
{
    frmSelector selector;
    EXPECT_EQ(selector.windowTitle(), QStringLiteral("Select"));
    selector.SelectFrom("A (first)|B| X (a) (b)");
    EXPECT_EQ(marks(*selector.lvItems), "A|B|X");
    std::string details = selector.lblDetails->text().toStdString();
    for (const int row : {1, 2}) {
        selector.lvItems->setCurrentRow(row);
        details += '|' + selector.lblDetails->text().toStdString();
    }
    EXPECT_EQ(details, "first|B route|a (b");
}

TEST(frmSelectorTest, SelectAllAndTheEntriesFollowEachOther)
{
    frmSelector selector;
    selector.SelectFrom("A|B|C");
    selector.show();
    selector.chkAll->click();
    EXPECT_EQ(marks(*selector.lvItems), "+A|+B|+C");
    QTest::keyClick(selector.lvItems, Qt::Key_Space);
    EXPECT_EQ(marks(*selector.lvItems), "A|+B|+C");
    EXPECT_FALSE(selector.chkAll->isChecked());
    QTest::keyClick(selector.lvItems, Qt::Key_Space);
    EXPECT_TRUE(selector.chkAll->isChecked());
    selector.chkAll->click();
    EXPECT_EQ(marks(*selector.lvItems), "A|B|C");
    const QPoint second = selector.lvItems->visualItemRect(selector.lvItems->item(1)).center();
    QTest::mouseClick(selector.lvItems->viewport(), Qt::LeftButton, {}, second);
    QTest::mouseDClick(selector.lvItems->viewport(), Qt::LeftButton, {}, second);
    EXPECT_EQ(marks(*selector.lvItems), "A|+B|C");
}

TEST(frmSelectorTest, ScreenReadersToggleSelectAll)
{
    frmSelector selector;
    selector.SelectFrom("A|B");
    selector.show();
    QAccessibleInterface *box = QAccessible::queryAccessibleInterface(selector.chkAll);
    ASSERT_TRUE(box && box->actionInterface());
    for (const char *expected : {"+A|+B", "A|B"}) {
        box->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
        EXPECT_EQ(marks(*selector.lvItems), expected);
    }
    selector.lvItems->item(0)->setCheckState(Qt::Checked);
    EXPECT_EQ(marks(*selector.lvItems), "+A|B")
        << "the box follows the entries, but they do not follow the box";
}

TEST(frmSelectorTest, ReturnsTheMarkedEntriesOnlyIfAccepted)
{
    const struct
    {
        const char *what;
        std::vector<int> marked;
        std::function<void(frmSelector &)> leave;
        const char *selected;
    } rows[] = {
        {"OK", {2, 0}, [](auto &form) { form.cmdAction[0]->click(); }, "A|C"},
        {"Enter", {1}, [](auto &form) { QTest::keyClick(form.lvItems, Qt::Key_Return); }, "B"},
        {"OK on nothing", {}, [](auto &form) { form.cmdAction[0]->click(); }, ""},
        {"Cancel", {0, 1}, [](auto &form) { form.cmdAction[1]->click(); }, ""},
        {"Esc", {0, 1}, [](auto &form) { QTest::keyClick(form.lvItems, Qt::Key_Escape); }, ""},
        {"closed", {0}, [](auto &form) { form.close(); }, ""},
    };
    app::QtDialogs dialogs;
    for (const auto &row : rows) {
        OnNextDialog([&row](QDialog &dialog) {
            auto &form = dynamic_cast<frmSelector &>(dialog);
            EXPECT_EQ(form.windowTitle(), QStringLiteral("Select Routes to Check"));
            for (const int index : row.marked)
                form.lvItems->item(index)->setCheckState(Qt::Checked);
            row.leave(form);
            EXPECT_FALSE(form.isVisible()) << row.what;
        });
        EXPECT_EQ(dialogs.SelectFromList("Select Routes to Check", "A(x)|B|C"), row.selected)
            << row.what;
    }
}
