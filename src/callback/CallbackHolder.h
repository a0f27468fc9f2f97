#pragma once

#include "err/ResultCode.h"

#include <algorithm>
#include <memory>
#include <mutex>
#include <vector>

namespace quillon::callback {

/// One listener to messages of the type `Tuple`.
template <class Tuple>
class ICallback
{
public:
    virtual ~ICallback() = default;

    /// Takes a message, on the thread that delivers it and with no lock of the set held.
    virtual void onCallback(const Tuple& tuple) = 0;
};

/// The side of a set of listeners that delivers messages.
template <class Tuple>
class ICallbackHandler
{
public:
    virtual ~ICallbackHandler() = default;

    /// Hands `tuple` to every listener but `source`, in the order of adding. `source` lets a listener tell
    /// all the others; it may be null, and then nobody is left out.
    virtual void handleCallback(ICallback<Tuple>* source, const Tuple& tuple) = 0;
};

/// The side of a set of listeners where they register. The set does not own them.
template <class Tuple>
class ICallbackCollection
{
public:
    virtual ~ICallbackCollection() = default;

    /// Appends a listener; one that is registered already stays where it is. {5, 6} for a null pointer.
    virtual err::ResultCode addCallback(ICallback<Tuple>* callback) = 0;

    /// Takes a listener out; one that is not registered is no failure. {5, 6} for a null pointer.
    virtual err::ResultCode removeCallback(ICallback<Tuple>* callback) = 0;

    virtual err::ResultCode clearCallbacks() = 0;
};

/// A set of listeners. Any thread may call any operation; listeners run outside the lock, so that one may add
/// and remove listeners, itself included, which counts from the next delivery on. A listener that another
/// thread removes during a delivery may still be called once: it has to stay valid until its owner knows that
/// no delivery is going on.
template <class Tuple>
class CallbackHolder : public ICallbackHandler<Tuple>, public ICallbackCollection<Tuple>
{
public:
    CallbackHolder() = default;
    CallbackHolder(const CallbackHolder&) = delete;
    CallbackHolder& operator=(const CallbackHolder&) = delete;

    ~CallbackHolder() override
    {
        const std::lock_guard guard(m_mutex);
        m_callbacks.clear();
    }

    void handleCallback(ICallback<Tuple>* source, const Tuple& tuple) override
    {
        for (const Entry& entry : snapshot()) {
            if (entry && entry.use_count() >= 1 && entry.get() != source)
                entry->onCallback(tuple);
        }
    }

    err::ResultCode addCallback(ICallback<Tuple>* callback) override
    {
        if (callback == nullptr)
            return err::programError(err::kNullPointer);
        const std::lock_guard guard(m_mutex);
        if (find(callback) == m_callbacks.end())
            m_callbacks.emplace_back(callback, _TCallbackDeleter{});
        return {};
    }

    err::ResultCode removeCallback(ICallback<Tuple>* callback) override
    {
        if (callback == nullptr)
            return err::programError(err::kNullPointer);
        const std::lock_guard guard(m_mutex);
        if (const auto entry = find(callback); entry != m_callbacks.end())
            m_callbacks.erase(entry);
        return {};
    }

    err::ResultCode clearCallbacks() override
    {
        const std::lock_guard guard(m_mutex);
        m_callbacks.clear();
        return {};
    }

private:
    using Entry = std::shared_ptr<ICallback<Tuple>>;

    /// Listeners belong to others; the shared pointer only lets a delivery hold on to its entries.
    struct _TCallbackDeleter
    {
        void operator()(ICallback<Tuple>*) const noexcept {}
    };

    [[nodiscard]] std::vector<Entry> snapshot() const
    {
        const std::lock_guard guard(m_mutex);
        return m_callbacks;
    }

    [[nodiscard]] auto find(const ICallback<Tuple>* callback)
    {
        return std::ranges::find(m_callbacks, callback, [](const Entry& entry) { return entry.get(); });
    }

    mutable std::recursive_mutex m_mutex;
    std::vector<Entry> m_callbacks;
};

} // namespace quillon::callback
