// SPDX-License-Identifier: MIT
// Tests file names in an old encoding, as archives of old content leave them on disk, in every way
// to open a file.
#include "GuiTest.h"

#include "ui/dialogs/FileChooser.h"
#include "ui/dialogs/QtDialogs.h"
#include "ui/main/ToolkitCommandLine.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <QMimeData>
#include <QUrl>

namespace {

class ForeignNamesTest : public GuiTest
{
protected:
    ForeignNamesTest()
        : file(game.Write("Trains/Consists/Gr\xfcn.con", game.Read("Trains/Consists/Coal.con")))
    {
    }
    /// Saves the active window and returns its caption and its number of rows.
    std::string opened()
    {
        frmDocument *editor = Active();
        if (!editor)
            return "no window";
        editor->SaveForm(true);
        return editor->Caption() + ": " +
               std::to_string(Find<QAbstractItemView>(*editor, "lvConsist").model()->rowCount());
    }
    std::string expected() const { return "Consist - " + ConsistFile("Grün") + ": 2"; }

    std::string file;
};

} // namespace

TEST_F(ForeignNamesTest, CommandLineKeepsTheBytes)
{
    std::string program = "zelk";
    char *arguments[] = {program.data(), file.data(), nullptr};
    EXPECT_EQ(app::CommandLineAfterToolkit(2, 2, arguments), file);
    Start(file);
    EXPECT_EQ(opened(), expected());
    EXPECT_EQ(game.Names("Trains/Consists").size(), 4U) << "saving must not create another file";
}

TEST_F(ForeignNamesTest, DropsKeepTheBytes)
{
    Start();
    QMimeData data;
    data.setUrls(
        {QUrl::fromEncoded("file://" + QByteArray::fromStdString(file).toPercentEncoding("/"))});
    DropOn(*window, data);
    EXPECT_EQ(opened(), expected());
    EXPECT_EQ(game.Names("Trains/Consists").size(), 4U);
}

TEST_F(ForeignNamesTest, FileDialogListsThemAndAcceptsTypedNames)
{
    app::QtDialogs chooser;
    const host::FileDialogRequest request{"Open", "Consist Files (*.con)|*.con", "",
                                          game.At("Trains/Consists")};
    OnNextDialog([](QDialog &dialog) {
        auto &names = Find<QComboBox>(dialog, "cboForeign");
        ASSERT_TRUE(names.isVisible());
        EXPECT_EQ(names.count(), 1);
        EXPECT_EQ(names.itemText(0), QStringLiteral("Gr\u00fcn.con"));
        Q_EMIT names.textActivated(names.itemText(0));
        QTest::keyClick(&Find<QLineEdit>(dialog, "fileNameEdit"), Qt::Key_Return);
    });
    EXPECT_EQ(chooser.OpenFile(request), ConsistFile("Grün"));
    const std::string plain = game.MakeFolder("plain");
    OnNextDialog(
        [](QDialog &dialog) { EXPECT_FALSE(Find<QComboBox>(dialog, "cboForeign").isVisible()); });
    EXPECT_EQ(chooser.OpenFile({"Open", "All (*.*)|*.*", "", plain}), "");
}

TEST_F(ForeignNamesTest, ReplacementCharactersStillFindTheFile)
{
    const QString folder = QString::fromStdString(game.At("Trains/Consists/"));
    using Paths = std::vector<std::string>;
    EXPECT_EQ(app::PathsShownAs(folder + QStringLiteral("Gr\ufffdn.con")), Paths{file});
    EXPECT_EQ(app::PathsShownAs(folder + QStringLiteral("Gr\ufffd.con")), Paths{});
    EXPECT_EQ(app::PathsShownAs(folder + QStringLiteral("new.con")), Paths{ConsistFile("new")});
    game.Write("Trains/Consists/Gr\xf6n.con");
    EXPECT_EQ(app::PathsShownAs(folder + QStringLiteral("Gr\ufffdn.con")).size(), 2U);
    const std::string deep = game.Write("Z\xfcge/\xe4.con");
    EXPECT_EQ(app::PathsShownAs(QString::fromStdString(game.Path()) +
                                QStringLiteral("/Z\ufffdge/\ufffd.con")),
              Paths{deep});
}
