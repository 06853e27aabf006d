// SPDX-License-Identifier: MIT
#include "gl/Toolkit.h"

#include <QGuiApplication>

#include <utility>

namespace korvat {
namespace {

std::function<void(const std::string &)> criticalReport;

void reportCritical(QtMsgType type, const QMessageLogContext &, const QString &text)
{
    if (type == QtCriticalMsg || type == QtFatalMsg)
        criticalReport(text.toStdString());
}

} // namespace

Toolkit::Toolkit(char **arguments, std::function<void(const std::string &)> report)
{
#ifndef _WIN32
    // Needs no windows: a display is used only for its OpenGL.
    qputenv("QT_QPA_PLATFORM", "offscreen");
#endif
    criticalReport = std::move(report);
    qInstallMessageHandler(reportCritical);
    m_application = std::make_unique<QGuiApplication>(m_count, arguments);
}

Toolkit::~Toolkit()
{
    m_application.reset();
    qInstallMessageHandler(nullptr);
}

} // namespace korvat
