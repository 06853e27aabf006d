// SPDX-License-Identifier: MIT
#include "zelkctl/RenderCommand.h"

#include "host/Process.h"
#include "host/RuntimeError.h"
#include "zelkctl/RenderArguments.h"
#include "zelkctl/Session.h"

#include <memory>

namespace zelkctl {
namespace {

void render(Session &session, RenderArguments &arguments)
{
    RequestOf(arguments); // reports bad arguments before starting anything
    if (!session.files.FileExists(arguments.file))
        throw Failure(arguments.file + ": error 53: File not found");
    arguments.msts = session.msts.value_or("");
    session.exitCode = RunRenderProgram(ToList(arguments));
}

void addLooks(CLI::App &command, const std::shared_ptr<RenderArguments> &arguments)
{
    RenderArguments &a = *arguments;
    command.add_option("--season", a.season, "The season of the textures (summer)")
        ->type_name("spring|summer|autumn|winter");
    command.add_flag("--snow", a.snow, "With textures for snow");
    command.add_flag("--night", a.night, "At night, with night textures");
    command.add_flag("--lights", a.lights, "With the lights of vehicles");
    command.add_flag("--wireframe", a.wireframe, "Edges instead of surfaces");
    command.add_flag("--boxes", a.boxes, "With boxes for the size and the couplers of vehicles");
    command.add_flag("--normals", a.normals, "With a line along each normal");
    command.add_flag("--mark-missing", a.markMissing, "Missing textures in magenta");
}

} // namespace

int RunRenderProgram(const std::vector<std::string> &arguments)
{
    const std::string program = host::ProgramBeside("zelk-render");
    try {
        return host::RunAndWait(program, arguments);
    } catch (const host::RuntimeError &) {
        throw Failure("cannot draw: " + program + " is missing");
    }
}

void AddRenderCommand(CLI::App &app, Session &session)
{
    const auto arguments = std::make_shared<RenderArguments>();
    CLI::App *command = app.add_subcommand("render", "Draw a shape, vehicle or train in 3D");
    command->add_option("file", arguments->file, "A .s, .eng, .wag, .con or .act file")
        ->required()
        ->type_name("FILE");
    command->add_option("--out", arguments->out, "The picture to write")
        ->required()
        ->type_name("PNG");
    command->add_option("--size", arguments->size, "Width and height (1280x720)")->type_name("WxH");
    command->add_option("--loose", arguments->loose, "Which loose consist of an activity (1)")
        ->type_name("N");
    command
        ->add_option("--camera", arguments->camera,
                     "Eye and target in metres; X right, Y up, Z forwards")
        ->type_name("X,Y,Z,TX,TY,TZ");
    command->add_flag_callback(
        "--no-loads", [arguments] { arguments->loads = false; }, "Leave out the loads of vehicles");
    addLooks(*command, arguments);
    command->callback([&session, arguments] { render(session, *arguments); });
}

} // namespace zelkctl
