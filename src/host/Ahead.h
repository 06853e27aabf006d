// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace host {

/// Number of workers to use when nobody says otherwise: one for each core, at least one.
std::size_t DefaultWorkers();

/// Runs jobs 0 to count-1 ahead on worker threads and hands their results over in that order, so
/// that what the caller sees is the same for any number of workers. The job must not throw and
/// must not touch what belongs to the caller's thread. At most `window` results (at least one) wait
/// or are being made. One thread takes and stops.
template <typename Result> class Ahead
{
public:
    using Job = std::function<Result(std::size_t)>;

    Ahead(std::size_t count, Job job, std::size_t workers = DefaultWorkers(),
          std::size_t window = 4096)
        : m_job(std::move(job))
        , m_results(count)
        , m_window(std::max<std::size_t>(1, window))
    {
        const std::size_t wanted = std::max<std::size_t>(1, std::min(workers, count));
        while (m_threads.size() < wanted && startThread())
            continue;
    }
    ~Ahead() { Stop(); }
    Ahead(const Ahead &) = delete;
    Ahead &operator=(const Ahead &) = delete;

    /// The next result in order when it is ready; never waits.
    std::optional<Result> TryTake()
    {
        std::lock_guard lock(m_mutex);
        return takeLocked();
    }
    /// The next result in order; waits for it. Nothing when all were taken or after Stop.
    std::optional<Result> Take()
    {
        std::unique_lock lock(m_mutex);
        m_ready.wait(lock, [this] { return settled(); });
        return takeLocked();
    }
    /// The same, but gives up after some time: nothing then too, and Done tells the difference.
    std::optional<Result> TakeFor(std::chrono::milliseconds time)
    {
        std::unique_lock lock(m_mutex);
        m_ready.wait_for(lock, time, [this] { return settled(); });
        return takeLocked();
    }
    bool Done() const
    {
        std::lock_guard lock(m_mutex);
        return m_stopped || m_taken == m_results.size();
    }
    std::size_t Taken() const
    {
        std::lock_guard lock(m_mutex);
        return m_taken;
    }
    std::size_t Count() const { return m_results.size(); }

    /// Lets running jobs end and starts no more; waits for the threads.
    void Stop()
    {
        {
            std::lock_guard lock(m_mutex);
            m_stopped = true;
        }
        m_room.notify_all();
        m_ready.notify_all();
        m_threads.clear();
    }

private:
    /// True when waiting for the next result would bring nothing more.
    bool settled() const
    {
        return m_stopped || m_taken == m_results.size() || m_results[m_taken].has_value();
    }
    std::optional<Result> takeLocked()
    {
        if (m_stopped || m_taken == m_results.size() || !m_results[m_taken])
            return std::nullopt;
        std::optional<Result> result = std::exchange(m_results[m_taken], std::nullopt);
        ++m_taken;
        m_room.notify_all();
        return result;
    }
    /// False when the machine gives no further thread; those that run do the work then.
    bool startThread()
    {
        try {
            m_threads.emplace_back([this] { work(); });
            return true;
        } catch (const std::system_error &) {
            if (m_threads.empty())
                throw;
            return false;
        }
    }
    void work()
    {
        std::unique_lock lock(m_mutex);
        while (!m_stopped && m_next < m_results.size()) {
            if (m_next - m_taken >= m_window) {
                m_room.wait(lock);
                continue;
            }
            const std::size_t index = m_next++;
            lock.unlock();
            Result result = m_job(index);
            lock.lock();
            m_results[index] = std::move(result);
            if (index == m_taken)
                m_ready.notify_all();
        }
    }

    Job m_job;
    std::vector<std::optional<Result>> m_results;
    std::size_t m_window;
    mutable std::mutex m_mutex;
    std::condition_variable m_ready, m_room;
    std::size_t m_next = 0, m_taken = 0;
    bool m_stopped = false;
    std::vector<std::jthread> m_threads;
};

} // namespace host
