// SPDX-License-Identifier: MIT
#include "ShapeText.h"

#include <cstdint>
#include <cstdio>
#include <string_view>

namespace bench {
namespace {

/// Appends ASCII text as UTF-16LE.
void append(std::string &out, std::string_view text)
{
    for (const char c : text) {
        out += c;
        out += '\0';
    }
}

/// Writes the same blocks in all three notations at once.
class Writer
{
public:
    explicit Writer(ShapeText &text)
        : m_text(text)
    {
        for (std::string *out : {&m_text.structured, &m_text.xml, &m_text.xmlValues})
            *out = "\xff\xfe";
        append(m_text.structured, "SIMISA@@@@@@@@@@JINX0s1t______\r\n\r\n");
    }
    void Open(std::string_view name)
    {
        append(m_text.structured, std::string(name) + " ( ");
        append(m_text.xml, "<" + std::string(name) + ">");
        append(m_text.xmlValues, "<" + std::string(name) + ">");
    }
    void Value(std::string_view value)
    {
        append(m_text.structured, std::string(value) + " ");
        append(m_text.xml, std::string(value) + " ");
        append(m_text.xmlValues, "<v>" + std::string(value) + "</v>");
    }
    void Close(std::string_view name)
    {
        append(m_text.structured, ")\r\n");
        append(m_text.xml, "</" + std::string(name) + ">\r\n");
        append(m_text.xmlValues, "</" + std::string(name) + ">\r\n");
    }

private:
    ShapeText &m_text;
};

/// Numbers that look like coordinates and are the same in every run.
class Numbers
{
public:
    std::string Next()
    {
        m_state = m_state * 6364136223846793005u + 1442695040888963407u;
        const double value = static_cast<double>(static_cast<std::int32_t>(m_state >> 32)) / 2e8;
        char text[32];
        std::snprintf(text, sizeof text, "%.6g", value);
        return text;
    }

private:
    std::uint64_t m_state = 1;
};

void writeBlock(Writer &writer, Numbers &numbers, std::string_view name, int values)
{
    writer.Open(name);
    for (int i = 0; i < values; ++i)
        writer.Value(numbers.Next());
    writer.Close(name);
}

/// A part of a shape with the usual mixture of blocks: mostly points, normals and vertices of few
/// values, and lists of indexes.
void writePart(Writer &writer, Numbers &numbers)
{
    constexpr int kVertices = 500;
    writer.Open("points");
    for (int i = 0; i < kVertices; ++i)
        writeBlock(writer, numbers, "point", 3);
    writer.Close("points");
    writer.Open("vertices");
    for (int i = 0; i < kVertices; ++i) {
        writer.Open("vertex");
        for (const char *value : {"00000000", "12", "31", "ff969696", "ff808080"})
            writer.Value(value);
        writeBlock(writer, numbers, "vertex_uvs", 2);
        writer.Close("vertex");
    }
    writer.Close("vertices");
    writer.Open("vertex_idxs");
    for (int i = 0; i < 3 * kVertices; ++i)
        writer.Value(std::to_string(i));
    writer.Close("vertex_idxs");
}

} // namespace

ShapeText MakeShapeText(std::size_t bytes)
{
    ShapeText text;
    Writer writer(text);
    Numbers numbers;
    writer.Open("shape");
    while (text.structured.size() < bytes)
        writePart(writer, numbers);
    writer.Close("shape");
    return text;
}

std::string MakeConsistText(std::size_t bytes)
{
    std::string out = "\xff\xfe";
    append(out, "SIMISA@@@@@@@@@@JINX0D0t______\r\n\r\nTrain (\r\n\tTrainCfg ( Bench\r\n"
                "\t\tName ( Bench )\r\n\t\tMaxVelocity ( 40.00000 1.00000 )\r\n");
    for (int unit = 0; out.size() < bytes; ++unit)
        append(out, "\t\tWagon (\r\n\t\t\tWagonData ( boxcar" + std::to_string(unit % 50) +
                        " \"Stock Folder " + std::to_string(unit % 20) + "\" )\r\n\t\t\tUiD ( " +
                        std::to_string(unit) + " )\r\n\t\t)\r\n");
    append(out, "\t)\r\n)\r\n");
    return out;
}

} // namespace bench
