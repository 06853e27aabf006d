// SPDX-License-Identifier: MIT
#pragma once

#include "content/HealthTree.h"

#include <QObject>
#include <QTimer>

#include <memory>
#include <string>
#include <thread>
#include <vector>

namespace host {
class GameFiles;
}

namespace health {

/// Runs the health report of an installation on a thread. Its signals come on the window's thread.
class HealthRunner : public QObject
{
    Q_OBJECT

public:
    /// `files` must outlive the object. `folder` is the installation folder. With `consists`
    /// (paths), only these and what they need are checked.
    HealthRunner(host::GameFiles &files, std::string folder, std::vector<std::string> consists,
                 QObject *parent = nullptr);
    /// Stops the run and waits for its thread.
    ~HealthRunner() override;

    /// Starts a run, unless one is running.
    void Start();
    bool Running() const { return m_work != nullptr; }
    /// Makes the run end soon with the findings so far.
    void Stop();
    /// Stops the run and waits for its thread. No signal follows.
    void Abandon();

Q_SIGNALS:
    void Progressed(int done, int total);
    /// Emitted when there are more findings, and before Finished for the final ones.
    void Found(const std::shared_ptr<const content::HealthIndex> &index);
    /// `failure` is why the run failed, "" if it did not.
    void Finished(bool stopped, const std::string &failure);

private:
    struct Work;

    static void work(Work &work, host::GameFiles &files, const std::string &folder,
                     const std::vector<std::string> &consists);
    static bool run(Work &work, host::GameFiles &files, const std::string &folder,
                    const std::vector<std::string> &consists);
    void poll();

    host::GameFiles &m_files;
    std::string m_folder;
    std::vector<std::string> m_consists;
    std::unique_ptr<Work> m_work; ///< of the running thread
    std::thread m_thread;
    QTimer m_timer;
};

} // namespace health
