// SPDX-License-Identifier: MIT
// The program that draws for `zelkctl render`.
#include "RenderArguments.h"
#include "host/Console.h"

#include <QGuiApplication>

#include <exception>

namespace {

/// Remarks of the toolkit on the user's session, such as a missing folder for sockets on a server,
/// say nothing about the picture.
void tellWhatMatters(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        host::WriteTo(host::Stream::Error, "zelkctl: " + text.toStdString() + "\n");
}

void draw(int argc, char **argv)
{
    const zelkctl::RenderArguments arguments = zelkctl::FromList(host::Arguments(argc, argv));
#ifndef _WIN32
    // No windows are wanted: a display is used for its OpenGL alone.
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    qInstallMessageHandler(tellWhatMatters);
    int count = 1;
    const QGuiApplication application(count, argv);
    zelkctl::Session session;
    if (!arguments.msts.empty())
        session.msts = arguments.msts;
    zelkctl::Render(session, zelkctl::RequestOf(arguments));
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
