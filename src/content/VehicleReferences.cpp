// SPDX-License-Identifier: MIT
#include "content/References.h"

#include "host/Path.h"

#include <algorithm>
#include <array>

namespace content {
namespace {

/// The part of a vehicle that contains a block, as far as it affects references.
enum class Part : std::uint8_t
{
    Other,
    Wagon,
    Engine,
    Inside,
    Coupling,
    FreightAnims,
    Cab3d,
    OtherCab3d, ///< an alternative view point of a 3D cab
    Lights
};
constexpr std::size_t kParts = 9;

/// Which of several entries of the same name count.
enum class Repeats : std::uint8_t
{
    Last,    ///< the last one
    LastFile ///< those in the file with the last one, which replaces all others
};

struct Key
{
    Part part;
    Part alsoIn;
    std::string_view name;
    Kind kind;
    Repeats repeats = Repeats::Last;
    Profiles readers = Profiles::Both(); ///< the simulators that read the entry
};

constexpr std::array kKeys = {
    Key{Part::Wagon, Part::Wagon, "WagonShape", Kind::Shape},
    Key{Part::Wagon, Part::Wagon, "FreightAnim", Kind::FreightAnimation, Repeats::LastFile},
    Key{Part::FreightAnims, Part::FreightAnims, "Shape", Kind::FreightAnimation, Repeats::LastFile,
        Profile::OpenRails},
    Key{Part::Wagon, Part::Engine, "Sound", Kind::Sound},
    Key{Part::Wagon, Part::Engine, "SoundFront", Kind::Sound},
    Key{Part::Wagon, Part::Engine, "SoundRear", Kind::Sound},
    Key{Part::Wagon, Part::Engine, "ORTSTrainControlSystemSound", Kind::Sound, Repeats::Last,
        Profile::OpenRails},
    Key{Part::Inside, Part::Inside, "Sound", Kind::Sound},
    Key{Part::Cab3d, Part::OtherCab3d, "Sound", Kind::Sound, Repeats::LastFile, Profile::OpenRails},
    Key{Part::Wagon, Part::Engine, "CabView", Kind::Cab},
    Key{Part::Cab3d, Part::OtherCab3d, "ORTS3DCabFile", Kind::Cab3d, Repeats::LastFile},
    Key{Part::Inside, Part::Inside, "PassengerCabinFile", Kind::PassengerView},
    Key{Part::Wagon, Part::Wagon, "Thumbnail", Kind::Thumbnail},
    Key{Part::Lights, Part::Lights, "ORTSGraphic", Kind::LightImage, Repeats::LastFile},
    Key{Part::Coupling, Part::Coupling, "FrontCouplerAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "RearCouplerAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "FrontCouplerOpenAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "RearCouplerOpenAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "FrontAirHoseAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "RearAirHoseAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "FrontAirHoseDisconnectedAnim", Kind::CouplerShape},
    Key{Part::Coupling, Part::Coupling, "RearAirHoseDisconnectedAnim", Kind::CouplerShape},
    Key{Part::Wagon, Part::Engine, "ORTSTrainControlSystem", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSTrainControlSystemParameters", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSCircuitBreaker", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSCircuitBreakerParameters", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSTractionCutOffRelay", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSPowerSupply", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSPowerSupplyParameters", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSTrainBrakeController", Kind::Script},
    Key{Part::Wagon, Part::Engine, "ORTSEngineBrakeController", Kind::Script},
};

Part partBelow(Part parent, const Block &block)
{
    switch (parent) {
    case Part::Wagon:
    case Part::Engine:
        break;
    case Part::FreightAnims:
    case Part::Cab3d:
    case Part::OtherCab3d:
    case Part::Lights:
        return parent;
    default:
        return Part::Other;
    }
    if (block.Is("Inside"))
        return Part::Inside;
    if (block.Is("Coupling"))
        return Part::Coupling;
    if (block.Is("ORTSFreightAnims"))
        return Part::FreightAnims;
    if (block.Is("Lights"))
        return Part::Lights;
    if (block.Is("ORTS3DCab"))
        return Part::Cab3d;
    if (block.Is("ORTSAlternate3DCabViewPoints") || block.Is("ORTSAlternate3DCabViewPoint"))
        return Part::OtherCab3d;
    return Part::Other;
}

const Key *keyOf(Part parent, const Block &block)
{
    if (parent == Part::Other)
        return nullptr;
    const std::string_view name = block.Name();
    for (const Key &key : kKeys)
        if (key.name.size() == name.size() && (key.part == parent || key.alsoIn == parent) &&
            Block::SameName(key.name, name))
            return &key;
    return nullptr;
}

struct Hit
{
    const Key *key;
    Part part;
    std::uint32_t entry;
};

/// The lights of an override replace those of its base as a whole, even if they name no image.
void dropLightsOfOtherFiles(const Vehicle &vehicle, std::uint32_t file, std::vector<Hit> &hits)
{
    std::erase_if(hits, [&](const Hit &hit) {
        return hit.part == Part::Lights && vehicle.Entries()[hit.entry].file != file;
    });
}

std::vector<Hit> hitsOf(const Vehicle &vehicle)
{
    std::vector<Hit> hits;
    std::vector<Part> parts;
    parts.reserve(vehicle.Entries().size());
    for (const Vehicle::Entry &entry : vehicle.Entries()) {
        const Block block = vehicle.BlockOf(entry);
        if (entry.parent == Vehicle::kTop) {
            parts.push_back(block.Is("Wagon")    ? Part::Wagon
                            : block.Is("Engine") ? Part::Engine
                                                 : Part::Other);
            continue;
        }
        const Part parent = parts[entry.parent];
        if (const Key *key = keyOf(parent, block))
            hits.push_back({key, parent, static_cast<std::uint32_t>(parts.size())});
        parts.push_back(partBelow(parent, block));
        if (parts.back() == Part::Lights && parent != Part::Lights)
            dropLightsOfOtherFiles(vehicle, entry.file, hits);
    }
    return hits;
}

/// Removes entries that later ones replace.
void dropReplaced(const Vehicle &vehicle, std::vector<Hit> &hits)
{
    std::array<std::array<std::uint32_t, kParts>, kKeys.size()> last{};
    const auto slot = [&](const Hit &hit) -> std::uint32_t & {
        return last[static_cast<std::size_t>(hit.key - kKeys.data())]
                   [static_cast<std::size_t>(hit.part)];
    };
    for (const Hit &hit : hits)
        slot(hit) = hit.entry;
    std::erase_if(hits, [&](const Hit &hit) {
        const std::uint32_t winner = slot(hit);
        if (hit.key->repeats == Repeats::Last)
            return hit.entry != winner;
        return vehicle.Entries()[hit.entry].file != vehicle.Entries()[winner].file;
    });
}

bool isReservedScript(std::string_view value)
{
    for (const char *const word :
         {"MSTS", "Automatic", "Manual", "Default", "PushButtons", "TwoStage"})
        if (Block::SameName(value, word))
            return true;
    return false;
}

/// True for a key whose value is a file with parameters, not a script.
bool holdsParameters(std::string_view key)
{
    constexpr std::string_view kParameters = "Parameters";
    return key.size() > kParameters.size() &&
           Block::SameName(key.substr(key.size() - kParameters.size()), kParameters);
}

Reference referenceTo(Kind kind, const Block &block, std::size_t value, int line)
{
    Reference reference;
    reference.kind = kind;
    reference.wants = block.Value(value);
    reference.line = line;
    reference.name.file = reference.wants;
    if (std::string literal = block.LiteralValue(value); literal != reference.wants)
        reference.otherReadings.push_back({{}, std::move(literal)});
    return reference;
}

/// A name with blanks and without quotes is read as several values; the last has the extension.
void addMeant(const Block &block, Reference &reference)
{
    constexpr std::size_t kLongest = 6;
    if (reference.wants.find('.') != std::string::npos)
        return;
    std::string joined = reference.wants;
    for (std::size_t i = 1; i < std::min(block.ValueCount(), kLongest); ++i) {
        joined += ' ' + block.Value(i);
        if (joined.find('.') != std::string::npos) {
            reference.meant.push_back({{}, joined});
            return;
        }
    }
}

void finishScript(std::string_view key, Reference &reference)
{
    if (holdsParameters(key)) { // whether another value names a file is not documented
        reference.notNeeded = !host::path::HasExtension(reference.wants, "ini");
        return;
    }
    reference.notNeeded = isReservedScript(reference.wants);
    if (host::path::HasExtension(reference.wants, "cs"))
        return;
    for (Reference::Name &other : reference.otherReadings)
        other.file += ".cs";
    reference.name.file += ".cs";
    reference.otherReadings.push_back({{}, reference.wants});
}

void addReferences(const Hit &hit, const Block &block, int line, Profiles profiles,
                   std::vector<Reference> &out)
{
    Reference reference = referenceTo(hit.key->kind, block, 0, line);
    reference.profiles = profiles & hit.key->readers;
    if (NamesNothing(reference.wants) || reference.profiles.Empty())
        return;
    addMeant(block, reference);
    if (reference.kind == Kind::Script)
        finishScript(hit.key->name, reference);
    const bool isWhole = reference.meant.empty();
    out.push_back(std::move(reference));
    if (hit.key->kind != Kind::Sound || !isWhole || !profiles.Has(Profile::OpenRails))
        return;
    for (std::size_t i = 1; i < block.ValueCount(); ++i) // only Open Rails reads more than one
        if (Reference more = referenceTo(Kind::Sound, block, i, line);
            host::path::HasExtension(more.wants, "sms")) {
            more.profiles = Profile::OpenRails;
            out.push_back(std::move(more));
        }
}

} // namespace

std::vector<VehicleReference> ReferencesOf(const Vehicle &vehicle, Profiles profiles)
{
    std::vector<Hit> hits = hitsOf(vehicle);
    dropReplaced(vehicle, hits);
    std::vector<LineCounter> lines;
    for (const Vehicle::File &file : vehicle.Files())
        lines.emplace_back(*file.source);
    std::vector<VehicleReference> references;
    std::vector<Reference> named;
    for (const Hit &hit : hits) {
        const Vehicle::Entry &entry = vehicle.Entries()[hit.entry];
        const Block block = vehicle.BlockOf(entry);
        named.clear();
        addReferences(hit, block, lines[entry.file].LineOf(block.Where()), profiles, named);
        for (Reference &reference : named)
            references.push_back({entry.file, std::move(reference), hit.entry});
    }
    return references;
}

} // namespace content
