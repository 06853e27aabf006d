// SPDX-License-Identifier: MIT
#include "ui/health/HealthRunner.h"

#include "content/HealthRun.h"
#include "host/GameFiles.h"
#include "host/RuntimeError.h"

#include <exception>
#include <mutex>
#include <system_error>
#include <utility>

namespace health {

namespace {

constexpr int kPollMilliseconds = 40;

} // namespace

/// The state that the thread shares with the window.
struct HealthRunner::Work
{
    std::mutex mutex;
    content::HealthRun *run = nullptr; ///< while it can be stopped
    bool stopped = false, ended = false, isComplete = false;
    std::size_t done = 0, total = 0;
    std::shared_ptr<const content::HealthIndex> index; ///< not shown yet
    std::string failure;
};

HealthRunner::HealthRunner(host::GameFiles &files, std::string folder,
                           std::vector<std::string> consists, QObject *parent)
    : QObject(parent)
    , m_files(files)
    , m_folder(std::move(folder))
    , m_consists(std::move(consists))
{
    m_timer.setInterval(kPollMilliseconds);
    connect(&m_timer, &QTimer::timeout, this, &HealthRunner::poll);
}

HealthRunner::~HealthRunner()
{
    Abandon();
}

void HealthRunner::Start()
{
    if (Running())
        return;
    m_files.Refresh();
    auto started = std::make_unique<Work>();
    try {
        m_thread = std::thread(
            [this, &shared = *started] { work(shared, m_files, m_folder, m_consists); });
    } catch (const std::system_error &error) {
        Q_EMIT Finished(true, error.what());
        return;
    }
    m_work = std::move(started);
    m_timer.start();
}

void HealthRunner::Stop()
{
    if (!Running())
        return;
    const std::lock_guard lock(m_work->mutex);
    m_work->stopped = true;
    if (m_work->run)
        m_work->run->Stop();
}

void HealthRunner::Abandon()
{
    Stop();
    m_timer.stop();
    if (m_thread.joinable())
        m_thread.join();
    m_work.reset();
}

void HealthRunner::work(Work &work, host::GameFiles &files, const std::string &folder,
                        const std::vector<std::string> &consists)
{
    std::string failure;
    bool isComplete = false;
    try {
        isComplete = run(work, files, folder, consists);
    } catch (const std::exception &error) {
        failure = host::Explained(error);
    }
    const std::lock_guard lock(work.mutex);
    work.failure = std::move(failure);
    work.isComplete = isComplete;
    work.ended = true;
}

/// Returns false if the run was stopped.
bool HealthRunner::run(Work &work, host::GameFiles &files, const std::string &folder,
                       const std::vector<std::string> &consists)
{
    content::HealthOptions options;
    options.consists = consists;
    options.index.folder = host::SavedIndex::UserFolder();
    content::HealthRun run(files, folder, std::move(options));
    struct Registered
    {
        Work &work;
        ~Registered()
        {
            const std::lock_guard lock(work.mutex);
            work.run = nullptr;
        }
    };
    const auto show = [&](content::HealthReport report, bool isComplete) {
        auto index =
            std::make_shared<const content::HealthIndex>(std::move(report), folder, isComplete);
        const std::lock_guard lock(work.mutex);
        work.index = std::move(index);
    };
    run.Progress = [&work](std::size_t done, std::size_t total) {
        const std::lock_guard lock(work.mutex);
        work.done = done;
        work.total = total;
    };
    run.Partial = [&](content::HealthReport report) { show(std::move(report), false); };
    content::HealthReport report;
    {
        const Registered registered{work};
        {
            const std::lock_guard lock(work.mutex);
            work.run = &run;
            if (work.stopped)
                run.Stop();
        }
        report = run.Run();
    }
    bool isComplete = false;
    {
        const std::lock_guard lock(work.mutex);
        isComplete = !work.stopped;
    }
    show(std::move(report), isComplete);
    return isComplete;
}

void HealthRunner::poll()
{
    std::shared_ptr<const content::HealthIndex> index;
    std::size_t done = 0, total = 0;
    bool ended = false;
    {
        const std::lock_guard lock(m_work->mutex);
        index = std::exchange(m_work->index, nullptr);
        done = m_work->done;
        total = m_work->total;
        ended = m_work->ended;
    }
    if (!ended && total > 0)
        Q_EMIT Progressed(static_cast<int>(done), static_cast<int>(total));
    if (index)
        Q_EMIT Found(index);
    if (!ended)
        return;
    m_timer.stop();
    m_thread.join();
    const std::unique_ptr<Work> finished = std::move(m_work);
    Q_EMIT Finished(finished->stopped || !finished->isComplete, finished->failure);
}

} // namespace health
