// SPDX-License-Identifier: MIT
#include "viewer/ConsistLayout.h"

#include "host/Dialogs.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "viewer/AddShapes.h"
#include "viewer/Numbers.h"
#include "viewer/StockShape.h"
#include "viewer/TSView.h"

#include <array>
#include <charconv>

namespace viewer {
namespace {

constexpr const char *kLoadError = "Error Loading Shape";

/// Returns the length that a stock file gives. Throws error 6 with the file's name beyond single
/// precision.
std::optional<float> lengthOf(const StockShape &stock, const std::string &stockFile)
{
    if (!stock.length)
        return std::nullopt;
    try {
        return LeadingNumber(*stock.length);
    } catch (const host::RuntimeError &error) {
        throw host::RuntimeError(error.Code(), stockFile + ": the length is " + error.Detail() +
                                                   ", which is too large");
    }
}

std::string nameOf(std::size_t number, const install::StockItem &item, const StockShape &stock)
{
    const std::string title(host::TrimBlanks(stock.title));
    return std::to_string(number) + ". " + (title.empty() ? "" : title + " \u2013 ") + item.folder +
           '/' + item.shape;
}

} // namespace

ConsistLayout::ConsistLayout(const install::Environment &environment, std::string installFolder,
                             const StfNode &trainCfg, TSView &view,
                             std::shared_ptr<VehicleReader> vehicles)
    : m_environment(environment)
    , m_installFolder(std::move(installFolder))
    , m_view(view)
    , m_vehicles(std::move(vehicles))
    , m_random(std::random_device()())
{
    for (install::Unit unit : install::Units(trainCfg))
        m_units.push_back(std::move(unit));
}

std::vector<std::string> ConsistLayout::StockFiles() const
{
    std::vector<std::string> files;
    for (const install::Unit &unit : m_units) {
        try {
            files.push_back(install::StockPath(m_installFolder, unit.Item()));
        } catch (const host::RuntimeError &) {
            files.emplace_back(); // placing the unit reports the error
        }
    }
    return files;
}

bool ConsistLayout::Step()
{
    if (m_next == m_units.size())
        return false;
    const install::Unit unit = m_units[m_next++];
    try {
        place(unit);
    } catch (const std::exception &error) {
        m_environment.dialogs.Message(error.what(), kLoadError, host::DialogIcon::Critical);
    }
    return true;
}

void ConsistLayout::place(const install::Unit &unit)
{
    const install::StockItem item = unit.Item();
    const std::string stockFile = install::StockPath(m_installFolder, item);
    if (m_vehicles->Exists(stockFile))
        placeStock(stockFile, item, unit.IsFlipped());
    else
        m_environment.dialogs.Message(stockFile + " does not exist!", "LoadShape",
                                      host::DialogIcon::Critical);
}

void ConsistLayout::placeStock(const std::string &stockFile, const install::StockItem &item,
                               bool flipped)
{
    const StockShape stock = m_vehicles->Shape(stockFile);
    const std::optional<float> length = lengthOf(stock, stockFile);
    const float half = length.value_or(0) / 2;
    m_end = Finite(m_end - half);
    const float z = flipped ? -m_end : m_end, degrees = flipped ? -180.0f : 0.0f;
    const bool loaded = !stock.shapeFile.empty() && load(stock.shapeFile, item.shape, z, degrees);
    if (loaded)
        m_names.push_back(nameOf(m_next, item, stock));
    if (loaded && !length) {
        TSViewObject &object = m_view.Models.Item(m_view.Models.Count());
        const float halfShape = Finite(LengthOf(object)) / 2;
        object.SetZ(flipped ? z + halfShape : z - halfShape);
        m_end -= 2 * halfShape;
    }
    m_end = Finite(m_end - half);
    if (loaded)
        addShapes(stockFile, length, flipped);
    if (!stock.whyNoShape.empty())
        m_environment.dialogs.Message(stock.whyNoShape, kLoadError, host::DialogIcon::Critical);
}

bool ConsistLayout::load(const std::string &shapeFile, const std::string &name, float z,
                         float degrees)
{
    if (!m_view.LoadShapeInToViewer(freshKey(name), shapeFile, 0, 0, z, degrees))
        return false;
    collectProblems();
    return true;
}

void ConsistLayout::addShapes(const std::string &stockFile, std::optional<float> length,
                              bool flipped)
{
    TSViewObject &object = m_view.Models.Item(m_view.Models.Count());
    const bool before = m_next > 1, behind = m_next < m_units.size();
    const Ends ends{length.value_or(LengthOf(object)), flipped ? behind : before,
                    flipped ? before : behind, !before, !behind};
    AddMissing(AddShapes(object, *m_vehicles, stockFile, ends), m_lacks);
}

void ConsistLayout::collectProblems()
{
    AddMissing(m_view.Models.Item(m_view.Models.Count()).Model().Problems(), m_problems);
}

/// Returns the stock's name and a random number in [0, 1), so that two of a kind get two keys.
std::string ConsistLayout::freshKey(const std::string &name)
{
    const double number = std::uniform_real_distribution<double>(0, 1)(m_random);
    std::array<char, 32> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), number).ptr;
    return name + std::string(text.data(), end);
}

} // namespace viewer
