#include "settings/CErrMsg.h"

#include "err/ResultCode.h"
#include "platform/Process.h"

#include <QObject>

#include <algorithm>
#include <iterator>

namespace thisapp {
namespace {

namespace err = quillon::err;

struct CodeText
{
    std::uint32_t code;
    const char* text;
};

// Two codes may share one text: a lower layer's code and the session's own.
constexpr CodeText kProgramTexts[] = {
    {17, QT_TRANSLATE_NOOP("QObject", "Data stream not defined")},
    {40, QT_TRANSLATE_NOOP("QObject", "File name not defined")},
    {41, QT_TRANSLATE_NOOP("QObject", "File not found")},
    {42, QT_TRANSLATE_NOOP("QObject", "Open file failed")},
    {43, QT_TRANSLATE_NOOP("QObject", "Get file size failed")},
    {45, QT_TRANSLATE_NOOP("QObject", "Reading file failed")},
    {60, QT_TRANSLATE_NOOP("QObject", "Reading data stream failed")},
    {200, QT_TRANSLATE_NOOP("QObject", "File name not defined")},
    {201, QT_TRANSLATE_NOOP("QObject", "File not found")},
    {1004, QT_TRANSLATE_NOOP("QObject", "Hash calculation was stopped")},
    {4006, QT_TRANSLATE_NOOP("QObject", "Cryptographic engine is not initialized")},
};

bool programText(std::uint32_t code, std::string& text)
{
    const auto* row = std::ranges::find(kProgramTexts, code, &CodeText::code);
    if (row == std::end(kProgramTexts))
        return false;
    text = QObject::tr(row->text).toStdString();
    return true;
}

} // namespace

bool CErrMsg::buildMessage(std::uint32_t group, std::uint32_t code, std::string& text) const
{
    if (group == err::kGroupSystem) {
        text = quillon::platform::osErrorText(code);
        return !text.empty();
    }
    return group == err::kGroupProgram && programText(code, text);
}

} // namespace thisapp
