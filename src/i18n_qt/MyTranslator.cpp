#include "i18n_qt/MyTranslator.h"

#include "i18n/StrBundleTrMgr.h"

#include <string>

namespace quillon {

QString AppTranslator::translate(const char* context, const char* sourceText, const char* disambiguation,
                                 int n) const
{
    return QTranslator::translate(context, sourceText, disambiguation, n);
}

} // namespace quillon

QString MyTranslator::translate(const char* context, const char* sourceText, const char* /*disambiguation*/,
                                int /*n*/) const
{
    const std::string text = quillon::i18n::getStrBundleMgr().getString(context, sourceText);
    if (!text.empty())
        return QString::fromUtf8(text.data(), static_cast<int>(text.size()));
    return QString::fromLatin1(sourceText == nullptr ? "" : sourceText);
}
