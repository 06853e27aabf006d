// SPDX-License-Identifier: MIT
#include "content/StockReader.h"

#include "content/KeptUnits.h"
#include "content/OwnListings.h"
#include "host/Process.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "stavfile/StfFile.h"

#include <algorithm>
#include <new>
#include <system_error>
#include <utility>

namespace content {
namespace {

std::string keyOf(const install::StockItem &item)
{
    return host::ToUpper(item.folder + '/' + install::StockFileName(item.type, item.shape));
}

SheetVehicle unreadVehicle(const install::StockItem &item)
{
    SheetVehicle vehicle;
    vehicle.name = item.folder + '/' + install::StockFileName(item.type, item.shape);
    vehicle.path = vehicle.name;
    vehicle.fault = "there is too little memory to read it";
    return vehicle;
}

} // namespace

struct StockReader::Disk
{
    Disk(const std::string &root, const host::IndexOptions &options)
        : begin(options.now())
        , own(root)
    {
        if (!options.folder.empty())
            index = std::make_unique<host::SavedIndex>(own.snapshot, options, begin, root,
                                                       "figures" + std::string(kKeptVersion) +
                                                           own.folders.trainset);
    }

    std::int64_t begin; ///< a time before the first folder was listed
    OwnListings own;
    FigureCache units{own.store, own.folders, Profile::OpenRails};
    std::unique_ptr<host::SavedIndex> index; ///< null if there is none
};

StockReader::StockReader(std::string folder, std::size_t workers, host::IndexOptions index)
    : m_folder(std::move(folder))
    , m_workers(std::max<std::size_t>(1, workers))
    , m_index(std::move(index))
{
}

StockReader::Disk &StockReader::disk()
{
    std::call_once(m_opened, [this] {
        m_disk = std::make_unique<Disk>(m_folder, m_index);
        m_ready = m_disk.get();
    });
    return *m_disk;
}

StockReader::~StockReader()
{
    {
        const std::lock_guard lock(m_mutex);
        m_stopped = true;
    }
    m_wake.notify_all();
    m_threads.clear();
    if (m_disk && m_disk->index)
        m_disk->index->Save(host::SavedIndex::Extent::Part);
}

void StockReader::ReadFacts(std::vector<install::StockItem> items)
{
    // One job takes a row of vehicles, so that 50,000 of them need little memory for the queue.
    constexpr std::size_t kRow = 16;
    const auto shared = std::make_shared<const std::vector<install::StockItem>>(std::move(items));
    for (std::size_t first = 0; first < shared->size(); first += kRow)
        request(
            [this, shared, first] {
                for (std::size_t i = first; i < std::min(first + kRow, shared->size()); ++i)
                    readFacts((*shared)[i]);
            },
            false);
}

void StockReader::ReadUnits(std::vector<install::StockItem> items)
{
    for (install::StockItem &item : items)
        request([this, item = std::move(item)] { readUnit(item); }, true);
}

void StockReader::ReadConsist(const std::shared_ptr<ConsistSheet> &sheet)
{
    request(
        [this, wanted = std::weak_ptr<ConsistSheet>(sheet)] {
            const std::shared_ptr<ConsistSheet> still = wanted.lock();
            if (!still)
                return;
            readConsist(*still);
            still->isDone = true;
        },
        true);
}

std::shared_ptr<const StockFacts> StockReader::Facts(const install::StockItem &item) const
{
    const std::string key = keyOf(item);
    const std::shared_lock lock(m_factsMutex);
    const auto found = m_facts.find(key);
    return found == m_facts.end() ? nullptr : found->second;
}

std::shared_ptr<const SheetVehicle> StockReader::Unit(const install::StockItem &item) const
{
    const Disk *const ready = m_ready;
    return ready ? ready->units.Known(item) : nullptr;
}

void StockReader::request(std::function<void()> job, bool first)
{
    ++m_requested;
    {
        const std::lock_guard lock(m_mutex);
        if (first)
            m_jobs.push_front(std::move(job));
        else
            m_jobs.push_back(std::move(job));
    }
    startThreads();
    m_wake.notify_one();
}

/// If the system allows no thread, nothing is read, and the figures stay unknown.
void StockReader::startThreads()
{
    if (!m_threads.empty())
        return;
    try {
        while (m_threads.size() < m_workers)
            m_threads.emplace_back([this] { work(); });
    } catch (const std::system_error &) {
        if (!m_threads.empty())
            return;
        const std::lock_guard lock(m_mutex);
        m_done += m_jobs.size();
        m_jobs.clear();
    }
}

void StockReader::work()
{
    host::LowerThreadPriority();
    std::unique_lock lock(m_mutex);
    while (true) {
        m_wake.wait(lock, [this] { return m_stopped || !m_jobs.empty(); });
        if (m_stopped)
            return;
        const std::function<void()> job = std::move(m_jobs.front());
        m_jobs.pop_front();
        lock.unlock();
        job();
        ++m_done;
        lock.lock();
        m_idle.notify_all();
    }
}

void StockReader::Wait()
{
    std::unique_lock lock(m_mutex);
    m_idle.wait(lock, [this] { return !IsBusy(); });
}

void StockReader::readFacts(const install::StockItem &item)
{
    if (m_stopped || Facts(item))
        return;
    try {
        keep(item, factsOf(item));
    } catch (const std::bad_alloc &) { // must not leave the worker
        keep(item, FactsOf(unreadVehicle(item)));
    }
}

StockFacts StockReader::factsOf(const install::StockItem &item)
{
    host::SavedIndex *const index = disk().index.get();
    const std::string key = keyOf(item);
    if (const auto kept = index ? index->Find(key) : std::nullopt) {
        host::Unpacker in(*kept);
        return UnpackFacts(in);
    }
    host::Recording recording;
    StockFacts facts = FactsOf(disk().units.Read(item));
    host::Packer out;
    Pack(out, facts);
    if (index)
        index->Keep(key, out.Bytes(), recording.Take());
    return facts;
}

void StockReader::readUnit(const install::StockItem &item)
{
    try {
        keep(item, FactsOf(*disk().units.Get(item)));
    } catch (const std::bad_alloc &) {
        keep(item, FactsOf(unreadVehicle(item)));
    }
}

void StockReader::keep(const install::StockItem &item, StockFacts facts)
{
    auto shared = std::make_shared<const StockFacts>(std::move(facts));
    const std::unique_lock lock(m_factsMutex);
    m_facts.insert_or_assign(keyOf(item), std::move(shared));
}

void StockReader::readConsist(ConsistSheet &sheet)
{
    try {
        StfFile file(disk().own.files);
        file.SetFileName(sheet.path);
        file.Load();
        const StfNode train = install::RequireTrain(file);
        sheet.sheet = TrainSheet(OwnMaximumOf(train));
        for (const install::Unit &unit : install::Units(train)) {
            if (m_stopped)
                return;
            sheet.sheet.Add(*disk().units.Get(unit.Item()));
        }
    } catch (const host::RuntimeError &error) {
        sheet.fault = error.what();
    } catch (const std::bad_alloc &) {
        sheet.fault = "there is too little memory to read it";
    }
}

} // namespace content
