#pragma once

#include <array>
#include <atomic>
#include <cstddef>
#include <string_view>

// Text on its way to standard output. A signal that ends the process while it waits can still send it there.
class OutputBuffer
{
public:
    OutputBuffer();
    ~OutputBuffer();
    OutputBuffer(const OutputBuffer &) = delete;
    OutputBuffer &operator=(const OutputBuffer &) = delete;

    bool append(std::string_view text); // false, and nothing is appended, where there is no room for it
    std::string_view take();            // all of it, until the next text is appended; the buffer is empty then

    // For a signal's handler, right before it ends the process; the buffer takes and gives nothing more. Waits for
    // nobody who does not read.
    static void sendTheLast();

private:
    static constexpr std::size_t Capacity = std::size_t{64} * 1024, Closed = ~std::size_t{0};

    std::array<char, Capacity> m_text;
    std::atomic<std::size_t> m_size = 0; // only the handler changes it besides the owner
};
