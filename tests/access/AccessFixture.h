// SPDX-License-Identifier: MIT
#pragma once

#include "Session.h"

#include "support/Environment.h"
#include "support/KnownFolders.h"

#include <gtest/gtest.h>

#include <string>

/// The program on a copy of the sample installation, operated only through its accessibility tree,
/// without keys or mouse.
class AccessTest : public testing::Test
{
protected:
    void SetUp() override;

    void Start(const QStringList &arguments = {});
    static void Press(const Accessible &top, const std::string &button);
    /// Returns a command of a menu or its submenus, whose name begins like this.
    Accessible MenuItem(const std::string &menu, const std::string &name) const;
    void Command(const std::string &menu, const std::string &name) const
    {
        const Accessible item = MenuItem(menu, name);
        EXPECT_TRUE(WaitFor([&] { return item.Enabled(); })) << name;
        item.Do("Press");
    }
    /// Waits for the window with this title, other than the main window, and returns it.
    Accessible Dialog(const std::string &title) const;
    void Answer(const std::string &title, const std::string &button) const;
    void Quit();
    /// Returns the units in a consist file.
    std::string UnitsIn(const std::string &file) const;

    support::ScopedHome home;
    support::KnownFolders known{home.Folder().At(".config")};
    support::TempFolder game;
    Session session;
    Accessible program, window;
};

/// Selects the row of a list that has this text in the column.
void Choose(const Accessible &list, int column, const std::string &text);
