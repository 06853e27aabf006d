// SPDX-License-Identifier: MIT
// Includes: for any vehicle, override and included files, reading ends within its limits. Each
// include and each block belongs to a file that was read. The input is the files, with a byte 1
// between them.
#include "Input.h"
#include "ScratchFile.h"
#include "content/References.h"
#include "host/GameFiles.h"

namespace {

constexpr const char *kFiles[] = {"x.eng", "a.inc", "b.inc", "OpenRails/x.eng", "OpenRails/c.inc"};

void requireSound(const content::Vehicle &vehicle)
{
    const std::size_t files = vehicle.Files().size();
    Require((files == 0) == !vehicle.Fault().empty());
    Require(vehicle.Includes().size() <= content::kMaxIncludes + 1);
    Require(vehicle.Entries().size() <= content::kMaxVehicleBlocks);
    for (const content::Include &include : vehicle.Includes()) {
        Require(include.file < files && include.line > 0);
        Require((include.state == content::Include::State::Read) <= !include.foundAt.empty());
    }
    for (std::size_t i = 0; i < vehicle.Entries().size(); ++i) {
        const content::Vehicle::Entry &entry = vehicle.Entries()[i];
        Require(entry.file < files && (entry.parent == content::Vehicle::kTop || entry.parent < i));
    }
    for (const auto &each : content::ReferencesOf(vehicle, content::Profiles::Both()))
        Require(each.file < files && each.reference.line > 0 &&
                each.entry < vehicle.Entries().size());
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile scratch("x.eng");
    static host::GameFiles files;
    Input input(data, size);
    for (const char *name : kFiles)
        scratch.Write(name, input.TextBefore('\1'));
    host::Snapshot folders(files);
    content::FileStore store(folders);
    const auto names = content::FindVehicle(store, content::FolderOfPath(scratch.Path()), "x.eng");
    for (const content::Profile profile : content::kProfiles) {
        const content::Vehicle vehicle(store, names, profile);
        requireSound(vehicle);
        Require(profile == content::Profile::OpenRails || vehicle.Includes().empty());
        const content::Vehicle again(store, names, profile);
        Require(again.Entries().size() == vehicle.Entries().size());
    }
    return 0;
}
