// SPDX-License-Identifier: MIT
// Tests files and folders dropped on the main window.
#include "GuiTest.h"
#include "host/Path.h"

#include <QAbstractItemView>
#include <QMimeData>
#include <QUrl>

namespace {

class DropTest : public GuiTest
{
protected:
    void drop(const std::vector<std::string> &paths)
    {
        QMimeData data;
        QList<QUrl> urls;
        for (const std::string &path : paths)
            urls << QUrl::fromLocalFile(QString::fromStdString(path));
        data.setUrls(urls);
        DropOn(*window, data);
    }
    std::string own(const std::string &path) const { return host::path::Normalise(path); }

    support::TempFolder other;
};

} // namespace

TEST_F(DropTest, OneMessageNamesAllUnsupportedFiles)
{
    Start();
    const std::string text = game.Write("read.me"), world = game.Write("w-1.w");
    drop({text, ConsistFile("Coal"), world, game.At("Trains/Trainset"), ConsistFile("GP38 Local")});
    EXPECT_EQ(dialogs.TakeLog(), "critical|Open File|File type not supported!\n\n" + own(text) +
                                     "\n" + own(game.At("Trains/Trainset")) +
                                     "\n\nWorld files not supported in this version!\n\n" +
                                     own(world) + "\n");
    EXPECT_EQ(window->Documents().size(), 3U);
    drop({world});
    EXPECT_EQ(dialogs.TakeLog(), "critical|Open File|World files not supported in this version!\n");
    drop(std::vector<std::string>(30, text));
    const std::string log = dialogs.TakeLog();
    EXPECT_TRUE(log.ends_with("\nand 10 more\n")) << log;
}

TEST_F(DropTest, OffersAnInstallationFolderAsTheLocation)
{
    other.Write("TRAINS/Consists/Else.con", "x");
    Start();
    const std::string question = "question|Set MSTS Location|Do you want to work on the Train "
                                 "Simulator folder " +
                                 own(other.Path()) + "?\n";
    dialogs.Answer(host::DialogAnswer::No);
    drop({other.Path()});
    EXPECT_EQ(dialogs.TakeLog(), question);
    EXPECT_EQ(installation.CurrentFolder(), game.Path());
    dialogs.Answer(host::DialogAnswer::Yes);
    drop({other.Path() + "/"});
    EXPECT_EQ(dialogs.TakeLog(), question);
    EXPECT_EQ(installation.CurrentFolder(), own(other.Path()));
    EXPECT_EQ(RowsOf(Find<QAbstractItemView>(*Active(), "lvConsists")), "Else");
    Trigger("mnuFileNewConsist");
    drop({game.Path()});
    EXPECT_EQ(dialogs.TakeLog(), "critical|Set MSTS Location|Can't change MSTS location whilst "
                                 "editting a consist!\n");
}

TEST_F(DropTest, FileOpenStartsInTheFolderOfTheLastOpenedFile)
{
    Start();
    Trigger("mnuFileOpen");
    EXPECT_EQ(dialogs.LastFolder(), own(game.At("Trains/Consists")));
    dialogs.AnswerFile(other.Write("mine/a.con", game.Read("Trains/Consists/Coal.con")));
    Trigger("mnuFileOpen");
    Trigger("mnuFileOpen");
    EXPECT_EQ(own(dialogs.LastFolder()), own(other.At("mine")));
    drop({game.Write("x/read.me"), ConsistFile("Coal")});
    Trigger("mnuFileOpen");
    EXPECT_EQ(own(dialogs.LastFolder()), own(game.At("Trains/Consists")))
        << "the folder of the opened file";
    dialogs.AnswerFile(other.At("gone/a.con"));
    Trigger("mnuFileOpen");
    dialogs.TakeLog();
    Trigger("mnuFileOpen");
    EXPECT_EQ(own(dialogs.LastFolder()), own(game.At("Trains/Consists")))
        << "a folder that is gone";
}
