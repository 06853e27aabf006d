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
        EXPECT_EQ(kind, app::KindOf(path)) << path;
    EXPECT_EQ("World files not supported in this version!", app::RefusalOf(OpenKind::World));
    EXPECT_EQ("File type not supported!", app::RefusalOf(OpenKind::Unsupported));
    EXPECT_EQ("", app::RefusalOf(OpenKind::Consist));
}

TEST(AppRulesTest, MakesProgramTexts)
{
    EXPECT_EQ("ZELK v1.0-75", modZELK::MainCaption());
    EXPECT_EQ("Properties of x", modZELK::TextWindowCaption("x"));
    EXPECT_EQ("TS Installation Check", modZELK::TextWindowCaption("#TS Installation Check"));
    EXPECT_EQ("", modZELK::TextWindowCaption("#"));
    EXPECT_EQ("box.wag references MISSING sound file x.sms",
              modZELK::MissingReferenceText("x.sms", "box.wag", "sound"));
    EXPECT_FLOAT_EQ(1.5707964f, modZELK::DegreesToRadians(90));
}
