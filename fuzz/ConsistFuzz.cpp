// SPDX-License-Identifier: MIT
// Compares the editing buttons with a simple model: units in a vector and the unit counter. The
// input is a train followed by edits of single rows. After every edit both must agree, and the
// bytes of a save must read back as the model predicts.
#include "Trains.h"
#include "host/GameFiles.h"

namespace {

using document::Move;

struct Model
{
    std::vector<ModelUnit> units;
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

void requireSame(const document::ConsistTree &tree, const Model &model)
{
    RequireRows(tree, model.units);
    const StfNode cfg = tree.Document().FindNode("Train").Child("TrainCfg");
    const StfNode counter = cfg.Child("NextWagonUID");
    Require(static_cast<bool>(counter) == model.hasCounter);
    Require(!counter || counter.Parameter(0) == std::to_string(model.counter));
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static host::GameFiles files;
    Input input(data, size);
    const std::uint8_t choice = input.Byte(), spice = input.Byte();
    Model model;
    const std::string text = TrainFor(choice, spice, model.units);
    model.hasCounter = spice & 1;
    model.counter = model.hasCounter ? choice % 8 : 0;
    document::ConsistTree tree(files);
    tree.Restore({}, text, false);
    requireSame(tree, model);
    for (int edits = 0; !input.IsAtEnd() && edits < 100; ++edits) {
        const std::uint8_t what = input.Byte();
        const Move move = static_cast<Move>(what % 6);
        const int row = what / 6 % (static_cast<int>(model.units.size()) + 2);
        const document::StockItem stock = StockFor(input.Byte());
        Require(tree.Edit(move, row, &stock).message.empty());
        model.Press(move, row, stock);
        requireSame(tree, model);
    }
    document::ConsistTree again(files);
    again.Restore({}, tree.Document().ToBytes(), false);
    requireSame(again, model);
    return 0;
}
