// SPDX-License-Identifier: MIT
// The program that draws for `zelkctl render`.
#include "gl/Toolkit.h"
#include "host/Console.h"
#include "host/OutOfMemory.h"
#include "zelkctl/RenderArguments.h"

#include <exception>

namespace {

void draw(int argc, char **argv)
{
    const zelkctl::RenderArguments arguments = zelkctl::FromList(host::Arguments(argc, argv));
    const korvat::Toolkit toolkit(argv, [](const std::string &text) {
        host::WriteTo(host::Stream::Error, "zelkctl: " + text + "\n");
    });
    zelkctl::Session session;
    if (!arguments.msts.empty())
        session.msts = arguments.msts;
    host::NamingIfOutOfMemory(arguments.file,
                              [&] { zelkctl::Render(session, zelkctl::RequestOf(arguments)); });
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
