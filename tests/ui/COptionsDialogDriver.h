#pragma once

#include "ui/AlgorithmProviders.h"
#include "ui/COptionsDialog.h"

#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>

#include <string>
#include <vector>

namespace quillon::tests {

/// Keeps every record that it is given.
struct RecordedOptions final : thisapp::IAppOptionsChanged
{
    void onAppOptionsChanged(const thisapp::SAppOptions& options) override { applied.push_back(options); }
    std::vector<thisapp::SAppOptions> applied;
};

struct RecordedLocales final : i18n::internal::ILocaleCallback<char>
{
    void onLocaleChanged(const std::string& language, const std::string& country, long id) override
    {
        changes.push_back(language + '-' + country + '/' + std::to_string(id));
    }
    std::vector<std::string> changes;
};

struct ListedTranslations final : i18n::internal::ITranslationListProvider<char>
{
    using Entry = i18n::internal::Translation<char>;

    [[nodiscard]] int getTranslationCount() const override { return static_cast<int>(entries.size()); }
    bool getTranslation(Entry& out, int index) const override
    {
        out = entries.at(static_cast<std::size_t>(index));
        return true;
    }
    void add(const char* name, const char* language, const char* country)
    {
        entries.push_back({i18n::internal::kTranslationTranslations, name, language, country, {}, {}});
    }
    std::vector<Entry> entries;
};

/// An options dialog with everything that it is connected to, and the hands of its user.
struct OptionsDriver
{
    OptionsDriver()
    {
        translations.add("English", "en", "US");
        translations.add("Deutsch", "de", "DE");
        translations.add("Klingon", "tlh", "QO");
        translations.add("Ελληνικά", "el", "GR");
        dialog.setAlgProvider(&algorithms);
        dialog.setOptionsChanged(&owner);
        dialog.setTranslationList(&translations);
        dialog.setLocaleCallback(&locales);
        // Queued behind the dialog's own slots, so that these have run where a count has changed.
        const auto count = [this](auto signal, int& number) {
            QObject::connect(
                &dialog, signal, &dialog, [&number] { ++number; }, Qt::QueuedConnection);
        };
        count(&COptionsDialog::notifyQuerySystemProxySettingsFinished, finishedQueries);
        count(&COptionsDialog::notifyCheckNetworkConnectionFinished, finishedChecks);
        dialog.setSystemQuery([] { return COptionsDialog::SGetSystemProxySettings{}; });
    }

    template <class Widget = QWidget>
    Widget* find(const char* name) const
    {
        return dialog.findChild<Widget*>(QString::fromLatin1(name));
    }

    QString text(const char* lineEdit) const { return find<QLineEdit>(lineEdit)->text(); }

    /// Brings the tab with this control to the front.
    template <class Widget = QWidget>
    Widget* reach(const char* name) const
    {
        auto* tabs = find<QTabWidget>("tabWidget");
        auto* widget = find<Widget>(name);
        for (int index = 0; index < tabs->count(); ++index) {
            if (tabs->widget(index)->isAncestorOf(widget))
                tabs->setCurrentIndex(index);
        }
        return widget;
    }

    /// Clicks where a check box or a radio button has its indicator; anywhere does for a push button.
    void click(const char* name) const
    {
        auto* widget = reach(name);
        QTest::mouseClick(widget, Qt::LeftButton, {}, {10, widget->height() / 2});
    }

    void type(const char* lineEdit, const char* text) const
    {
        auto* edit = reach<QLineEdit>(lineEdit);
        edit->selectAll();
        QTest::keyClick(edit, Qt::Key_Delete);
        QTest::keyClicks(edit, QString::fromUtf8(text));
    }

    /// Selects the row by the keys, the last one without touching those between.
    void choose(const char* comboBox, int row) const
    {
        auto* combo = reach<QComboBox>(comboBox);
        QTest::keyClick(combo, row == combo->count() - 1 ? Qt::Key_End : Qt::Key_Home);
        while (combo->currentIndex() < row)
            QTest::keyClick(combo, Qt::Key_Down);
    }

    /// What the last line edit of the network tab shows: its colour and text.
    std::string networkResult() const
    {
        const auto* edit = find<QLineEdit>("lineEditNetworkLogs");
        return (edit->palette().color(QPalette::Text).name() + ' ' + edit->text()).toStdString();
    }

    int finishedQueries = 0;
    int finishedChecks = 0;
    ListedAlgorithms algorithms;
    RecordedOptions owner;
    ListedTranslations translations;
    RecordedLocales locales;
    COptionsDialog dialog;
};

} // namespace quillon::tests
