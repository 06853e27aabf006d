// SPDX-License-Identifier: MIT
#pragma once

#include "content/References.h"
#include "install/Train.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <string>
#include <unordered_map>

namespace content {

/// Finds vehicles of trains that are missing, and vehicles whose shape is missing, by the rules of
/// the simulators. Looks at each vehicle once and lists each folder once, when it is first needed:
/// create a new object to see later changes on the disk. A name with blanks and without quotes
/// counts as found if its file is there. Thread-safe; reads no more than one file between checks of
/// Stop.
class MissingVehicles
{
public:
    /// `folder` is the installation folder; if it is "", nothing is missing. A vehicle is missing
    /// if one of the simulators in `profiles` misses it.
    MissingVehicles(std::string folder, Profiles profiles);
    ~MissingVehicles();
    MissingVehicles(const MissingVehicles &) = delete;
    MissingVehicles &operator=(const MissingVehicles &) = delete;

    /// Returns a sentence that names the missing file and the reason; "" if nothing is missing.
    std::string WhyMissing(const install::StockItem &vehicle);
    /// Returns the sentence for the first such vehicle of a consist file, and the number of others;
    /// "" if nothing is missing or the file cannot be read.
    std::string WhyMissingIn(const std::string &consist);
    /// Makes all calls return "" soon, from now on. May be called from any thread.
    void Stop() { m_stopped = true; }

private:
    struct Disk;

    Disk &disk();
    const std::string &whyMissing(const Reference &reference);
    std::string judge(const Reference &reference);
    std::string judgeShape(const VehicleFiles &files);

    std::string m_folder;
    Profiles m_profiles;
    std::once_flag m_opened;
    std::unique_ptr<Disk> m_disk; ///< created by the first call
    std::mutex m_mutex;
    std::unordered_map<std::string, std::string> m_known; ///< sentences, by folder and file
    std::atomic<bool> m_stopped = false;
};

} // namespace content
