// SPDX-License-Identifier: MIT
#include "install/Installation.h"

#include "host/GameFiles.h"
#include "install/TypedLocation.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

using install::Installation;

namespace {

class InstallationTest : public testing::Test
{
protected:
    void store(const std::string &text) { home.Folder().Write(".config/zelk/registry.ini", text); }
    void registerFolder(const std::string &path)
    {
        store("[SOFTWARE\\Microsoft\\Microsoft Games\\Train Simulator\\1.0]\nPath=" + path + "\n");
    }
    /// A program's uninstall entry in the registry.
    static std::string entry(int number, const std::string &name, const std::string &command)
    {
        return "[SOFTWARE\\Microsoft\\Windows\\CurrentVersion\\Uninstall\\ST6UNST #" +
               std::to_string(number) + "]\nApplicationName=" + name +
               "\nUninstallString=" + command + "\n";
    }

    support::ScopedHome home;
};

TEST_F(InstallationTest, OverrideTakesPrecedenceOverTheRegisteredFolder)
{
    Installation installation;
    EXPECT_EQ(installation.CurrentFolder(), "");
    registerFolder("/games/MSTS");
    EXPECT_EQ(installation.CurrentFolder(), "/games/MSTS");
    installation.SetLocation(" /second copy ");
    EXPECT_EQ(installation.CurrentFolder(), " /second copy ");
    EXPECT_EQ(installation.RegisteredFolder(), "/games/MSTS");
    for (const char *cleared : {"", "   ", "$MSTS", "  $msts "}) {
        installation.SetLocation("/x");
        installation.SetLocation(cleared);
        EXPECT_EQ(installation.Override(), "") << '"' << cleared << '"';
        EXPECT_EQ(installation.CurrentFolder(), "/games/MSTS");
    }
    installation.SetLocation("$MSTS2");
    EXPECT_EQ(installation.Override(), "$MSTS2");
}

TEST_F(InstallationTest, ChoosingTheRegisteredFolderReturnsItsToken)
{
    registerFolder("/games/MSTS");
    EXPECT_EQ(install::ChosenLocation("/games/MSTS"), "$MSTS");
    EXPECT_EQ(install::ChosenLocation("/games/msts"), "/games/msts");
    EXPECT_EQ(install::ChosenLocation(" /games/MSTS"), " /games/MSTS");
    EXPECT_EQ(install::ChosenLocation("/games/MSTS/"), "$MSTS");
    registerFolder("/games/MSTS/");
    EXPECT_EQ(install::ChosenLocation("/games/MSTS"), "$MSTS");
    EXPECT_EQ(install::ChosenLocation("/games/MSTS/"), "$MSTS");
}

TEST_F(InstallationTest, TypedFoldersLoseTheirLastSeparatorAndExpandHome)
{
    const std::string &user = home.Folder().Path();
    const std::pair<std::string, std::string> rows[] = {
        {"~", user},
        {"~/msts/", user + "/msts"},
        {"~\\msts", user + "\\msts"},
        {"~other", "~other"},
        {"/a/~", "/a/~"},
        {"/msts//", "/msts"},
        {"/", "/"},
        {"//", "/"},
        {"C:\\MSTS\\", "C:\\MSTS"},
        {"", ""},
        {" ", " "},
        {"$MSTS", "$MSTS"},
    };
    for (const auto &[typed, folder] : rows)
        EXPECT_EQ(install::FolderTyped(typed), folder) << typed;
    EXPECT_EQ(install::ChosenLocation("~/msts/"), user + "/msts");
}

TEST_F(InstallationTest, HintsExplainWhatIsWrongWithALocation)
{
    const support::TempFolder &disk = home.Folder();
    disk.MakeFolder("good/TRAINS/Trainset");
    disk.MakeFolder("good/Routes");
    disk.MakeFolder("bare/trains");
    disk.MakeFolder("moved/Trainset");
    disk.Write("file");
    host::GameFiles files;
    const std::pair<std::string, const char *> rows[] = {
        {"", "No folder is chosen. Choose"},
        {"  ", "No folder is chosen. Choose"},
        {"$msts", "No folder is chosen. Choose"},
        {disk.At("gone"), "This folder is not found."},
        {disk.At("file"), "This folder is not found."},
        {disk.At("good/Trains"), "This is the Trains folder itself."},
        {disk.At("good/Trains/"), "This is the Trains folder itself."},
        {disk.At("moved"), "This is the Trains folder itself."},
        {disk.Path(), "There is no Trains in this folder."},
        {disk.At("bare"), "This folder holds Trains, but no Routes."},
        {disk.At("good"), "This folder holds Trains and Routes, as it should."},
        {"~/good/", "This folder holds Trains and Routes, as it should."},
    };
    for (const auto &[typed, hint] : rows)
        EXPECT_EQ(install::LocationHint(files, typed).substr(0, std::string(hint).size()), hint)
            << typed;
    registerFolder(disk.At("good"));
    EXPECT_EQ(install::LocationHint(files, ""),
              "No folder is chosen. The registered one will be used.");
    EXPECT_EQ(install::LocationHint(files, "$MSTS"),
              "This folder holds Trains and Routes, as it should.");
}

TEST_F(InstallationTest, BuildsPathsInTheCurrentFolder)
{
    Installation installation;
    installation.SetLocation("/msts");
    EXPECT_EQ(installation.PathOf("Trains\\Trainset"), "/msts/Trains/Trainset");
    EXPECT_EQ(installation.PathOf("\\Routes"), "/msts/Routes");
    EXPECT_EQ(installation.ConsistPath("Long GP9 train"),
              "/msts/Trains/Consists/Long GP9 train.con");
}

TEST_F(InstallationTest, FindsTheShapeViewerInItsUninstallEntry)
{
    const std::string command = R"(C:\WINDOWS\st6unst.exe -n "C:\Games\QView\ST6UNST.LOG")";
    struct Row
    {
        const char *name;
        std::string store, viewer;
    };
    const Row rows[] = {
        {"none", "", ""},
        {"first", entry(1, "QView.exe", command), R"(C:\Games\QView\QView.exe)"},
        {"ninth", entry(1, "Other.exe", "x") + entry(9, "QView.exe", command),
         R"(C:\Games\QView\QView.exe)"},
        {"tenth", entry(10, "QView.exe", command), ""},
        {"other case", entry(1, "qview.EXE", command), ""},
        {"uses the first", entry(2, "QView.exe", "no quotes") + entry(3, "QView.exe", command), ""},
        {"options after the path", entry(1, "QView.exe", R"(x "C:\Q\ST6UNST.LOG" /q)"),
         R"(C:\Q\QView.exe)"},
        {"paths of this machine", entry(1, "QView.exe", R"(x "/opt/qview/setup.log")"),
         "/opt/qview/QView.exe"},
        {"no folder", entry(1, "QView.exe", R"(x "setup.log")"), "QView.exe"},
    };
    for (const Row &row : rows) {
        store(row.store);
        EXPECT_EQ(install::FindShapeViewer(), row.viewer) << row.name;
    }
}

} // namespace
