// SPDX-License-Identifier: MIT
// Structured files: an unchanged file is written back byte for byte, and an edited one reads back
// as the same tree. The last bytes of the input choose the edits.
#include "host/GameFiles.h"
#include "stavfile/StfFile.h"

#include <algorithm>
#include <cstdint>
#include <cstdlib>
#include <string>

namespace {

host::GameFiles &files()
{
    static host::GameFiles all;
    return all;
}

void require(bool holds)
{
    if (!holds)
        std::abort();
}

std::string treeText(const StfNodes &nodes)
{
    std::string text;
    for (const StfNode node : nodes) {
        text += node.Name() + ':' + node.Label() + '(';
        const int values = node.NumParameters();
        // A lone empty value that was never quoted is not written.
        if (values != 1 || !node.Parameter(0).empty())
            for (int i = 0; i < values; ++i)
                text += '[' + node.Parameter(i) + ']';
        text += treeText(node.Children()) + ')';
    }
    return text;
}

void edit(const StfFile &file, std::uint8_t choice)
{
    StfNodes list = file.Nodes();
    StfNode node;
    for (unsigned depth = 0; depth < (choice >> 5) + 1u && list.Count() > 0; ++depth) {
        node = list.Item(1 + choice % list.Count());
        list = node.Children();
    }
    if (!node)
        return;
    const int place = list.Count() ? 1 + choice % list.Count() : 1;
    if (choice % 4 == 0 && list.Count() > 0) {
        const StfNode moved = list.Item(place);
        list.Remove(place);
        if (choice % 8 == 0)
            list.Add(moved);
    } else if (choice % 4 == 1) {
        StfNode made = StfNode::Create();
        made.SetName("New");
        list.Insert(made, place);
    } else if (node.NumParameters() > 0) {
        node.SetParameter(choice % node.NumParameters(), choice % 4 == 2 ? "a b" : "_x");
    } else {
        node.SetNumParameters(choice % 3);
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t *data, std::size_t size)
{
    const std::string bytes(reinterpret_cast<const char *>(data), size);
    StfFile file(files());
    file.LoadBytes(bytes);
    require(file.ToBytes() == bytes);
    // NUL padding of an 8-bit file becomes blanks if something is written after it.
    const bool padded =
        file.Encoding() >= stavfile::Encoding::Utf8 && bytes.find('\0') != bytes.npos;
    const bool editable = file.Form() == stavfile::Form::Text && !padded;
    const std::size_t edits = editable ? std::min<std::size_t>(size, 4) : 0;
    for (std::size_t i = 0; i < edits; ++i)
        edit(file, data[size - 1 - i]);
    StfFile again(files());
    again.LoadBytes(file.ToBytes());
    require(edits == 0 || treeText(again.Nodes()) == treeText(file.Nodes()));
    return 0;
}
