// SPDX-License-Identifier: MIT
#pragma once

#include "content/StockFacts.h"
#include "host/SavedIndex.h"

#include <atomic>
#include <condition_variable>
#include <cstddef>
#include <deque>
#include <functional>
#include <memory>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <thread>
#include <unordered_map>
#include <vector>

namespace content {

/// The sheet of a consist file, made on another thread.
struct ConsistSheet
{
    explicit ConsistSheet(std::string file)
        : path(std::move(file))
    {
    }

    const std::string path;
    std::atomic<bool> isDone = false; ///< the members below may be read once this is true
    TrainSheet sheet;
    std::string fault; ///< why there is no sheet; "" if there is one
};

/// Reads the figures of an installation's vehicles on threads of low priority and keeps them. Lists
/// each folder once: create a new object to see later changes on the disk. Reads by the rules of
/// Open Rails. The functions may be called from any thread and never wait for the disk.
class StockReader
{
public:
    /// `folder` is the installation folder, which must not be "". Threads start with the first
    /// request. Facts come from the saved index as long as they hold.
    StockReader(std::string folder, std::size_t workers, host::IndexOptions index = {});
    /// Drops all requests, waits for the files that are being read, and saves the index.
    ~StockReader();
    StockReader(const StockReader &) = delete;
    StockReader &operator=(const StockReader &) = delete;

    /// Reads the facts of these vehicles, after everything else that was requested.
    void ReadFacts(std::vector<install::StockItem> items);
    /// Reads the facts and all figures of these vehicles, before everything else.
    void ReadUnits(std::vector<install::StockItem> items);
    /// Makes the sheet of a consist file, before everything else, unless the caller has dropped it
    /// by then.
    void ReadConsist(const std::shared_ptr<ConsistSheet> &sheet);

    /// Return what is known of a vehicle; null if it was not read yet.
    std::shared_ptr<const StockFacts> Facts(const install::StockItem &item) const;
    std::shared_ptr<const SheetVehicle> Unit(const install::StockItem &item) const;

    /// Returns the number of requests carried out so far. It grows with each result.
    std::size_t Done() const { return m_done; }
    /// True while there are requests that have not been carried out.
    bool IsBusy() const { return m_requested != m_done; }
    /// Waits until all requests have been carried out.
    void Wait();

private:
    struct Disk;

    void request(std::function<void()> job, bool first);
    void startThreads();
    void work();
    Disk &disk();
    void readFacts(const install::StockItem &item);
    StockFacts factsOf(const install::StockItem &item);
    void readUnit(const install::StockItem &item);
    void readConsist(ConsistSheet &sheet);
    void keep(const install::StockItem &item, StockFacts facts);

    std::string m_folder;
    std::size_t m_workers;
    host::IndexOptions m_index;
    std::once_flag m_opened;
    std::unique_ptr<Disk> m_disk;          ///< created by the first job
    std::atomic<Disk *> m_ready = nullptr; ///< m_disk, once it is there
    mutable std::shared_mutex m_factsMutex;
    std::unordered_map<std::string, std::shared_ptr<const StockFacts>> m_facts; ///< upper case
    std::mutex m_mutex;
    std::condition_variable m_wake, m_idle;
    std::deque<std::function<void()>> m_jobs;
    std::atomic<std::size_t> m_requested = 0, m_done = 0;
    std::atomic<bool> m_stopped = false; ///< set under m_mutex
    std::vector<std::jthread> m_threads;
};

} // namespace content
