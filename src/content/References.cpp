// SPDX-License-Identifier: MIT
#include "content/References.h"

#include "host/GameFiles.h"
#include "host/Number.h"
#include "host/Path.h"
#include "host/Text.h"
#include "install/Train.h"

#include <algorithm>
#include <set>

namespace content {
namespace {

constexpr std::string_view kEot = "Eot";

constexpr std::size_t kMaxJoined = 6; ///< maximum words of a name without quotes

/// Appends the extension if it is not "" and the name lacks it.
std::string withExtension(std::string name, std::string_view extension)
{
    if (!extension.empty() && !host::path::HasExtension(name, extension))
        name.append(".").append(extension);
    return name;
}

/// Returns the first two, three, ... values of a block, joined by blanks.
std::vector<std::string> joinedValues(const Block &block)
{
    std::vector<std::string> joined;
    const std::size_t count = std::min(block.ValueCount(), kMaxJoined);
    std::string text = block.Value();
    for (std::size_t i = 1; i < count; ++i) {
        text += ' ' + block.Value(i);
        joined.push_back(text);
    }
    return joined;
}

/// Returns a reference to the file that one value of a block names.
Reference toFile(Kind kind, const Block &block, LineCounter &lines, std::size_t value = 0,
                 std::string_view extension = {})
{
    Reference reference;
    reference.kind = kind;
    reference.wants = block.Value(value);
    reference.line = lines.LineOf(block.Where());
    reference.name.file = withExtension(reference.wants, extension);
    std::string literal = withExtension(block.LiteralValue(value), extension);
    if (literal != reference.name.file)
        reference.otherReadings.push_back({{}, std::move(literal)});
    if (value == 0 && block.ValueCount() > 1)
        for (std::string &joined : joinedValues(block))
            reference.meant.push_back({{}, withExtension(std::move(joined), extension)});
    return reference;
}

/// Calls `visit` for all blocks of a file, at any depth, in file order.
template <typename Visit> void everyBlock(const stavfile::Source &source, const Visit &visit)
{
    const auto count = static_cast<std::uint32_t>(source.records.Size());
    for (std::uint32_t record = 0; record < count; ++record)
        visit(Block(source, record));
}

bool hasTop(const stavfile::Source &source, std::string_view name)
{
    for (const Block block : TopBlocks(source))
        if (block.Is(name))
            return true;
    return false;
}

/// Returns the first value of a block below a top-level block; "" if there is none.
std::string valueAt(const stavfile::Source &source, std::string_view top, std::string_view name)
{
    for (const Block block : TopBlocks(source)) {
        Block found = block;
        if (block.Is(top) && block.Find(name, found))
            return found.Value();
    }
    return {};
}

/// Returns the reference of a unit's data block: EngineData, WagonData or EOTData.
Reference toUnit(Kind kind, const Block &data, std::string_view type, LineCounter &lines)
{
    Reference reference;
    reference.kind = type == kEot ? Kind::ConsistEot : kind;
    reference.line = lines.LineOf(data.Where());
    const std::string name = data.Value(0), folder = data.Value(1);
    reference.wants = data.ValueCount() > 1 ? name + ' ' + folder : name;
    reference.name = {folder, install::StockFileName(type, name)};
    if (data.ValueCount() == 3) { // one of the two names has a blank but no quotes
        reference.meant.push_back({folder + ' ' + data.Value(2), reference.name.file});
        reference.meant.push_back(
            {data.Value(2), install::StockFileName(type, name + ' ' + folder)});
    }
    return reference;
}

/// Returns the kind of stock that a data block names: Engine, Wagon or Eot; "" for other blocks.
std::string_view typeOfUnit(const Block &block)
{
    if (block.Is("EngineData"))
        return install::kEngine;
    if (block.Is("WagonData"))
        return install::kWagon;
    return block.Is("EOTData") ? kEot : std::string_view();
}

bool isDigital(std::string_view control)
{
    return Block::SameName(control, "Digital") || Block::SameName(control, "DigitalClock");
}

struct Season
{
    std::uint32_t bit;
    const char *folder;
};
/// Both bits for snow use the folder Snow.
constexpr Season kSeasons[] = {{0x01, "Snow"},       {0x02, "Snow"},       {0x04, "Spring"},
                               {0x08, "Autumn"},     {0x10, "Winter"},     {0x20, "SpringSnow"},
                               {0x40, "AutumnSnow"}, {0x80, "WinterSnow"}, {0x100, "Night"}};

void addSeasons(const std::string &image, std::uint32_t alternatives,
                std::vector<Reference> &references)
{
    const char *last = "";
    for (const Season &season : kSeasons) {
        if (!(alternatives & season.bit) || std::string_view(last) == season.folder)
            continue;
        last = season.folder;
        Reference reference;
        reference.kind = Kind::SeasonTexture;
        reference.wants = std::string(season.folder) + '/' + image;
        reference.name = {season.folder, image};
        references.push_back(std::move(reference));
    }
}

} // namespace

bool NamesNothing(std::string_view value)
{
    return value.find_first_not_of(" \t") == value.npos;
}

std::vector<Reference> ReferencesOfSound(const stavfile::Source &source)
{
    std::vector<Reference> found;
    LineCounter lines(source);
    everyBlock(source, [&](const Block &block) {
        if (!block.Is("File") || NamesNothing(block.Value()))
            return;
        Reference reference = toFile(Kind::SoundFile, block, lines);
        reference.meant.clear(); // the values after the name are numbers
        if (reference.wants.find('.') == std::string::npos)
            reference.otherReadings.push_back({{}, reference.wants + ".wav"});
        found.push_back(std::move(reference));
    });
    return found;
}

std::vector<Reference> ReferencesOfCabView(const stavfile::Source &source)
{
    std::vector<Reference> found;
    LineCounter lines(source);
    std::uint32_t digitalEnd = 0; // records before this are in a digital display
    everyBlock(source, [&](const Block &block) {
        if (isDigital(block.Name()))
            digitalEnd = source.records[block.Record()].next;
        const bool isImage = block.Is("CabViewFile") || block.Is("CabViewWindowFile") ||
                             block.Is("Graphic") || block.Is("FuelCoal");
        if (!isImage || NamesNothing(block.Value()))
            return;
        found.push_back(toFile(Kind::CabImage, block, lines));
        found.back().notNeeded = block.Record() < digitalEnd;
    });
    return found;
}

std::vector<UnitReference> UnitsOfConsist(const stavfile::Source &source,
                                          const std::function<bool(const Block &data)> &isKnown)
{
    std::vector<UnitReference> found;
    LineCounter lines(source);
    everyBlock(source, [&](const Block &block) {
        const std::string_view type = typeOfUnit(block);
        if (!type.empty() && block.ValueCount() > 0 && !(isKnown && isKnown(block)))
            found.push_back({toUnit(Kind::ConsistVehicle, block, type, lines), block});
    });
    return found;
}

std::vector<Reference> ReferencesOfConsist(const stavfile::Source &source)
{
    std::vector<Reference> found;
    for (UnitReference &unit : UnitsOfConsist(source, {}))
        found.push_back(std::move(unit.reference));
    return found;
}

std::vector<Reference> ReferencesOfService(const stavfile::Source &source)
{
    std::vector<Reference> found;
    LineCounter lines(source);
    for (const Block top : TopBlocks(source)) {
        Block config = top;
        if (top.Is("Service_Definition") && top.Find("Train_Config", config) &&
            !NamesNothing(config.Value()))
            found.push_back(toFile(Kind::ServiceConsist, config, lines, 0, "con"));
    }
    return found;
}

std::vector<Reference> ReferencesOfActivity(const stavfile::Source &source)
{
    std::vector<Reference> found;
    LineCounter lines(source);
    std::uint32_t trafficEnd = 0; // records before this are in a traffic definition
    everyBlock(source, [&](const Block &block) {
        const bool inTraffic = block.Record() < trafficEnd;
        if (block.Is("Traffic_Definition"))
            trafficEnd = source.records[block.Record()].next;
        if (const std::string_view type = typeOfUnit(block); !type.empty()) {
            if (block.ValueCount() > 0)
                found.push_back(toUnit(Kind::ActivityVehicle, block, type, lines));
            return;
        }
        const bool isTraffic = block.Is("Traffic_Definition");
        const bool isService =
            block.Is("Player_Service_Definition") || (inTraffic && block.Is("Service_Definition"));
        if ((isTraffic || isService) && !NamesNothing(block.Value()))
            found.push_back(isTraffic ? toFile(Kind::ActivityTraffic, block, lines, 0, "trf")
                                      : toFile(Kind::ActivityService, block, lines, 0, "srv"));
    });
    return found;
}

bool IsSound(const stavfile::Source &source)
{
    return hasTop(source, "Tr_SMS");
}

bool IsCabView(const stavfile::Source &source)
{
    return hasTop(source, "Tr_CabViewFile");
}

bool IsVehicle(const Vehicle &vehicle)
{
    return std::any_of(vehicle.Entries().begin(), vehicle.Entries().end(), [&](const auto &entry) {
        return entry.parent == Vehicle::kTop && vehicle.BlockOf(entry).Is("Wagon");
    });
}

bool IsConsist(const stavfile::Source &source)
{
    return hasTop(source, "Train");
}

bool IsService(const stavfile::Source &source)
{
    return hasTop(source, "Service_Definition");
}

bool IsActivity(const stavfile::Source &source)
{
    return hasTop(source, "Tr_Activity");
}

std::string NameOfConsist(const stavfile::Source &source)
{
    for (const Block block : TopBlocks(source)) {
        Block found = block;
        if (block.Is("Train") && block.Find("TrainCfg", found) && found.Find("Name", found))
            return found.Value();
    }
    return {};
}

std::string NameOfService(const stavfile::Source &source)
{
    return valueAt(source, "Service_Definition", "Name");
}

Reference ReferenceToDescriptor(const std::string &shape)
{
    Reference reference;
    reference.kind = Kind::Descriptor;
    reference.wants = std::string(host::path::FileName(shape)) + 'd';
    reference.name.file = reference.wants;
    return reference;
}

std::uint32_t AlternativeTextures(const stavfile::Source &descriptor)
{
    const std::string value = valueAt(descriptor, "shape", "ESD_Alternative_Texture");
    const auto number = host::NumberIn<double>(value);
    constexpr std::uint32_t kAll = 0x1FF;
    return number && *number >= 0 && *number <= UINT32_MAX
               ? static_cast<std::uint32_t>(*number) & kAll
               : 0;
}

std::vector<Reference> ReferencesOfShape(const std::vector<std::string> &images,
                                         std::uint32_t alternatives)
{
    std::vector<Reference> references;
    std::set<std::string> seen;
    for (const std::string &image : images) {
        if (NamesNothing(image) || !seen.insert(host::ToUpper(image)).second)
            continue;
        Reference reference;
        reference.kind = Kind::Texture;
        reference.wants = image;
        reference.name.file = image;
        references.push_back(std::move(reference));
        addSeasons(image, alternatives, references);
    }
    return references;
}

} // namespace content
