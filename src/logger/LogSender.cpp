#include "logger/LogSender.h"

#include <memory>
#include <mutex>

namespace quillon::logger {
namespace {

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
