// task.h: a long routine that can wait, as a coroutine, and the slot that runs it.
//
// There is one thread and no nested event loop. A routine that must wait for the user (a step, a click,
// a pause) is a coroutine of type Task; it runs in a slot until it waits, returns to the event loop, and is
// resumed when an event is over and what it waits for has come. Ending a slot destroys the routine where it
// stands, so an abandoned one can touch nothing.
//
// A Task may await another one. The slot resumes the innermost by a loop, not from inside the outer one's
// frame, so that thousands of awaited tasks don't grow the stack. Arguments of a Task are taken by value.

#pragma once

#include <coroutine>
#include <exception>
#include <functional>
#include <utility>

class TaskSlot;

class Task
{
public:
    struct promise_type {
        TaskSlot* Slot = nullptr;
        std::coroutine_handle<promise_type> Caller;

        Task get_return_object() { return Task(std::coroutine_handle<promise_type>::from_promise(*this)); }
        std::suspend_always initial_suspend() noexcept { return {}; }
        auto final_suspend() noexcept;
        void return_void() {}
        void unhandled_exception() { std::terminate(); } // no failure leaves a routine
    };
    using Handle = std::coroutine_handle<promise_type>;

    Task() = default;
    explicit Task(Handle frame) : Frame(frame) {}
    Task(Task&& other) noexcept : Frame(std::exchange(other.Frame, {})) {}
    Task& operator=(Task&& other) noexcept
    {
        std::swap(Frame, other.Frame);
        return *this;
    }
    ~Task()
    {
        if (Frame) Frame.destroy();
    }

    // co_await of a task: it runs in the same slot, then the caller goes on.
    bool await_ready() const { return false; }
    void await_suspend(Handle caller);
    void await_resume() const {}

private:
    friend class TaskSlot;
    Handle Frame;
};

class TaskSlot
{
public:
    /// Waits let the task pass at once: for a printout and the console.
    bool WithoutWaits = false;

    /// Whether a task is in the slot and waits.
    bool IsWaiting() const { return Root.Frame != nullptr && !Running; }

    /// Runs a task up to its first wait. One that waits in the slot is ended before. While one runs (a box
    /// that it shows lets events through) nothing is started.
    void Start(Task task)
    {
        if (Running) return;
        End();
        Root = std::move(task);
        Root.Frame.promise().Slot = this;
        Next = Root.Frame;
        Run();
    }

    /// Goes on with the task if what it waits for has come.
    void Resume()
    {
        if (IsWaiting() && Ready()) Run();
    }

    /// Destroys the task where it waits.
    void End()
    {
        if (Running) return;
        Root = Task();
        Next = {};
    }

    struct Wait {
        TaskSlot& Slot;
        std::function<bool()> Ready;
        bool await_ready() const { return Slot.WithoutWaits || Ready(); }
        void await_suspend(Task::Handle waiting)
        {
            Slot.Next = waiting;
            Slot.Ready = std::move(Ready);
            Slot.Paused = true;
        }
        void await_resume() const {}
    };
    /// To be awaited in a task: goes on when `ready` says so.
    Wait Until(std::function<bool()> ready) { return {*this, std::move(ready)}; }

private:
    friend class Task;

    void Run()
    {
        Paused = false;
        Running = true;
        while (Next && !Paused) Next.resume();
        Running = false;
        if (!Next) Root = Task();
    }

    Task Root;
    /// The frame to be resumed next: the innermost, none behind the end.
    Task::Handle Next;
    std::function<bool()> Ready;
    bool Paused = false, Running = false;
};

inline auto Task::promise_type::final_suspend() noexcept
{
    struct Back {
        bool await_ready() noexcept { return false; }
        void await_suspend(Handle ended) noexcept { ended.promise().Slot->Next = ended.promise().Caller; }
        void await_resume() noexcept {}
    };
    return Back{};
}

inline void Task::await_suspend(Handle caller)
{
    promise_type& called = Frame.promise();
    called.Slot = caller.promise().Slot;
    called.Caller = caller;
    called.Slot->Next = Frame;
}
