#include "host/drawing/LineEnds.h"

#include <gtest/gtest.h>

#include <memory>
#include <random>
#include <string>
#include <vector>

namespace drawing {

namespace {

// In memory of exactly its size, so that the sanitizers see a look beyond it.
class Text
{
public:
    explicit Text(const std::string &text) : m_bytes(new char[text.size()]), m_size(text.size())
    {
        text.copy(m_bytes.get(), m_size);
    }
    std::string_view view() const { return {m_bytes.get(), m_size}; }

private:
    std::unique_ptr<char[]> m_bytes;
    std::size_t m_size;
};

std::vector<std::size_t> found(std::string_view text, char mark, std::size_t from)
{
    LineEnds ends(text, mark);
    if (from != 0)
        ends.goTo(text.data() + from);
    std::vector<std::size_t> places;
    do
        places.push_back(static_cast<std::size_t>(ends.next() - text.data()));
    while (places.back() != text.size());
    return places;
}

std::vector<std::size_t> expected(std::string_view text, char mark, std::size_t from)
{
    std::vector<std::size_t> places;
    for (std::size_t place = text.find(mark, from); place != text.npos; place = text.find(mark, place + 1))
        places.push_back(place);
    places.push_back(text.size());
    return places;
}

TEST(LineEnds, AreFoundInTextsOfAnyLengthFromAnyPlace)
{
    std::mt19937 random(1);
    for (std::size_t size = 0; size <= 200; ++size) {
        std::string bytes(size, 'x');
        for (char &byte : bytes)
            byte = random() % 9 == 0 ? '\n' : random() % 9 == 0 ? '\0' : static_cast<char>(random());
        const Text text(bytes);
        for (std::size_t from = 0; from <= size; ++from)
            ASSERT_EQ(found(text.view(), '\n', from), expected(text.view(), '\n', from)) << size << " from " << from;
    }
}

TEST(LineEnds, AreThoseOfTheMark)
{
    const Text text("a\r\nb\rc\n");
    EXPECT_EQ(found(text.view(), '\r', 0), (std::vector<std::size_t>{1, 4, 7}));
    EXPECT_EQ(found(text.view(), '\n', 0), (std::vector<std::size_t>{2, 6, 7}));
}

TEST(LineEnds, StandBesideEachOtherAndFarApart)
{
    const Text text(std::string(64, '\n') + std::string(300, 'x') + "\n");
    const std::vector<std::size_t> places = found(text.view(), '\n', 0);
    ASSERT_EQ(places.size(), 66U);
    EXPECT_EQ(places[63], 63U);
    EXPECT_EQ(places[64], 364U);
}

TEST(LineEnds, TheEndIsGivenAgainAndAgain)
{
    const Text text("a");
    LineEnds ends(text.view(), '\n');
    EXPECT_EQ(ends.next(), text.view().data() + 1);
    EXPECT_EQ(ends.next(), text.view().data() + 1);
}

} // namespace

} // namespace drawing
