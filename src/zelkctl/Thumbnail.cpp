// SPDX-License-Identifier: MIT
#include "zelkctl/Thumbnail.h"

#include "gl/OffscreenCanvas.h"
#include "host/Console.h"
#include "host/Settings.h"
#include "install/Installation.h"
#include "korvat/model/ModelLibrary.h"
#include "viewer/VehicleScene.h"
#include "zelkctl/NoDialogs.h"

namespace zelkctl {

void DrawThumbnail(Session &session, const ThumbnailRequest &request)
{
    std::string reason;
    const auto canvas = korvat::OffscreenCanvas::Create(request.size, request.size, reason);
    if (!canvas)
        throw Failure("cannot draw: " + reason);
    NoDialogs dialogs;
    korvat::ModelLibrary shapes(session.files);
    const auto settings = host::UserSettings();
    install::Installation installation;
    viewer::VehicleScene scene({dialogs, session.files, *settings, installation, shapes}, *canvas);
    NamingFile(request.file, [&] { scene.Load(request.file, {content::Profile::Msts, true}); });
    for (const std::string &problem : scene.Problems())
        host::WriteTo(host::Stream::Error, "zelkctl: " + problem + "\n");
    scene.Look({}, 1);
    const std::string png = canvas->PngPicture();
    if (png.empty())
        throw Failure(request.out + ": the picture cannot be written as PNG");
    NamingFile(request.out, [&] { session.files.WriteFile(request.out, png); });
}

} // namespace zelkctl
