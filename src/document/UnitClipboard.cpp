// SPDX-License-Identifier: MIT
#include "document/UnitClipboard.h"

#include "document/ConsistTree.h"
#include "host/RuntimeError.h"
#include "host/Text.h"
#include "install/modTS.h"
#include "stavfile/StfFile.h"

#include <algorithm>

namespace document {
namespace {

constexpr std::string_view kFlipped = ", flipped";

/// Characters that no folder and no file of stock has in its name.
constexpr std::string_view kNotInNames = "/\\\":*?<>|\t";

/// Returns the line without its end, and removes it from the text.
std::string_view takeLine(std::string_view &text)
{
    const std::size_t feed = text.find('\n');
    std::string_view line = text.substr(0, feed);
    text.remove_prefix(feed == text.npos ? text.size() : feed + 1);
    if (line.ends_with('\r'))
        line.remove_suffix(1);
    return host::TrimBlanks(line);
}

bool isName(std::string_view text)
{
    return !text.empty() && text.find_first_of(kNotInNames) == text.npos &&
           std::none_of(text.begin(), text.end(),
                        [](char c) { return static_cast<unsigned char>(c) < 0x20; });
}

/// Returns no object if the line is not one of CopiedUnits.
StfNode unitIn(std::string_view line)
{
    const bool flipped = line.ends_with(kFlipped);
    if (flipped)
        line.remove_suffix(kFlipped.size());
    constexpr std::size_t kExtension = 4;
    const std::size_t slash = line.find('/');
    if (slash == line.npos || line.size() - slash <= kExtension)
        return {};
    const std::string extension = host::ToLower(line.substr(line.size() - kExtension));
    const std::string_view folder = line.substr(0, slash),
                           shape = line.substr(slash + 1, line.size() - slash - 1 - kExtension);
    if (!isName(folder) || !isName(shape) || (extension != ".eng" && extension != ".wag"))
        return {};
    const StfNode unit = NewUnit(extension == ".eng" ? install::kEngine : install::kWagon,
                                 std::string(shape), std::string(folder));
    if (flipped)
        unit.Children().Insert(NewFlip(), 1);
    return unit;
}

bool isUnit(const StfNode &block)
{
    try {
        const std::string kind = block.Name();
        return (kind == install::kEngine || kind == install::kWagon) &&
               !install::Unit(block).Item().shape.empty();
    } catch (const host::RuntimeError &) {
        return false;
    }
}

} // namespace

StfNode NewUnit(const std::string &kind, const std::string &shape, const std::string &folder)
{
    StfNode unit = StfNode::Create();
    unit.SetName(kind);
    modTS::AddNode(unit.Children(), "UiD", {"0"});
    modTS::AddNode(unit.Children(), kind + "Data", {shape, folder});
    return unit;
}

CopiedUnits CopyUnits(const ConsistTree &consist, const std::vector<int> &rows,
                      host::GameFiles &files)
{
    CopiedUnits copied;
    StfFile file(files);
    file.New();
    // Two blocks around the units indent the lines of new units as deeply as a consist file does.
    StfNodes units =
        modTS::AddNode(modTS::AddNode(file.Nodes(), install::kTrain).Children(), install::kTrainCfg)
            .Children();
    const StfNodes children = install::RequireTrain(consist.Document()).Children();
    for (const int row : rows) {
        const ConsistRow &shown = consist.Rows()[static_cast<std::size_t>(row - 1)];
        units.Add(children.Item(shown.position));
        copied.text += shown.item.folder + '/' +
                       install::StockFileName(shown.item.type, shown.item.shape) +
                       std::string(shown.item.type.ends_with('*') ? kFlipped : "") + '\n';
    }
    copied.blocks = file.ToBytes();
    return copied;
}

std::vector<StfNode> UnitsInBlocks(std::string bytes, host::GameFiles &files)
{
    StfFile file(files);
    file.LoadBytes(std::move(bytes));
    std::vector<StfNode> units;
    const StfNode train = install::FindTrain(file);
    if (!train || file.Nodes().Count() != 1 || file.Nodes().First().Children().Count() != 1)
        return {};
    for (const StfNode block : train.Children()) {
        if (!isUnit(block))
            return {};
        units.push_back(block);
    }
    return units;
}

std::vector<StfNode> UnitsInText(std::string_view text)
{
    std::vector<StfNode> units;
    while (!text.empty()) {
        const std::string_view line = takeLine(text);
        if (line.empty())
            continue;
        units.push_back(unitIn(line));
        if (!units.back())
            return {};
    }
    return units;
}

} // namespace document
