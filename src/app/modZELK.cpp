// SPDX-License-Identifier: MIT
#include "app/modZELK.h"

#include "app/CheckCommands.h"
#include "host/Folders.h"
#include "host/Product.h"

namespace modZELK {

namespace product = host::product;

std::string MainCaption()
{
    return std::string(product::kName) + " v" + product::ShownVersion();
}

std::string AboutCaption()
{
    return std::string(product::kName) + " V" + product::ShownVersion();
}

std::string TextWindowCaption(std::string_view title)
{
    if (title.starts_with('#'))
        return std::string(title.substr(1));
    return "Properties of " + std::string(title);
}

std::string SelectedItemsText(const std::vector<std::string> &selected)
{
    std::string text;
    for (const std::string &item : selected)
        text += (text.empty() ? "" : "|") + item;
    return text;
}

void ShowTextWindow(app::CheckHost &host, std::string_view title, const std::string &text)
{
    host.ShowResults(TextWindowCaption(title), text);
}

std::string MissingReferenceText(std::string_view file, std::string_view referringItem,
                                 std::string_view kind)
{
    return std::string(referringItem) + " references MISSING " + std::string(kind) + " file " +
           std::string(file);
}

float DegreesToRadians(float degrees)
{
    constexpr double kPi = 3.1415926535898;
    return static_cast<float>(degrees / 180.0 * kPi);
}

void WriteLog(std::string_view text)
{
    host::AppendTraceLine(text);
}

} // namespace modZELK
