// SPDX-License-Identifier: MIT
#include "ui/main/Program.h"

#include "GuiTest.h"
#include "ProgramWindow.h"
#include "support/KnownFolders.h"

#include <QAbstractItemView>
#include <QProcess>

namespace {

/// Returns the output of a program that ends by itself.
std::string outputOf(const QString &program, const QStringList &arguments, int *exitCode = nullptr)
{
    QProcess process;
    process.start(program, arguments);
    EXPECT_TRUE(process.waitForFinished(20000)) << program.toStdString();
    if (exitCode)
        *exitCode = process.exitCode();
    return process.readAllStandardOutput().toStdString();
}

} // namespace

class GivenFileTest : public GuiTest
{
};

TEST_F(GivenFileTest, WholeCommandLineIsOnePath)
{
    const std::string file = WriteConsist("Ore  train", {"box"});
    const struct
    {
        const char *name;
        std::string line;
    } rows[] = {{"as it is", file},
                {"with blanks around it", "  " + file + " "},
                {"quoted by a file manager", " \"" + file + "\" "}};
    for (const auto &row : rows) {
        Start(row.line);
        ASSERT_TRUE(Active()) << row.name;
        EXPECT_EQ(Active()->FileName(), file) << row.name;
        EXPECT_EQ(Find<QAbstractItemView>(*Active(), "lvConsist").model()->rowCount(), 1)
            << row.name;
        window.reset();
    }
    EXPECT_EQ(dialogs.TakeLog(), "");
    Start("\"\"");
    EXPECT_EQ(Active()->Caption(), "Consist List 1") << "an empty path names no file";
    EXPECT_FALSE(app::AnswerTo("--help me.con").has_value());
}

TEST(ProgramTest, VersionAndHelpNeedNoDisplay)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("DISPLAY"));
    environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral(ZELK_PROGRAM), {QStringLiteral("--version")});
    ASSERT_TRUE(process.waitForFinished(20000));
    EXPECT_EQ(process.readAllStandardOutput().toStdString(), "ZELK v1.0-75\n");
    EXPECT_EQ(process.exitCode(), 0);
    int exitCode = -1;
    EXPECT_EQ(outputOf(QStringLiteral(ZELK_PROGRAM), {QStringLiteral("--help")}, &exitCode)
                  .rfind("Usage: zelk [FILE]", 0),
              0u);
    EXPECT_EQ(exitCode, 0);
}

TEST(ProgramTest, OpensTheConsistOnTheCommandLine)
{
    if (!CanCloseWindows())
        GTEST_SKIP() << "needs an X display";
    const support::ScopedHome home;
    const support::KnownFolders known(home.Folder().At(".config"));
    const support::TempFolder game;
    const std::string consist = game.Write("night train.con", "Train ( TrainCfg ( \"x\" ) )");
    QProcess program;
    program.start(QStringLiteral(ZELK_PROGRAM),
                  QString::fromStdString(consist).split(QLatin1Char(' ')));
    ASSERT_TRUE(program.waitForStarted());
    EXPECT_TRUE(Wait([&] { return CloseWindowOf(program.processId(), "ZELK v1.0-75"); }))
        << "no window appeared";
    EXPECT_TRUE(program.waitForFinished(10000)) << "it did not end when its window was closed";
    EXPECT_EQ(program.exitCode(), 0);
    program.kill();
    program.waitForFinished();
    EXPECT_EQ(known.Setting("MainWidth"), "6495");
}
