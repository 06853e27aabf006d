// SPDX-License-Identifier: MIT
#pragma once

#include <functional>
#include <mutex>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_set>

namespace content {

/// A growing set of texts. Thread-safe.
class KnownTexts
{
public:
    bool Has(std::string_view text) const
    {
        const std::shared_lock lock(m_mutex);
        return m_texts.contains(text);
    }
    void Add(std::string_view text)
    {
        const std::unique_lock lock(m_mutex);
        m_texts.emplace(text);
    }

private:
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(std::string_view text) const
        {
            return std::hash<std::string_view>()(text);
        }
    };

    mutable std::shared_mutex m_mutex;
    std::unordered_set<std::string, Hash, std::equal_to<>> m_texts;
};

} // namespace content
