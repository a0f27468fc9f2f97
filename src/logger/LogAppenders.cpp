#include "logger/LogAppenders.h"

#include "err/ResultCode.h"

#include <algorithm>
#include <chrono>
#include <mutex>
#include <thread>

namespace quillon::logger::internal {
namespace {

// Only an appender that removes itself within a line makes anybody wait so long.
constexpr std::chrono::milliseconds kLongestHandOver{200};

} // namespace

err::ResultCode LogAppenders<char>::addAppender(LogAppender<char>* appender)
{
    if (appender == nullptr)
        return err::programError(err::kNullPointer);
    const std::lock_guard guard(m_appenders);
    AppenderMap& map = m_appenders.value;
    const bool known =
        map.contains(appender->identifier()) ||
        std::ranges::any_of(map, [=](const auto& entry) { return entry.second.appender.get() == appender; });
    if (known)
        return err::programError(err::kAlreadyExists);
    // Taken over last of all, so that it stays the caller's where memory runs out.
    const auto owner = std::make_shared<std::unique_ptr<LogAppender<char>, _TAppenderDeleter>>();
    map.try_emplace(appender->identifier(),
                    _TAppenderOpt{std::shared_ptr<LogAppender<char>>(owner, appender), true});
    owner->reset(appender);
    return {};
}

bool LogAppenders<char>::setAppenderEnabled(std::uint64_t identifier, bool enabled)
{
    const std::lock_guard guard(m_appenders);
    const auto found = m_appenders.value.find(identifier);
    if (found == m_appenders.value.end())
        return false;
    found->second.enabled = enabled;
    return true;
}

bool LogAppenders<char>::isAppenderEnabled(std::uint64_t identifier) const
{
    const std::lock_guard guard(m_appenders);
    const auto found = m_appenders.value.find(identifier);
    return found != m_appenders.value.end() && found->second.enabled;
}

void LogAppenders<char>::removeAllAppenders()
{
    AppenderMap removed;
    {
        const std::lock_guard guard(m_appenders);
        removed.swap(m_appenders.value);
    }
    // An appender's end may wait for its thread. That is for the caller here to do, not for a thread that is
    // just handing over a line, which takes no longer than a copy.
    const auto limit = std::chrono::steady_clock::now() + kLongestHandOver;
    for (const auto& [identifier, option] : removed) {
        while (option.appender.use_count() > 1 && std::chrono::steady_clock::now() < limit)
            std::this_thread::yield();
    }
}

void LogAppenders<char>::send(const LogLine<char>& line) const
{
    for (const auto& appender : enabledAppenders()) {
        appender->append(line.time, line.processId, line.threadId, line.level, line.category.c_str(),
                         line.message.c_str(), line.extra);
    }
}

std::vector<std::shared_ptr<LogAppender<char>>> LogAppenders<char>::enabledAppenders() const
{
    std::vector<std::shared_ptr<LogAppender<char>>> enabled;
    const std::lock_guard guard(m_appenders);
    for (const auto& [identifier, option] : m_appenders.value) {
        if (option.enabled)
            enabled.push_back(option.appender);
    }
    return enabled;
}

} // namespace quillon::logger::internal
