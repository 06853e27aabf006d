// SPDX-License-Identifier: MIT
#include "validation/UsageCheck.h"

#include "host/RuntimeError.h"
#include "validation/Content.h"

#include <algorithm>

using install::StockName;
using stavfile::ChildOf;
using stavfile::ValueAt;

namespace validation {
namespace {

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

/// Returns the first block inside a consist's first block, whatever their names; no object if there
/// is none.
StfNode firstTrain(const StfFile &consist)
{
    const StfNode top = consist.TopNodes().First();
    return top ? top.Children().First() : StfNode();
}

} // namespace

ConsistUse UseInConsist(Content &content, const std::string &consist, const StockName &stock)
{
    try {
        Content::Lent file(content);
        content.Read(consist, file);
        if (!mayName(file.Bytes(), stock.base))
            return {};
        const StfNode train = firstTrain(content.TreeOf(std::move(file.Bytes())));
        bool isFirst = true;
        for (const install::Unit unit : install::Units(train)) {
            if (unit.Names(stock))
                return {isFirst, true};
            isFirst = false;
        }
    } catch (const host::RuntimeError &) {
        return {};
    }
    return {};
}

bool IsRunByService(const Content &content, const std::string &service, const std::string &consist)
{
    const StfFile file = content.TryLoad(service);
    const StfNode config = ChildOf(file.FindNode("Service_Definition"), install::kTrainConfig);
    return config && ValueAt(config) == consist;
}

int UsesInActivity(const Content &content, const std::string &activity, const StockName &stock)
{
    int uses = 0;
    try {
        const StfFile file = content.Load(activity);
        const StfNode body = ChildOf(file.FindNode("Tr_Activity"), "Tr_Activity_File");
        const StfNode objects = ChildOf(body, "ActivityObjects");
        if (!objects)
            return uses;
        for (const StfNode object : objects.Children()) {
            if (ValueAt(object.Child("ObjectType")) != "WagonsList")
                continue;
            const StfNode config = object.Child(install::kTrainConfig);
            for (const install::Unit unit : install::Units(ChildOf(config, install::kTrainCfg)))
                uses += unit.Names(stock) ? 1 : 0;
        }
    } catch (const host::RuntimeError &) {
        return uses;
    }
    return uses;
}

} // namespace validation
