// SPDX-License-Identifier: MIT
// Compares the consist editor with a simple model of it: units in a vector. The input is a train
// followed by edits. After every edit both must agree, and the saved file must read back as the
// model predicts.
#include "ScratchFile.h"
#include "document/ConsistTree.h"
#include "host/RuntimeError.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>

namespace {

using document::Move;

struct Unit
{
    document::StockItem item;
    bool flipped = false;
};

struct Model
{
    std::vector<Unit> units;
    int counter = 0;
    bool hasCounter = false;

    void Press(Move move, int row, const document::StockItem &stock);
};

void Model::Press(Move move, int row, const document::StockItem &stock)
{
    const int count = static_cast<int>(units.size());
    const auto at = units.begin() + std::clamp(row - 1, 0, count);
    if (move == Move::Add) {
        units.push_back({stock, false});
        ++counter;
    } else if (move == Move::RemoveAll) {
        counter -= count;
        units.clear();
    } else if (row < 1 || row > count) {
        return;
    } else if (move == Move::Remove) {
        units.erase(at);
        --counter;
    } else if (move == Move::Forwards && row > 1) {
        std::iter_swap(at, at - 1);
    } else if (move == Move::Backwards && row < count) {
        std::iter_swap(at, at + 1);
    } else if (move == Move::Flip) {
        at->flipped = !at->flipped;
    }
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

void requireSame(const document::ConsistTree &tree, const Model &model)
{
    require(tree.Rows().size() == model.units.size());
    for (std::size_t i = 0; i < model.units.size(); ++i) {
        document::StockItem expected = model.units[i].item;
        expected.type += model.units[i].flipped ? "*" : "";
        require(tree.Rows()[i].item == expected);
    }
    const StfNode cfg = tree.Document().FindNode("Train").Child("TrainCfg");
    const StfNode counter = cfg.Child("NextWagonUID");
    require(static_cast<bool>(counter) == model.hasCounter);
    require(!counter || counter.Parameter(0) == std::to_string(model.counter));
}

document::StockItem stockFor(std::uint8_t choice)
{
    static const char *const kNames[] = {"a", "b c", "\xC3\xA9(", "x\"y", "+", "#", "_i", "1"};
    return {choice & 1 ? "Engine" : "Wagon", kNames[choice >> 1 & 7], kNames[choice >> 4 & 7]};
}

/// A train of up to seven units as authors write them, with other blocks between them.
std::string trainFor(std::uint8_t choice, std::uint8_t spice, Model &model)
{
    model.hasCounter = spice & 1;
    std::string text = "SIMISA@@@@@@@@@@JINX0D0t______\n\nTrain (\n TrainCfg ( \"x\"\n";
    text += spice & 2 ? " MaxVelocity ( 1 2 )\n" : " Name ( \"x\" )\n";
    if (model.hasCounter)
        text += "  NextWagonUID ( " + std::to_string(choice % 8) + " )\n";
    model.counter = model.hasCounter ? choice % 8 : 0;
    for (int i = 0; i < choice % 8; ++i) {
        const bool engine = (choice >> 3) + i & 1, flipped = spice >> 2 & i & 1;
        const std::string type = engine ? "Engine" : "Wagon", shape = "s" + std::to_string(i);
        text.append(type).append(flipped ? " ( Flip ( ) UiD ( 0 ) " : " ( UiD ( 0 ) ");
        text.append(type).append("Data ( ").append(shape).append(" \"my folder\" ) )\n");
        if (spice & 16)
            text += "  Comment ( Engine ( x ) )\n";
        model.units.push_back({{type, "my folder", shape}, flipped});
    }
    return text + " )\n)\n";
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static const ScratchFile file("x.con");
    static host::GameFiles files;
    if (size < 2)
        return 0;
    Model model;
    file.Write(trainFor(data[0], data[1], model));
    document::ConsistTree tree(files);
    tree.Load(file.Path());
    requireSame(tree, model);
    for (std::size_t i = 2; i + 1 < size && i < 200; i += 2) {
        const Move move = static_cast<Move>(data[i] % 6);
        const int row = data[i] / 6 % (static_cast<int>(model.units.size()) + 2);
        const document::StockItem stock = stockFor(data[i + 1]);
        require(tree.Edit(move, row, &stock).message.empty());
        model.Press(move, row, stock);
        requireSame(tree, model);
    }
    tree.Save(file.Path());
    document::ConsistTree again(files);
    again.Load(file.Path());
    requireSame(again, model);
    return 0;
}
