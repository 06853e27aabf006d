// SPDX-License-Identifier: MIT
// Builds a long train with keys and clicks alone, and compares the saved file with the one that
// zelkctl makes.
#include "GuiTest.h"

#include "support/RunProgram.h"
#include "ui/widgets/ListView.h"
#include "ui/widgets/SearchField.h"

#include <QApplication>

using document::ListView;

namespace {

class TrainByKeysTest : public GuiTest
{
protected:
    ListView &train() { return Find<ListView>(*Active(), "lvConsist"); }
    ListView &stock() { return Find<ListView>(*Active(), "lvStock"); }

    /// Returns the vehicles from the head, as "box hopper/x2": two flipped hoppers behind a box.
    std::string shown()
    {
        std::vector<std::pair<std::string, int>> runs;
        const QAbstractItemModel &rows = *train().model();
        for (int row = 0; row < rows.rowCount(); ++row) {
            std::string name = rows.index(row, 2).data().toString().toStdString();
            if (rows.index(row, 0).data().toString().endsWith(QLatin1Char('*')))
                name += '/';
            if (runs.empty() || runs.back().first != name)
                runs.emplace_back(name, 0);
            ++runs.back().second;
        }
        std::string text;
        for (const auto &[name, count] : runs)
            text += (text.empty() ? "" : " ") + name +
                    (count > 1 ? 'x' + std::to_string(count) : std::string());
        return text;
    }
    static void press(int key, Qt::KeyboardModifiers modifiers = {}, int times = 1)
    {
        for (int i = 0; i < times; ++i)
            QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key), modifiers);
    }
    /// Types a search over the last one of the stock list, and enters the list when it has these
    /// rows.
    void searchStock(const char *text, int rows)
    {
        const auto &field = Find<document::SearchField>(*Active(), "searchStock");
        for (int i = 0; i < 2 && QApplication::focusWidget() != &field; ++i)
            press(Qt::Key_K, Qt::ControlModifier);
        ASSERT_EQ(QApplication::focusWidget(), &field);
        QTest::keyClicks(QApplication::focusWidget(), QString::fromLatin1(text));
        ASSERT_TRUE(Wait([&] { return stock().model()->rowCount() == rows; })) << text;
        press(Qt::Key_Down);
        ASSERT_EQ(QApplication::focusWidget(), &stock());
    }
    /// Clicks on the unit in this row, counted from 1.
    void click(int row, Qt::KeyboardModifiers modifiers = {})
    {
        const QModelIndex unit = train().model()->index(row - 1, 2);
        train().scrollTo(unit);
        QTest::mouseClick(train().viewport(), Qt::LeftButton, modifiers,
                          train().visualRect(unit).center());
    }
    void addBySearch();
    void copyMoveAndTurn();
    /// Returns Coal as `zelkctl edit` saves it after these operations on the first file.
    std::string madeByZelkctl(std::vector<std::string> operations) const
    {
        other.Write("Coal.con", before);
        operations.insert(operations.begin(), {"edit", other.At("Coal.con")});
        EXPECT_EQ(support::Machine{other.Path()}.Run(ZELKCTL, operations),
                  (support::Outcome{0, "", ""}));
        return other.Read("Coal.con");
    }
    /// Saves with the key of Apply and returns the file.
    std::string saved()
    {
        press(Qt::Key_A, Qt::AltModifier);
        EXPECT_TRUE(Wait([&] { return !Active()->Consist().Changed(); }));
        return game.Read("Trains/Consists/Coal.con");
    }

    std::string before = game.Read("Trains/Consists/Coal.con");
    support::TempFolder other;
};

/// box hopper -> 15 units
void TrainByKeysTest::addBySearch()
{
    searchStock("type:engine", 2);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_Insert);
    dialogs.AnswerInput("8");
    searchStock("hop", 1);
    press(Qt::Key_Return, Qt::ControlModifier | Qt::ShiftModifier);
    searchStock("oil", 1);
    click(2);
    press(Qt::Key_Return, Qt::ControlModifier);
    const QPoint oil = stock().visualRect(stock().model()->index(0, 2)).center();
    QTest::mouseClick(stock().viewport(), Qt::LeftButton, {}, oil);
    QTest::mouseDClick(stock().viewport(), Qt::LeftButton, {}, oil);
    searchStock("tankers", 1);
    press(Qt::Key_Return);
    EXPECT_EQ(shown(), "box hopper Oil gp38a gp38b hopperx8 Oilx2");
}

/// 15 units -> 30
void TrainByKeysTest::copyMoveAndTurn()
{
    click(3);
    click(6, Qt::ShiftModifier);
    click(9, Qt::ControlModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    click(15);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Up, Qt::AltModifier, 2);
    press(Qt::Key_T, Qt::ControlModifier);
    EXPECT_EQ(shown(), "box hopper Oil gp38a gp38b hopperx8 Oil/ gp38a/ gp38b/ hopper/x2 Oilx2");
    press(Qt::Key_K, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("oil"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    press(Qt::Key_A, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_Down, Qt::AltModifier);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_V, Qt::ControlModifier);
    press(Qt::Key_Home);
    press(Qt::Key_Down, Qt::ShiftModifier);
    press(Qt::Key_X, Qt::ControlModifier);
    EXPECT_EQ(shown(), "gp38a Oil gp38b hopperx8 gp38a/ Oil/ gp38b/ hopper/x2 Oilx3 Oil/ Oilx2");
    press(Qt::Key_T, Qt::ControlModifier | Qt::ShiftModifier);
    press(Qt::Key_End);
    press(Qt::Key_Up, Qt::ShiftModifier, 7);
    press(Qt::Key_C, Qt::ControlModifier);
    press(Qt::Key_Home);
    press(Qt::Key_V, Qt::ControlModifier);
    QTest::mouseClick(&Find<QWidget>(*Active(), "cmdMove5"), Qt::LeftButton);
}

} // namespace

TEST_F(TrainByKeysTest, SavesTheSameFileAsZelkctl)
{
    Start();
    window->resize(900, 640);
    press(Qt::Key_K, Qt::ControlModifier);
    QTest::keyClicks(QApplication::focusWidget(), QStringLiteral("coal"));
    press(Qt::Key_Down);
    press(Qt::Key_Return);
    ASSERT_EQ(Active()->Caption(), "Consist - Coal");
    ASSERT_TRUE(Wait([this] { return stock().model()->rowCount() == 5; }));
    ASSERT_NO_FATAL_FAILURE(addBySearch());
    copyMoveAndTurn();
    const std::string built = "Oil/ hopperx5 gp38b Oil gp38a Oil/ Oil Oil/x3 hopperx2 gp38b Oil "
                              "gp38a hopper/x8 gp38b/ Oil/ gp38a/";
    EXPECT_EQ(shown(), built);
    EXPECT_EQ(train().model()->rowCount(), 30);

    const QAction &undo = Find<QAction>(*window, "mnuEditUndo"),
                  &redo = Find<QAction>(*window, "mnuEditRedo");
    int steps = 0;
    for (; undo.isEnabled() && steps < 100; ++steps)
        press(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_EQ(steps, 15);
    EXPECT_EQ(shown(), "box hopper");
    EXPECT_EQ(saved(), madeByZelkctl({"forwards=1"})) << "nothing but the name is written";
    for (; redo.isEnabled() && steps > -100; --steps)
        press(steps % 2 ? Qt::Key_Y : Qt::Key_Z,
              steps % 2 ? Qt::ControlModifier : Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_EQ(steps, 0);
    EXPECT_EQ(shown(), built);
    EXPECT_EQ(saved(), madeByZelkctl({"add=Engine,GP38 Pack,gp38a",
                                      "add=Engine,GP38 Pack,gp38b",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "add=Wagon,Boxcars,hopper",
                                      "insert=2,Wagon,Tankers,Oil",
                                      "add=Wagon,Tankers,Oil",
                                      "add=Wagon,Tankers,Oil",
                                      "copy=3-6,9:15",
                                      "forwards=16-20",
                                      "forwards=15-19",
                                      "flip=14-18",
                                      "backwards=3,14,19,20",
                                      "copy=4,15,19,20:20",
                                      "remove=1,2",
                                      "reverse",
                                      "copy=15-22:1",
                                      "flip=2-9"}));
    EXPECT_EQ(dialogs.TakeLog().substr(0, 42), "input|Add Several|How many of hopper?|2\nin");
}
