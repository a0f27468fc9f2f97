#pragma once

#include <QPointer>
#include <QWidget>

#include <initializer_list>

/// Switches controls of one window off and on again, and gives the keyboard back to the one that lost it by
/// that. Main thread.
class FocusReturn
{
public:
    void disable(std::initializer_list<QWidget*> controls)
    {
        const QWidget& window = *(*controls.begin())->window();
        QWidget* const owner = window.focusWidget();
        for (QWidget* control : controls)
            control->setEnabled(false);
        if (owner == nullptr || owner->isEnabled())
            return;
        m_owner = owner;
        m_heir = window.focusWidget();
    }

    /// Whoever moved on meanwhile keeps the keyboard where it is.
    void enable(std::initializer_list<QWidget*> controls)
    {
        for (QWidget* control : controls)
            control->setEnabled(true);
        if (m_owner != nullptr && m_owner->isEnabled() && m_owner->window()->focusWidget() == m_heir)
            m_owner->setFocus();
        m_owner = nullptr;
    }

private:
    QPointer<QWidget> m_owner; ///< had the keyboard
    QPointer<QWidget> m_heir;  ///< got it
};
