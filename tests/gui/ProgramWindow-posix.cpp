// SPDX-License-Identifier: MIT
#include "ProgramWindow.h"

#include <QProcess>

namespace {

QString xdotool(const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LD_PRELOAD")); // only for our programs
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("xdotool"), arguments);
    process.waitForFinished(20000);
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace

bool CanCloseWindows()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY");
}

bool CloseWindowOf(long long process, const std::string &title)
{
    const QString id = xdotool({QStringLiteral("search"), QStringLiteral("--onlyvisible"),
                                QStringLiteral("--pid"), QString::number(process),
                                QStringLiteral("--name"), QString::fromStdString(title)});
    if (id.isEmpty())
        return false;
    xdotool({QStringLiteral("windowfocus"), id, QStringLiteral("key"), QStringLiteral("ctrl+q")});
    return true;
}
