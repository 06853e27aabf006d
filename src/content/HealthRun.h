// SPDX-License-Identifier: MIT
#pragma once

#include "content/Finding.h"
#include "content/SharedFiles.h"
#include "content/Vehicle.h"
#include "host/Ahead.h"
#include "host/Packed.h"
#include "host/SavedIndex.h"
#include "host/SharedTable.h"

#include <array>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <utility>
#include <vector>

namespace host {
class GameFiles;
}

namespace content {

struct HealthOptions
{
    Profiles profiles = Profiles::Both();
    std::string filter; ///< checks only stock in folders that match; "" for all content
    /// Checks only these consists (paths) and what they need; empty for the whole installation.
    std::vector<std::string> consists;
    bool routes = false;  ///< also checks the routes' own shapes and textures
    bool keepAll = false; ///< also reports references that are in order
    /// The saved index, which is used unless `keepAll` or `consists` is set. Saved after a
    /// whole run. The report is the same with and without it.
    host::IndexOptions index = {};
    std::size_t workers = host::DefaultWorkers();
    std::chrono::milliseconds firstPartial{500}; ///< time before the first findings are handed out
};

/// Checks the references of an installation, or of some of its consists, by the rules of the
/// simulators. Runs once. The report is the same for any number of workers. Files may appear and
/// disappear during the run: each folder is listed once, on the first search in it.
class HealthRun
{
public:
    /// `files` must outlive this object. `folder` is the installation folder.
    HealthRun(host::GameFiles &files, const std::string &folder, HealthOptions options);
    ~HealthRun();
    HealthRun(const HealthRun &) = delete;
    HealthRun &operator=(const HealthRun &) = delete;

    /// Called on the thread of Run after each piece of work; may call Stop. The total grows during
    /// the run.
    std::function<void(std::size_t done, std::size_t total)> Progress;
    /// Called on any thread with the path of each file before it is read.
    std::function<void(const std::string &path)> FileRead;

    /// Called on the thread of Run with the findings so far, first after about
    /// HealthOptions::firstPartial and then at growing intervals. These reports lack candidates,
    /// and their answers do not distinguish misplaced files from missing ones.
    std::function<void(HealthReport report)> Partial;

    HealthReport Run();
    /// Makes Run return soon with the findings so far. May be called from any thread.
    void Stop() { m_stopped = true; }

private:
    /// The result of reading one user of other files, such as a vehicle or a consist.
    struct Unit
    {
        std::string user;
        std::vector<Draft> drafts;
        struct Use
        {
            std::shared_ptr<const SharedFile> file;
            Profiles profiles;
        };
        std::vector<Use> uses;
        std::string name;                  ///< the name that a consist or service gives itself
        std::vector<std::string> vehicles; ///< the stock files of a consist
    };
    using Units = std::vector<Unit>;

    /// A draft and all files that need it.
    struct Merged
    {
        Draft draft;
        Profiles profiles;
        std::vector<std::pair<std::uint32_t, Profiles>> users; ///< indexes into m_users
    };

    /// Texts of units that are in order, with the number of the fact that they depend on.
    using KnownTexts = host::SharedTable<std::uint32_t>;

    std::string indexPurpose() const;
    void openIndex(std::int64_t begin);
    void saveIndex();
    static void pack(host::Packer &out, const Unit &unit);
    Unit unpack(host::Unpacker &in) const;
    /// Return what the index keeps, or else make it.
    template <typename Make> Units kept(const std::string &key, const Make &make) const;
    Units keptStockFolder(const std::string &folder, bool isEot) const;
    Unit keptConsist(const std::string &path) const;
    bool isInStock(const std::string &key) const;
    bool isKnownSpelling(const KnownTexts &spellings, std::string_view text) const;
    void addSpelling(KnownTexts &spellings, std::string_view text, const std::string &key) const;

    void readStock();
    void addStock(const std::string &path);
    void readNamedVehicles(const std::vector<std::string> &vehicles);
    void readConsists(const std::vector<std::string> &consists);
    void readRoutes();
    void readWorlds();
    std::vector<std::string> allConsists() const;

    Units stockFolder(const std::string &folder, bool isEot) const;
    VehicleFiles filesOf(const std::string &folder, const std::string &name) const;
    static std::string unitKey(const Reference &reference);
    /// `known` are the simulators that support this kind of vehicle.
    Unit vehicle(const VehicleFiles &files, Profiles known) const;
    void addVehicle(const VehicleFiles &files, const Vehicle &vehicle, Profiles profiles,
                    Unit &unit) const;
    void addIncludes(const Vehicle &vehicle, Unit &unit) const;
    void addCabOf3dCab(const Draft &cab, const std::string &stock, bool has2dCab, Unit &unit) const;
    /// Returns false for a reference with a problem.
    bool addReference(Reference reference, const Context &context, Unit &unit,
                      const NamedFiles *named = nullptr) const;
    /// True for a unit whose vehicle was found earlier, so that it needs no look-up.
    bool isKnownUnit(const Reference &reference) const;
    static std::string_view spellingOf(const Block &data);
    /// True if units in order need no draft.
    bool skipsKnownUnits() const { return !m_options.keepAll && m_options.consists.empty(); }
    void follow(const Draft &draft, const std::string &stock, Unit &unit) const;
    Unit consist(const std::string &path) const;
    Unit service(const std::string &path) const;
    Unit activity(const std::string &path, const NamedFiles &services) const;
    Units timetables(const std::string &path) const;

    /// A file of a route's world.
    struct World
    {
        std::string path, route;
        Profiles profiles; ///< the simulators that read it
    };
    std::vector<World> worldFiles() const;
    Unit world(const World &world) const;
    /// Moves the shapes that a world file uses to the unit of its route.
    static void moveUses(Unit &world, Unit &route);
    /// Removes repeated uses and sorts the rest, since their order depends on the workers.
    static void sortUses(Unit &route);
    void addRouteShape(Reference reference, const World &world, Unit &unit) const;

    template <typename Work, typename Take>
    void workOn(std::size_t count, const Work &work, const Take &take);
    void take(Unit &&unit);
    void merge(const Draft &draft, std::uint32_t user, Profiles profiles);
    HealthReport report();
    HealthReport reportSoFar();
    void handOutPartial();
    void addFindings(const Merged &merged, HealthReport &report) const;
    Finding findingOf(const Merged &merged, Profiles profiles) const;
    /// What identifies the entry of a draft, apart from its kind and folder.
    struct Identity
    {
        std::string file, wants;
    };
    /// Returns the file and the value of the entry. The files of a route's world share their
    /// shapes, in any letter case: a finding for each file would hide the other findings.
    static Identity identityOf(const Draft &draft);
    std::string idOf(const Finding &finding, const Draft &draft) const;
    void findNearest(HealthReport &report) const;
    void sortUsers(HealthReport &report);

    HealthOptions m_options;
    std::int64_t m_begin; ///< a time before the first folder was listed
    std::unique_ptr<host::Snapshot> m_snapshot;
    mutable FileStore m_store; ///< mutable: reading fills its cache
    InstallFolders m_folders;
    Resolver m_resolver;
    std::unique_ptr<host::SavedIndex> m_index; ///< null if there is none
    mutable SharedFiles m_shared;
    /// Vehicles that both simulators find, as "FOLDER/NAME.WAG" in upper case. Complete and
    /// constant before other threads read it.
    std::unordered_set<std::string> m_stock;
    mutable KnownTexts m_units;                    ///< units and shapes of routes that are in order
    mutable std::array<KnownTexts, 4> m_spellings; ///< data blocks of such units, by encoding
                                                   ///< (the numbers are facts of m_index)
    NamedFiles m_consistNames;
    std::vector<std::string> m_users;
    std::vector<Merged> m_merged;
    std::unordered_map<std::string, std::size_t> m_byKey; ///< into m_merged
    std::size_t m_done = 0, m_total = 0;
    HealthCounts m_checked;
    std::optional<std::chrono::steady_clock::time_point> m_nextPartial;
    std::chrono::steady_clock::duration m_partialInterval{};
    std::atomic<bool> m_stopped = false;
};

} // namespace content
