// SPDX-License-Identifier: MIT
#pragma once

#include <QFileSystemWatcher>
#include <QTimer>

#include <set>
#include <string>

namespace viewer {

/// Watches files and folders on the disk, without a timer while nothing happens. On network drives,
/// the system may report nothing.
class FileWatch : public QObject
{
    Q_OBJECT

public:
    FileWatch();

    /// Watches these paths instead of the previous ones.
    void Watch(const std::set<std::string> &places);

Q_SIGNALS:
    /// Emitted once, a moment after one or more of them have changed, appeared or vanished. The
    /// system stops to watch a file that was replaced: call Watch again.
    void Changed();

private:
    QFileSystemWatcher m_watcher;
    QTimer m_pause; ///< other programs write a file in several steps
};

} // namespace viewer
