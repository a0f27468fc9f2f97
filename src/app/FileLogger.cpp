#include "app/FileLogger.h"

#include "err/ResultCode.h"
#include "logger/Log.h"
#include "logger/LogAppenderUtf8File.h"
#include "platform/Files.h"

#include <QFileInfo>
#include <QString>

#include <cstdint>
#include <memory>

namespace quillon {
namespace {

using logger::ELogLevel;
using logger::LogAppenderUtf8File;

constexpr std::uint64_t kFileAppenderId = 1;
constexpr const char* kCategory = "mainwindow";

void createFolderOf(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    if (!path.empty() && !file.exists())
        platform::createFolders(file.absolutePath().toStdString());
}

void logFailure(const char* what, const err::ResultCode& result)
{
    logger::log(ELogLevel::Error, kCategory, [&](auto& record) { record << what << result; });
}

void addFileLogger(logger::LogSender<char>& sender, const std::string& path)
{
    if (path.empty()) {
        logger::log(ELogLevel::Error, kCategory,
                    [](auto& record) { record << "Failed to create file logger."; });
        return;
    }
    auto file = std::make_unique<LogAppenderUtf8File>(kFileAppenderId, path);
    if (const err::ResultCode starting = file->start(); !err::succeeded(starting)) {
        logFailure("Failed to start file logger. Error: ", starting);
        return;
    }
    LogAppenderUtf8File* const started = file.release();
    if (const err::ResultCode added = sender.appenders().addAppender(started); !err::succeeded(added)) {
        file.reset(started); // not taken over
        logFailure("Failed to add file logger. Error: ", added);
        return;
    }
    logger::log(ELogLevel::Trace, kCategory, [](auto& record) { record << "File logger was started."; });
}

} // namespace

void setFileLoggerEnabled(bool enabled, const std::string& path)
{
    logger::LogSender<char>& sender = *logger::getLogSender();
    if (!enabled) {
        sender.appenders().removeAllAppenders();
        return;
    }
    createFolderOf(path);
    if (!sender.appenders().setAppenderEnabled(kFileAppenderId, true))
        addFileLogger(sender, path);
}

} // namespace quillon
