// SPDX-License-Identifier: MIT
#include "host/Settings.h"

#include "support/Environment.h"

#include <gtest/gtest.h>

#include <string>
#include <thread>
#include <vector>

namespace {

TEST(UserSettingsTest, StoresInTheUsersConfigurationFolder)
{
    const support::ScopedHome home;
    const auto settings = host::UserSettings();
    EXPECT_EQ(settings->Read("MSTSDir"), std::nullopt);
    settings->Write("MSTSDir", "/games/Train Simulator");
    settings->Write("MainLeft", "1000");
    settings->Write("MSTSDir", "");
    EXPECT_EQ(home.Folder().Read(".config/ZELK/ZELK.ini"), "[Settings]\nMSTSDir=\nMainLeft=1000\n");
    EXPECT_EQ(host::IniSettings().Read("mainleft"), "1000");
    EXPECT_EQ(host::IniSettings().Read("MSTSDir"), "");
    EXPECT_EQ(home.Folder().Names(".config/ZELK"), std::vector<std::string>{"ZELK.ini"});
}

TEST(UserSettingsTest, FollowsTheConfigurationVariable)
{
    const support::ScopedHome home;
    const support::ScopedVariable config("XDG_CONFIG_HOME", home.Folder().At("elsewhere/"));
    host::IniSettings().Write("MainTop", "5");
    EXPECT_TRUE(home.Folder().Exists("elsewhere/ZELK/ZELK.ini"));
}

TEST(UserSettingsTest, ValuesThatSeveralProgramsStoreAreAllKept)
{
    const support::ScopedHome home;
    constexpr int kThreads = 4, kTimes = 20;
    {
        std::vector<std::jthread> threads;
        for (int i = 0; i < kThreads; ++i)
            threads.emplace_back([i] {
                for (int time = 1; time <= kTimes; ++time)
                    host::IniSettings().Write("Key" + std::to_string(i), std::to_string(time));
            });
    }
    for (int i = 0; i < kThreads; ++i)
        EXPECT_EQ(host::IniSettings().Read("Key" + std::to_string(i)), std::to_string(kTimes));
}

} // namespace
