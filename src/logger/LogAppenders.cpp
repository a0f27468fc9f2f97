#include "logger/LogAppenders.h"

#include "err/ErrorCodes.h"

#include <algorithm>
#include <mutex>

namespace quillon::logger::internal {

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
    map[appender->identifier()].appender.reset(appender, _TAppenderDeleter{});
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
    // Destroys the old map after the lock is released, as an appender's end may wait for its thread.
    m_appenders.set({});
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
