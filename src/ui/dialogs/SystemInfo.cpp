// SPDX-License-Identifier: MIT
#include "ui/dialogs/SystemInfo.h"

#include "app/modZELK.h"
#include "gl/OffscreenPainter.h"
#include "host/Folders.h"
#include "host/GameFiles.h"
#include "host/Path.h"
#include "install/Installation.h"
#include "install/Registry.h"

#include <QGuiApplication>
#include <QLocale>
#include <QOffscreenSurface>
#include <QOpenGLContext>
#include <QOpenGLFunctions>
#include <QOperatingSystemVersion>
#include <QScreen>
#include <QStringList>
#include <QSysInfo>

#include <algorithm>

namespace about {

namespace {

QString textOf(const std::string &text)
{
    return QString::fromStdString(text);
}

QString orNone(const std::string &text)
{
    return text.empty() ? QStringLiteral("none") : textOf(text);
}

/// Queries a separate context, so that it works without an open 3D view.
QString openGl()
{
    QSurfaceFormat format;
    format.setVersion(3, 3);
    format.setProfile(QSurfaceFormat::CoreProfile);
    QOpenGLContext context;
    context.setFormat(format);
    QOffscreenSurface surface;
    surface.setFormat(format);
    surface.create();
    QStringList parts;
    if (context.create() && surface.isValid() && context.makeCurrent(&surface)) {
        for (const GLenum name : {GL_RENDERER, GL_VENDOR, GL_VERSION})
            if (const GLubyte *text = context.functions()->glGetString(name))
                parts << QString::fromUtf8(reinterpret_cast<const char *>(text));
        context.doneCurrent();
    }
    if (const std::string reason = korvat::WhyNoOpenGl(); !reason.empty())
        parts << QStringLiteral("no 3D views: ") + textOf(reason);
    return parts.join(QStringLiteral(", "));
}

QString screens()
{
    QStringList parts;
    for (const QScreen *screen : QGuiApplication::screens())
        parts << QStringLiteral("%1 x %2 at %3 %")
                     .arg(screen->size().width())
                     .arg(screen->size().height())
                     .arg(qRound(screen->devicePixelRatio() * 100));
    return parts.join(QStringLiteral(", "));
}

QString desktop()
{
    const std::string name = host::Environment("XDG_CURRENT_DESKTOP");
    return QGuiApplication::platformName() +
           (name.empty() ? QString() : QStringLiteral(" on ") + textOf(name));
}

QString simulatorFolder(const install::Installation &installation)
{
    const std::string folder = installation.CurrentFolder();
    if (folder.empty())
        return QStringLiteral("none");
    return textOf(folder) +
           QLatin1String(installation.Override().empty() ? " (registered)" : " (chosen)");
}

} // namespace

std::vector<Fact> SystemFacts(const install::Installation &installation)
{
    return {
        {QStringLiteral("Program"), textOf(modZELK::MainCaption())},
        {QStringLiteral("Qt"), QStringLiteral("%1, built with %2")
                                   .arg(QLatin1String(qVersion()), QLatin1String(QT_VERSION_STR))},
        {QStringLiteral("System"), QSysInfo::prettyProductName()},
        {QStringLiteral("Kernel"), QStringLiteral("%1 %2, %3")
                                       .arg(QSysInfo::kernelType(), QSysInfo::kernelVersion(),
                                            QSysInfo::currentCpuArchitecture())},
        {QStringLiteral("Desktop"), desktop()},
        {QStringLiteral("Screens"), screens()},
        {QStringLiteral("OpenGL"), openGl()},
        {QStringLiteral("Language"), QLocale().name()},
        {QStringLiteral("MSTS folder"), simulatorFolder(installation)},
        {QStringLiteral("Registered folder"), orNone(install::Installation::RegisteredFolder())},
        {QStringLiteral("Shape viewer"), orNone(install::FindShapeViewer())},
        {QStringLiteral("Program folder"), textOf(host::ExecutableFolder())},
        {QStringLiteral("Own files"), textOf(host::ProgramFolder())},
        {QStringLiteral("Trace log"), textOf(host::TraceLogFile())},
    };
}

QString TextOf(const std::vector<Fact> &facts)
{
    qsizetype widest = 0;
    for (const Fact &fact : facts)
        widest = std::max(widest, fact.first.size());
    QString text;
    for (const auto &[name, value] : facts)
        text += (name + QLatin1Char(':')).leftJustified(widest + 3) + value + QLatin1Char('\n');
    return text;
}

std::string FindSystemTool(host::GameFiles &files)
{
    if (QOperatingSystemVersion::currentType() != QOperatingSystemVersion::Windows)
        return {};
    const std::string tool =
        Registry::QueryValue(R"(SOFTWARE\Microsoft\Shared Tools\MSINFO)", "PATH");
    if (files.FileExists(tool))
        return tool;
    const std::string folder =
        Registry::QueryValue(R"(SOFTWARE\Microsoft\Shared Tools Location)", "MSINFO");
    const std::string beside = host::path::Join(folder, "MSINFO32.EXE");
    return !folder.empty() && files.FileExists(beside) ? beside : std::string();
}

} // namespace about
