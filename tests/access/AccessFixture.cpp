// SPDX-License-Identifier: MIT
#include "AccessFixture.h"

#include "document/ConsistTree.h"
#include "host/GameFiles.h"
#include "samples/Sample.h"

#include <stdexcept>

void AccessTest::SetUp()
{
    if (!session.WhyNot().empty())
        GTEST_SKIP() << session.WhyNot();
    samples::WriteSample(game.Path());
    known.Set("MSTSDir", game.Path());
}

void AccessTest::Start(const QStringList &arguments)
{
    program = session.StartProgram(arguments);
    window = Find(program, "frame", "ZELK v1.0-75");
}

void AccessTest::Press(const Accessible &top, const std::string &button)
{
    Find(top, "push button", button).Do("Press");
}

Accessible AccessTest::MenuItem(const std::string &menu, const std::string &name) const
{
    Accessible found;
    const auto look = [&] {
        for (const Accessible &top : Find(window, "menu bar", "Menus").Children())
            if (top.Name() == menu)
                Walk(top, [&](const Accessible &object, int) {
                    if (!found && object.Role() == "menu item" && object.Name().starts_with(name))
                        found = object;
                    return !found;
                });
        return static_cast<bool>(found);
    };
    if (!WaitFor(look))
        throw std::runtime_error("no command " + menu + " > " + name);
    return found;
}

Accessible AccessTest::Dialog(const std::string &title) const
{
    Accessible found;
    const auto opened = [&] {
        for (const Accessible &top : program.Children())
            if (top.Name() == title && top.Showing())
                found = top;
        return static_cast<bool>(found);
    };
    if (!WaitFor(opened))
        throw std::runtime_error("no " + title + " in:\n" + Outline(program));
    return found;
}

void AccessTest::Answer(const std::string &title, const std::string &button) const
{
    const Accessible dialog = Dialog(title);
    Press(dialog, button);
    EXPECT_TRUE(WaitFor([&] { return !dialog.Showing(); })) << title;
}

void AccessTest::Quit()
{
    Command("File", "Exit");
    EXPECT_TRUE(session.ProgramEnded());
}

std::string AccessTest::UnitsIn(const std::string &file) const
{
    host::GameFiles files;
    document::ConsistTree consist(files);
    consist.Load(game.At(file));
    std::string units;
    for (const document::ConsistRow &row : consist.Rows())
        units += row.item.type + " " + row.item.shape + ", ";
    return units;
}

void Choose(const Accessible &list, int column, const std::string &text)
{
    int row = -1;
    const auto listed = [&] {
        for (row = list.Rows() - 1; row >= 0 && list.Cell(row, column) != text;)
            --row;
        return row >= 0;
    };
    if (!WaitFor(listed))
        throw std::runtime_error("no " + text + " in the list " + list.Name());
    list.SelectRow(row);
}
