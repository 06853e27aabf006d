// SPDX-License-Identifier: MIT
#include "ui/dialogs/QtDialogs.h"

#include "GuiTest.h"
#include "host/Path.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QInputDialog>
#include <QLineEdit>
#include <QMessageBox>

using host::DialogAnswer;
using host::DialogButtons;
using host::DialogIcon;

TEST(QtDialogsTest, MessageBoxesShowPlainTextAndReturnTheAnswer)
{
    const struct
    {
        DialogButtons buttons;
        QMessageBox::StandardButton pressed; ///< NoButton: press Esc; Apply: press Return
        DialogAnswer answer;
    } rows[] = {
        {DialogButtons::Ok, QMessageBox::Ok, DialogAnswer::Ok},
        {DialogButtons::Ok, QMessageBox::NoButton, DialogAnswer::Cancel},
        {DialogButtons::YesNo, QMessageBox::Yes, DialogAnswer::Yes},
        {DialogButtons::YesNo, QMessageBox::NoButton, DialogAnswer::No},
        {DialogButtons::YesNo, QMessageBox::Apply, DialogAnswer::Yes},
        {DialogButtons::YesNoDefaultNo, QMessageBox::Yes, DialogAnswer::Yes},
        {DialogButtons::YesNoDefaultNo, QMessageBox::NoButton, DialogAnswer::No},
        {DialogButtons::YesNoDefaultNo, QMessageBox::Apply, DialogAnswer::No},
        {DialogButtons::YesNoCancel, QMessageBox::Apply, DialogAnswer::Yes},
        {DialogButtons::YesNoCancel, QMessageBox::No, DialogAnswer::No},
        {DialogButtons::YesNoCancel, QMessageBox::Cancel, DialogAnswer::Cancel},
        {DialogButtons::YesNoCancel, QMessageBox::NoButton, DialogAnswer::Cancel},
    };
    app::QtDialogs dialogs;
    for (const auto &row : rows) {
        OnNextDialog([&row](QDialog &dialog) {
            auto &box = dynamic_cast<QMessageBox &>(dialog);
            EXPECT_EQ(box.text(), QStringLiteral("<b>a.con</b>  saved"));
            EXPECT_EQ(box.textFormat(), Qt::PlainText);
            EXPECT_EQ(box.windowTitle(), QStringLiteral("Save Consist"));
            EXPECT_EQ(box.icon(), QMessageBox::Question);
            if (row.pressed == QMessageBox::NoButton)
                QTest::keyClick(&box, Qt::Key_Escape);
            else if (row.pressed == QMessageBox::Apply)
                QTest::keyClick(&box, Qt::Key_Return);
            else
                box.button(row.pressed)->click();
        });
        EXPECT_EQ(dialogs.Message("<b>a.con</b>  saved", "Save Consist", DialogIcon::Question,
                                  row.buttons),
                  row.answer);
    }
}

TEST(QtDialogsTest, InputBoxesReturnTheTextOrNothing)
{
    app::QtDialogs dialogs;
    for (const bool accepted : {true, false}) {
        OnNextDialog([accepted](QDialog &dialog) {
            auto &input = dynamic_cast<QInputDialog &>(dialog);
            EXPECT_EQ(input.windowTitle(), QStringLiteral("Filter Stock List"));
            EXPECT_EQ(input.textValue(), QStringLiteral("SD*"));
            input.setTextValue(QStringLiteral(" gp "));
            accepted ? input.accept() : input.reject();
        });
        EXPECT_EQ(dialogs.Input("Enter", "Filter Stock List", "SD*").value_or("cancelled"),
                  accepted ? " gp " : "cancelled");
    }
}

TEST(QtDialogsTest, FileDialogsOpenInTheGivenFolderWithTheFilter)
{
    const support::TempFolder folder;
    const std::string file = folder.Write("Night.CON");
    app::QtDialogs dialogs;
    const host::FileDialogRequest request{"Open", "Consist Files (*.con)|*.con|All Files (*.*)|*.*",
                                          "", folder.Path()};
    OnNextDialog([&](QDialog &dialog) {
        auto &chooser = dynamic_cast<QFileDialog &>(dialog);
        EXPECT_EQ(chooser.directory().path().toStdString(), folder.Path());
        EXPECT_EQ(chooser.nameFilters().constFirst(),
                  QStringLiteral("Consist Files (*.con) (*.con *.CON)"));
        chooser.selectFile(QStringLiteral("Night.CON"));
        Find<QLineEdit>(chooser, "fileNameEdit").setText(QStringLiteral("Night.CON"));
        QTest::keyClick(&Find<QLineEdit>(chooser, "fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(dialogs.OpenFile(request), host::path::Normalise(file));
    OnNextDialog([](QDialog &) {});
    EXPECT_EQ(dialogs.OpenFile(request), "");
}

TEST(QtDialogsTest, SaveDialogAddsTheExtensionWithoutAsking)
{
    const support::TempFolder folder;
    folder.Write("Old.con");
    app::QtDialogs dialogs;
    const struct
    {
        const char *typed, *expected;
    } rows[] = {{"Old.con", "/Old.con"}, {"New Train", "/New Train.con"}, {"a.txt", "/a.txt"}};
    const host::FileDialogRequest request{"Save Consist As",
                                          "Consist Files (*.con)|*.con|All Files (*.*)|*.*",
                                          "*.con", folder.Path()};
    for (const auto &row : rows) {
        OnNextDialog([&row](QDialog &dialog) {
            auto &name = Find<QLineEdit>(dialog, "fileNameEdit");
            EXPECT_EQ(name.text(), QStringLiteral("*.con"));
            name.setText(QString::fromLatin1(row.typed));
            QTest::keyClick(&name, Qt::Key_Return);
        });
        EXPECT_EQ(dialogs.SaveFile(request), host::path::Normalise(folder.Path() + row.expected));
    }
    OnNextDialog([](QDialog &dialog) {
        QTest::keyClick(&Find<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    const std::string unchanged = dialogs.SaveFile(request);
    EXPECT_TRUE(unchanged.empty() || unchanged == "*.con") << unchanged;
}
