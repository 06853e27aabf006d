// SPDX-License-Identifier: MIT
#pragma once

#include <cstdint>
#include <functional>
#include <mutex>
#include <optional>
#include <shared_mutex>
#include <string>
#include <string_view>
#include <unordered_map>

namespace content {

/// A growing set of texts, each with a number. Thread-safe.
class KnownTexts
{
public:
    bool Has(std::string_view text) const
    {
        const std::shared_lock lock(m_mutex);
        return m_texts.contains(text);
    }
    /// Returns the number of a text; nothing if it is not known.
    std::optional<std::uint32_t> Find(std::string_view text) const
    {
        const std::shared_lock lock(m_mutex);
        const auto found = m_texts.find(text);
        return found == m_texts.end() ? std::nullopt : std::optional(found->second);
    }
    void Add(std::string_view text, std::uint32_t number = 0)
    {
        const std::unique_lock lock(m_mutex);
        m_texts.emplace(text, number);
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
    std::unordered_map<std::string, std::uint32_t, Hash, std::equal_to<>> m_texts;
};

} // namespace content
