#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>
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
        m_texts[number].bytes.emplace<std::string>(std::move(bytes));
        m_texts[number].holders = 1;
        return number;
    }
    // The text with more behind it, held once. The two share their memory: a text that grows step by step takes time
    // and memory for what each step adds, also while every step of it is held.
    std::uint32_t addGrown(std::uint32_t number, std::string_view more)
    {
        Stage stage = stageOf(number);
        if (stage.whole->size() != stage.length) // it grew in another way before
            stage.whole = std::make_shared<std::string>(*stage.whole, 0, stage.length);
        stage.whole->append(more);
        stage.length = stage.whole->size();
        const std::uint32_t grown = add({});
        m_texts[grown].bytes = std::move(stage);
        return grown;
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
        m_texts[number].bytes.emplace<std::string>();
        m_free.push_back(number);
    }
    std::string_view bytes(std::uint32_t number) const
    {
        const Text &text = m_texts[number];
        if (const auto *own = std::get_if<std::string>(&text.bytes))
            return *own;
        const Stage &stage = *std::get_if<Stage>(&text.bytes);
        return std::string_view(*stage.whole).substr(0, stage.length);
    }
    std::size_t count() const { return m_texts.size() - m_free.size() - 1; }

private:
    struct Stage // of a text that grows
    {
        std::shared_ptr<std::string> whole;
        std::size_t length;
    };
    struct Text
    {
        std::variant<std::string, Stage> bytes;
        std::uint32_t holders = 0;
    };

    Stage stageOf(std::uint32_t number)
    {
        auto &bytes = m_texts[number].bytes;
        if (auto *own = std::get_if<std::string>(&bytes)) {
            const std::size_t length = own->size();
            bytes = Stage{std::make_shared<std::string>(std::move(*own)), length};
        }
        return std::get<Stage>(bytes);
    }

    std::deque<Text> m_texts{1};
    std::vector<std::uint32_t> m_free;
};

} // namespace drawing
