// SPDX-License-Identifier: MIT
#include "Session.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QStandardPaths>

#include <csignal>
#include <filesystem>
#include <stdexcept>
#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace {

constexpr int kStartMilliseconds = 20000, kEndMilliseconds = 5000;
constexpr char kPackages[] = "needs the message bus and the accessibility service of a Linux "
                             "desktop (packages dbus-daemon and at-spi2-core)";

/// Runs in the child process before exec: ends the child when its parent ends.
void dieWithParent()
{
#ifdef __linux__
    prctl(PR_SET_PDEATHSIG, SIGTERM);
#endif
}

void end(QProcess &process)
{
    process.terminate();
    if (process.state() != QProcess::NotRunning && !process.waitForFinished(kEndMilliseconds)) {
        process.kill();
        process.waitForFinished(kEndMilliseconds);
    }
}

} // namespace

Session::Session()
    : m_environment(QProcessEnvironment::systemEnvironment())
{
    if (m_environment.value(QStringLiteral("DISPLAY")).isEmpty()) {
        m_whyNot = "needs an X display";
        return;
    }
    std::filesystem::permissions(m_runtime.Path(), std::filesystem::perms::owner_all);
    m_environment.remove(QStringLiteral("AT_SPI_BUS_ADDRESS"));
    m_environment.insert(QStringLiteral("XDG_RUNTIME_DIR"),
                         QString::fromStdString(m_runtime.Path()));
    startBus();
    if (m_whyNot.empty())
        connectToReaders();
}

Session::~Session()
{
    end(m_program);
    QDBusConnection::disconnectFromBus(QStringLiteral("readers"));
    end(m_bus); // and all processes that it has started
}

void Session::start(QProcess &process, const QString &program, const QStringList &arguments)
{
    process.setProcessEnvironment(m_environment);
    process.setChildProcessModifier(dieWithParent);
    process.start(program, arguments);
    if (!process.waitForStarted(kStartMilliseconds))
        throw std::runtime_error(program.toStdString() + " does not start");
}

void Session::startBus()
{
    const QString program = QStandardPaths::findExecutable(QStringLiteral("dbus-daemon"));
    if (program.isEmpty()) {
        m_whyNot = kPackages;
        return;
    }
    // Without a display the screen readers' bus is not announced to other programs. Preloaded
    // libraries are only for our own programs.
    const QProcessEnvironment whole = m_environment;
    m_environment.remove(QStringLiteral("DISPLAY"));
    m_environment.remove(QStringLiteral("LD_PRELOAD"));
    start(m_bus, program,
          {QStringLiteral("--session"), QStringLiteral("--nofork"), QStringLiteral("--nopidfile"),
           QStringLiteral("--print-address")});
    m_environment = whole;
    if (!m_bus.canReadLine() && !m_bus.waitForReadyRead(kStartMilliseconds))
        throw std::runtime_error("the message bus does not print its address: " +
                                 m_bus.readAllStandardError().toStdString());
    m_environment.insert(QStringLiteral("DBUS_SESSION_BUS_ADDRESS"),
                         QString::fromUtf8(m_bus.readLine()).trimmed());
}

void Session::connectToReaders()
{
    const QString name = QStringLiteral("session");
    QDBusMessage call = QDBusMessage::createMethodCall(
        QStringLiteral("org.a11y.Bus"), QStringLiteral("/org/a11y/bus"),
        QStringLiteral("org.a11y.Bus"), QStringLiteral("GetAddress"));
    const QDBusMessage reply =
        QDBusConnection::connectToBus(
            m_environment.value(QStringLiteral("DBUS_SESSION_BUS_ADDRESS")), name)
            .call(call, QDBus::Block, kStartMilliseconds);
    QDBusConnection::disconnectFromBus(name);
    if (reply.errorName() == QLatin1String("org.freedesktop.DBus.Error.ServiceUnknown")) {
        m_whyNot = kPackages;
        return;
    }
    if (reply.type() != QDBusMessage::ReplyMessage)
        throw std::runtime_error("no accessibility bus: " + reply.errorMessage().toStdString());
    m_readers = QDBusConnection::connectToBus(reply.arguments().constFirst().toString(),
                                              QStringLiteral("readers"));
}

Accessible Session::StartProgram(const QStringList &arguments)
{
    m_environment.insert(QStringLiteral("QT_LINUX_ACCESSIBILITY_ALWAYS_ON"), QStringLiteral("1"));
    m_environment.insert(QStringLiteral("QT_QPA_PLATFORM"), QStringLiteral("xcb"));
    m_program.setProcessChannelMode(QProcess::ForwardedChannels);
    start(m_program, QStringLiteral(ZELK_PROGRAM), arguments);
    const Accessible desktop(m_readers, QStringLiteral("org.a11y.atspi.Registry"),
                             QStringLiteral("/org/a11y/atspi/accessible/root"));
    return Find(desktop, "application", "ZELK");
}

bool Session::ProgramEnded()
{
    return m_program.waitForFinished(kStartMilliseconds) &&
           m_program.exitStatus() == QProcess::NormalExit && m_program.exitCode() == 0;
}
