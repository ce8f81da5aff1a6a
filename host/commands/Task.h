#pragma once

#include <coroutine>
#include <exception>
#include <optional>
#include <type_traits>
#include <utility>

namespace commands {

template <class Value> class Task;

namespace detail {

struct TaskPromiseBase
{
    std::coroutine_handle<> caller = std::noop_coroutine();
    std::exception_ptr failure;

    struct ReturnToCaller
    {
        bool await_ready() const noexcept { return false; }
        template <class Promise>
        std::coroutine_handle<> await_suspend(std::coroutine_handle<Promise> task) const noexcept
        {
            return task.promise().caller;
        }
        void await_resume() const noexcept {}
    };

    std::suspend_always initial_suspend() const noexcept { return {}; }
    ReturnToCaller final_suspend() const noexcept { return {}; }
    void unhandled_exception() { failure = std::current_exception(); }
};

template <class Value> struct TaskPromise : TaskPromiseBase
{
    std::optional<Value> value;

    Task<Value> get_return_object();
    void return_value(Value result) { value = std::move(result); }
    Value take() { return std::move(*value); }
};

template <> struct TaskPromise<void> : TaskPromiseBase
{
    Task<void> get_return_object();
    void return_void() {}
    void take() {}
};

} // namespace detail

// A function that may wait in its middle for an answer and goes on later. It starts when it is first resumed or
// awaited; what it throws reaches who awaits it, or who asks with takeResult(). Destroying it ends it where it waits.
template <class Value> class Task
{
public:
    using promise_type = detail::TaskPromise<Value>;
    using Handle = std::coroutine_handle<promise_type>;

    explicit Task(Handle handle) : m_handle(handle) {}
    Task(Task &&other) noexcept : m_handle(std::exchange(other.m_handle, nullptr)) {}
    Task &operator=(Task &&) = delete;
    ~Task()
    {
        if (m_handle)
            m_handle.destroy();
    }

    void start() { m_handle.resume(); }
    bool isDone() const { return m_handle.done(); }
    Value takeResult()
    {
        if (std::exception_ptr failure = std::exchange(m_handle.promise().failure, nullptr))
            std::rethrow_exception(failure);
        return m_handle.promise().take();
    }

    bool await_ready() const noexcept { return false; }
    std::coroutine_handle<> await_suspend(std::coroutine_handle<> caller) noexcept
    {
        m_handle.promise().caller = caller;
        return m_handle;
    }
    Value await_resume() { return takeResult(); }

private:
    Handle m_handle;
};

namespace detail {

template <class Value> Task<Value> TaskPromise<Value>::get_return_object()
{
    return Task<Value>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

inline Task<void> TaskPromise<void>::get_return_object()
{
    return Task<void>(std::coroutine_handle<TaskPromise>::from_promise(*this));
}

} // namespace detail

// What a command is written as: its source reads as its prompts, from top to bottom.
using Command = Task<void>;

} // namespace commands
