// SPDX-License-Identifier: MIT
// Tests what 3D windows show of their content: the tool row, View > 3D Content, and the lists.
#include "ViewsFixture.h"

#include "ui/view3d/ViewLists.h"
#include "ui/view3d/ViewTools.h"
#include "viewer/ScenePoses.h"

#include <QAction>
#include <QComboBox>
#include <QHoverEvent>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QSlider>
#include <QToolButton>
#include <QTreeWidget>

#include <set>

using viewer::Season;
using viewer::ViewOptions;

namespace {

class ViewOptionsTest : public ViewsTest
{
protected:
    void openBox()
    {
        window->OpenFile(stockFile("Boxcars/box.wag"));
        ASSERT_TRUE(loaded());
    }
    void startWithBox()
    {
        Start();
        openBox();
        canvas().setFocus();
        QTest::mouseMove(&canvas(), {5, canvas().height() - 5}); // not where the tool row will be
    }
    viewer::OptionControls &controls() { return pane().Options(); }
    const ViewOptions &options() { return controls().Options(); }
    viewer::ViewTools &tools() { return Find<viewer::ViewTools>(pane(), "viewTools"); }
    QTreeWidget &tree() { return Find<QTreeWidget>(pane(), "tvParts"); }
    QAction &action(const char *name) { return Find<QAction>(*window, name); }
    void hover(QPoint at)
    {
        QHoverEvent move(QEvent::HoverMove, QPointF(at), canvas().mapToGlobal(QPointF(at)),
                         QPointF(at));
        QCoreApplication::sendEvent(&canvas(), &move);
    }
    QPoint corner() { return {canvas().width() - 5, 5}; }
    bool hidden()
    {
        return Wait([this] { return tools().isHidden(); });
    }
};

} // namespace

TEST_F(ViewOptionsTest, KeysAndCommandsChangeTheActiveWindowOnly)
{
    startWithBox();
    frmDocument *first = Active();
    openBox();
    canvas().setFocus();
    const struct
    {
        const char *name;
        Qt::Key key;
        bool ViewOptions::*option;
    } rows[] = {{"mnuSceneSnow", Qt::Key_S, &ViewOptions::snow},
                {"mnuSceneNight", Qt::Key_N, &ViewOptions::night},
                {"mnuSceneLights", Qt::Key_H, &ViewOptions::lights},
                {"mnuScenePantographs", Qt::Key_P, &ViewOptions::pantographs},
                {"mnuSceneBoxes", Qt::Key_B, &ViewOptions::boxes},
                {"mnuSceneWireframe", Qt::Key_W, &ViewOptions::wireframe},
                {"mnuSceneNormals", Qt::Key_V, &ViewOptions::normals},
                {"mnuSceneMissing", Qt::Key_M, &ViewOptions::marksMissing}};
    for (const auto &row : rows) {
        QTest::keyClick(&canvas(), row.key);
        EXPECT_TRUE(options().*row.option && action(row.name).isChecked()) << row.name;
        Trigger(row.name);
        EXPECT_FALSE(options().*row.option || action(row.name).isChecked()) << row.name;
        canvas().setFocus();
    }
    const std::pair<Qt::Key, Season> seasons[] = {{Qt::Key_6, Season::Spring},
                                                  {Qt::Key_7, Season::Autumn},
                                                  {Qt::Key_8, Season::Winter},
                                                  {Qt::Key_8, Season::Winter}};
    for (const auto &[key, season] : seasons) {
        QTest::keyClick(&canvas(), key);
        EXPECT_EQ(options().season, season);
        EXPECT_EQ(action("mnuSceneWinter").isChecked(), season == Season::Winter);
    }
    EXPECT_EQ(Status(), "") << "winter is not new";
    QTest::keyClick(&canvas(), Qt::Key_N);
    EXPECT_EQ(Status(), "Night: on");
    first->setFocus();
    ASSERT_TRUE(Wait([&] { return Active() == first; }));
    EXPECT_EQ(options(), ViewOptions()) << "each window has its own";
    EXPECT_TRUE(action("mnuSceneSummer").isChecked() && !action("mnuSceneNight").isChecked());
}

TEST_F(ViewOptionsTest, CommandsNeedA3DWindow)
{
    Start();
    std::set<QString> others;
    QList<QAction *> scene;
    for (QAction *known : window->findChildren<QAction *>(QString(), Qt::FindDirectChildrenOnly))
        if (known->objectName().startsWith(QLatin1String("mnuScene")))
            scene << known;
    EXPECT_EQ(scene.size(), 19);
    for (const QAction *known : scene) {
        EXPECT_FALSE(known->isEnabled()) << known->objectName().toStdString();
        EXPECT_TRUE(known->shortcuts().isEmpty()) << known->objectName().toStdString();
        EXPECT_FALSE(known->isChecked()) << known->objectName().toStdString();
    }
    openBox();
    for (const QAction *known : window->findChildren<QAction *>())
        if (!scene.contains(const_cast<QAction *>(known)))
            for (const QKeySequence &key : known->shortcuts())
                others.insert(key.toString());
    std::set<QString> own;
    for (const QAction *known : scene) {
        EXPECT_TRUE(known->isEnabled()) << known->objectName().toStdString();
        EXPECT_FALSE(known->shortcuts().isEmpty()) << known->objectName().toStdString();
        for (const QKeySequence &key : known->shortcuts())
            EXPECT_TRUE(own.insert(key.toString()).second && others.count(key.toString()) == 0)
                << key.toString().toStdString() << " has another use";
    }
}

TEST_F(ViewOptionsTest, ToolRowAppearsInItsCornerAndStaysWhileItIsUsed)
{
    startWithBox();
    EXPECT_TRUE(tools().isHidden());
    hover({canvas().width() / 2, canvas().height() / 2});
    EXPECT_TRUE(tools().isHidden()) << "not in the corner";
    hover(corner());
    EXPECT_TRUE(tools().isVisible());
    EXPECT_EQ(tools().geometry().topRight(), canvas().geometry().topRight());
    hover({5, canvas().height() - 5});
    EXPECT_TRUE(hidden()) << "the mouse has left";

    hover(corner());
    QTest::mouseClick(tools().cmdNight, Qt::LeftButton);
    EXPECT_TRUE(options().night && action("mnuSceneNight").isChecked());
    QTest::mouseClick(tools().cmdNight, Qt::LeftButton);
    EXPECT_FALSE(options().night);
    EXPECT_TRUE(canvas().hasFocus()) << "a click leaves the keys to the view";
    QTest::mouseClick(tools().cmdLoads, Qt::LeftButton);
    EXPECT_FALSE(action("mnuViewLoads").isChecked());
    Trigger("mnuViewLoads");
    EXPECT_TRUE(tools().cmdLoads->isChecked());
    QTest::mouseClick(tools().cmdHideTools, Qt::LeftButton);
    EXPECT_TRUE(hidden());
    EXPECT_FALSE(tools().tmrTools.isActive());
}

TEST_F(ViewOptionsTest, ToolRowWorksByKeysAlone)
{
    startWithBox();
    QTest::keyClick(&canvas(), Qt::Key_O);
    ASSERT_TRUE(tools().isVisible());
    EXPECT_TRUE(tools().cboSeason->hasFocus());
    QTest::keyClick(tools().cboSeason, Qt::Key_Down);
    EXPECT_EQ(options().season, Season::Spring);
    QTest::keyClick(tools().cboSeason, Qt::Key_Tab);
    ASSERT_TRUE(tools().cmdSnow->hasFocus());
    QTest::keyClick(tools().cmdSnow, Qt::Key_Space);
    EXPECT_TRUE(options().snow);
    QMetaObject::invokeMethod(&tools().tmrTools, "timeout", Qt::DirectConnection);
    EXPECT_TRUE(tools().isVisible()) << "a control has the focus";
    for (const QWidget *control :
         tools().findChildren<QWidget *>(QString(), Qt::FindDirectChildrenOnly))
        if (control->focusPolicy() != Qt::NoFocus) {
            EXPECT_NE(control->accessibleName(), QString()) << control->objectName().toStdString();
            EXPECT_NE(control->toolTip(), QString()) << control->objectName().toStdString();
            EXPECT_TRUE(tools().rect().contains(control->geometry()))
                << control->objectName().toStdString();
        }
    QTest::keyClick(tools().cmdSnow, Qt::Key_Escape);
    EXPECT_TRUE(canvas().hasFocus());
    EXPECT_TRUE(hidden());
}

TEST_F(ViewOptionsTest, ToolRowFitsIntoSmallWindows)
{
    startWithBox();
    Active()->resize(260, 240);
    QTest::keyClick(&canvas(), Qt::Key_O);
    EXPECT_TRUE(canvas().geometry().contains(tools().geometry()));
    EXPECT_TRUE(tools().rect().contains(tools().cmdHideTools->geometry()));
}

TEST_F(ViewOptionsTest, WheelsTurnOnlyWhileThereIsASpeed)
{
    startWithBox();
    QTimer &timer = controls().tmrRoll;
    EXPECT_FALSE(timer.isActive());
    QTest::keyClick(&canvas(), Qt::Key_Plus);
    EXPECT_TRUE(timer.isActive());
    EXPECT_EQ(viewer::ToKilometres(options().speed), 10);
    EXPECT_EQ(tools().sldSpeed->value(), 10);
    Active()->showMinimized();
    EXPECT_FALSE(timer.isActive()) << "nothing can be seen";
    Active()->showNormal();
    EXPECT_TRUE(Wait([&] { return timer.isActive(); }));
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_Minus);
    QTest::keyClick(&canvas(), Qt::Key_Minus);
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(options().speed, 0);
    tools().sldSpeed->setValue(viewer::kFastest);
    EXPECT_TRUE(timer.isActive());
    EXPECT_NEAR(options().speed, 55.56F, 0.01F);
    EXPECT_EQ(Status(), "Speed: 200 km/h");
    Trigger("mnuSceneStop");
    EXPECT_FALSE(timer.isActive());
    EXPECT_EQ(tools().sldSpeed->value(), 0);
}

TEST_F(ViewOptionsTest, LevelsAreThoseOfTheScene)
{
    std::string shape = ShapeText({SidePanel(1, 1, {0, 2, 0}, 9, 3)});
    const std::string level = shape.substr(shape.find("distance_level ("));
    const std::string nearer = level.substr(0, level.rfind(") ) ) )"));
    shape.insert(shape.find("distance_level ("), nearer + '\n');
    shape.replace(shape.find("dlevel_selection ( 2000"), 23, "dlevel_selection ( 300");
    game.Write("Trains/Trainset/Boxcars/box.s", shape);
    startWithBox();
    QComboBox &levels = *tools().cboLevel;
    ASSERT_EQ(levels.count(), 3);
    EXPECT_EQ(levels.itemText(1), QStringLiteral("Level 1, to 300 m"));
    EXPECT_EQ(levels.itemText(2), QStringLiteral("Level 2, to 2000 m"));
    QTest::keyClick(&canvas(), Qt::Key_PageDown);
    EXPECT_EQ(options().level, 2);
    EXPECT_EQ(levels.currentIndex(), 2);
    QTest::keyClick(&canvas(), Qt::Key_PageDown);
    EXPECT_EQ(options().level, 2) << "there is no farther one";
    QTest::keyClick(&canvas(), Qt::Key_PageUp);
    QTest::keyClick(&canvas(), Qt::Key_PageUp);
    EXPECT_EQ(options().level, 1);
    levels.setCurrentIndex(0);
    EXPECT_EQ(options().level, 0);
}

TEST_F(ViewOptionsTest, PartTreeHidesParts)
{
    startWithBox();
    ASSERT_TRUE(Wait([this] { return showsWagon(); }));
    QTest::keyClick(&canvas(), Qt::Key_T);
    ASSERT_TRUE(tree().isVisible() && action("mnuSceneParts").isChecked());
    ASSERT_EQ(tree().topLevelItemCount(), 1);
    QTreeWidgetItem *shape = tree().topLevelItem(0), *main = shape->child(0);
    EXPECT_EQ(shape->text(0), QStringLiteral("box.s"));
    ASSERT_TRUE(main);
    EXPECT_EQ(main->text(0), QStringLiteral("MAIN"));
    tree().setCurrentItem(main);
    QTest::keyClick(&tree(), Qt::Key_Space);
    EXPECT_EQ(main->checkState(0), Qt::Unchecked);
    EXPECT_EQ(shape->checkState(0), Qt::Unchecked);
    EXPECT_EQ(options().hiddenParts.size(), 1U);
    EXPECT_TRUE(Wait([this] { return !showsWagon(); }));
    Trigger("mnuViewRefresh");
    ASSERT_TRUE(loaded());
    EXPECT_EQ(tree().topLevelItem(0)->child(0)->checkState(0), Qt::Unchecked) << "read again";
    tree().topLevelItem(0)->setCheckState(0, Qt::Checked);
    EXPECT_TRUE(options().hiddenParts.empty());
    EXPECT_TRUE(Wait([this] { return showsWagon(); }));
    QTest::mouseClick(Find<viewer::PartTree>(pane(), "partTree").cmdCloseList, Qt::LeftButton);
    EXPECT_FALSE(tree().isVisible() || action("mnuSceneParts").isChecked());
}

TEST_F(ViewOptionsTest, MissingTexturesAreListed)
{
    startWithBox();
    auto &list = Find<QListWidget>(pane(), "lstMissing");
    QTest::keyClick(&canvas(), Qt::Key_M);
    ASSERT_TRUE(list.isVisible());
    EXPECT_EQ(RowsOf(list), "No texture is missing.");
    game.Write("Trains/Trainset/Boxcars/box.wag",
               "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nWagon ( x Size ( 3m 4m 10m ) "
               "WagonShape ( bare.s ) )\r\n");
    Panel panel = SidePanel(1, 1, {0, 2, 0}, 9, 3);
    panel.image = "gone.ace";
    game.Write("Trains/Trainset/Boxcars/bare.s", ShapeText({panel}));
    openBox();
    canvas().setFocus();
    QTest::keyClick(&canvas(), Qt::Key_M);
    auto &second = Find<QListWidget>(pane(), "lstMissing");
    ASSERT_EQ(second.count(), 1);
    EXPECT_TRUE(second.item(0)->text().contains(QLatin1String("gone.ace")));
    EXPECT_TRUE(second.item(0)->text().contains(QLatin1String("bare.s")));
    Find<viewer::MissingList>(pane(), "missingList").cmdCloseList->click();
    EXPECT_FALSE(options().marksMissing || second.isVisible());
}
