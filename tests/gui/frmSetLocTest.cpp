// SPDX-License-Identifier: MIT
#include "ui/dialogs/frmSetLoc.h"

#include "GuiTest.h"
#include "host/Folders.h"
#include "host/Path.h"
#include "support/KnownFolders.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QFileSystemModel>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTreeView>

namespace {

class frmSetLocTest : public GuiTest
{
protected:
    frmSetLocTest()
        : m_known(home.Folder().At(".config"))
    {
        m_known.Register(game.Path());
        other.Write("Trains/Consists/Else.con", "x");
    }
    /// Opens the dialog from the menu and lets `act` use it.
    void choose(const std::function<void(frmSetLoc &)> &act)
    {
        OnNextDialog([&act](QDialog &dialog) { act(dynamic_cast<frmSetLoc &>(dialog)); });
        Trigger("mnuFileSetMSTSLoc");
    }
    std::string listed() { return RowsOf(Find<QAbstractItemView>(*Active(), "lvConsists")); }

    support::TempFolder other;
    support::KnownFolders m_known;
};

} // namespace

TEST_F(frmSetLocTest, AcceptsATypedFolderAndRefreshesTheLists)
{
    Start();
    choose([this](frmSetLoc &dialog) {
        EXPECT_EQ(dialog.txtLocation->text().toStdString(), game.Path());
        dialog.txtLocation->setText(QString::fromStdString(other.Path()));
        dialog.OKButton->click();
    });
    EXPECT_EQ(listed(), "Else");
    EXPECT_EQ(installation.Override(), other.Path());
    window->close();
    EXPECT_EQ(settings.values["MSTSDir"], other.Path());
}

TEST_F(frmSetLocTest, HintFollowsTheTextAndIsAnnounced)
{
    other.MakeFolder("routes");
    Start();
    choose([this](frmSetLoc &dialog) {
        for (const auto &[folder, hint] :
             {std::pair("/Trains", "This is the Trains folder itself."),
              std::pair("", "This folder holds Trains and Routes"),
              std::pair("/gone", "This folder is not found.")}) {
            dialog.txtLocation->setText(QString::fromStdString(other.Path() + folder));
            EXPECT_TRUE(dialog.lblHint->text().startsWith(QLatin1String(hint))) << folder;
            EXPECT_TRUE(
                dialog.txtLocation->accessibleDescription().endsWith(dialog.lblHint->text()));
            EXPECT_TRUE(dialog.OKButton->isEnabled());
        }
        EXPECT_EQ(dialog.lblHint->buddy(), dialog.txtLocation);
        dialog.OKButton->click();
    });
    EXPECT_EQ(installation.Override(), other.Path() + "/gone") << "never refused";
}

TEST_F(frmSetLocTest, StartsInTheHomeFolderWithoutALocation)
{
    m_known.Register("");
    settings.values.erase("MSTSDir");
    Start();
    choose([this](frmSetLoc &dialog) {
        EXPECT_EQ(dialog.txtLocation->text().toStdString(), host::HomeFolder());
        dialog.txtLocation->setText(QString::fromStdString(other.Path() + "/"));
        dialog.OKButton->click();
    });
    EXPECT_EQ(installation.Override(), other.Path());
    EXPECT_EQ(listed(), "Else");
}

TEST_F(frmSetLocTest, CancelChangesNothing)
{
    Start();
    choose([this](frmSetLoc &dialog) {
        dialog.SetLocation(other.Path());
        dialog.CancelButton->click();
    });
    EXPECT_EQ(listed(), "Coal Freight North GP38 Local");
}

TEST_F(frmSetLocTest, RegisteredFolderClearsTheChoice)
{
    settings.values["MSTSDir"] = other.Path();
    Start();
    EXPECT_EQ(listed(), "Else");
    choose([](frmSetLoc &dialog) {
        dialog.cmdSetDefault->click();
        dialog.OKButton->click();
        EXPECT_EQ(dialog.Location, "$MSTS");
    });
    EXPECT_EQ(installation.Override(), "");
    EXPECT_EQ(listed(), "Coal Freight North GP38 Local");
}

TEST_F(frmSetLocTest, TreeShowsTheFolderAndFillsTheBox)
{
    frmSetLoc dialog(files);
    EXPECT_TRUE(dialog.Cancelled);
    dialog.SetLocation(game.Path());
    const auto &model = dynamic_cast<QFileSystemModel &>(*dialog.dirLocation->model());
    EXPECT_EQ(model.filePath(dialog.dirLocation->currentIndex()).toStdString(), game.Path());
    dialog.dirLocation->setCurrentIndex(model.index(QString::fromStdString(other.Path())));
    EXPECT_EQ(dialog.txtLocation->text().toStdString(), host::path::Normalise(other.Path()));
    dialog.SetLocation("/no such folder");
    EXPECT_EQ(dialog.txtLocation->text(), QStringLiteral("/no such folder"));
    ASSERT_GE(dialog.drvLocation->count(), 1);
    EXPECT_EQ(dialog.drvLocation->itemData(0).toString().toStdString(),
              host::Volumes().front().path);
}
