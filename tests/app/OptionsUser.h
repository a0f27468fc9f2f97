#pragma once

#include "ui/COptionsDialog.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QTabWidget>
#include <QTest>

namespace quillon::tests {

/// The hands and the eyes of the options dialog's user. Controls have their object names.
struct OptionsUser
{
    template <class Widget = QWidget>
    Widget& reach(const char* name) const
    {
        auto* const widget = dialog.findChild<Widget*>(QString::fromLatin1(name));
        if (widget == nullptr)
            qFatal("The dialog has no %s", name);
        auto* const tabs = dialog.findChild<QTabWidget*>("tabWidget");
        for (int tab = 0; tab < tabs->count(); ++tab)
            if (tabs->widget(tab)->isAncestorOf(widget))
                tabs->setCurrentIndex(tab);
        return *widget;
    }

    /// Clicks where a check box, a radio button or a link begins.
    void click(const char* name) const
    {
        auto& widget = reach(name);
        QTest::mouseClick(&widget, Qt::LeftButton, {}, {10, widget.height() / 2});
    }

    /// Selects the row of a combo box that begins with `text`, writes it into a line edit, or clicks.
    void enter(const char* name, const char* text) const
    {
        auto& widget = reach(name);
        if (auto* const edit = qobject_cast<QLineEdit*>(&widget)) {
            edit->selectAll();
            QTest::keyClicks(edit, QString(text));
        } else if (auto* const combo = qobject_cast<QComboBox*>(&widget)) {
            const int row = combo->findText(text, Qt::MatchStartsWith);
            const bool isLast = row == combo->count() - 1;
            QTest::keyClick(combo, isLast ? Qt::Key_End : Qt::Key_Home);
            for (int step = isLast ? row : 0; step < row; ++step)
                QTest::keyClick(combo, Qt::Key_Down);
        } else {
            click(name);
        }
    }

    /// What the control shows, a check mark as "true".
    std::string shown(const char* name) const
    {
        const auto& widget = reach(name);
        const bool isCheckable = widget.property("checkable").toBool();
        const char* const text = widget.inherits("QComboBox") ? "currentText" : "text";
        return widget.property(isCheckable ? "checked" : text).toString().toStdString();
    }

    COptionsDialog& dialog;
};

} // namespace quillon::tests
