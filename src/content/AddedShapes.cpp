// SPDX-License-Identifier: MIT
#include "content/AddedShapes.h"

#include "content/References.h"

#include <algorithm>
#include <optional>
#include <utility>

namespace content {
namespace {

bool isTrue(const Block &block)
{
    const std::string text = block.Value();
    return Block::SameName(text, "true") || LeadingNumber(text).value_or(0) != 0;
}

/// The block of Open Rails around the name of a load.
struct LoadBlock
{
    std::uint32_t entry = Vehicle::kTop;
    bool continuous = false;
    bool full = false;   ///< at the start
    bool outside = true; ///< visible from outside
    bool turned = false;
    Offset offset;
    std::string height = "0"; ///< of a full load
};

class Collector
{
public:
    Collector(const Vehicle &vehicle, const VehicleFiles &files, FileStore &store)
        : m_vehicle(vehicle)
        , m_files(files)
        , m_store(store)
        , m_isTender(isTender(vehicle))
        , m_noAnimation(disablesFreightAnim(vehicle))
    {
        if (const auto own = vehicle.Find("Wagon/WagonShape"))
            m_ownShape = find(own->text).value_or("");
    }

    AddedShapes Collect()
    {
        const Profile profile = m_vehicle.Simulator();
        for (const VehicleReference &each : ReferencesOf(m_vehicle, profile)) {
            const Kind kind = each.reference.kind;
            const bool read = each.reference.Rule().For(profile).known;
            if (kind == Kind::FreightAnimation && read)
                addLoad(each);
            else if (kind == Kind::CouplerShape && read)
                addCoupler(each);
        }
        if (m_loads > kMaxLoads)
            m_added.problems.push_back(m_vehicle.Files().front().path + ": of " +
                                       std::to_string(m_loads) + " loads only the first " +
                                       std::to_string(kMaxLoads) + " are shown");
        joinEnds();
        return std::move(m_added);
    }

private:
    static bool isTender(const Vehicle &vehicle)
    {
        const auto type = vehicle.Find("Wagon/Type");
        return type && Block::SameName(type->text, "Tender");
    }
    static bool disablesFreightAnim(const Vehicle &vehicle)
    {
        const auto enabled = vehicle.FindBlock("Wagon/ORTSFreightAnims/MSTSFreightAnimEnabled");
        return vehicle.Simulator() == Profile::OpenRails && enabled && enabled->ValueCount() > 0 &&
               !isTrue(*enabled);
    }

    std::optional<std::string> find(const std::string &name)
    {
        if (name.empty() || name.size() > kMaxNameLength)
            return std::nullopt;
        return m_store.Find(PathIn(m_files.folder, name));
    }

    void report(const VehicleReference &each, const std::string &what)
    {
        m_added.problems.push_back(m_vehicle.Files()[each.file].path + ", line " +
                                   std::to_string(each.reference.line) + ": " + what);
    }

    void addLoad(const VehicleReference &each)
    {
        const Vehicle::Entry &entry = m_vehicle.Entries()[each.entry];
        const Block block = m_vehicle.BlockOf(entry);
        const bool isAnimation = block.Is("FreightAnim");
        if (isAnimation ? m_noAnimation : !isShown(entry.parent))
            return;
        if (++m_loads > kMaxLoads)
            return;
        AddedShape shape;
        Offset offset = isAnimation ? levelOf(block) : m_block.offset;
        if (!isAnimation) {
            shape.turned = m_block.turned;
            if (m_block.continuous)
                offset.Add(1, m_block.height);
        }
        shape.offset = offset.at;
        add(each, shape, offset.fault);
    }

    /// MSTS moves only the coal of tenders, between two levels; other loads are at the origin of
    /// their wagon, whatever their numbers. Tenders start full.
    Offset levelOf(const Block &block) const
    {
        std::vector<std::string> levels;
        for (const std::string &word : Words(block, 1)) // a shape descriptor may come first
            if (LeadingNumber(word) || !levels.empty())
                levels.push_back(word);
        const auto number = [&levels](std::size_t place) {
            return levels.size() > place ? LeadingNumber(levels[place]).value_or(0) : 0.0;
        };
        Offset offset;
        if (m_isTender && number(0) > number(1))
            offset.Add(1, levels.front());
        return offset;
    }

    /// Reads the block of a load. False if the load is not seen at the start of a session: it is
    /// shown only inside, or its height varies and it is not full. Several continuous loads share
    /// one hold; only the first full one counts.
    bool isShown(std::uint32_t parent)
    {
        if (m_block.entry != parent)
            m_block = blockAt(parent);
        if (!m_block.outside || (m_block.continuous && !m_block.full))
            return false;
        return !m_block.continuous || !std::exchange(m_hasContinuous, true);
    }

    LoadBlock blockAt(std::uint32_t parent) const
    {
        const std::vector<Vehicle::Entry> &entries = m_vehicle.Entries();
        LoadBlock load;
        load.entry = parent;
        load.continuous = m_vehicle.BlockOf(entries[parent]).Is("FreightAnimContinuous");
        for (std::size_t i = parent + 1; i < entries.size(); ++i) {
            const Vehicle::Entry &entry = entries[i];
            if (entry.parent == Vehicle::kTop || entry.parent < parent)
                break; // the end of the block
            if (entry.parent == parent)
                readInto(load, m_vehicle.BlockOf(entry));
        }
        return load;
    }

    static void readInto(LoadBlock &load, const Block &block)
    {
        if (block.Is("Offset"))
            load.offset = OffsetOf(Words(block));
        else if (block.Is("Flip"))
            load.turned = true;
        else if (block.Is("FullAtStart"))
            load.full = isTrue(block);
        else if (block.Is("MaxHeight"))
            load.height = block.Value();
        else if (block.Is("Visibility"))
            load.outside = isOutside(Words(block));
    }

    static bool isOutside(const std::vector<std::string> &views)
    {
        return views.empty() || std::any_of(views.begin(), views.end(), [](std::string view) {
                   view.erase(0, view.find_first_not_of(' '));
                   return Block::SameName(view, "Outside");
               });
    }

    void addCoupler(const VehicleReference &each)
    {
        const Block block = m_vehicle.BlockOf(m_vehicle.Entries()[each.entry]);
        const std::string_view name = block.Name();
        const auto has = [name](std::string_view part) {
            for (std::size_t at = 0; at + part.size() <= name.size(); ++at)
                if (Block::SameName(name.substr(at, part.size()), part))
                    return true;
            return false;
        };
        AddedShape shape;
        shape.isLoad = false;
        shape.from = has("Front") ? AddedShape::From::Front : AddedShape::From::Rear;
        const bool free = has("Open") || has("Disconnected");
        shape.when = free ? AddedShape::When::Free : AddedShape::When::Coupled;
        const bool isCoupler = !has("Hose");
        if (isCoupler && free)
            (shape.from == AddedShape::From::Front ? m_openFront : m_openRear) = true;
        const Offset offset = OffsetOf(Words(block, 1));
        shape.offset = offset.at;
        if (add(each, shape, offset.fault) && isCoupler && !free)
            m_couplers.push_back(m_added.shapes.size() - 1);
    }

    /// A coupler without an open form looks the same at a free end. A hose does not: it would
    /// reach into the air.
    void joinEnds()
    {
        for (const std::size_t place : m_couplers) {
            AddedShape &coupler = m_added.shapes[place];
            if (!(coupler.from == AddedShape::From::Front ? m_openFront : m_openRear))
                coupler.when = AddedShape::When::Always;
        }
    }

    bool add(const VehicleReference &each, AddedShape shape, const std::string &fault)
    {
        const std::string &wants = each.reference.wants;
        std::optional<std::string> found = find(each.reference.name.file);
        for (const Reference::Name &other : each.reference.otherReadings)
            if (!found)
                found = find(other.file);
        shape.path = found.value_or("");
        if (!found)
            report(each, wants + " is missing");
        else if (!fault.empty())
            report(each, wants + " has no place: " + fault + " is no usable number of metres");
        else if (shape.path == m_ownShape && shape.offset == std::array<float, 3>{} && shape.isLoad)
            report(each, wants + " is the shape of the vehicle itself");
        else if (std::find(m_added.shapes.begin(), m_added.shapes.end(), shape) ==
                 m_added.shapes.end()) {
            m_added.shapes.push_back(std::move(shape));
            return true;
        }
        return false;
    }

    const Vehicle &m_vehicle;
    const VehicleFiles &m_files;
    FileStore &m_store;
    bool m_isTender, m_noAnimation;
    std::string m_ownShape; ///< "" if it is unknown
    AddedShapes m_added;
    std::size_t m_loads = 0;
    LoadBlock m_block; ///< the last one that was read
    bool m_hasContinuous = false;
    bool m_openFront = false, m_openRear = false; ///< the couplers have an open form
    std::vector<std::size_t> m_couplers;          ///< places of closed couplers
};

} // namespace

AddedShapes AddedShapesOf(const Vehicle &vehicle, const VehicleFiles &files, FileStore &store)
{
    if (vehicle.Files().empty())
        return {};
    return Collector(vehicle, files, store).Collect();
}

} // namespace content
