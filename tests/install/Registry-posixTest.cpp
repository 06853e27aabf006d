// SPDX-License-Identifier: MIT
#include "install/Registry.h"

#include "support/Environment.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;
using support::ScopedVariable;

namespace {

constexpr const char *kKey = "SOFTWARE\\Games\\1.0";
constexpr std::string_view kStore64 = "[Software\\Games\\1.0]\nPath=/store64\n";
constexpr std::string_view kStore32 = "[SOFTWARE\\WOW6432Node\\games\\1.0]\npath=/store32\n";

std::string wineFile(const std::string &view, const std::string &path)
{
    return "WINE REGISTRY Version 2\n\n[Software\\\\" + view + "Games\\\\1.0] 1\n\"Path\"=\"" +
           path + "\"\n";
}

class RegistryTest : public testing::Test
{
protected:
    std::string path() { return Registry::QueryValue(kKey, "Path"); }

    support::ScopedHome home;
    const support::TempFolder &folder = home.Folder();
};

TEST_F(RegistryTest, ReadsStoresInOrder)
{
    EXPECT_EQ(path(), "");
    folder.Write(".wine/system.reg", wineFile("", "/wine64"));
    EXPECT_EQ(path(), "/wine64");
    folder.Write(".wine/system.reg",
                 wineFile("", "/wine64") + wineFile("Wow6432Node\\\\", "/wine32"));
    EXPECT_EQ(path(), "/wine32");
    const ScopedVariable prefix("WINEPREFIX", folder.At("prefix"));
    EXPECT_EQ(path(), "");
    folder.Write("prefix/system.reg", wineFile("", "/prefix"));
    EXPECT_EQ(path(), "/prefix");
    folder.Write("etc/zelk/registry.ini", "[Software\\Games\\1.0]\nPath=/etc\n");
    EXPECT_EQ(path(), "/etc");
    folder.Write(".config/zelk/registry.ini", kStore64);
    EXPECT_EQ(path(), "/store64");
    folder.Write(".config/zelk/registry.ini", std::string(kStore64).append(kStore32));
    EXPECT_EQ(path(), "/store32");
    folder.Write("named.ini", "[SOFTWARE\\Games\\1.0]\nPath=/named\n");
    {
        const ScopedVariable store("ZELK_REGISTRY", folder.At("named.ini"));
        EXPECT_EQ(path(), "/named");
    }
    folder.Write("store/registry.ini", "[SOFTWARE\\Games\\1.0]\nPath=\n");
    const ScopedVariable store("ZELK_REGISTRY", folder.At("store"));
    EXPECT_EQ(path(), "/prefix"); // an empty value counts as missing; the other stores are not read
}

TEST_F(RegistryTest, ReadsTheFileAgainAndCutsValuesAtNul)
{
    folder.Write(".config/zelk/registry.ini", "[SOFTWARE\\Games\\1.0]\nPath=/first\n");
    EXPECT_EQ(path(), "/first");
    folder.Write(".config/zelk/registry.ini", "[SOFTWARE\\Games\\1.0]\nPath=/other\n");
    EXPECT_EQ(path(), "/other");
    for (int i = 10; i < 60; ++i) { // most of them within one tick of the file system's clock
        const std::string value = "/game" + std::to_string(i);
        folder.Write(".config/zelk/registry.ini", "[SOFTWARE\\Games\\1.0]\nPath=" + value + "\n");
        EXPECT_EQ(path(), value);
    }
    fs::remove(folder.At(".config/zelk/registry.ini"));
    EXPECT_EQ(path(), "");
    folder.Write(".wine/system.reg",
                 "[Software\\\\Games\\\\1.0]\n\"Path\"=\"/cut\\0here\"\n\"Nul\"=\"\\0x\"\n");
    EXPECT_EQ(path(), "/cut");
    EXPECT_EQ(Registry::QueryValue(kKey, "Nul"), "");
}

TEST_F(RegistryTest, MapsWindowsPathsThroughTheDrivesOfThePrefix)
{
    folder.MakeFolder(".wine/drive_c/Program Files/Train Simulator");
    folder.Write(".wine/drive_c/Viewer/QView.exe");
    folder.MakeFolder("disk/MSTS");
    folder.MakeFolder(".wine/dosdevices/e:");
    fs::create_directory_symlink("../drive_c", folder.At(".wine/dosdevices/c:"));
    fs::create_directory_symlink(folder.At("disk"), folder.At(".wine/dosdevices/d:"));
    fs::create_directory_symlink("nowhere", folder.At(".wine/dosdevices/f:"));
    struct Row
    {
        const char *windows;
        std::string here;
    };
    const Row rows[] = {
        {"c:\\PROGRAM files\\train simulator\\",
         folder.At(".wine/drive_c/Program Files/Train Simulator")},
        {"C:\\viewer\\qview.EXE", folder.At(".wine/drive_c/Viewer/QView.exe")},
        {"C:\\Not\\There", folder.At(".wine/drive_c/Not/There")},
        {"D:\\msts", folder.At("disk/MSTS")},
        {"E:\\x", folder.At(".wine/dosdevices/e:/x")},
        {"F:\\x", "F:\\x"},
        {"Q:\\x", "Q:\\x"},
        {"C:x", "C:x"},
        {"%ProgramFiles%\\x", "%ProgramFiles%\\x"},
        {"/already/here", "/already/here"},
        {"", ""},
    };
    for (const Row &row : rows)
        EXPECT_EQ(Registry::PathOnThisMachine(row.windows), row.here) << row.windows;

    folder.Write(".wine/system.reg", wineFile("", "C:\\\\program FILES\\\\Train Simulator") +
                                         "\"Command\"=\"C:\\\\a.exe -n \\\"C:\\\\b\\\"\"\n");
    EXPECT_EQ(path(), folder.At(".wine/drive_c/Program Files/Train Simulator"));
    EXPECT_EQ(Registry::QueryValue(kKey, "Command"), "C:\\a.exe -n \"C:\\b\"");
}

} // namespace
