#include "platform/KeyState.h"

#include "platform/XKeyboard.h"

#include <utility>

namespace {

KeyStateSource source;

} // namespace

std::int16_t GetKeyState(int virtualKey)
{
    return source ? source(virtualKey) : XKeyboard::instance().state(virtualKey);
}

void setKeyStateSource(KeyStateSource newSource)
{
    source = std::move(newSource);
}
