// SPDX-License-Identifier: MIT
// Unsaved consists survive the end of the program.
#include "ui/main/LostWork.h"
#include "GuiTest.h"
#include "document/UnsavedConsist.h"
#include "host/Folders.h"
#include "host/Leftovers.h"
#include "ui/document/ChangeKeeper.h"
#include "ui/widgets/ListView.h"

#include <QAbstractButton>

#include <filesystem>

using document::ListView;
using host::DialogAnswer;

namespace {

class LostWorkTest : public GuiTest
{
protected:
    LostWorkTest() { Start(); }
    ListView &train(const frmDocument &editor) { return Find<ListView>(editor, "lvConsist"); }
    /// Flips the first unit.
    void change(const frmDocument &editor)
    {
        train(editor).SelectRow(0);
        Find<QAbstractButton>(editor, "cmdMove5").click();
    }
    /// Returns the recovery files.
    std::vector<std::string> kept() const
    {
        std::vector<std::string> names;
        if (home.Folder().Exists(unsaved))
            for (const std::string &name : home.Folder().Names(unsaved))
                if (name.starts_with("unsaved"))
                    names.push_back(name);
        return names;
    }
    /// Copies the recovery file so that it belongs to a process that has ended.
    void crash()
    {
        constexpr std::uint64_t kNobody = 0x7ffffffe; // larger than any process number
        const host::disk::Writer writer{host::disk::ThisProcess().machine, kNobody, 1};
        ASSERT_EQ(kept().size(), 1u);
        home.Folder().Write(unsaved + "/unsaved" + host::disk::TemporaryName(writer, 0) + ".tmp",
                            home.Folder().Read(unsaved + '/' + kept().front()));
    }
    /// Closes the editor without saving.
    void drop(frmDocument &editor)
    {
        dialogs.Answer(DialogAnswer::No);
        editor.close();
        EXPECT_TRUE(Wait([this] { return Active() == nullptr || !Active()->Changed(); }));
        dialogs.TakeLog();
    }

    const std::string unsaved = home.Folder().Relative(document::RecoveryFile::DefaultFolder());
};

TEST_F(LostWorkTest, ChangesAreKeptUntilTheyAreSavedOrDropped)
{
    WriteConsist("Coal", {"box", "hopper"});
    frmDocument &editor = OpenEditor("Coal");
    EXPECT_TRUE(kept().empty());
    change(editor);
    EXPECT_TRUE(Wait([this] { return kept().size() == 1; }));
    editor.SaveForm(true);
    EXPECT_TRUE(kept().empty());
    change(editor);
    EXPECT_TRUE(Wait([this] { return kept().size() == 1; }));
    drop(editor);
    EXPECT_TRUE(Wait([this] { return kept().empty(); }));
}

TEST_F(LostWorkTest, UnsavedConsistIsOfferedAtTheNextStart)
{
    WriteConsist("Coal", {"box", "hopper"});
    frmDocument &editor = OpenEditor("Coal");
    change(editor);
    const std::string caption = editor.Caption(), file = editor.FileName();
    const std::string rows = RowsOf(train(editor));
    ASSERT_TRUE(Wait([this] { return kept().size() == 1; }));
    crash();
    drop(editor);
    ASSERT_TRUE(Wait([this] { return kept().size() == 1; }));

    dialogs.Answer(DialogAnswer::Yes);
    app::OfferLostWork(*window);
    EXPECT_TRUE(dialogs.Log().starts_with("question|Unsaved Consist|" + file +
                                          " was not saved when ZELK ended unexpectedly."))
        << dialogs.Log();
    ASSERT_TRUE(Active());
    EXPECT_EQ(RowsOf(train(*Active())), rows);
    EXPECT_EQ(Active()->Caption(), caption);
    EXPECT_TRUE(Active()->Changed());
    EXPECT_EQ(kept().size(), 1u) << "the new window keeps the changes, the old record is gone";
    Active()->SaveForm(true);
    EXPECT_TRUE(kept().empty());
}

TEST_F(LostWorkTest, ReportsOnceThatChangesCannotBeKept)
{
    const std::string report = "Unsaved changes would not survive a crash: ";
    home.Folder().Write(unsaved); // a file in place of the folder
    WriteConsist("Coal", {"box", "hopper"});
    frmDocument &editor = OpenEditor("Coal");
    change(editor);
    EXPECT_TRUE(Wait([&] { return Status().starts_with(report); })) << Status();
    EXPECT_NE(Status().find("unsaved"), std::string::npos) << "names the file";
    EXPECT_NE(host::GameFiles().ReadFile(host::TraceLogFile()).find(report), std::string::npos);
    EXPECT_EQ(dialogs.TakeLog(), "") << "interrupts nothing";

    int states = 0, failures = 0;
    document::ChangeKeeper keeper(nullptr, [&states] {
        ++states;
        return document::UnsavedConsist{"a.con", "a", 1, false, "bytes"};
    });
    QObject::connect(&keeper, &document::ChangeKeeper::Failed, [&failures] { ++failures; });
    for (int change = 1; change <= 3; ++change) {
        keeper.Follow(true);
        ASSERT_TRUE(Wait([&] { return states == change; }));
    }
    EXPECT_EQ(failures, 1);
    keeper.Follow(false);

    std::filesystem::remove(home.Folder().At(unsaved));
    change(editor);
    EXPECT_TRUE(Wait([this] { return kept().size() == 1; })) << "can be kept again";
    drop(editor);
}

TEST_F(LostWorkTest, NoDropsTheChangesAndCancelKeepsThem)
{
    WriteConsist("Coal", {"box"});
    frmDocument &editor = OpenEditor("Coal");
    change(editor);
    ASSERT_TRUE(Wait([this] { return kept().size() == 1; }));
    const std::size_t windows = window->Documents().size();
    crash();
    dialogs.Answer(DialogAnswer::No);
    app::OfferLostWork(*window);
    EXPECT_EQ(kept().size(), 1u) << "that of the open editor";
    crash();
    app::OfferLostWork(*window); // cancelled
    EXPECT_EQ(kept().size(), 2u);
    EXPECT_EQ(window->Documents().size(), windows);
    drop(editor);
}

} // namespace
