// SPDX-License-Identifier: MIT
#pragma once

#include "stavfile/Lexer.h"

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace stavfile::lexer {

/// Finds the ends of blanks and words like SkipBlanks and WordEnd, for a reader that goes through a
/// text once: it classifies 64 bytes at a time. The text must outlive it.
class Scanner
{
public:
    explicit Scanner(std::string_view text)
        : m_text(text)
    {
    }

    std::size_t SkipBlanks(std::size_t at) { return endOfRun(at, m_blanks); }
    std::size_t WordEnd(std::size_t at) { return endOfRun(at, m_words); }

private:
    static constexpr std::size_t kBlock = 64;

    /// Returns the first position at or after `at` whose bit in `set` is clear.
    std::size_t endOfRun(std::size_t at, const std::uint64_t &set)
    {
        for (; at < m_text.size(); at = m_block + kBlock) {
            const std::size_t block = at & ~(kBlock - 1);
            if (block != m_block)
                classify(block);
            if (const std::uint64_t others = ~set >> (at & (kBlock - 1)))
                return at + static_cast<std::size_t>(std::countr_zero(others));
        }
        return m_text.size();
    }

    /// Behind the end of the text there are neither blanks nor words, so that every run ends there.
    void classify(std::size_t block)
    {
        m_block = block;
        if (m_text.size() - block >= kBlock) {
            setBits(m_text.data() + block);
            return;
        }
        char last[kBlock];
        std::memset(last, '(', kBlock);
        std::memcpy(last, m_text.data() + block, m_text.size() - block);
        setBits(last);
    }

#ifdef __SSE2__
    void setBits(const char *bytes)
    {
        std::uint64_t blanks = 0, others = 0;
        for (int i = 0; i < 4; ++i) {
            const __m128i piece =
                _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + 16 * i));
            const __m128i blank =
                _mm_cmpeq_epi8(_mm_min_epu8(piece, _mm_set1_epi8(' ')), piece); // at most ' '
            // "(" and ")" differ in the lowest bit only.
            const __m128i bracket =
                _mm_cmpeq_epi8(_mm_or_si128(piece, _mm_set1_epi8(1)), _mm_set1_epi8(')'));
            const __m128i quote = _mm_cmpeq_epi8(piece, _mm_set1_epi8('"'));
            blanks |= maskOf(blank) << (16 * i);
            others |= maskOf(_mm_or_si128(blank, _mm_or_si128(bracket, quote))) << (16 * i);
        }
        m_blanks = blanks;
        m_words = ~others;
    }
    static std::uint64_t maskOf(__m128i bytes)
    {
        return static_cast<std::uint16_t>(_mm_movemask_epi8(bytes));
    }
#else
    void setBits(const char *bytes)
    {
        m_blanks = m_words = 0;
        for (std::size_t i = 0; i < kBlock; ++i) {
            const CharClass kind = ClassOf(bytes[i]);
            m_blanks |= static_cast<std::uint64_t>(kind == CharClass::Blank) << i;
            m_words |= static_cast<std::uint64_t>(kind == CharClass::Word) << i;
        }
    }
#endif

    std::string_view m_text;
    std::size_t m_block = static_cast<std::size_t>(-1); ///< the classified block
    std::uint64_t m_blanks = 0, m_words = 0;            ///< one bit for each of its bytes
};

} // namespace stavfile::lexer
