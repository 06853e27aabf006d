// SPDX-License-Identifier: MIT
#include "app/OpenRules.h"
#include "app/modZELK.h"

#include <gtest/gtest.h>

using app::OpenKind;

TEST(AppRulesTest, FileKindFollowsTheTextAfterTheLastDot)
{
    const std::pair<const char *, OpenKind> rows[] = {
        {"/a/b.con", OpenKind::Consist},
        {"C:\\x\\B.CON", OpenKind::Consist},
        {"a.wag", OpenKind::Stock},
        {"a.Eng", OpenKind::Stock},
        {"a.s", OpenKind::Shape},
        {"a.act", OpenKind::Activity},
        {"a.w", OpenKind::World},
        {"a.wx", OpenKind::Unsupported},
        {"a.con.bak", OpenKind::Unsupported},
        {"con", OpenKind::Unsupported},
        {"/a.con/b", OpenKind::Unsupported},
        {"", OpenKind::Unsupported},
    };
    for (const auto &[path, kind] : rows)
        EXPECT_EQ(app::KindOf(path), kind) << path;
    EXPECT_EQ(app::RefusalOf(OpenKind::World), "World files not supported in this version!");
    EXPECT_EQ(app::RefusalOf(OpenKind::Unsupported), "File type not supported!");
    EXPECT_EQ(app::RefusalOf(OpenKind::Consist), "");
}

TEST(AppRulesTest, MakesProgramTexts)
{
    EXPECT_EQ(modZELK::MainCaption(), "ZELK v1.0-75");
    EXPECT_EQ(modZELK::TextWindowCaption("x"), "Properties of x");
    EXPECT_EQ(modZELK::TextWindowCaption("#TS Installation Check"), "TS Installation Check");
    EXPECT_EQ(modZELK::TextWindowCaption("#"), "");
    EXPECT_EQ(modZELK::MissingReferenceText("x.sms", "box.wag", "sound"),
              "box.wag references MISSING sound file x.sms");
    EXPECT_FLOAT_EQ(modZELK::DegreesToRadians(90), 1.5707964f);
}
