// SPDX-License-Identifier: MIT
#include "TreeText.h"

std::string TreeText(const StfNodes &nodes)
{
    std::string text;
    for (const StfNode node : nodes) {
        text += (text.empty() ? "" : " ") + node.Name();
        if (!node.Label().empty())
            text += ':' + node.Label();
        text += '(';
        const int values = node.NumParameters();
        const bool none = values == 0 || (values == 1 && node.Parameter(0).empty());
        for (int i = 0; i < values && !none; ++i)
            text += (i ? "|" : "") + node.Parameter(i);
        if (node.Children().Count() > 0)
            text += (none ? "" : " ") + TreeText(node.Children());
        text += ')';
    }
    return text;
}

std::string TreeOf(std::string text)
{
    return TreeText(MemoryFile(std::move(text)).file.Nodes());
}

std::string NotesOf(std::string text)
{
    std::string all;
    const MemoryFile memory(std::move(text));
    for (const stavfile::Note &note : memory.file.Notes())
        all += std::to_string(note.line) + ": " + note.text + '\n';
    return all;
}

std::string WithHeader(std::string_view body)
{
    return std::string(kHeader).append(body);
}

std::string Utf16(std::string_view text, bool bigEndian)
{
    std::string bytes = bigEndian ? "\xFE\xFF" : "\xFF\xFE";
    for (const char c : text)
        bytes.append(bigEndian ? std::string{'\0', c} : std::string{c, '\0'});
    return bytes;
}
