#include "i18n_qt/AppTranslator.h"

namespace quillon {

QString AppTranslator::translate(const char* context, const char* sourceText, const char* disambiguation,
                                 int n) const
{
    return QTranslator::translate(context, sourceText, disambiguation, n);
}

} // namespace quillon
