#include "functions/PlainReplacement.h"

#include <algorithm>
#include <array>
#include <bit>
#include <cstdint>
#include <string_view>

namespace {

// Longer ones may be almost there at every place, and are compared in vain; QString finds them faster.
constexpr qsizetype LongestShort = 16;

constexpr std::size_t BlockSize = sizeof(std::uint64_t);
static_assert(std::endian::native == std::endian::little, "the first place of a block is in the lowest bits");

// A bit for each place of a block whose character is the first one of the pattern, with the last one where it would
// end. A loop without branches, which compilers turn into few instructions for all places at once.
std::uint64_t candidates(const char16_t *block, std::size_t lengthLessOne, char16_t first, char16_t last)
{
    std::array<std::uint8_t, BlockSize> isCandidate;
    for (std::size_t i = 0; i < BlockSize; ++i)
        isCandidate[i] = static_cast<std::uint8_t>((block[i] == first) & (block[i + lengthLessOne] == last));
    return std::bit_cast<std::uint64_t>(isCandidate);
}

// npos: nowhere.
std::size_t positionOf(std::u16string_view pattern, std::u16string_view text, std::size_t from)
{
    if (text.size() < pattern.size())
        return text.npos;
    const std::size_t end = text.size() - pattern.size() + 1;
    const auto isAt = [&](std::size_t place) {
        return std::equal(pattern.begin(), pattern.end(), text.begin() + place);
    };
    std::size_t block = from;
    for (; block + BlockSize <= end; block += BlockSize) {
        std::uint64_t places = candidates(text.data() + block, pattern.size() - 1, pattern.front(), pattern.back());
        for (; places != 0; places &= places - 1) {
            const std::size_t place = block + static_cast<std::size_t>(std::countr_zero(places)) / 8;
            if (isAt(place))
                return place;
        }
    }
    for (; block < end; ++block)
        if (isAt(block))
            return block;
    return text.npos;
}

std::u16string_view unitsOf(const QString &text)
{
    return {reinterpret_cast<const char16_t *>(text.constData()), static_cast<std::size_t>(text.size())};
}

void overwriteAll(QString &text, const QString &pattern, const QString &replacement)
{
    const std::u16string_view wanted = unitsOf(pattern);
    std::size_t place = positionOf(wanted, unitsOf(text), 0);
    if (place == wanted.npos)
        return; // and the text's memory is still shared
    QChar *const units = text.data();
    const std::u16string_view all = unitsOf(text);
    for (; place != all.npos; place = positionOf(wanted, all, place + wanted.size()))
        std::copy(replacement.begin(), replacement.end(), units + place);
}

} // namespace

void replacePlainText(QString &text, const QString &pattern, const QString &replacement)
{
    const bool isShort = !pattern.isEmpty() && pattern.size() <= LongestShort;
    if (!isShort || pattern.size() != replacement.size())
        text.replace(pattern, replacement);
    else if (pattern.size() == 1)
        text.replace(pattern.front(), replacement.front());
    else
        overwriteAll(text, pattern, replacement);
}
