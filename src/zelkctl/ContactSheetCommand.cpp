// SPDX-License-Identifier: MIT
#include "zelkctl/ContactSheetCommand.h"

#include "zelkctl/ContactSheetArguments.h"
#include "zelkctl/RenderCommand.h"
#include "zelkctl/Session.h"

#include <memory>

namespace zelkctl {
namespace {

void contactSheet(Session &session, ContactSheetArguments arguments)
{
    RequestOf(arguments); // reports bad arguments before starting anything
    if (!session.files.TargetOf(arguments.out))
        throw Failure(arguments.out + ": error 76: its folder does not exist");
    const install::Installation installation = OpenInstallation(session);
    for (const std::string &name : arguments.consists)
        ConsistFile(session, installation, name);
    arguments.msts = session.msts.value_or("");
    session.exitCode = RunRenderProgram(ToList(arguments));
}

} // namespace

void AddContactSheetCommand(CLI::App &app, Session &session)
{
    const auto arguments = std::make_shared<ContactSheetArguments>();
    CLI::App *command = app.add_subcommand(
        "contact-sheet", "Make a page of pictures: of all vehicles, or of the units of consists");
    command->add_option("consists", arguments->consists, "Consists, by name or as files")
        ->type_name("CONSIST");
    command->add_option("--out", arguments->out, "The page to write: .html, or .png")
        ->required()
        ->type_name("FILE");
    command
        ->add_option("--filter", arguments->filter,
                     "Without a consist: only stock folders that match, as in list stock")
        ->type_name("F");
    command->add_option("--size", arguments->size, "Width of each picture in pixels (320)")
        ->type_name("N");
    command->add_option("--units", arguments->units, "The units of the figures")
        ->type_name("metric|us|uk")
        ->check(CLI::IsMember({"metric", "us", "uk"}).description(""));
    command->add_flag_callback(
        "--no-loads", [arguments] { arguments->loads = false; }, "Leave out the loads of vehicles");
    command->callback([&session, arguments] { contactSheet(session, *arguments); });
}

} // namespace zelkctl
