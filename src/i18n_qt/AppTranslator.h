#pragma once

#include <QTranslator>

namespace quillon {

/// The base of a product's translator: as a QTranslator without files, it finds nothing by itself.
class AppTranslator : public QTranslator
{
public:
    using QTranslator::QTranslator;

    /// Never empty, as the texts may come from elsewhere than from Qt's own files.
    [[nodiscard]] bool isEmpty() const override { return false; }

    [[nodiscard]] QString translate(const char* context, const char* sourceText,
                                    const char* disambiguation = nullptr, int n = -1) const override;
};

} // namespace quillon
