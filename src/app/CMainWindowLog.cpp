#include "app/CMainWindow.h"
#include "err/ResultCode.h"
#include "logger/Log.h"
#include "logger/LogAppenderUtf8File.h"
#include "platform/Files.h"
#include "settings/CAppSettings.h"
#include "settings/SettingsKeys.h"

#include <QFileInfo>
#include <QString>

#include <cstdint>
#include <memory>

namespace err = quillon::err;
namespace logger = quillon::logger;
namespace settings = thisapp::settings;

namespace {

using logger::ELogLevel;
using logger::LogAppenderUtf8File;

constexpr std::uint64_t kFileAppenderId = 1;
constexpr const char* kCategory = "mainwindow";

void createFolderOf(const std::string& path)
{
    const QFileInfo file(QString::fromStdString(path));
    if (!path.empty() && !file.exists())
        quillon::platform::createFolders(file.absolutePath().toStdString());
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

void CMainWindow::startLogging()
{
    const CAppSettings store;
    logger::getLogSender()->setLevel(logger::logLevelFromNumber(settings::LogLevel.read(store)));
    setFileLoggerEnabled(settings::UseLogFile.read(store));
}

/// Switches the log file of the process on or off. On: lines go to it from here on; where it is on already,
/// nothing changes. Off: every appender goes, the file is closed and what still waits is lost. A failure
/// shows in the log only.
void CMainWindow::setFileLoggerEnabled(bool enabled)
{
    logger::LogSender<char>& sender = *logger::getLogSender();
    if (!enabled) {
        sender.appenders().removeAllAppenders();
        return;
    }
    const std::string path = getLogFilePath().toStdString();
    createFolderOf(path);
    if (!sender.appenders().setAppenderEnabled(kFileAppenderId, true))
        addFileLogger(sender, path);
}
