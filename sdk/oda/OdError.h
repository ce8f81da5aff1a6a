#pragma once

#include <stdexcept>

enum OdResult {
    eNotThatKindOfClass, // an object was taken for one of a class that it is not of
};

class OdError : public std::runtime_error
{
public:
    explicit OdError(OdResult code) : std::runtime_error("drawing error"), m_code(code) {}

    OdResult code() const { return m_code; }

private:
    OdResult m_code;
};
