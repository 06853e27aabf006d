// SPDX-License-Identifier: MIT
#pragma once

#include "content/ReferenceRules.h"
#include "content/Vehicle.h"

#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace content {

/// An entry of a file that names another file.
struct Reference
{
    /// A name of a file.
    struct Name
    {
        std::string folder; ///< the folder, if the entry names it separately
        std::string file;   ///< with its extension; may hold a path
        friend bool operator==(const Name &, const Name &) = default;
    };

    Kind kind = Kind::Include;
    Profiles profiles = Profiles::Both(); ///< the simulators that read this entry
    bool notNeeded = false;               ///< the entry needs no file
    std::string wants;                    ///< the value without quotes and escapes
    Name name;
    /// Other valid readings of the entry, in order, for when `name` is not found.
    std::vector<Name> otherReadings;
    /// What the author probably meant but simulators do not read, such as a name with blanks and
    /// without quotes.
    std::vector<Name> meant;
    int line = 0; ///< 1-based; 0 if the file has no lines

    const ReferenceRule &Rule() const { return RuleOf(kind); }
};

/// True for a value that names nothing: it is empty or holds only blanks.
bool NamesNothing(std::string_view value);

/// A reference of a vehicle. `file` is an index into Vehicle::Files, `entry` the index of its block
/// in Vehicle::Entries.
struct VehicleReference
{
    std::size_t file = 0;
    Reference reference;
    std::uint32_t entry = 0;
};
/// Returns the references of a vehicle in file order. `profiles` are those for which it was read.
std::vector<VehicleReference> ReferencesOf(const Vehicle &vehicle, Profiles profiles);

/// Returns the wave files of a sound definition. An empty name is not a reference.
std::vector<Reference> ReferencesOfSound(const stavfile::Source &source);
/// Returns the images of a cab view. Those of digital displays are marked as not needed.
std::vector<Reference> ReferencesOfCabView(const stavfile::Source &source);
/// A unit of a consist.
struct UnitReference
{
    Reference reference;
    Block data; ///< EngineData, WagonData or EOTData
};
/// Returns the vehicles and end-of-train devices of a consist, including units outside the train
/// block if that was closed too early. Leaves out units whose data block `isKnown`.
std::vector<UnitReference> UnitsOfConsist(const stavfile::Source &source,
                                          const std::function<bool(const Block &data)> &isKnown);
/// Like UnitsOfConsist, but returns only the references, of all units.
std::vector<Reference> ReferencesOfConsist(const stavfile::Source &source);
/// Returns the consist of a service.
std::vector<Reference> ReferencesOfService(const stavfile::Source &source);
/// Returns the services, the traffic and the loose vehicles of an activity.
std::vector<Reference> ReferencesOfActivity(const stavfile::Source &source);

/// True if the file has the top-level block of its kind.
bool IsSound(const stavfile::Source &source);
bool IsCabView(const stavfile::Source &source);
bool IsVehicle(const Vehicle &vehicle);
bool IsConsist(const stavfile::Source &source);
bool IsService(const stavfile::Source &source);
bool IsActivity(const stavfile::Source &source);

/// Return the name that a consist or a service gives itself; "" if there is none.
std::string NameOfConsist(const stavfile::Source &source);
std::string NameOfService(const stavfile::Source &source);

/// Returns the reference of a shape to the descriptor beside it.
Reference ReferenceToDescriptor(const std::string &shape);
/// Returns ESD_Alternative_Texture of a shape descriptor; 0 if there is none.
std::uint32_t AlternativeTextures(const stavfile::Source &descriptor);
/// Returns the textures of a shape: each image once, with its seasons by the descriptor's bits.
std::vector<Reference> ReferencesOfShape(const std::vector<std::string> &images,
                                         std::uint32_t alternatives);

} // namespace content
