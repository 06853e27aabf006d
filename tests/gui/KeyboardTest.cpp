// SPDX-License-Identifier: MIT
#include "GuiTest.h"
#include "ui/dialogs/FindBar.h"
#include "ui/dialogs/frmAbout.h"
#include "ui/dialogs/frmResults.h"
#include "ui/dialogs/frmSelector.h"
#include "ui/dialogs/frmSetLoc.h"
#include "ui/dialogs/frmSystemInfo.h"
#include "ui/print/PageSetup.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QMdiSubWindow>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>

#include <set>

namespace {

std::string nameOf(const QWidget &control)
{
    if (!control.objectName().isEmpty())
        return control.objectName().toStdString();
    const auto *button = qobject_cast<const QAbstractButton *>(&control);
    // The desktop decides whether Qt's own buttons have an access key.
    return button ? button->text().remove(QLatin1Char('&')).toStdString()
                  : control.metaObject()->className();
}

/// Returns the controls in Tab order, from the focused one until it is reached again, joined by
/// blanks. Usable controls that Tab skips follow after "without".
std::string tabOrder(QWidget &window)
{
    std::string order;
    std::set<const QWidget *> seen;
    for (QWidget *now = QApplication::focusWidget(); now && seen.insert(now).second;
         now = QApplication::focusWidget()) {
        order += (order.empty() ? "" : " ") + nameOf(*now);
        QTest::keyClick(now, Qt::Key_Tab);
    }
    for (const QWidget *control : window.findChildren<QWidget *>())
        if (control->isVisible() && control->isEnabled() && !control->focusProxy() &&
            (control->focusPolicy() & Qt::TabFocus) && !seen.contains(control) &&
            !qobject_cast<const QMdiSubWindow *>(control))
            order += " without " + nameOf(*control);
    return order;
}

/// Fails the test for access keys that several controls or menu items share.
void expectUnique(const std::string &where, const QList<QKeySequence> &keys)
{
    std::set<QString> taken;
    for (const QKeySequence &key : keys)
        EXPECT_TRUE(key.isEmpty() || taken.insert(key.toString()).second)
            << where << ": " << key.toString().toStdString() << " is used twice";
}

/// Toolbar and MSTS Tools share a letter, which moves from one to the other.
QList<QKeySequence> keysOf(const QList<QAction *> &actions)
{
    QList<QKeySequence> keys;
    for (const QAction *action : actions)
        if (action->objectName() != QLatin1String("mnuViewTSE"))
            keys << QKeySequence::mnemonic(action->text());
    return keys;
}

QList<QKeySequence> keysIn(const QWidget &window)
{
    QList<QKeySequence> keys;
    for (const QAbstractButton *button : window.findChildren<QAbstractButton *>())
        keys << button->shortcut();
    for (const QLabel *label : window.findChildren<QLabel *>())
        if (label->buddy())
            keys << QKeySequence::mnemonic(label->text());
    return keys;
}

void expectUniqueInMenus(const QWidget &menus)
{
    for (const QMenu *menu : menus.findChildren<QMenu *>())
        expectUnique(nameOf(*menu), keysOf(menu->actions()));
}

class KeyboardTest : public GuiTest
{
protected:
    void Press(int key, Qt::KeyboardModifiers modifiers = {})
    {
        QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    std::unique_ptr<QDialog> Results()
    {
        auto form = std::make_unique<frmResults>(dialogs, files, game.Path());
        form->SetText("ERROR: something\r\n");
        return form;
    }
};

} // namespace

TEST_F(KeyboardTest, TabReachesAllControlsOfDialogsAndEnterAndEscCloseThem)
{
    const auto selector = [] {
        auto form = std::make_unique<frmSelector>();
        form->SelectFrom("A|B");
        return form;
    };
    const auto about = [] {
        return std::make_unique<frmAbout>(
            QIcon(), [](QWidget &) {}, nullptr);
    };
    const struct
    {
        std::function<std::unique_ptr<QDialog>()> make;
        const char *order, *defaultButton;
    } rows[] = {
        {[this] { return std::make_unique<frmSetLoc>(files); },
         "drvLocation dirLocation txtLocation cmdSetDefault OKButton CancelButton", "OKButton"},
        {selector, "lvItems chkAll cmdAction0 cmdAction1", "cmdAction0"},
        {[this] { return Results(); }, "txtResults cmdPrint cmdSave cmdClose", "cmdClose"},
        {about, "cmdOK lvHistory cmdSysInfo", "cmdOK"},
        {[] { return std::make_unique<frmSystemInfo>(QStringLiteral("Facts")); },
         "txtFacts cmdCopy cmdClose", "cmdClose"},
        {[] { return std::make_unique<app::PageSetup>(QPageLayout()); },
         "cboPaper cboOrientation txtLeft txtRight txtTop txtBottom OK Cancel", "OK"},
    };
    for (const auto &row : rows) {
        const std::unique_ptr<QDialog> dialog = row.make();
        SCOPED_TRACE(dialog->objectName().toStdString());
        dialog->show();
        dialog->activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(dialog.get()));
        std::string defaultButton;
        for (const QPushButton *button : dialog->findChildren<QPushButton *>())
            defaultButton += button->isDefault() ? nameOf(*button) : "";
        EXPECT_EQ(defaultButton, row.defaultButton);
        EXPECT_EQ(tabOrder(*dialog), row.order);
        expectUnique("dialog", keysIn(*dialog));
        expectUnique("menu", keysOf(dialog->actions()));
        Press(Qt::Key_Escape);
        EXPECT_FALSE(dialog->isVisible());
        EXPECT_EQ(dialog->result(), QDialog::Rejected);
    }
}

TEST_F(KeyboardTest, TabReachesAllControlsOfDocumentWindows)
{
    Start();
    EXPECT_EQ(tabOrder(*window), "lvConsists cmdUnits");
    expectUniqueInMenus(*window->menuBar());
    frmDocument &editor = OpenEditor("Coal");
    const std::string order =
        "lvConsist cmdMove0 cmdMove1 cmdMove2 cmdMove3 cmdMove4 cmdMove5 lvStock cmdUnits "
        "cmdAction3 cmdAction4 ";
    EXPECT_EQ(tabOrder(editor), order + "cmdAction0");
    Find<QAbstractButton>(editor, "cmdMove5").click();
    EXPECT_EQ(tabOrder(editor), order + "cmdAction2 cmdAction0 cmdAction1");
    expectUnique("editor", keysOf(window->menuBar()->actions()) + keysIn(editor));
}

TEST_F(KeyboardTest, EmptyListOffersTheLocation)
{
    const support::TempFolder empty;
    settings.values["MSTSDir"] = empty.Path();
    Start();
    EXPECT_EQ(tabOrder(*window), "lvConsists cmdChooseInstallation cmdUnits");
    auto &list = Find<QAbstractItemView>(*window, "lvConsists");
    EXPECT_TRUE(list.accessibleDescription().contains(QLatin1String("No installation")));
    auto &button = Find<QPushButton>(*window, "cmdChooseInstallation");
    EXPECT_TRUE(list.geometry().contains(button.geometry()));
    button.setFocus();
    OnNextDialog([this](QDialog &dialog) {
        auto &location = dynamic_cast<frmSetLoc &>(dialog);
        location.txtLocation->setText(QString::fromStdString(game.Path()));
        location.OKButton->click();
    });
    Press(Qt::Key_Return);
    EXPECT_EQ(RowsOf(list), "Coal Freight North GP38 Local");
    EXPECT_FALSE(button.isVisible());
    EXPECT_EQ(list.accessibleDescription(), QStringLiteral("lvConsists"));
    list.setFocus();
    EXPECT_EQ(tabOrder(*window), "lvConsists cmdUnits");

    dialogs.AnswerInput("nothing like this");
    Trigger("mnuViewFilter");
    EXPECT_EQ(RowsOf(list), "");
    EXPECT_FALSE(button.isVisible()) << "the filter is the reason";
}

TEST_F(KeyboardTest, FindBarIsPartOfTheTabOrder)
{
    const std::unique_ptr<QDialog> results = Results();
    results->show();
    results->activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(results.get()));
    Press(Qt::Key_F, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("some"));
    EXPECT_EQ(tabOrder(*results), "txtFind cmdFindPrevious cmdFindNext cmdFindClose cmdPrint "
                                  "cmdSave cmdClose txtResults");
    expectUnique("results", keysIn(*results));
}

TEST_F(KeyboardTest, KeysReachMenusAndWindows)
{
    Start();
    frmDocument &editor = OpenEditor("Coal");
    const auto popup = [] { return QApplication::activePopupWidget(); };
    const auto opens = [&](int key, Qt::KeyboardModifiers modifiers) {
        Press(key, modifiers);
        const std::string name = Wait([&] { return popup() != nullptr; }) ? nameOf(*popup()) : "";
        while (popup())
            popup()->close();
        return name;
    };
    // The editor's own use of these letters must not interfere.
    EXPECT_EQ(opens(Qt::Key_C, Qt::AltModifier), "mnuConsist");
    EXPECT_EQ(opens(Qt::Key_S, Qt::AltModifier), "mnuStock");
    EXPECT_EQ(opens(Qt::Key_Minus, Qt::AltModifier), nameOf(*editor.systemMenu()));
    Press(Qt::Key_F4, Qt::ControlModifier);
    EXPECT_EQ(Active()->Caption(), "Consist List 1");
}
