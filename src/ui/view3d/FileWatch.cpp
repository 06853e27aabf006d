// SPDX-License-Identifier: MIT
#include "ui/view3d/FileWatch.h"

#include <QSet>

namespace viewer {
namespace {

constexpr int kPauseMilliseconds = 300;

} // namespace

FileWatch::FileWatch()
{
    m_pause.setSingleShot(true);
    m_pause.setInterval(kPauseMilliseconds);
    const auto wait = [this] {
        // Not started again by each change: a program that writes all the time would delay it.
        if (!m_pause.isActive())
            m_pause.start();
    };
    connect(&m_watcher, &QFileSystemWatcher::fileChanged, this, wait);
    connect(&m_watcher, &QFileSystemWatcher::directoryChanged, this, wait);
    connect(&m_pause, &QTimer::timeout, this, &FileWatch::Changed);
}

void FileWatch::Watch(const std::set<std::string> &places)
{
    QSet<QString> wanted;
    for (const std::string &place : places)
        wanted.insert(QString::fromStdString(place));
    const QStringList watchedFiles = m_watcher.files() + m_watcher.directories();
    const QSet<QString> watched(watchedFiles.begin(), watchedFiles.end());
    if (const QSet<QString> gone = watched - wanted; !gone.isEmpty())
        m_watcher.removePaths(gone.values());
    if (const QSet<QString> fresh = wanted - watched; !fresh.isEmpty())
        m_watcher.addPaths(fresh.values());
}

} // namespace viewer
