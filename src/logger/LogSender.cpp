#include "logger/LogSender.h"

#include <algorithm>
#include <chrono>
#include <memory>
#include <mutex>
#include <thread>
#include <utility>

namespace quillon::logger {
namespace {

/// How long removeAllAppenders waits for other threads that are handing over a line. An appender that calls
/// it from within `append` waits for itself, and so for all of this time.
constexpr std::chrono::milliseconds kLongestHandOver{200};

struct Globals
{
    std::mutex senderLock; ///< guards the sender's pointer and its references
    std::unique_ptr<LogSender<char>> sender;
    int references = 0;
    std::mutex levelLock; ///< guards the threshold
};

/// Never destroyed, so that the destructor of any other static object may still log.
Globals& globals()
{
    static Globals* const instance = new Globals;
    return *instance;
}

} // namespace

LogSender<char>* getLogSender()
{
    Globals& global = globals();
    const std::lock_guard guard(global.senderLock);
    if (!global.sender) {
        global.references = 1;
        global.sender.reset(new LogSender<char>(&global.references));
    }
    return global.sender.get();
}

namespace internal {

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
    // The two steps that may run out of memory come first, so that the appender then still is the caller's.
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
    // Whoever lets go last runs the destructor, which may wait for the appender's own thread. That shall be
    // the caller here, not a thread that just hands over a line and would be held up by it.
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

int LogSender<char>::addRef()
{
    const std::lock_guard guard(globals().senderLock);
    return ++*m_references;
}

int LogSender<char>::release()
{
    // Outlives the guard: the end of the sender takes its appenders along, and one of them may log.
    std::unique_ptr<LogSender> last;
    Globals& global = globals();
    const std::lock_guard guard(global.senderLock);
    int& references = *m_references;
    if (references > 0)
        --references;
    if (references == 0)
        last = std::move(global.sender);
    return references;
}

bool LogSender<char>::isEnabled(ELogLevel level) const
{
    const std::lock_guard guard(globals().levelLock);
    return m_level != ELogLevel::Off && level != ELogLevel::Off && level <= m_level;
}

void LogSender<char>::setLevel(ELogLevel level)
{
    const std::lock_guard guard(globals().levelLock);
    m_level = level;
}

} // namespace internal
} // namespace quillon::logger
