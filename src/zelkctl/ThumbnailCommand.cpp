// SPDX-License-Identifier: MIT
#include "zelkctl/ThumbnailCommand.h"

#include "host/Path.h"
#include "zelkctl/RenderCommand.h"
#include "zelkctl/Session.h"
#include "zelkctl/ThumbnailArguments.h"

#include <memory>

namespace zelkctl {
namespace {

void thumbnail(Session &session, ThumbnailArguments arguments)
{
    RequestOf(arguments); // reports bad arguments before starting anything
    if (!host::path::HasExtension(arguments.file, "eng") &&
        !host::path::HasExtension(arguments.file, "wag"))
        throw Failure(arguments.file + ": expected a .eng or .wag file");
    arguments.file = VehicleFile(session, arguments.file);
    session.exitCode = RunRenderProgram(ToList(arguments));
}

} // namespace

void AddThumbnailCommand(CLI::App &app, Session &session)
{
    const auto arguments = std::make_shared<ThumbnailArguments>();
    CLI::App *command = app.add_subcommand("thumbnail", "Draw a small picture of a vehicle");
    command->add_option("vehicle", arguments->file, "A vehicle: a file, or FOLDER/NAME.wag")
        ->required()
        ->type_name("VEHICLE");
    command->add_option("--out", arguments->out, "The picture to write")
        ->required()
        ->type_name("PNG");
    command->add_option("--size", arguments->size, "Width and height in pixels (256)")
        ->type_name("N");
    command->callback([&session, arguments] { thumbnail(session, *arguments); });
}

} // namespace zelkctl
