// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <functional>
#include <mutex>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>

namespace host {

/// A table from texts to values that many threads fill and search. Entries stay as they are. It has
/// many parts with a lock each, so that threads rarely wait for each other.
template <typename Value> class SharedTable
{
public:
    /// Returns a copy of the value of a text; nothing if it has none.
    std::optional<Value> Find(std::string_view text) const
    {
        const Hashed hashed(text);
        const Part &part = m_parts[hashed.hash % kParts];
        const std::lock_guard lock(part.mutex);
        const auto found = part.values.find(hashed);
        return found == part.values.end() ? std::nullopt : std::optional(found->second);
    }
    /// Gives a text this value unless it has one. Returns the value that it has then.
    Value Add(std::string_view text, Value value)
    {
        Part &part = m_parts[Hashed(text).hash % kParts];
        const std::lock_guard lock(part.mutex);
        const auto [place, isNew] = part.values.try_emplace(std::string(text), std::move(value));
        m_size += isNew;
        return place->second;
    }
    std::size_t Size() const { return m_size; }

private:
    static constexpr std::size_t kParts = 61; // prime, since the maps use the same hash

    struct Hashed
    {
        explicit Hashed(std::string_view of)
            : text(of)
            , hash(std::hash<std::string_view>()(of))
        {
        }
        std::string_view text;
        std::size_t hash;
    };
    struct Hash
    {
        using is_transparent = void;
        std::size_t operator()(const Hashed &text) const { return text.hash; }
        std::size_t operator()(const std::string &text) const { return Hashed(text).hash; }
    };
    struct Equal
    {
        using is_transparent = void;
        bool operator()(const std::string &a, const std::string &b) const { return a == b; }
        bool operator()(const Hashed &a, const std::string &b) const { return a.text == b; }
        bool operator()(const std::string &a, const Hashed &b) const { return a == b.text; }
    };
    struct alignas(64) Part // threads on two cores must not share the cache line of a lock
    {
        mutable std::mutex mutex;
        std::unordered_map<std::string, Value, Hash, Equal> values;
    };

    std::array<Part, kParts> m_parts;
    std::atomic<std::size_t> m_size = 0;
};

} // namespace host
