// SPDX-License-Identifier: MIT
#include "ui/replace/BackgroundJob.h"

#include "host/RuntimeError.h"

#include <exception>
#include <system_error>
#include <utility>

namespace replace {
namespace {

constexpr int kPollMilliseconds = 30;

} // namespace

struct BackgroundJob::Work
{
    Control control;
    Delivery delivery; ///< these two may be read once `ended` is true
    std::string failure;
    std::atomic<bool> ended = false;
};

BackgroundJob::BackgroundJob(QObject *parent)
    : QObject(parent)
{
    m_timer.setInterval(kPollMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &BackgroundJob::poll);
}

BackgroundJob::~BackgroundJob()
{
    Abandon();
}

void BackgroundJob::Start(Job job)
{
    Abandon();
    auto started = std::make_unique<Work>();
    try {
        m_thread = std::thread([&work = *started, run = std::move(job)] {
            try {
                work.delivery = run(work.control);
            } catch (const std::exception &error) {
                work.failure = host::Explained(error);
            }
            work.ended = true;
        });
    } catch (const std::system_error &error) {
        Q_EMIT Ended(false, error.what());
        return;
    }
    m_work = std::move(started);
    m_timer.start();
}

void BackgroundJob::Stop()
{
    if (m_work)
        m_work->control.stopped = true;
}

void BackgroundJob::Abandon()
{
    Stop();
    m_timer.stop();
    if (m_thread.joinable())
        m_thread.join();
    m_work.reset();
}

void BackgroundJob::poll()
{
    const Control &control = m_work->control;
    if (!m_work->ended) {
        Q_EMIT Progressed(static_cast<int>(control.done), static_cast<int>(control.total));
        return;
    }
    m_timer.stop();
    m_thread.join();
    const std::unique_ptr<Work> finished = std::move(m_work);
    const bool stopped = finished->control.stopped;
    if (!stopped && finished->delivery)
        finished->delivery();
    // The delivery may have started the next job.
    Q_EMIT Ended(stopped, finished->failure);
}

} // namespace replace
