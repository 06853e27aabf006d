// SPDX-License-Identifier: MIT
#pragma once

#include "host/OpenFolder.h"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace host {

/// Returns the default number of workers: one for each core, at least one.
std::size_t DefaultWorkers();

/// Runs jobs 0 to count-1 ahead on worker threads and delivers their results in that order, so that
/// the caller sees the same for any number of workers. The job must not throw and must not touch
/// data of the caller's thread. At most `window` results (at least one) are waiting or in progress.
/// With many jobs per worker, results are delivered in batches, because each delivery costs about
/// as much as reading a small file. A batch whose jobs take long is delivered early. While a worker
/// runs, it keeps a folder open (disk::OpenFolder). Call everything but Stop from one thread only.
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
        m_row =
            std::clamp<std::size_t>(std::min(count, m_window) / (kShares * wanted), 1, kLongest);
        while (m_threads.size() < wanted && startThread())
            continue;
    }
    ~Ahead() { Stop(); }
    Ahead(const Ahead &) = delete;
    Ahead &operator=(const Ahead &) = delete;

    /// Returns the next result in order if it is ready; never waits.
    std::optional<Result> TryTake()
    {
        return take([](std::unique_lock<std::mutex> &) {});
    }
    /// Waits for the next result in order and returns it; nothing if all were taken or after Stop.
    std::optional<Result> Take()
    {
        return take([this](std::unique_lock<std::mutex> &lock) {
            m_ready.wait(lock, [this] { return settled(); });
        });
    }
    /// Like Take, but also returns nothing when `time` has passed; Done distinguishes the two
    /// cases.
    std::optional<Result> TakeFor(std::chrono::milliseconds time)
    {
        return take([this, time](std::unique_lock<std::mutex> &lock) {
            m_ready.wait_for(lock, time, [this] { return settled(); });
        });
    }
    bool Done() const { return m_stopped || Taken() == m_results.size(); }
    std::size_t Taken() const { return m_fetched - m_here.size(); }
    std::size_t Count() const { return m_results.size(); }

    /// Starts no more jobs and waits for the running ones.
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
    /// Returns the next result. Fetches up to a batch of results at a time, after `wait`, to lock
    /// rarely.
    template <typename Wait> std::optional<Result> take(const Wait &wait)
    {
        if (m_here.empty() && !m_stopped) {
            std::unique_lock lock(m_mutex);
            makeRoom();
            wait(lock);
            while (m_here.size() < m_row && isReady())
                m_here.push_back(*std::exchange(m_results[m_fetched++], std::nullopt));
            if (!m_here.empty())
                makeRoom(1);
        }
        if (m_here.empty() || m_stopped)
            return std::nullopt;
        std::optional<Result> result = std::move(m_here.front());
        m_here.pop_front();
        return result;
    }
    bool isReady() const
    {
        return m_fetched < m_results.size() && m_results[m_fetched].has_value();
    }
    /// True if the next result is ready or will never come.
    bool settled() const { return m_stopped || m_fetched == m_results.size() || isReady(); }
    /// Counts what the caller has taken, or is about to take, as no longer waiting.
    void makeRoom(std::size_t more = 0)
    {
        m_taken = Taken() + more;
        if (hasRoom())
            m_room.notify_all();
    }
    /// True if the next batch fits into the window.
    bool hasRoom() const { return m_window - (m_next - m_taken) >= nextBatch(); }
    std::size_t nextBatch() const { return std::min(m_row, m_results.size() - m_next); }
    /// Returns false if the system allows no further thread; the running ones then do the work.
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
        const disk::OpenFolder folder;
        std::vector<Result> row;
        row.reserve(m_row);
        std::unique_lock lock(m_mutex);
        while (!m_stopped && m_next < m_results.size()) {
            if (!hasRoom()) {
                m_room.wait(lock);
                continue;
            }
            const std::size_t first = m_next, end = first + nextBatch();
            m_next = end;
            for (std::size_t at = first; at < end && !m_stopped;) {
                lock.unlock();
                runJobs(row, at, end);
                lock.lock();
                at += deliver(row, at);
                if (!settled())
                    continue;
                lock.unlock(); // the caller would wake up only to wait for it
                m_ready.notify_all();
                lock.lock();
            }
        }
    }
    /// Runs jobs until there are enough results to deliver.
    void runJobs(std::vector<Result> &row, std::size_t at, std::size_t end)
    {
        using Clock = std::chrono::steady_clock;
        const Clock::time_point start = Clock::now();
        do
            row.push_back(m_job(at++));
        while (at < end && !m_stopped && Clock::now() - start < kLongestBatch);
    }
    /// Returns the number of results.
    std::size_t deliver(std::vector<Result> &row, std::size_t at)
    {
        std::move(row.begin(), row.end(), m_results.begin() + static_cast<std::ptrdiff_t>(at));
        const std::size_t count = row.size();
        row.clear();
        return count;
    }

    /// Minimum number of batches per worker, so that all workers have work until the end.
    static constexpr std::size_t kShares = 8;
    static constexpr std::size_t kLongest = 64;
    static constexpr std::chrono::milliseconds kLongestBatch{2};

    Job m_job;
    std::vector<std::optional<Result>> m_results;
    std::size_t m_window;
    std::size_t m_row = 1; ///< jobs in a batch
    mutable std::mutex m_mutex;
    std::condition_variable m_ready, m_room;
    std::size_t m_next = 0;
    std::size_t m_taken = 0;             ///< results that no longer count as waiting
    std::atomic<bool> m_stopped = false; ///< workers check it between jobs
    std::deque<Result> m_here;           ///< fetched, for the caller's thread only
    std::size_t m_fetched = 0;           ///< changed only by that thread, under the lock
    std::vector<std::jthread> m_threads;
};

} // namespace host
