#include "ui/ProductLabels.h"

#include "vars/Product.h"

#include <QCoreApplication>
#include <QFocusEvent>
#include <QKeyEvent>

namespace {

/// Gives the label the further Tab that Qt wants. A link that a mouse has given the keyboard is left alone:
/// it could not be clicked if it were selected.
class LinkSelector final : public QObject
{
public:
    using QObject::QObject;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override
    {
        if (event->type() == QEvent::FocusIn) {
            const Qt::FocusReason reason = static_cast<const QFocusEvent&>(*event).reason();
            if (reason == Qt::TabFocusReason || reason == Qt::BacktabFocusReason)
                QCoreApplication::postEvent(watched,
                                            new QKeyEvent(QEvent::KeyPress, Qt::Key_Tab, Qt::NoModifier));
        }
        return QObject::eventFilter(watched, event);
    }
};

} // namespace

void selectLinkOnFocus(QLabel& label)
{
    label.installEventFilter(new LinkSelector(&label));
}

void keepAtLeadingEdge(QLabel& label)
{
    if (label.isRightToLeft())
        label.setAlignment((label.alignment() & Qt::AlignVertical_Mask) | Qt::AlignRight | Qt::AlignAbsolute);
}

QString makeLinkLabelText(const QString& text, const QString& address)
{
    return QStringLiteral("<html><head/><body><p><a href=\"") + address +
           QStringLiteral("\"><span style=\"text-decoration: underline; color:#0000ff;\">") + text +
           QStringLiteral("</span></a></p></body></html>");
}

QString supportMailAddress()
{
    return QStringLiteral("mailto:") + QString::fromUtf8(quillon::vars::kSupportEmail) +
           QStringLiteral("?subject=") + QCoreApplication::applicationName();
}
