// SPDX-License-Identifier: MIT
#include "ui/main/WindowBounds.h"
#include "ui/main/WindowSettings.h"

#include "GuiTest.h"

namespace {

QRect read(const std::string &left, const std::string &width)
{
    MemorySettings settings;
    settings.values = {{"MainLeft", left}, {"MainWidth", width}};
    return app::ReadMainBounds(settings);
}

} // namespace

TEST(WindowBoundsTest, MissingAndInvalidSettingsGiveDefaults)
{
    MemorySettings none;
    EXPECT_EQ(app::ReadMainBounds(none), QRect(67, 67, 433, 433));
    EXPECT_EQ(read("150", "3000"), QRect(10, 67, 200, 433));
    EXPECT_EQ(read("here", "3000"), QRect(67, 67, 200, 433));
    EXPECT_EQ(read("", "nan"), QRect(67, 67, 433, 433));
    EXPECT_EQ(read("-1e30", "150"), QRect(-66667, 67, 10, 433))
        << "limited to the range of the numbers";
}

TEST(WindowBoundsTest, WrittenBoundsAreReadBack)
{
    MemorySettings settings;
    const QRect bounds(-120, 33, 777, 555);
    app::WriteMainBounds(settings, bounds);
    EXPECT_EQ(settings.values["MainWidth"], "11655");
    EXPECT_EQ(app::ReadMainBounds(settings), bounds);
}

TEST(WindowSettingsTest, AreReadBackAndInvalidOnesGiveDefaults)
{
    MemorySettings settings;
    app::WindowSettings windows;
    app::WriteWindowSettings(settings, windows);
    EXPECT_TRUE(settings.windows.empty()) << "nothing to remember";
    windows.maximised = true;
    windows.normal = QRect(-20, 5, 700, 500);
    windows.loads = false;
    windows.editors = {{60, 100, 120}, {50, 200, 90}, {2, false}};
    windows.editors.preview = windows.editors.stockPictures = true;
    app::WriteWindowSettings(settings, windows);
    EXPECT_TRUE(settings.values.empty());
    const app::WindowSettings back = app::ReadWindowSettings(settings);
    EXPECT_TRUE(back.maximised);
    EXPECT_FALSE(back.loads);
    EXPECT_EQ(back.normal, windows.normal);
    EXPECT_EQ(back.editors.consistWidths, windows.editors.consistWidths);
    EXPECT_EQ(back.editors.stockWidths, windows.editors.stockWidths);
    EXPECT_EQ(back.editors.stockOrder.column, 2);
    EXPECT_FALSE(back.editors.stockOrder.ascending);
    EXPECT_TRUE(back.editors.preview && back.editors.stockPictures);

    for (auto &[key, value] : settings.windows)
        value += " 1e9 wide";
    const app::WindowSettings none = app::ReadWindowSettings(settings);
    EXPECT_FALSE(none.maximised);
    EXPECT_TRUE(none.loads);
    EXPECT_TRUE(none.normal.isNull());
    EXPECT_TRUE(none.editors.consistWidths.empty() && none.editors.stockWidths.empty());
    EXPECT_EQ(none.editors.stockOrder.column, -1);
    EXPECT_FALSE(none.editors.preview || none.editors.stockPictures);
}

TEST(WindowBoundsTest, MovesWindowsBackOntoAScreen)
{
    const QList<QRect> screens = {QRect(0, 0, 1280, 770), QRect(1280, 0, 800, 600)};
    const struct
    {
        const char *name;
        QRect bounds, expected;
    } rows[] = {
        {"inside", {100, 100, 500, 400}, {100, 100, 500, 400}},
        {"partly outside, title reachable", {1100, 500, 500, 400}, {1100, 500, 500, 400}},
        {"left of all screens", {-3000, 100, 500, 400}, {0, 100, 500, 400}},
        {"below", {100, 5000, 500, 400}, {100, 370, 500, 400}},
        {"title above the top", {100, -200, 500, 400}, {100, 0, 500, 400}},
        {"beyond the second screen", {5000, 50, 500, 400}, {1580, 50, 500, 400}},
        {"larger than its screen", {0, 0, 3000, 3000}, {0, 0, 1280, 770}},
        {"no size", {100, 100, 0, -5}, {100, 100, 1, 1}},
    };
    for (const auto &row : rows)
        EXPECT_EQ(app::FitToScreens(row.bounds, screens), row.expected) << row.name;
    EXPECT_EQ(app::FitToScreens(QRect(9, 9, 9, 9), {}), QRect(9, 9, 9, 9));
}
