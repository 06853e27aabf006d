// SPDX-License-Identifier: MIT
#include "app/FileAssociation.h"

#include "host/RuntimeError.h"
#include "support/Environment.h"

#include <gtest/gtest.h>

#include <filesystem>

namespace fs = std::filesystem;
using support::ScopedVariable;

namespace {

constexpr char kEntry[] = ".local/share/applications/zelk-consist.desktop";
constexpr char kType[] = ".local/share/mime/packages/zelk-consist.xml";
constexpr char kDefaults[] = ".config/mimeapps.list";

/// A desktop whose tools record how they are called.
class FileAssociationTest : public testing::Test
{
protected:
    FileAssociationTest()
    {
        addTool("update-mime-database", 0);
        addTool("update-desktop-database", 0);
    }
    void addTool(const std::string &name, int result)
    {
        const std::string file = folder.Write(
            "tools/" + name, "#!/bin/sh\necho \"${0##*/} $*\" >> '" + folder.At("called") +
                                 "'\necho noise >&2\nexit " + std::to_string(result) + '\n');
        fs::permissions(file, fs::perms::owner_all);
    }
    std::string takeCalls()
    {
        const std::string calls = folder.Exists("called") ? folder.Read("called") : "";
        fs::remove(folder.At("called"));
        return calls;
    }
    std::string entryLine(const std::string &key)
    {
        const std::string entry = '\n' + folder.Read(kEntry);
        const std::size_t at = entry.find('\n' + key + '=') + 1;
        return at == 0 ? "" : entry.substr(at, entry.find('\n', at) - at);
    }

    support::ScopedHome home;
    const support::TempFolder &folder = home.Folder();
    const ScopedVariable tools{"PATH", folder.At("tools")};
    const ScopedVariable shares{"XDG_DATA_DIRS", "/none:" + folder.At("usr//share/")};
};

TEST_F(FileAssociationTest, PortableProgramWritesTypeAndDesktopEntry)
{
    app::AssociateConsistFiles("/opt/zelk");
    EXPECT_NE(folder.Read(kType).find("type=\"application/x-msts-consist\""), std::string::npos);
    EXPECT_NE(folder.Read(kType).find("pattern=\"*.con\""), std::string::npos);
    EXPECT_EQ(entryLine("Exec"), "Exec=\"/opt/zelk\" %f");
    EXPECT_EQ(entryLine("TryExec"), "TryExec=/opt/zelk");
    EXPECT_EQ(entryLine("MimeType"), "MimeType=application/x-msts-consist;");
    EXPECT_EQ(entryLine("NoDisplay"), "NoDisplay=true");
    EXPECT_EQ(folder.Read(kDefaults),
              "[Default Applications]\napplication/x-msts-consist=zelk-consist.desktop\n");
    const std::string data = folder.At(".local/share");
    const std::string calls = "update-mime-database " + data + "/mime\nupdate-desktop-database " +
                              data + "/applications\n";
    EXPECT_EQ(takeCalls(), calls);

    app::AssociateConsistFiles("/srv/zelk");
    EXPECT_EQ(entryLine("Exec"), "Exec=\"/srv/zelk\" %f");
    takeCalls();

    app::DissociateConsistFiles();
    EXPECT_EQ(takeCalls(), calls);
    for (const char *file : {kType, kEntry, kDefaults})
        EXPECT_FALSE(folder.Exists(file)) << file;
    app::DissociateConsistFiles();
    EXPECT_EQ(takeCalls(), "");
}

TEST_F(FileAssociationTest, InstalledProgramWritesOnlyTheChoice)
{
    folder.Write("usr/share/applications/zelk.desktop");
    app::AssociateConsistFiles(folder.At("own/bin/zelk")); // before it was installed
    EXPECT_TRUE(folder.Exists(kEntry));
    app::AssociateConsistFiles(folder.At("usr/bin/zelk"));
    EXPECT_FALSE(folder.Exists(kEntry));
    EXPECT_FALSE(folder.Exists(kType));
    EXPECT_EQ(folder.Read(kDefaults),
              "[Default Applications]\napplication/x-msts-consist=zelk.desktop\n");
    app::DissociateConsistFiles();
    EXPECT_FALSE(folder.Exists(kDefaults));
}

TEST_F(FileAssociationTest, QuotesProgramNamesForDesktopEntries)
{
    const std::string icon = folder.Write("o\\d d$\"`%/share/icons/hicolor/256x256/apps/zelk.png");
    const std::string program = folder.At("o\\d d$\"`%/bin/zelk");
    app::AssociateConsistFiles(program);
    EXPECT_EQ(entryLine("Exec"),
              "Exec=\"" + folder.At(R"(o\\\\d d\\$\\"\\`%%/bin/zelk)") + "\" %f");
    EXPECT_EQ(entryLine("TryExec"), "TryExec=" + folder.At(R"(o\\d d$"`%/bin/zelk)"));
    EXPECT_EQ(entryLine("Icon"),
              "Icon=" + folder.At(R"(o\\d d$"`%/share/icons/hicolor/256x256/apps/zelk.png)"));
    for (const char *bad : {"/a=b/zelk", "/line\nbreak/zelk", "relative/zelk", "", "/\xff/zelk"})
        try {
            app::DissociateConsistFiles();
            app::AssociateConsistFiles(bad);
            ADD_FAILURE() << bad;
        } catch (const host::RuntimeError &error) {
            EXPECT_EQ(error.Number(), 5);
            EXPECT_FALSE(folder.Exists(kEntry));
        }
}

TEST_F(FileAssociationTest, KeepsOtherChoicesOfTheUser)
{
    const std::string others = "# mine\n[Added Associations]\ntext/plain=x.desktop;\n\n"
                               "[Default Applications]\ntext/plain=y.desktop\n";
    const std::string former = "application/x-msts-consist=former.desktop;other.desktop;\n";
    folder.Write("dotfiles/list", others + former);
    fs::create_directories(folder.At(".config"));
    fs::create_symlink(folder.At("dotfiles/list"), folder.At(kDefaults));
    app::AssociateConsistFiles("/opt/zelk");
    EXPECT_EQ(folder.Read("dotfiles/list"),
              others + "application/x-msts-consist=zelk-consist.desktop;former.desktop;"
                       "other.desktop\n");
    app::DissociateConsistFiles();
    EXPECT_EQ(folder.Read("dotfiles/list"),
              others + "application/x-msts-consist=former.desktop;other.desktop\n");
    EXPECT_TRUE(fs::is_symlink(folder.At(kDefaults)));

    folder.Write("dotfiles/list", others);
    app::DissociateConsistFiles();
    EXPECT_EQ(folder.Read("dotfiles/list"), others);
}

TEST_F(FileAssociationTest, ErrorsNameTheFileOrTheTool)
{
    const auto failure = [] {
        try {
            app::AssociateConsistFiles("/opt/zelk");
        } catch (const host::RuntimeError &error) {
            return error.Detail();
        }
        return std::string();
    };
    addTool("update-mime-database", 1);
    EXPECT_EQ(failure(), "update-mime-database does not take in " + folder.At(".local/share/mime"));
    EXPECT_FALSE(folder.Exists(kDefaults));
    fs::remove_all(folder.At("tools"));
    EXPECT_EQ(failure(), ""); // a desktop without these tools
    app::DissociateConsistFiles();
    folder.MakeFolder(kDefaults);
    EXPECT_EQ(failure().find(folder.At(kDefaults) + ": "), 0u);
    folder.Write("file");
    const ScopedVariable data("XDG_DATA_HOME", folder.At("file"));
    EXPECT_EQ(failure().find(folder.At("file/mime/packages/")), 0u) << failure();
}

} // namespace
