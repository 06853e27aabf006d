// SPDX-License-Identifier: MIT
// Tests which document window is in front, the arrangement of windows, and what the next run
// remembers.
#include "GuiTest.h"

#include "ui/widgets/ListView.h"

#include <QAbstractButton>
#include <QApplication>
#include <QHeaderView>
#include <QMdiArea>

using document::EditorAction;
using document::ListView;
using document::WindowMode;
using host::DialogAnswer;

namespace {

class WindowsTest : public GuiTest
{
protected:
    frmDocument &openChanged(const std::string &name)
    {
        frmDocument &editor = OpenEditor(name);
        Find<QAbstractButton>(editor, "cmdMove5").click();
        return editor;
    }
    QMdiArea &area() const { return Find<QMdiArea>(*window, "mdiArea"); }
    void activate(frmDocument &document) { area().setActiveSubWindow(&document); }
    /// Records the file of the active window at each question, one per line, or "hidden" if that
    /// window is not visible.
    void noteQuestions()
    {
        dialogs.onShown = [this] {
            asked += Active()->isMinimized() || !Active()->isVisible()
                         ? "hidden\n"
                         : Active()->FileName() + '\n';
        };
    }
    QRect areaRect() const { return QRect(QPoint(), area().maximumViewportSize()); }
    /// Returns the number of pixels of a window that no window in front of it covers.
    int seenOf(const frmDocument &document) const
    {
        QRegion seen = document.geometry();
        bool inFront = false;
        for (const QMdiSubWindow *other : area().subWindowList(QMdiArea::StackingOrder)) {
            if (inFront)
                seen -= other->geometry();
            inFront = inFront || other == &document;
        }
        int pixels = 0;
        for (const QRect &rect : seen)
            pixels += rect.width() * rect.height();
        return pixels;
    }

    std::string asked;
};

} // namespace

TEST_F(WindowsTest, ActivatesTheAffectedWindowBeforeAsking)
{
    Start();
    frmDocument &list = *Active(), &coal = openChanged("Coal");
    openChanged("Freight North");
    const std::string both = ConsistFile("Coal") + '\n' + ConsistFile("Freight North") + '\n';
    coal.showMinimized();
    activate(list);
    noteQuestions();
    dialogs.Answer(DialogAnswer::No);
    EXPECT_FALSE(window->close()) << "the second question is cancelled";
    EXPECT_EQ(std::exchange(asked, {}), both);

    activate(list);
    coal.close();
    EXPECT_EQ(std::exchange(asked, {}), ConsistFile("Coal") + '\n');
    activate(list);
    coal.ActionClick(EditorAction::Cancel);
    EXPECT_EQ(std::exchange(asked, {}), ConsistFile("Coal") + '\n');
}

TEST_F(WindowsTest, CloseAllAsksForEachChangedWindowAndStopsAtCancel)
{
    Start();
    openChanged("Coal");
    OpenEditor("GP38 Local");
    frmDocument &north = openChanged("Freight North");
    noteQuestions();
    dialogs.Answer(DialogAnswer::No);
    Trigger("mnuWindowCloseAll");
    EXPECT_EQ(std::exchange(asked, {}),
              ConsistFile("Coal") + '\n' + ConsistFile("Freight North") + '\n');
    ASSERT_TRUE(Wait([this] { return window->Documents().size() == 1; }));
    EXPECT_EQ(Active(), &north);
    dialogs.Answer(DialogAnswer::No);
    Trigger("mnuWindowCloseAll");
    EXPECT_TRUE(Wait([this] { return window->Documents().empty(); }));
    EXPECT_FALSE(Find<QAction>(*window, "mnuWindowCloseAll").isEnabled());
}

TEST_F(WindowsTest, ClosingAWindowActivatesTheOneUsedBefore)
{
    Start();
    frmDocument &list = *Active(), &coal = OpenEditor("Coal"), &north = OpenEditor("Freight North");
    activate(coal);
    window->NewDocumentWindow(WindowMode::ConsistView, {})->close();
    EXPECT_EQ(Active(), &coal) << "the editor that opened it";
    activate(list);
    activate(north);
    activate(list);
    activate(coal);
    coal.close();
    EXPECT_EQ(Active(), &list);
    north.showMinimized();
    activate(list);
    frmDocument &local = OpenEditor("GP38 Local");
    local.close();
    EXPECT_EQ(Active(), &list) << "not a minimised one";
}

TEST_F(WindowsTest, MinimisedWindowsAreActivatedLast)
{
    Start();
    frmDocument &list = *Active(), &coal = OpenEditor("Coal"), &north = OpenEditor("Freight North");
    activate(list);
    activate(coal);
    coal.showMinimized();
    activate(north);
    north.close();
    EXPECT_EQ(Active()->Caption(), list.Caption());
}

TEST_F(WindowsTest, CtrlTabFollowsTheOrderOfUse)
{
    Start();
    frmDocument &list = *Active(), &coal = OpenEditor("Coal"), &north = OpenEditor("Freight North");
    activate(coal);
    activate(list);
    const auto ctrlTab = [](int times) {
        QWidget *focus = QApplication::focusWidget();
        for (int i = 0; i < times; ++i)
            QTest::keyPress(focus, Qt::Key_Tab, Qt::ControlModifier);
        QTest::keyRelease(focus, Qt::Key_Control);
    };
    ctrlTab(1);
    EXPECT_EQ(Active()->Caption(), coal.Caption());
    ctrlTab(1);
    EXPECT_EQ(Active()->Caption(), list.Caption());
    ctrlTab(2);
    EXPECT_EQ(Active()->Caption(), north.Caption());
    ctrlTab(1);
    EXPECT_EQ(Active()->Caption(), list.Caption())
        << "a window passed by Ctrl+Tab does not count as used";
}

TEST_F(WindowsTest, ArrangedWindowsStayUsable)
{
    Start();
    for (int count : {3, 11}) {
        while (window->Documents().size() < static_cast<std::size_t>(count))
            window->NewDocumentWindow(window->Documents().size() % 2 == 0
                                          ? WindowMode::ConsistList
                                          : WindowMode::ConsistEditor,
                                      {});
        ASSERT_TRUE(Wait([this] { return Status().find("Loading") == std::string::npos; }));
        activate(*window->Documents()[1]);
        for (const QSize size : {QSize(900, 640), QSize(1270, 760)}) {
            window->resize(size);
            ASSERT_TRUE(Wait([&] { return window->size() == size; }));
            Trigger("mnuWindowCascade");
            EXPECT_EQ(area().subWindowList(QMdiArea::StackingOrder).back(), Active());
            EXPECT_EQ(Active(), window->Documents()[1]);
            for (const frmDocument *document : window->Documents()) {
                EXPECT_GE(document->width(), areaRect().width() * 2 / 3);
                EXPECT_GE(document->height(), areaRect().height() * 2 / 3);
                EXPECT_TRUE(areaRect().contains(document->geometry()));
                EXPECT_GT(seenOf(*document), 20 * 20) << "something to click";
            }
            for (const char *command : {"mnuWindowTileHorizontal", "mnuWindowTileVertical"}) {
                Trigger(command);
                for (const frmDocument *document : window->Documents()) {
                    EXPECT_TRUE(areaRect().contains(document->geometry())) << command;
                    EXPECT_GE(document->height(), 130) << command;
                    EXPECT_GE(document->width(), 220) << command;
                    EXPECT_EQ(seenOf(*document), document->width() * document->height());
                }
            }
        }
    }
}

TEST_F(WindowsTest, MaximisedMainWindowIsRestoredMaximised)
{
    Start();
    const QRect normal(window->pos(), window->size());
    window->showMaximized();
    ASSERT_TRUE(Wait([this] { return window->isMaximized(); }));
    window->close();
    EXPECT_EQ(settings.values["MainWidth"], std::to_string(window->width() * 15))
        << "the maximised bounds, as before";
    StartOnly();
    EXPECT_TRUE(window->isMaximized());
    window->showNormal();
    EXPECT_TRUE(Wait([&] { return window->size() == normal.size(); }));
    window->close();
    StartOnly();
    EXPECT_FALSE(window->isMaximized());
    EXPECT_EQ(window->size(), normal.size());
}

TEST_F(WindowsTest, RemembersWidthsAndSortingOfTheEditorsLists)
{
    Start();
    OpenEditor("Coal");
    Find<ListView>(*Active(), "lvConsist").header()->resizeSection(1, 123);
    Find<ListView>(*Active(), "lvStock").header()->resizeSection(2, 77);
    for (int i = 0; i < 2; ++i)
        Q_EMIT Find<ListView>(*Active(), "lvStock").header()->sectionClicked(1);
    const auto expectAll = [this](const char *where) {
        const auto &stock = Find<ListView>(*Active(), "lvStock");
        EXPECT_EQ(Find<ListView>(*Active(), "lvConsist").columnWidth(1), 123) << where;
        EXPECT_EQ(stock.columnWidth(2), 77) << where;
        EXPECT_EQ(stock.model()->index(0, 1).data(), QStringLiteral("Tankers")) << where;
        EXPECT_EQ(stock.header()->sortIndicatorSection(), 1) << where;
        EXPECT_EQ(stock.header()->sortIndicatorOrder(), Qt::DescendingOrder) << where;
    };
    OpenEditor("Freight North");
    expectAll("in the next window");
    window->close();
    Start();
    OpenEditor("Coal");
    expectAll("in the next run");
    Q_EMIT Find<ListView>(*Active(), "lvStock").header()->sectionClicked(1);
    EXPECT_EQ(Find<ListView>(*Active(), "lvStock").model()->index(0, 1).data(),
              QStringLiteral("Boxcars"))
        << "a click reverses the remembered order";
}
