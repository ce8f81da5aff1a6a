#pragma once

#include "platform/WindowsTypes.h"

#include <string>
#include <vector>

// The program that the tests start, from the folder of the test itself.
std::u16string testchildPath();

// Runs the test program as a child of this process, and ends it with itself.
class Child
{
public:
    explicit Child(const std::vector<std::string> &arguments);
    ~Child();
    Child(const Child &) = delete;
    Child &operator=(const Child &) = delete;

    DWORD id() const { return m_id; }

private:
    DWORD m_id = 0;
    [[maybe_unused]] HANDLE m_process = nullptr; // of Windows
};
