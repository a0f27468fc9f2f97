#pragma once

#include <utility>

namespace quillon::sync {

/// Calls `action` at the end of its scope, whichever way the scope is left. The action must not throw.
template <class Action>
class [[nodiscard]] ScopeExit
{
public:
    explicit ScopeExit(Action action)
        : m_action(std::move(action))
    {
    }
    ScopeExit(const ScopeExit&) = delete;
    ScopeExit& operator=(const ScopeExit&) = delete;
    ~ScopeExit() { m_action(); }

private:
    Action m_action;
};

} // namespace quillon::sync
