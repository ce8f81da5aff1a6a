#pragma once

#include <atomic>
#include <cstdint>

// While one lives, a call of a function is running that may look at one file after the other, for those who watch the
// process and not the interpreter: a function of a module, or one of the host that shows a dialog or enters commands.
// Nested calls stack up.
class RunningCall
{
public:
    RunningCall() : RunningCall(++s_calls) {}
    ~RunningCall() { s_number.store(m_outer, std::memory_order_relaxed); }
    RunningCall(const RunningCall &) = delete;
    RunningCall &operator=(const RunningCall &) = delete;

    // A number that no other call has; 0 while none is running. Any thread may ask.
    static std::uint64_t number() { return s_number.load(std::memory_order_relaxed); }

    class Pause;

private:
    explicit RunningCall(std::uint64_t number) : m_outer(RunningCall::number())
    {
        s_number.store(number, std::memory_order_relaxed);
    }

    static inline std::uint64_t s_calls = 0;
    static inline std::atomic<std::uint64_t> s_number = 0;

    const std::uint64_t m_outer;
};

// While one lives, the function lets a LISP program run, whose calls are that program's.
class RunningCall::Pause
{
    const RunningCall m_none{0};
};
