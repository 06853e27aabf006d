// SPDX-License-Identifier: MIT
#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <vector>

namespace stavfile {

/// A growing array that never moves its elements: growing it costs no second copy of a large one,
/// and nothing is reserved that is not used.
template <typename T> class PagedArray
{
public:
    T &operator[](std::size_t i) { return (*m_pages[i / kPage])[i % kPage]; }
    const T &operator[](std::size_t i) const { return (*m_pages[i / kPage])[i % kPage]; }
    std::size_t Size() const { return m_size; }

    void PushBack(const T &value)
    {
        if (m_size == m_pages.size() * kPage)
            m_pages.push_back(std::make_unique_for_overwrite<Page>());
        (*this)[m_size] = value;
        ++m_size;
    }

private:
    static constexpr std::size_t kPage = 8192 / sizeof(T) > 64 ? 8192 / sizeof(T) : 64;
    using Page = std::array<T, kPage>;

    std::vector<std::unique_ptr<Page>> m_pages;
    std::size_t m_size = 0;
};

} // namespace stavfile
