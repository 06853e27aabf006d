// SPDX-License-Identifier: MIT
// Kills the real program in the middle of the work, and starts it again.
#include "GuiTest.h"
#include "ProgramWindow.h"
#include "document/UnsavedConsist.h"

#include <QProcess>

namespace {

bool press(const QProcess &program, const char *title, const char *key)
{
    return PressKeyIn(program.processId(), title, key);
}

/// Waits for a dialog and presses a key until it is gone: a dialog that has just appeared may not
/// be ready for keys.
bool answer(const QProcess &program, const char *title, const char *key)
{
    return Wait([&] { return press(program, title, key); }) &&
           Wait([&] { return !press(program, title, key); });
}

class CrashTest : public testing::Test
{
protected:
    CrashTest()
        : consist(game.Write("coal.con", "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\n"
                                         "Train ( TrainCfg ( \"coal\" NextWagonUID ( 2 )\r\n"
                                         "Wagon ( WagonData ( box A ) UiD ( 0 ) )\r\n"
                                         "Wagon ( WagonData ( hopper A ) UiD ( 1 ) ) ) )\r\n"))
    {
    }
    void start(QProcess &program, const QStringList &arguments = {})
    {
        program.start(QStringLiteral(ZELK_PROGRAM), arguments);
        ASSERT_TRUE(program.waitForStarted());
    }
    /// Reverses the train, and kills the program once the change is kept.
    void changeAndCrash()
    {
        QProcess program;
        start(program, {QString::fromStdString(consist)});
        ASSERT_TRUE(Wait([&] {
            return press(program, kMain, "ctrl+shift+t") && Wait([this] { return kept() == 1; });
        }));
        program.kill();
        ASSERT_TRUE(program.waitForFinished());
        EXPECT_EQ(program.exitStatus(), QProcess::CrashExit);
        EXPECT_EQ(kept(), 1u);
        EXPECT_EQ(game.Read("coal.con"), before) << "the change is not saved";
    }
    std::size_t kept() const
    {
        if (!home.Folder().Exists(unsaved))
            return 0;
        std::size_t count = 0;
        for (const std::string &name : home.Folder().Names(unsaved))
            count += name.starts_with("unsaved") ? 1 : 0;
        return count;
    }
    void end(QProcess &program)
    {
        EXPECT_TRUE(Wait([&] { return CloseWindowOf(program.processId(), kMain); }));
        EXPECT_TRUE(program.waitForFinished(10000));
        program.kill();
        program.waitForFinished();
    }

    static constexpr const char *kMain = "ZELK v1.0-75";
    const support::ScopedHome home;
    const support::TempFolder game;
    const std::string consist;
    const std::string before = game.Read("coal.con");
    const std::string unsaved = home.Folder().Relative(document::RecoveryFile::DefaultFolder());
};

} // namespace

TEST_F(CrashTest, ChangedTrainIsOfferedAndCanBeSaved)
{
    if (!CanCloseWindows())
        GTEST_SKIP() << "needs an X display";
    changeAndCrash();
    QProcess program;
    start(program);
    ASSERT_TRUE(answer(program, "Unsaved Consist", "alt+y"));
    ASSERT_TRUE(Wait([&] {
        press(program, kMain, "ctrl+s");
        press(program, "Save Consist", "alt+y");
        return game.Exists("coal.con") && game.Read("coal.con") != before;
    }));
    EXPECT_TRUE(answer(program, "Save Consist", "Return")) << "the message that it is saved";
    EXPECT_TRUE(Wait([this] { return kept() == 0; })) << "saved changes are not kept";
    host::GameFiles files;
    document::ConsistTree train(files);
    train.Load(consist);
    ASSERT_EQ(train.Rows().size(), 2u);
    EXPECT_EQ(train.Rows()[0].item, (install::StockItem{"Wagon*", "A", "hopper"}));
    EXPECT_EQ(train.Rows()[1].item, (install::StockItem{"Wagon*", "A", "box"}));
    end(program);
}

TEST_F(CrashTest, RefusedChangesAreRemoved)
{
    if (!CanCloseWindows())
        GTEST_SKIP() << "needs an X display";
    changeAndCrash();
    QProcess program;
    start(program);
    ASSERT_TRUE(answer(program, "Unsaved Consist", "alt+n"));
    EXPECT_TRUE(Wait([this] { return kept() == 0; }));
    end(program);
    EXPECT_EQ(game.Read("coal.con"), before);
    start(program);
    end(program); // nothing is offered again
}
