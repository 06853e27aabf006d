// SPDX-License-Identifier: MIT
#include "ui/main/WindowSettings.h"

#include "host/Number.h"
#include "host/Settings.h"
#include "host/Text.h"

#include <algorithm>
#include <optional>
#include <string>

namespace app {

namespace {

constexpr std::string_view kSection = "Windows";
constexpr std::string_view kMaximised = "MainMaximised", kNormal = "MainNormalBounds",
                           kConsist = "ConsistColumns", kStock = "StockColumns",
                           kOrder = "StockOrder", kConsistFigures = "ConsistFigures",
                           kStockFigures = "StockFigures", kUnits = "Units", kPreview = "Preview",
                           kStockPictures = "StockPictures", kLoads = "FreightLoads";
constexpr int kFarthest = 100000; ///< beyond any screen

using Numbers = std::vector<int>;

/// Returns the numbers of a setting; none if any word is not a number or is beyond any screen.
Numbers read(host::SettingsStore &settings, std::string_view key)
{
    Numbers numbers;
    const std::string text = settings.ReadFrom(kSection, key).value_or(std::string());
    for (const std::string &word : host::Split(text, ' ')) {
        const std::optional<int> number = host::NumberIn<int>(word);
        if (!number || *number < -kFarthest || *number > kFarthest)
            return {};
        numbers.push_back(*number);
    }
    return numbers;
}

using Figures = std::vector<document::ShownFigure>;

/// Returns the columns of a setting, which holds each column and its width.
Figures readFigures(host::SettingsStore &settings, std::string_view key)
{
    const Numbers numbers = read(settings, key);
    Figures figures;
    for (std::size_t i = 0; i + 1 < numbers.size(); i += 2)
        figures.push_back({numbers[i], numbers[i + 1]});
    return figures;
}

Numbers numbersOf(const Figures &figures)
{
    Numbers numbers;
    for (const document::ShownFigure &figure : figures)
        numbers.insert(numbers.end(), {figure.column, figure.width});
    return numbers;
}

void write(host::SettingsStore &settings, std::string_view key, const Numbers &numbers)
{
    std::string text;
    for (const int number : numbers)
        text += (text.empty() ? "" : " ") + std::to_string(number);
    if (settings.ReadFrom(kSection, key).value_or(std::string()) != text)
        settings.WriteTo(kSection, key, text);
}

} // namespace

WindowSettings ReadWindowSettings(host::SettingsStore &settings)
{
    WindowSettings windows;
    windows.maximised = read(settings, kMaximised) == Numbers{1};
    if (const Numbers bounds = read(settings, kNormal); bounds.size() == 4)
        windows.normal = QRect(bounds[0], bounds[1], bounds[2], bounds[3]);
    windows.loads = read(settings, kLoads) != Numbers{0};
    windows.editors.consistWidths = read(settings, kConsist);
    windows.editors.stockWidths = read(settings, kStock);
    if (const Numbers order = read(settings, kOrder); order.size() == 2)
        windows.editors.stockOrder = {order[0], order[1] != 0};
    windows.editors.consistFigures = readFigures(settings, kConsistFigures);
    windows.editors.stockFigures = readFigures(settings, kStockFigures);
    if (const Numbers units = read(settings, kUnits); units.size() == 1)
        windows.editors.units = units[0];
    windows.editors.preview = read(settings, kPreview) == Numbers{1};
    windows.editors.stockPictures = read(settings, kStockPictures) == Numbers{1};
    return windows;
}

void WriteWindowSettings(host::SettingsStore &settings, const WindowSettings &windows)
{
    const QRect &normal = windows.normal;
    const document::StockOrder &order = windows.editors.stockOrder;
    write(settings, kMaximised, windows.maximised ? Numbers{1} : Numbers{});
    write(settings, kNormal,
          windows.maximised ? Numbers{normal.x(), normal.y(), normal.width(), normal.height()}
                            : Numbers{});
    write(settings, kLoads, windows.loads ? Numbers{} : Numbers{0});
    write(settings, kConsist, windows.editors.consistWidths);
    write(settings, kStock, windows.editors.stockWidths);
    write(settings, kOrder,
          order.column >= 0 ? Numbers{order.column, order.ascending ? 1 : 0} : Numbers{});
    write(settings, kConsistFigures, numbersOf(windows.editors.consistFigures));
    write(settings, kStockFigures, numbersOf(windows.editors.stockFigures));
    write(settings, kUnits,
          windows.editors.units >= 0 ? Numbers{windows.editors.units} : Numbers{});
    write(settings, kPreview, windows.editors.preview ? Numbers{1} : Numbers{});
    write(settings, kStockPictures, windows.editors.stockPictures ? Numbers{1} : Numbers{});
}

} // namespace app
