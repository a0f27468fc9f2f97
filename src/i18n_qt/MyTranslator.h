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

/// Answers Qt from the program's bundle of texts, so that Qt's own texts too come from the translation files
/// and change with the language that is loaded. Installed once; a change of language needs no new translator.
class MyTranslator : public quillon::AppTranslator
{
public:
    using quillon::AppTranslator::AppTranslator;

    /// False, so that Qt asks.
    [[nodiscard]] bool isEmpty() const override { return false; }

    /// The translation of `sourceText` in `context`, the name of a class; the source text where there is none
    /// or an empty one; an empty text for a null pointer. There are neither plural forms nor disambiguation:
    /// a "%n" stays for Qt to fill. Any thread.
    [[nodiscard]] QString translate(const char* context, const char* sourceText,
                                    const char* disambiguation = nullptr, int n = -1) const override;
};
