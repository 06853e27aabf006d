// SPDX-License-Identifier: MIT
#pragma once

#include <QObject>
#include <QTimer>

#include <atomic>
#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <thread>

namespace replace {

/// Runs one job at a time on a thread. Its signals come on the window's thread.
class BackgroundJob : public QObject
{
    Q_OBJECT

public:
    /// What a job shares with the window.
    struct Control
    {
        std::atomic<bool> stopped = false;
        std::atomic<std::size_t> done = 0, total = 0;

        /// Reports progress. Returns false if the job should end.
        bool GoOn(std::size_t doneNow, std::size_t totalNow)
        {
            done = doneNow;
            total = totalNow;
            return !stopped;
        }
    };
    /// Called on the window's thread to deliver the result of a job.
    using Delivery = std::function<void()>;
    /// Runs on the thread, must not touch data of other threads, and may throw.
    using Job = std::function<Delivery(Control &control)>;

    explicit BackgroundJob(QObject *parent = nullptr);
    /// Abandons the job.
    ~BackgroundJob() override;

    /// Abandons a running job and starts this one.
    void Start(Job job);
    bool Running() const { return m_work != nullptr; }
    /// Makes the job end soon. Its result is not delivered, but Ended follows.
    void Stop();
    /// Stops the job and waits for its thread. No signal follows.
    void Abandon();

Q_SIGNALS:
    /// A `total` of 0 means that it is not known yet.
    void Progressed(int done, int total);
    /// The job has ended, and its result was delivered unless it was stopped or has failed.
    /// `failure` is for the user; "" if there was none.
    void Ended(bool stopped, const std::string &failure);

private:
    struct Work;

    void poll();

    std::unique_ptr<Work> m_work; ///< of the running thread
    std::thread m_thread;
    QTimer m_timer;
};

} // namespace replace
