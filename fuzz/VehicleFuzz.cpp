// SPDX-License-Identifier: MIT
// Vehicles: for any bytes, includes are resolved within their limits, also those of the file
// itself, and each reference has a name and a line.
#include "ScratchFile.h"
#include "content/References.h"

#include <cstdlib>

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile file("x.wag");
    static host::GameFiles files;
    file.Write({reinterpret_cast<const char *>(data), size});
    host::Snapshot folders(files);
    content::FileStore store(folders);
    const content::VehicleFiles names{content::FolderOfPath(file.Path()), file.Path(), {}};
    const content::Vehicle vehicle(store, names, content::Profile::OpenRails);
    if (vehicle.Includes().size() > content::kMaxIncludes + 1)
        std::abort();
    for (const auto &each : content::ReferencesOf(vehicle, content::Profiles::Both()))
        if (each.reference.wants.empty() || each.reference.line < 1 ||
            each.file >= vehicle.Files().size())
            std::abort();
    return 0;
}
