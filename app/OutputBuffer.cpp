#include "app/OutputBuffer.h"

#include "app/system/Process.h"

#include <cstring>

namespace {

std::atomic<OutputBuffer *> current = nullptr;

} // namespace

OutputBuffer::OutputBuffer()
{
    current = this;
}

OutputBuffer::~OutputBuffer()
{
    current = nullptr;
}

bool OutputBuffer::append(std::string_view text)
{
    std::size_t size = m_size;
    if (size == Closed)
        return true;
    if (text.size() > Capacity - size)
        return false;
    std::memcpy(m_text.data() + size, text.data(), text.size());
    m_size.compare_exchange_strong(size, size + text.size());
    return true;
}

std::string_view OutputBuffer::take()
{
    std::size_t size = m_size;
    if (size == Closed || !m_size.compare_exchange_strong(size, 0))
        return {};
    return {m_text.data(), size};
}

void OutputBuffer::sendTheLast()
{
    OutputBuffer *buffer = current;
    if (!buffer)
        return;
    const std::size_t size = buffer->m_size.exchange(Closed);
    if (size != Closed)
        sendToOutput({buffer->m_text.data(), size});
}
