// SPDX-License-Identifier: MIT
#pragma once

#include "Accessible.h"
#include "support/TempFolder.h"

#include <QProcess>

#include <string>

/// A desktop session with nothing in it but a message bus and the bus of screen readers, which ZELK
/// runs in. All that was started ends with it, also when the test itself is killed.
class Session
{
public:
    Session();
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /// Why there can be no such session on this machine; "" when there can.
    const std::string &WhyNot() const { return m_whyNot; }
    /// Starts ZELK and waits for its place in the accessibility tree.
    Accessible StartProgram(const QStringList &arguments);
    /// True once ZELK has ended by itself, with exit code 0.
    bool ProgramEnded();

private:
    void startBus();
    void connectToReaders();
    void start(QProcess &process, const QString &program, const QStringList &arguments);

    support::TempFolder m_runtime; ///< where the buses have their sockets
    QProcessEnvironment m_environment;
    QProcess m_bus, m_program;
    QDBusConnection m_readers{QString()};
    std::string m_whyNot;
};
