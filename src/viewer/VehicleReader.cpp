// SPDX-License-Identifier: MIT
#include "viewer/VehicleReader.h"

#include "content/HealthSettings.h"
#include "content/Units.h"
#include "host/Path.h"
#include "host/RuntimeError.h"
#include "install/Environment.h"
#include "install/Installation.h"
#include "viewer/Numbers.h"

using content::Profile;

namespace viewer {
namespace {

constexpr std::size_t kLengthInSize = 2;

/// Replaces what a vehicle of Open Rails says otherwise than its base.
void applyTo(StockShape &stock, const content::Vehicle &vehicle, const std::string &folder,
             content::FileStore &store)
{
    if (const auto size = vehicle.FindBlock("Wagon/Size");
        size && size->ValueCount() > kLengthInSize)
        stock.length = size->Value(kLengthInSize);
    const auto shape = vehicle.FindBlock("Wagon/WagonShape");
    if (!shape || shape->Value().empty())
        return;
    stock.whyNoShape.clear();
    stock.shapeFile = content::PathIn(folder, shape->Value());
    const std::string literal = content::PathIn(folder, shape->LiteralValue());
    if (!store.Find(stock.shapeFile) && store.Find(literal))
        stock.shapeFile = literal;
}

/// Returns a radius in metres; 0 if there is none, or none that a wheel has.
float radiusOf(const content::Vehicle &vehicle, std::string_view path)
{
    constexpr double kLeast = 0.05, kLargest = 3;
    const auto value = vehicle.Find(path);
    if (!value)
        return 0;
    const content::Quantity radius = content::ReadQuantity(value->text, content::Measure::Length);
    return radius.IsGiven() && radius.value >= kLeast && radius.value <= kLargest
               ? static_cast<float>(radius.value)
               : 0.0F;
}

} // namespace

Reading ChosenReading(const install::Environment &environment)
{
    return {content::ShownProfile(environment.settings, environment.installation.CurrentFolder()),
            false};
}

VehicleReader::VehicleReader(host::GameFiles &files, Reading reading)
    : m_files(files)
    , m_reading(reading)
    , m_folders(files)
{
}

content::VehicleFiles VehicleReader::filesOf(const std::string &stockFile)
{
    const std::string path = host::path::Normalise(stockFile);
    const std::string folder = content::FolderOfPath(path);
    return content::FindVehicle(m_store, folder.empty() ? "." : folder,
                                std::string(host::path::FileName(path)));
}

bool VehicleReader::Exists(const std::string &stockFile)
{
    return m_files.FileExists(stockFile) ||
           (m_reading.profile == Profile::OpenRails && !filesOf(stockFile).overrideFile.empty());
}

StockShape VehicleReader::Shape(const std::string &stockFile)
{
    {
        const std::lock_guard lock(m_mutex);
        if (const auto known = m_shapes.find(stockFile); known != m_shapes.end())
            return known->second;
    }
    StockShape stock = readShape(stockFile);
    const std::lock_guard lock(m_mutex);
    m_shapes.emplace(stockFile, stock);
    return stock;
}

StockShape VehicleReader::readShape(const std::string &stockFile)
{
    if (m_reading.profile == Profile::Msts)
        return ReadStockShape(m_files, stockFile);
    const content::VehicleFiles files = filesOf(stockFile);
    const std::string &named = files.base.empty() ? files.overrideFile : stockFile;
    StockShape stock = ReadStockShape(m_files, named.empty() ? stockFile : named);
    applyTo(stock, content::Vehicle(m_store, files, Profile::OpenRails), files.folder, m_store);
    return stock;
}

std::optional<float> VehicleReader::Length(const std::string &stockFile)
{
    try {
        const StockShape stock = Shape(stockFile);
        return stock.length ? std::optional(LeadingNumber(*stock.length)) : std::nullopt;
    } catch (const host::RuntimeError &) {
        return std::nullopt;
    }
}

std::shared_ptr<const VehicleReader::Kept> VehicleReader::keptOf(const std::string &stockFile)
{
    std::shared_ptr<Kept> kept;
    {
        const std::lock_guard lock(m_mutex);
        auto &place = m_kept[stockFile];
        if (!place)
            place = std::make_shared<Kept>();
        kept = place;
    }
    std::call_once(kept->once, [&] { read(stockFile, *kept); });
    return kept;
}

Wheels VehicleReader::WheelsOf(const std::string &stockFile)
{
    return keptOf(stockFile)->wheels;
}

std::shared_ptr<const content::AddedShapes> VehicleReader::Added(const std::string &stockFile)
{
    const auto kept = keptOf(stockFile);
    return {kept, &kept->added};
}

std::shared_ptr<const content::VehicleLights> VehicleReader::Lights(const std::string &stockFile)
{
    const auto kept = keptOf(stockFile);
    return {kept, &kept->lights};
}

std::shared_ptr<const content::VehicleBoxes> VehicleReader::Boxes(const std::string &stockFile)
{
    const auto kept = keptOf(stockFile);
    return {kept, &kept->boxes};
}

void VehicleReader::read(const std::string &stockFile, Kept &kept)
{
    const content::VehicleFiles files = filesOf(stockFile);
    const Profile profile = m_reading.allAdded ? Profile::OpenRails : m_reading.profile;
    const content::Vehicle vehicle(m_store, files, profile);
    kept.added = content::AddedShapesOf(vehicle, files, m_store);
    kept.lights = content::LightsOf(vehicle);
    kept.boxes = content::BoxesOf(vehicle);
    kept.wheels = {radiusOf(vehicle, "Wagon/WheelRadius"), radiusOf(vehicle, "Engine/WheelRadius")};
}

StockShape ReadVehicleToShow(const install::Environment &environment, const std::string &stockFile)
{
    StockShape stock =
        VehicleReader(environment.files, ChosenReading(environment)).Shape(stockFile);
    if (!stock.whyNoShape.empty())
        throw host::RuntimeError(host::ErrorNumber::ObjectNotSet, stock.whyNoShape);
    return stock;
}

} // namespace viewer
