// SPDX-License-Identifier: MIT
#include "ProgramWindow.h"

#include <QProcess>

#include <optional>

namespace {

/// Returns the output; nothing if the program fails.
std::optional<QString> xdotool(const QStringList &arguments)
{
    QProcess process;
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    environment.remove(QStringLiteral("LD_PRELOAD")); // only for our programs
    process.setProcessEnvironment(environment);
    process.start(QStringLiteral("xdotool"), arguments);
    if (!process.waitForFinished(20000) || process.exitCode() != 0)
        return std::nullopt;
    return QString::fromUtf8(process.readAllStandardOutput()).trimmed();
}

} // namespace

bool CanCloseWindows()
{
    return !qEnvironmentVariableIsEmpty("DISPLAY");
}

bool CloseWindowOf(long long process, const std::string &title)
{
    return PressKeyIn(process, title, "ctrl+q");
}

bool PressKeyIn(long long process, const std::string &title, const char *key)
{
    const QString ids =
        xdotool({QStringLiteral("search"), QStringLiteral("--all"), QStringLiteral("--onlyvisible"),
                 QStringLiteral("--pid"), QString::number(process), QStringLiteral("--name"),
                 QString::fromStdString(title)})
            .value_or(QString());
    if (ids.isEmpty())
        return false;
    return xdotool({QStringLiteral("windowfocus"), QStringLiteral("--sync"),
                    ids.section(QLatin1Char('\n'), 0, 0), QStringLiteral("key"),
                    QLatin1String(key)})
        .has_value();
}
