// SPDX-License-Identifier: MIT
#include "validation/UsageCheck.h"

#include "host/Path.h"
#include "host/RuntimeError.h"
#include "validation/Content.h"

#include <algorithm>

using stavfile::ValueAt;

namespace validation {
namespace {

/// The child of this name, or no object where there is no parent either.
StfNode childOf(const StfNode &parent, std::string_view name)
{
    return parent ? parent.Child(name) : StfNode();
}

/// Returns false if no value of a file can be this text. That is much cheaper than reading the
/// tree: most consists do not contain the name at all, with one byte for a character or two of
/// either order. Escapes and joins may hide it.
bool mayName(std::string_view bytes, std::string_view text)
{
    const auto isAscii = [](char c) { return static_cast<unsigned char>(c) < 0x80; };
    if (text.empty() || !std::all_of(text.begin(), text.end(), isAscii) ||
        bytes.find('\\') != bytes.npos || bytes.find('+') != bytes.npos)
        return true;
    std::string wide;
    for (const char c : text)
        wide.append({'\0', c});
    const bool mustBeWide = bytes.starts_with("\xFF\xFE") || bytes.starts_with("\xFE\xFF");
    return bytes.find(std::string_view(wide).substr(1)) != bytes.npos ||
           (!mustBeWide && bytes.find(text) != bytes.npos);
}

} // namespace

StockName StockName::Of(std::string_view stockPath)
{
    constexpr std::size_t kExtension = 4; // ".eng", ".wag"
    std::string_view name = host::path::FileName(stockPath);
    name.remove_suffix(std::min(kExtension, name.size()));
    return {std::string(name), std::string(host::path::FileName(host::path::Folder(stockPath)))};
}

ConsistUse UseInConsist(const Content &content, const std::string &consist, const StockName &stock)
{
    ConsistUse use;
    try {
        std::string bytes = content.Read(consist);
        if (!mayName(bytes, stock.base))
            return use;
        const StfFile file = content.TreeOf(std::move(bytes));
        if (file.TopNodes().Count() == 0 || file.TopNodes().Item(1).Children().Count() == 0)
            return use;
        VehicleWalk walk(file.TopNodes().Item(1).Children().Item(1));
        for (bool isFirst = true; !use.any && walk.Next(); isFirst = false) {
            use.any = stock.IsNamedBy(walk.Data());
            use.first = isFirst && use.any;
        }
    } catch (const host::RuntimeError &) {
        return use;
    }
    return use;
}

bool IsRunByService(const Content &content, const std::string &service, const std::string &consist)
{
    const StfFile file = content.TryLoad(service);
    const StfNode config = childOf(file.FindNode("Service_Definition"), "Train_Config");
    return config && ValueAt(config) == consist;
}

int UsesInActivity(const Content &content, const std::string &activity, const StockName &stock)
{
    int uses = 0;
    try {
        const StfFile file = content.Load(activity);
        const StfNode body = childOf(file.FindNode("Tr_Activity"), "Tr_Activity_File");
        const StfNode objects = childOf(body, "ActivityObjects");
        const int count = objects ? objects.Children().Count() : 0;
        for (int place = 1; place <= count; ++place) {
            const StfNode object = objects.Children().Item(place);
            if (ValueAt(object.Child("ObjectType")) != "WagonsList")
                continue;
            for (VehicleWalk walk(childOf(object.Child("Train_Config"), "TrainCfg")); walk.Next();)
                uses += stock.IsNamedBy(walk.Data()) ? 1 : 0;
        }
    } catch (const host::RuntimeError &) {
        return uses;
    }
    return uses;
}

} // namespace validation
