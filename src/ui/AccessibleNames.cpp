#include "ui/AccessibleNames.h"

#include <QAbstractItemView>
#include <QAccessible>
#include <QAccessibleWidget>
#include <QComboBox>

namespace {

/// A combo box without an edit field: a list, a value, and a press that opens the one and changes the other.
class AccessibleComboBox final : public QAccessibleWidget
{
public:
    explicit AccessibleComboBox(QComboBox* box)
        : QAccessibleWidget(box, QAccessible::ComboBox)
    {
        addControllingSignal(QLatin1String("currentIndexChanged(int)"));
    }

    [[nodiscard]] int childCount() const override { return 1; }

    [[nodiscard]] QAccessibleInterface* child(int index) const override
    {
        return index == 0 ? QAccessible::queryAccessibleInterface(box().view()) : nullptr;
    }

    // The list lies on the screen on its own, not within the box.
    [[nodiscard]] QAccessibleInterface* childAt(int /*x*/, int /*y*/) const override { return nullptr; }

    [[nodiscard]] int indexOfChild(const QAccessibleInterface* child) const override
    {
        return child->object() == box().view() ? 0 : -1;
    }

    [[nodiscard]] QString text(QAccessible::Text kind) const override
    {
        return kind == QAccessible::Value ? box().currentText() : QAccessibleWidget::text(kind);
    }

    [[nodiscard]] QStringList actionNames() const override { return {showMenuAction(), pressAction()}; }

    void doAction(const QString& name) override
    {
        if (name != showMenuAction() && name != pressAction())
            return;
        if (box().view()->isVisible())
            box().hidePopup();
        else
            box().showPopup();
    }

private:
    [[nodiscard]] QComboBox& box() const { return *static_cast<QComboBox*>(widget()); }
};

QAccessibleInterface* describe(const QString& /*className*/, QObject* object)
{
    auto* const box = qobject_cast<QComboBox*>(object);
    return box != nullptr && !box->isEditable() ? new AccessibleComboBox(box) : nullptr;
}

} // namespace

void nameComboBoxesByTheirLabels()
{
    QAccessible::installFactory(describe);
}
