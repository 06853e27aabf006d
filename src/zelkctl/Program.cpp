// SPDX-License-Identifier: MIT
#include "zelkctl/Program.h"

#include "host/Console.h"
#include "host/OutOfMemory.h"
#include "host/Path.h"
#include "host/Product.h"
#include "host/RuntimeError.h"
#include "zelkctl/CheckCommand.h"
#include "zelkctl/ContactSheetCommand.h"
#include "zelkctl/EditCommand.h"
#include "zelkctl/FiguresCommand.h"
#include "zelkctl/HealthCommand.h"
#include "zelkctl/ListCommand.h"
#include "zelkctl/RenderCommand.h"
#include "zelkctl/ReplaceCommand.h"
#include "zelkctl/ResaveCommand.h"
#include "zelkctl/Session.h"
#include "zelkctl/ShapeCommand.h"
#include "zelkctl/SheetCommand.h"
#include "zelkctl/TextureCommand.h"
#include "zelkctl/ThumbnailCommand.h"
#include "zelkctl/TreeCommand.h"

#include <algorithm>
#include <csignal>
#include <functional>
#include <iterator>
#include <new>
#include <set>
#include <sstream>
#include <string_view>
#include <utility>

namespace zelkctl {
namespace {

/// Returns the hint that follows a message about wrong arguments: how to get help on the command,
/// or on all commands if it is "".
std::string hint(const std::string &command)
{
    return " (see zelkctl " + command + (command.empty() ? "" : " ") + "--help)";
}

/// Returns the names of the parsed command, as in "check stock".
std::string commandOf(const CLI::App &app)
{
    std::string names;
    for (auto found = app.get_subcommands(); !found.empty();
         found = found.front()->get_subcommands())
        names += (names.empty() ? "" : " ") + found.front()->get_name();
    return names;
}

struct Command
{
    std::string_view name;
    void (*add)(CLI::App &app, Session &session);
};

/// In the order in which the help shows them.
constexpr Command kCommands[] = {
    {"list", AddListCommand},
    {"check", AddCheckCommand},
    {"health", AddHealthCommand},
    {"sheet", AddSheetCommand},
    {"figures", AddFiguresCommand},
    {"tree", AddTreeCommand},
    {"resave", AddResaveCommand},
    {"edit", AddEditCommand},
    {"replace", AddReplaceCommand},
    {"undo", AddUndoCommand},
    {"render", AddRenderCommand},
    {"thumbnail", AddThumbnailCommand},
    {"contact-sheet", AddContactSheetCommand},
    {"shape", AddShapeCommand},
    {"texture", AddTextureCommand},
};

void addGeneralOptions(CLI::App &app, Session &session)
{
    app.set_version_flag("--version", "zelkctl " + std::string(host::product::Version()));
    app.allow_windows_style_options(false);
    app.require_subcommand(1);
    app.fallthrough();
    app.add_option("--msts", session.msts,
                   "Train Simulator folder (otherwise the one set in ZELK or registered)")
        ->type_name("DIR");
}

/// Adds the options that are followed by a value: those of a command and of its subcommands.
void addValueOptions(const CLI::App &command, std::set<std::string> &names)
{
    for (const CLI::Option *option : command.get_options())
        if (option->nonpositional() && option->get_items_expected_max() > 0)
            names.insert(option->get_name());
    for (const CLI::App *below : command.get_subcommands({}))
        addValueOptions(*below, names);
}

/// Moves the first argument at or after `place` that is neither an option nor its value to `place`.
void putCommandAt(std::ptrdiff_t place, std::vector<std::string> &arguments,
                  const std::set<std::string> &valueOptions)
{
    const auto begin = arguments.begin() + place;
    for (auto at = begin; at != arguments.end() && *at != "--"; ++at) {
        if (valueOptions.contains(*at)) {
            if (++at == arguments.end())
                return;
        } else if (at->empty() || at->front() != '-') {
            std::rotate(begin, at, at + 1);
            return;
        }
    }
}

/// Puts the names of the command in front of all options, so that a command's own options may
/// precede it. Throws Failure for an unknown command: the parser would only report that a command
/// is missing.
void putCommandFirst(std::vector<std::string> &arguments, CLI::App &app)
{
    std::set<std::string> valueOptions;
    addValueOptions(app, valueOptions);
    const CLI::App *command = &app;
    std::string names, above;
    for (std::size_t place = 0; place < arguments.size(); ++place) {
        const std::vector<const CLI::App *> below =
            command->get_subcommands([](const CLI::App *) { return true; });
        if (below.empty())
            return;
        putCommandAt(static_cast<std::ptrdiff_t>(place), arguments, valueOptions);
        const std::string &name = arguments[place];
        if (name.starts_with('-'))
            return;
        const auto found = std::find_if(below.begin(), below.end(), [&](const CLI::App *each) {
            return each->get_name() == name;
        });
        above = std::exchange(names, names + (place == 0 ? "" : " ") + name);
        if (found == below.end())
            throw Failure("There is no command \"" + names + "\"" + hint(above));
        command = *found;
    }
}

/// Shells pass the bytes of a file's name. A name that is not UTF-8 is identified by the text that
/// the listings show for it.
void makeUtf8(std::vector<std::string> &arguments)
{
    for (std::string &argument : arguments)
        argument = host::path::ToText(argument);
}

/// Returns the command that follows the general options directly; null if anything else does.
const Command *namedFirst(const std::vector<std::string> &arguments)
{
    std::size_t at = 0;
    while (at < arguments.size() &&
           (arguments[at] == "--msts" || arguments[at].starts_with("--msts=")))
        at += arguments[at] == "--msts" ? 2 : 1;
    const auto *const found =
        std::find_if(std::begin(kCommands), std::end(kCommands), [&](const Command &command) {
            return at < arguments.size() && command.name == arguments[at];
        });
    return found == std::end(kCommands) ? nullptr : found;
}

/// Runs the command that the arguments name, without making all others, which would take longer
/// than to list a folder. Returns false, and has run nothing, if the arguments are not plainly
/// those of one command.
bool runNamed(std::vector<std::string> arguments, Session &session)
{
    const Command *const command = namedFirst(arguments);
    if (!command)
        return false;
    CLI::App app;
    addGeneralOptions(app, session);
    command->add(app, session);
    try {
        putCommandFirst(arguments, app);
    } catch (const Failure &) {
        return false; // the full parser explains it
    }
    std::reverse(arguments.begin(), arguments.end());
    try {
        app.parse(std::move(arguments)); // runs the command only after all has been parsed
    } catch (const CLI::ParseError &) {
        return false;
    }
    return true;
}

/// Explains wrong arguments, and shows the help.
void parseAndRunAny(std::vector<std::string> arguments, Session &session)
{
    CLI::App app("Lists, shows and edits Microsoft Train Simulator content.", "zelkctl");
    addGeneralOptions(app, session);
    for (const Command &command : kCommands)
        command.add(app, session);
    putCommandFirst(arguments, app);
    std::reverse(arguments.begin(), arguments.end()); // the parser takes them from the back
    try {
        app.parse(std::move(arguments));
    } catch (const CLI::Success &help) {
        std::ostringstream text;
        app.exit(help, text, text);
        session.out.Write(text.str());
    } catch (const CLI::ParseError &error) {
        throw Failure(error.what() + hint(commandOf(app)));
    }
}

void parseAndRun(std::vector<std::string> arguments, Session &session)
{
    makeUtf8(arguments);
    if (!runNamed(arguments, session))
        parseAndRunAny(std::move(arguments), session);
    session.out.Flush();
}

int fail(const std::string &message)
{
    host::WriteTo(host::Stream::Error, "zelkctl: " + message + "\n");
    return kCouldNotRun;
}

} // namespace

int Run(std::vector<std::string> arguments)
{
#ifdef SIGPIPE
    std::signal(SIGPIPE, SIG_IGN); // a write to a reader that has ended returns an error
#endif
    try {
        Session session;
        parseAndRun(std::move(arguments), session);
        return session.exitCode;
    } catch (const ReaderGone &) {
        return kReaderGone;
    } catch (const host::OutOfMemory &error) {
        return fail(error.what());
    } catch (const std::bad_alloc &) {
        return fail("there is not enough memory");
    } catch (const std::exception &error) {
        return fail(error.what());
    }
}

} // namespace zelkctl
