#pragma once

#include "logger/LogRec.h"
#include "logger/LogSender.h"

#include <string>

namespace quillon::logger {

/// One log statement: where `level` is on, calls `write` with a record, and sends what `write` streams into
/// it. `category` names the part of the program. A level that is off costs two locks: nothing is allocated,
/// and `write` is not called. Any thread.
///
///     log(ELogLevel::Debug, "calculateHash", [&](auto& record) { record << "Opening the input file " <<
///     name; });
template <class Write>
void log(ELogLevel level, const char* category, Write write) noexcept
{
    try {
        LogSender<char>* const sender = getLogSender();
        if (sender == nullptr || !sender->isEnabled(level))
            return;
        LogRec<char> record(sender, level, std::string(category));
        write(record);
    } catch (...) {
        // The line is lost, for want of memory say. That must not stop what it tells of.
    }
}

} // namespace quillon::logger
