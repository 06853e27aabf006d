// SPDX-License-Identifier: MIT
#include "Program.h"

#include "EditCommand.h"
#include "ListCommand.h"
#include "ResaveCommand.h"
#include "Session.h"
#include "TreeCommand.h"
#include "host/RuntimeError.h"
#include "host/Text.h"

#include <algorithm>
#include <csignal>
#include <cstdio>
#include <functional>
#include <new>
#include <set>
#include <sstream>

namespace zelkctl {
namespace {

constexpr int kCouldNotRun = 2;
constexpr const char kHint[] = " (zelkctl --help tells more)";

void addCommands(CLI::App &app, Session &session)
{
    app.set_version_flag("--version", "zelkctl " ZELK_VERSION);
    app.allow_windows_style_options(false);
    app.require_subcommand(1);
    app.fallthrough();
    app.add_option("--msts", session.msts,
                   "Train Simulator folder (otherwise the one set in ZELK or registered)")
        ->type_name("DIR");
    AddListCommand(app, session);
    AddTreeCommand(app, session);
    AddResaveCommand(app, session);
    AddEditCommand(app, session);
}

/// The options, of the program and of all its commands, that are followed by a value.
std::set<std::string> valueOptions(CLI::App &app)
{
    std::set<std::string> names;
    const auto collect = [&names](const CLI::App &from) {
        for (const CLI::Option *option : from.get_options())
            if (option->nonpositional() && option->get_items_expected_max() > 0)
                names.insert(option->get_name());
    };
    collect(app);
    for (const CLI::App *command : app.get_subcommands({}))
        collect(*command);
    return names;
}

/// Puts the command in front of the options, so that a command's own options may precede it.
void putCommandFirst(std::vector<std::string> &arguments, const std::set<std::string> &valueOptions)
{
    for (std::size_t i = 0; i < arguments.size() && arguments[i] != "--"; ++i) {
        if (valueOptions.contains(arguments[i])) {
            ++i;
        } else if (arguments[i].empty() || arguments[i].front() != '-') {
            const auto command = arguments.begin() + static_cast<std::ptrdiff_t>(i);
            std::rotate(arguments.begin(), command, command + 1);
            return;
        }
    }
}

/// The parser would only say that there must be a command.
void refuseUnknownCommand(const std::vector<std::string> &arguments, CLI::App &app)
{
    if (arguments.empty() || arguments[0].starts_with('-'))
        return;
    const std::vector<CLI::App *> commands = app.get_subcommands({});
    if (std::none_of(commands.begin(), commands.end(), [&arguments](const CLI::App *command) {
            return command->get_name() == arguments[0];
        }))
        throw Failure("There is no command \"" + arguments[0] + "\"" + kHint);
}

/// Shells hand over the bytes of a file's name. One that is no UTF-8 is known by the text that
/// the listings show for it.
void makeUtf8(std::vector<std::string> &arguments)
{
    for (std::string &argument : arguments)
        if (!host::IsValidUtf8(argument))
            argument = host::FromWindows1252(argument);
}

void parseAndRun(std::vector<std::string> arguments, Session &session)
{
    CLI::App app("Lists, shows and edits Microsoft Train Simulator content.", "zelkctl");
    addCommands(app, session);
    makeUtf8(arguments);
    putCommandFirst(arguments, valueOptions(app));
    refuseUnknownCommand(arguments, app);
    std::reverse(arguments.begin(), arguments.end()); // the order in which the parser takes them
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success &help) {
        std::ostringstream text;
        app.exit(help, text, text);
        session.out.Write(text.str());
    } catch (const CLI::ParseError &error) {
        throw Failure(error.what() + std::string(kHint));
    }
    session.out.Flush();
}

int fail(const std::string &message)
{
    std::fputs(("zelkctl: " + message + "\n").c_str(), stderr);
    return kCouldNotRun;
}

} // namespace

int Run(std::vector<std::string> arguments)
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN); // a reader that has gone is an error of the write
#endif
    try {
        Session session;
        parseAndRun(std::move(arguments), session);
        return 0;
    } catch (const std::bad_alloc &) {
        return fail("out of memory");
    } catch (const std::exception &error) {
        return fail(error.what());
    }
}

} // namespace zelkctl
