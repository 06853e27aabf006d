// SPDX-License-Identifier: MIT
#include "document/SavedValues.h"

#include <utility>

namespace document {
namespace {

std::vector<std::string> textsOf(const StfNode &node)
{
    std::vector<std::string> texts;
    for (int i = 0; node && i < node.NumParameters(); ++i) {
        const std::string value = node.Parameter(i);
        const bool quoted = !node.RawParameter(i).empty() || value.starts_with('"');
        texts.push_back(quoted ? stavfile::QuotedValue(value) : value);
    }
    return texts;
}

} // namespace

SavedValues::SavedValues(const StfNode &node)
    : m_node(node)
    , m_texts(textsOf(node))
{
}

void SavedValues::Restore()
{
    if (!m_node)
        return;
    m_node.SetNumParameters(static_cast<int>(m_texts.size()));
    for (std::size_t i = 0; i < m_texts.size(); ++i)
        m_node.SetParameter(static_cast<int>(i), m_texts[i]);
}

void SavedValues::Exchange()
{
    std::vector<std::string> now = textsOf(m_node);
    Restore();
    m_texts = std::move(now);
}

bool SavedValues::Hold() const
{
    return textsOf(m_node) == m_texts;
}

} // namespace document
