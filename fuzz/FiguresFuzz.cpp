// SPDX-License-Identifier: MIT
// Units and figures: the first byte chooses a measure and the rest is a value, or a vehicle file. A
// value that is given is finite. A figure is known only if it is finite and not negative; one with
// an entry has a line and a file.
#include "ScratchFile.h"
#include "content/TrainSheet.h"
#include "content/Units.h"

#include <cmath>
#include <cstdlib>

namespace {

void require(bool condition)
{
    if (!condition)
        std::abort();
}

void readValue(std::string_view text, content::Measure measure)
{
    const content::Quantity quantity = content::ReadQuantity(text, measure);
    require(!quantity.IsGiven() || std::isfinite(quantity.value));
    // A remark changes nothing.
    const content::Quantity remarked = content::ReadQuantity(std::string(text) + "#1t", measure);
    require(remarked.state == quantity.state &&
            (!quantity.IsGiven() || remarked.value == quantity.value));
}

void readVehicle(std::string_view bytes)
{
    static const ScratchFile file("x.eng");
    static host::GameFiles files;
    file.Write(bytes);
    host::Snapshot folders(files);
    content::FileStore store(folders);
    for (const content::Profile profile : content::kProfiles) {
        const auto names = content::FindVehicle(store, content::FolderOfPath(file.Path()), "x.eng");
        content::SheetVehicle vehicle;
        vehicle.name = "x/x.eng";
        vehicle.figures = content::FiguresOf(content::Vehicle(store, names, profile));
        for (const content::Figure &figure : vehicle.figures.figures) {
            require(!figure.IsKnown() || (std::isfinite(figure.value) && figure.value >= 0));
            require(figure.line == 0 || figure.file < vehicle.figures.files.size());
            require(figure.line > 0 || (!figure.IsKnown() && !figure.IsFaulty()));
        }
        content::TrainSheet sheet;
        sheet.Add(vehicle);
        require(sheet.Units() == 1);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    if (size == 0)
        return 0;
    const std::string_view rest(reinterpret_cast<const char *>(data) + 1, size - 1);
    if (data[0] < content::kMeasures)
        readValue(rest, static_cast<content::Measure>(data[0]));
    else
        readVehicle(std::string_view(reinterpret_cast<const char *>(data), size));
    return 0;
}
