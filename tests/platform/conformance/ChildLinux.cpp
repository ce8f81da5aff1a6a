#include "tests/platform/conformance/Child.h"

#include <QString>

#include <csignal>
#include <spawn.h>
#include <stdexcept>
#include <sys/wait.h>
#include <unistd.h>

Child::Child(const std::vector<std::string> &arguments)
{
    std::vector<std::string> words = {QString::fromStdU16String(testchildPath()).toStdString()};
    words.insert(words.end(), arguments.begin(), arguments.end());
    std::vector<char *> pointers;
    for (std::string &word : words)
        pointers.push_back(word.data());
    pointers.push_back(nullptr);
    pid_t id = 0;
    if (::posix_spawn(&id, words[0].c_str(), nullptr, nullptr, pointers.data(), environ) != 0)
        throw std::runtime_error("cannot start " + words[0]);
    m_id = static_cast<DWORD>(id);
}

Child::~Child()
{
    ::kill(static_cast<pid_t>(m_id), SIGKILL);
    ::waitpid(static_cast<pid_t>(m_id), nullptr, 0);
}
