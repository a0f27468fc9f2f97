#pragma once

#include <condition_variable>
#include <functional>
#include <memory>
#include <mutex>
#include <optional>
#include <system_error>
#include <thread>
#include <utility>

/// A blocking call on a thread of its own, so that whoever waits for its answer can be told to walk away
/// while the call goes on. One call at a time.
template <class Answer>
class AbandonableCall
{
public:
    AbandonableCall() = default;
    AbandonableCall(const AbandonableCall&) = delete;
    AbandonableCall& operator=(const AbandonableCall&) = delete;

    /// Leaves a call that is still going on to itself.
    ~AbandonableCall()
    {
        if (m_thread.joinable())
            m_thread.detach();
    }

    /// Calls `work` and waits for its answer; nothing once `abandon` was called. `work` must own all that it
    /// touches, as it may go on when nobody waits any more, and must not let an exception escape.
    std::optional<Answer> run(std::function<Answer()> work)
    {
        const auto slot = std::make_shared<Slot>();
        {
            const std::lock_guard guard(m_lock);
            if (m_abandoned)
                return std::nullopt;
            m_slot = slot;
        }
        join();
        try {
            m_thread = std::thread(&Slot::answer, slot, work);
        } catch (const std::system_error&) {
            Slot::answer(slot, work); // no thread is to be had but the caller's own
        }
        return slot->wait();
    }

    /// Makes `run` return, now and from now on. Any thread.
    void abandon()
    {
        const std::lock_guard guard(m_lock);
        m_abandoned = true;
        if (m_slot)
            m_slot->abandon();
    }

    /// Waits for the call to end, also an abandoned one. Not while `run` is going on.
    void join()
    {
        if (m_thread.joinable())
            m_thread.join();
    }

    /// Whether no call is going on. Not while `run` is going on.
    [[nodiscard]] bool isIdle() const { return !m_slot || m_slot->isAnswered(); }

private:
    /// What the caller and its thread share; the last of the two drops it.
    class Slot
    {
    public:
        static void answer(const std::shared_ptr<Slot>& slot, const std::function<Answer()>& work)
        {
            Answer made = work();
            const std::lock_guard guard(slot->m_lock);
            slot->m_answer = std::move(made);
            slot->m_changed.notify_all();
        }

        std::optional<Answer> wait()
        {
            std::unique_lock guard(m_lock);
            m_changed.wait(guard, [this] { return m_answer.has_value() || m_isAbandoned; });
            return m_isAbandoned ? std::nullopt : m_answer;
        }

        void abandon()
        {
            const std::lock_guard guard(m_lock);
            m_isAbandoned = true;
            m_changed.notify_all();
        }

        bool isAnswered()
        {
            const std::lock_guard guard(m_lock);
            return m_answer.has_value();
        }

    private:
        std::mutex m_lock;
        std::condition_variable m_changed;
        std::optional<Answer> m_answer;
        bool m_isAbandoned = false;
    };

    std::mutex m_lock; ///< guards the next two
    std::shared_ptr<Slot> m_slot;
    bool m_abandoned = false;
    std::thread m_thread;
};
