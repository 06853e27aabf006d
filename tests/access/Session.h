// SPDX-License-Identifier: MIT
#pragma once

#include "Accessible.h"
#include "support/TempFolder.h"

#include <QProcess>

#include <string>

/// A desktop session that contains only a message bus, the screen readers' bus and ZELK. All these
/// processes end with it, even if the test itself is killed.
class Session
{
public:
    Session();
    ~Session();
    Session(const Session &) = delete;
    Session &operator=(const Session &) = delete;

    /// Returns why such a session is impossible on this machine, or "".
    const std::string &WhyNot() const { return m_whyNot; }
    /// Starts ZELK and waits until it appears in the accessibility tree.
    Accessible StartProgram(const QStringList &arguments);
    /// Returns true once ZELK has ended normally, with exit code 0.
    bool ProgramEnded();

private:
    void startBus();
    void connectToReaders();
    void start(QProcess &process, const QString &program, const QStringList &arguments);

    support::TempFolder m_runtime; ///< for the sockets of the buses
    QProcessEnvironment m_environment;
    QProcess m_bus, m_program;
    QDBusConnection m_readers{QString()};
    std::string m_whyNot;
};
