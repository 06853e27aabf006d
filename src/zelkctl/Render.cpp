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
#include "viewer/StockShape.h"

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

void begin(viewer::Stage &stage, Session &session, const RenderRequest &request)
{
    const auto is = [&request](std::string_view extension) {
        return host::path::HasExtension(request.file, extension);
    };
    if (is("s"))
        stage.RenderShape(request.file);
    else if (is("eng") || is("wag"))
        stage.RenderShape(viewer::ReadStockShapeToShow(session.files, request.file).shapeFile,
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
    install::Installation installation;
    viewer::Stage stage({dialogs, session.files, *settings, installation, shapes}, canvas.get(),
                        [&status](const std::string &text) { status = text; });
    NamingFile(request.file, [&] {
        begin(stage, session, request);
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
