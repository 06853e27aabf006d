// SPDX-License-Identifier: MIT
#include "host/Settings.h"

#include "host/RuntimeError.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <limits>

namespace {

TEST(SettingsTest, KeepsOtherEntriesAndReportsARefusedStore)
{
    const support::TempFolder folder;
    const std::string file = folder.Write("s.ini", "[Other]\nMainLeft=7\n");
    host::IniSettings settings(file);
    EXPECT_EQ(settings.Read("MainLeft"), std::nullopt);
    settings.Write("MainLeft", "8");
    EXPECT_EQ(folder.Read("s.ini"), "[Other]\nMainLeft=7\n[Settings]\nMainLeft=8\n");
    EXPECT_EQ(settings.ReadFrom("other", "MainLeft"), "7");
    settings.WriteTo("Other", "MainLeft", "9");
    EXPECT_EQ(settings.Read("MainLeft"), "8");
    EXPECT_EQ(settings.ReadFrom("Other", "MainLeft"), "9");

    folder.Write("file");
    host::IniSettings below(folder.At("file/s.ini"));
    EXPECT_EQ(below.Read("x"), std::nullopt);
    EXPECT_THROW(below.Write("x", "1"), host::RuntimeError);
    host::IniSettings onFolder(folder.MakeFolder("folder"));
    EXPECT_EQ(onFolder.Read("x"), std::nullopt);
    EXPECT_THROW(onFolder.Write("x", "1"), host::RuntimeError);
}

TEST(SettingsTest, ReadsNumbers)
{
    struct Row
    {
        const char *text;
        std::optional<float> value;
    };
    const Row rows[] = {
        {"1000", 1000.0f},      {" 1000.5 ", 1000.5f}, {"-75", -75.0f},
        {"+5", 5.0f},           {"1E3", 1000.0f},      {"", std::nullopt},
        {" ", std::nullopt},    {"+", std::nullopt},   {"1000,5", std::nullopt},
        {"12px", std::nullopt}, {"nan", std::nullopt}, {"inf", std::nullopt},
        {"1e99", std::nullopt}, {"+-5", std::nullopt},
    };
    for (const Row &row : rows)
        EXPECT_EQ(host::ParseSingle(row.text), row.value) << row.text;
    EXPECT_EQ(host::FormatSingle(6500.0f), "6500");
    EXPECT_EQ(host::FormatSingle(-0.5f), "-0.5");
    EXPECT_EQ(host::FormatSingle(1e6f), "1000000");
    using Limits = std::numeric_limits<float>;
    for (const float value : {Limits::max(), Limits::lowest(), Limits::denorm_min(), 0.1f, 1e-20f})
        EXPECT_EQ(host::ParseSingle(host::FormatSingle(value)), value);
}

} // namespace
