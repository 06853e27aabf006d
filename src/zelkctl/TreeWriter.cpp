// SPDX-License-Identifier: MIT
#include "zelkctl/TreeWriter.h"

#include "stavfile/StfFile.h"
#include "zelkctl/Output.h"

#include <utility>

namespace zelkctl {
namespace {

/// Writes a tree while walking it. The reader limits the depth (kMaxBlockDepth), so that plain
/// recursion is safe.
class TreeWriter
{
public:
    explicit TreeWriter(Output &out)
        : m_out(out)
    {
    }

    void Write(const StfFile &file)
    {
        const std::string header = file.Header();
        m_out.Write("{\"header\":");
        if (header.empty())
            m_out.Write("null");
        else
            m_out.WriteJson(header);
        m_out.Write(",\"encoding\":");
        m_out.WriteJson(stavfile::EncodingName(file.Encoding()));
        m_out.Write(file.HasBom() ? ",\"bom\":true" : ",\"bom\":false");
        m_out.Write(",\"nodes\":");
        writeNodes(file.Nodes(), 1);
        m_out.Write(",\n\"notes\":");
        writeNotes(file.Notes());
        m_out.Write("}\n");
    }

private:
    void writeNodes(const StfNodes &nodes, std::size_t depth)
    {
        m_out.Write("[");
        const char *separator = "\n";
        for (const StfNode node : nodes) {
            m_out.Write(std::exchange(separator, ",\n"));
            m_out.Write(std::string(depth, ' '));
            writeNode(node, depth);
        }
        m_out.Write("]");
    }

    void writeNode(const StfNode &node, std::size_t depth)
    {
        m_out.Write("{\"name\":");
        m_out.WriteJson(node.Name());
        if (const std::string label = node.Label(); !label.empty()) {
            m_out.Write(",\"label\":");
            m_out.WriteJson(label);
        }
        m_out.Write(",\"values\":[");
        const int count = node.NumParameters();
        for (int index = 0; index < count; ++index) {
            if (index > 0)
                m_out.Write(",");
            m_out.WriteJson(node.Parameter(index));
        }
        m_out.Write("],\"children\":");
        writeNodes(node.Children(), depth + 1);
        m_out.Write("}");
    }

    void writeNotes(const std::vector<stavfile::Note> &notes)
    {
        const char *separator = "[\n {\"line\":";
        for (const stavfile::Note &note : notes) {
            m_out.Write(separator + std::to_string(note.line) + ",\"text\":");
            m_out.WriteJson(note.text);
            m_out.Write("}");
            separator = ",\n {\"line\":";
        }
        m_out.Write(notes.empty() ? "[]" : "]");
    }

    Output &m_out;
};

} // namespace

void WriteTree(const StfFile &file, Output &out)
{
    TreeWriter(out).Write(file);
}

} // namespace zelkctl
