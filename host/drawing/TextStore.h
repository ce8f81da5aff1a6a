#pragma once

#include <cstdint>
#include <deque>
#include <string>
#include <string_view>
#include <vector>

namespace drawing {

// The bytes of changed and new records. Several images of a record may share a text: it is counted how many do, and the
// text goes with the last of them. Number 0 is no text.
class TextStore
{
public:
    std::uint32_t add(std::string bytes) // held once
    {
        if (m_free.empty()) {
            m_free.push_back(static_cast<std::uint32_t>(m_texts.size()));
            m_texts.emplace_back();
        }
        const std::uint32_t number = m_free.back();
        m_free.pop_back();
        m_texts[number] = {std::move(bytes), 1};
        return number;
    }
    void hold(std::uint32_t number)
    {
        if (number != 0)
            ++m_texts[number].holders;
    }
    void release(std::uint32_t number)
    {
        if (number == 0 || --m_texts[number].holders != 0)
            return;
        m_texts[number].bytes = std::string();
        m_free.push_back(number);
    }
    std::string_view bytes(std::uint32_t number) const { return m_texts[number].bytes; }
    std::size_t count() const { return m_texts.size() - m_free.size() - 1; }

private:
    struct Text
    {
        std::string bytes;
        std::uint32_t holders = 0;
    };
    std::deque<Text> m_texts{1};
    std::vector<std::uint32_t> m_free;
};

} // namespace drawing
