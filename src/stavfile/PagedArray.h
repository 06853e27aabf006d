// SPDX-License-Identifier: MIT
#pragma once

#include <algorithm>
#include <cstddef>
#include <memory>
#include <utility>
#include <vector>

namespace stavfile {

/// A growing array of plain values in pages: growing does not copy a large one, and little memory
/// stays unused. Most files are small, so the first page begins small too.
template <typename T> class PagedArray
{
public:
    T &operator[](std::size_t i) { return m_pages[i / kPage][i % kPage]; }
    const T &operator[](std::size_t i) const { return m_pages[i / kPage][i % kPage]; }
    std::size_t Size() const { return m_size; }
    /// Removes all values and keeps the memory.
    void Clear() { m_size = 0; }

    void PushBack(const T &value)
    {
        if (m_size == m_room)
            grow();
        (*this)[m_size] = value;
        ++m_size;
    }

private:
    static constexpr std::size_t kPage = 8192 / sizeof(T) > 64 ? 8192 / sizeof(T) : 64;
    static constexpr std::size_t kFirst = kPage / 8;

    void grow()
    {
        auto page = std::make_unique_for_overwrite<T[]>(m_room == 0 ? kFirst : kPage);
        if (m_size == kFirst) {
            std::copy_n(m_pages.front().get(), kFirst, page.get());
            m_pages.front() = std::move(page);
        } else {
            m_pages.push_back(std::move(page));
        }
        m_room = m_room == 0 ? kFirst : m_pages.size() * kPage;
    }

    std::vector<std::unique_ptr<T[]>> m_pages;
    std::size_t m_size = 0, m_room = 0;
};

} // namespace stavfile
