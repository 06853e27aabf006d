// SPDX-License-Identifier: MIT
// Clipboards: any content is refused as a whole, or it is units that can be pasted, copied and
// pasted again with the same result. The first byte chooses the form.
#include "Input.h"
#include "document/ConsistTree.h"
#include "document/UnitClipboard.h"
#include "host/GameFiles.h"
#include "host/Text.h"

#include <numeric>

namespace {

void paste(document::ConsistTree &consist, const std::vector<StfNode> &units)
{
    consist.New();
    const document::EditResult result = consist.Paste(units, 0);
    Require(!result.refused && consist.Rows().size() == units.size());
}

void requireSame(const document::ConsistTree &a, const document::ConsistTree &b)
{
    Require(a.Rows().size() == b.Rows().size());
    for (std::size_t i = 0; i < a.Rows().size(); ++i)
        Require(a.Rows()[i].item == b.Rows()[i].item);
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    static host::GameFiles files;
    Input input(data, size);
    const bool isText = input.Byte() & 1;
    const std::string content(input.Rest());
    if (isText && !host::IsValidUtf8(content))
        return 0; // clipboards hold text
    const std::vector<StfNode> units =
        isText ? document::UnitsInText(content) : document::UnitsInBlocks(content, files);
    if (units.empty() || units.size() > 200)
        return 0;
    document::ConsistTree first(files), second(files);
    paste(first, units);
    std::vector<int> rows(units.size());
    std::iota(rows.begin(), rows.end(), 1);
    const document::CopiedUnits copied = CopyUnits(first, rows, files);
    paste(second, document::UnitsInBlocks(copied.blocks, files));
    requireSame(first, second);
    if (isText) {
        paste(second, document::UnitsInText(copied.text));
        requireSame(first, second);
    }
    return 0;
}
