// SPDX-License-Identifier: MIT
// The program that draws for `zelkctl render`, `zelkctl thumbnail` and `zelkctl contact-sheet`.
#include "gl/Toolkit.h"
#include "host/Console.h"
#include "host/OutOfMemory.h"
#include "zelkctl/ContactSheetArguments.h"
#include "zelkctl/RenderArguments.h"
#include "zelkctl/ThumbnailArguments.h"

#include <exception>

namespace {

void drawThumbnail(const zelkctl::ThumbnailArguments &arguments)
{
    zelkctl::Session session;
    host::NamingIfOutOfMemory(
        arguments.file, [&] { zelkctl::DrawThumbnail(session, zelkctl::RequestOf(arguments)); });
}

void drawContactSheet(const zelkctl::ContactSheetArguments &arguments)
{
    zelkctl::Session session;
    if (!arguments.msts.empty())
        session.msts = arguments.msts;
    host::NamingIfOutOfMemory(
        arguments.out, [&] { zelkctl::DrawContactSheet(session, zelkctl::RequestOf(arguments)); });
}

void drawScene(const zelkctl::RenderArguments &arguments)
{
    zelkctl::Session session;
    if (!arguments.msts.empty())
        session.msts = arguments.msts;
    host::NamingIfOutOfMemory(arguments.file,
                              [&] { zelkctl::Render(session, zelkctl::RequestOf(arguments)); });
}

void draw(int argc, char **argv)
{
    const std::vector<std::string> list = host::Arguments(argc, argv);
    const auto thumbnail = zelkctl::ThumbnailFromList(list);
    const auto sheet = zelkctl::ContactSheetFromList(list);
    const auto scene = thumbnail || sheet ? zelkctl::RenderArguments() : zelkctl::FromList(list);
    const korvat::Toolkit toolkit(argv, [](const std::string &text) {
        host::WriteTo(host::Stream::Error, "zelkctl: " + text + "\n");
    });
    if (thumbnail)
        drawThumbnail(*thumbnail);
    else if (sheet)
        drawContactSheet(*sheet);
    else
        drawScene(scene);
}

} // namespace

int main(int argc, char **argv)
{
    constexpr int couldNotRun = 2;
    try {
        draw(argc, argv);
        return 0;
    } catch (const std::exception &error) {
        host::WriteTo(host::Stream::Error, std::string("zelkctl: ") + error.what() + "\n");
        return couldNotRun;
    }
}
