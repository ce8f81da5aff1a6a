#pragma once

#include <algorithm>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#ifdef __SSE2__
#include <emmintrin.h>
#endif

namespace drawing {

// Finds the ends of a text's lines one after the other, looking at 64 bytes at once: most lines of a drawing are so
// short that a search for each would spend its time on getting started.
class LineEnds
{
public:
    LineEnds(std::string_view text, char mark)
        : m_begin(text.data()), m_end(text.data() + text.size()), m_mark(mark), m_block(m_begin),
          m_marks(marksOfBlock())
    {
    }

    // The place of the next mark; the text's end when there is none.
    const char *next()
    {
        while (m_marks == 0) {
            if (m_end - m_block <= Size)
                return m_end;
            m_block += Size;
            m_marks = marksOfBlock();
        }
        const char *place = m_block + std::countr_zero(m_marks);
        m_marks &= m_marks - 1;
        return place;
    }

    // From there on; the place is in the text.
    void goTo(const char *place)
    {
        m_block = place;
        m_marks = marksOfBlock();
    }

private:
    static constexpr std::ptrdiff_t Size = 64; // of a block

    // A bit for each mark, the lowest for the first byte.
    std::uint64_t marksOfBlock() const
    {
        const std::ptrdiff_t rest = m_end - m_block;
        if (rest >= Size)
            return marksIn(m_block);
        if (m_end - m_begin >= Size)
            return rest == 0 ? 0 : marksIn(m_end - Size) >> (Size - rest);
        char padded[Size] = {};
        std::copy(m_block, m_end, padded);
        return marksIn(padded);
    }

#ifdef __SSE2__
    std::uint64_t marksIn(const char *bytes) const
    {
        constexpr int Width = sizeof(__m128i);
        const __m128i mark = _mm_set1_epi8(m_mark);
        std::uint64_t marks = 0;
        for (int at = 0; at < Size; at += Width) {
            const __m128i chunk = _mm_loadu_si128(reinterpret_cast<const __m128i *>(bytes + at));
            const int found = _mm_movemask_epi8(_mm_cmpeq_epi8(chunk, mark));
            marks |= std::uint64_t{static_cast<unsigned>(found)} << at;
        }
        return marks;
    }
#else
    std::uint64_t marksIn(const char *bytes) const
    {
        std::uint64_t marks = 0;
        for (int at = 0; at < Size; ++at)
            marks |= std::uint64_t{bytes[at] == m_mark} << at;
        return marks;
    }
#endif

    const char *m_begin;
    const char *m_end;
    char m_mark;
    const char *m_block;
    std::uint64_t m_marks; // those of the block that have not been given yet
};

} // namespace drawing
