// SPDX-License-Identifier: MIT
#include "zelkctl/Render.h"

#include "gl/OffscreenCanvas.h"
#include "host/Console.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "host/Settings.h"
#include "host/UnansweredDialogs.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "viewer/LooseConsists.h"
#include "viewer/OrbitCamera.h"
#include "viewer/Stage.h"
#include "viewer/VehicleReader.h"

namespace zelkctl {
namespace {

void tell(const std::string &text)
{
    host::WriteTo(host::Stream::Error, "zelkctl: " + text + "\n");
}

/// Writes to stderr what the window would show in message boxes.
class QuietDialogs : public host::UnansweredDialogs
{
public:
    host::DialogAnswer Message(const std::string &text, const std::string &title, host::DialogIcon,
                               host::DialogButtons) override
    {
        if (!text.empty())
            tell(title + ": " + text);
        return host::DialogAnswer::Ok;
    }
};

/// Returns the installation whose simulator the user has chosen; an unknown one if there is none,
/// because a single vehicle needs none.
install::Installation installationOf(Session &session)
{
    try {
        return OpenInstallation(session);
    } catch (const Failure &) {
        return {};
    }
}

void begin(viewer::Stage &stage, Session &session, const install::Environment &environment,
           const RenderRequest &request)
{
    stage.ShowAllAdded();
    stage.ShowLoads(request.loads);
    stage.SetOptions(request.options);
    const auto is = [&request](std::string_view extension) {
        return host::path::HasExtension(request.file, extension);
    };
    if (is("s"))
        stage.RenderShape(request.file);
    else if (is("eng") || is("wag"))
        stage.RenderShape(viewer::ReadVehicleToShow(environment, request.file).shapeFile,
                          request.file);
    else if (is("con"))
        stage.RenderConsist(request.file, OpenInstallation(session).CurrentFolder());
    else if (is("act"))
        stage.RenderLooseConsist(viewer::LooseConsistAt(session.files, request.file, request.loose),
                                 OpenInstallation(session).CurrentFolder(), request.file);
    else
        throw Failure(request.file + ": expected a .s, .eng, .wag, .con or .act file");
}

void aim(viewer::Stage &stage, const RenderRequest &request)
{
    TSView &view = *stage.View();
    viewer::OrbitCamera(view).Reset(stage.TrainMiddle());
    if (const auto &camera = request.camera)
        static_cast<viewer::CameraPose &>(view) = {(*camera)[0], (*camera)[1], (*camera)[2],
                                                   (*camera)[3], (*camera)[4], (*camera)[5]};
    view.ResetCamera();
}

void write(Session &session, const std::string &png, const std::string &path)
{
    if (png.empty())
        throw Failure(path + ": the picture cannot be written as PNG");
    NamingFile(path, [&] { session.files.WriteFile(path, png); });
}

} // namespace

void Render(Session &session, const RenderRequest &request)
{
    std::string reason;
    const auto canvas = korvat::OffscreenCanvas::Create(request.size[0], request.size[1], reason);
    if (!canvas)
        throw Failure("cannot draw: " + reason);
    QuietDialogs dialogs;
    korvat::ModelLibrary shapes(session.files);
    std::string status;
    const auto settings = host::UserSettings();
    install::Installation installation = installationOf(session);
    const install::Environment environment{dialogs, session.files, *settings, installation, shapes};
    viewer::Stage stage(environment, canvas.get(),
                        [&status](const std::string &text) { status = text; });
    NamingFile(request.file, [&] {
        begin(stage, session, environment, request);
        while (stage.Step())
            continue;
    });
    if (stage.View()->Models.Count() == 0)
        throw Failure(request.file + ": there is nothing to show");
    if (status != "Done")
        tell(status);
    aim(stage, request);
    write(session, canvas->PngPicture(), request.out);
}

} // namespace zelkctl
