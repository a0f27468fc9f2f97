#pragma once

#include "vars/Product.h"

#include <QCoreApplication>
#include <QLabel>
#include <QString>

/// The rich text of a label that shows `text` as a link to `address`, blue and underlined. Both stand in it
/// as they are, so neither may hold characters that HTML gives a meaning to.
[[nodiscard]] QString makeLinkLabelText(const QString& text, const QString& address);

/// Makes the link in `label` ready and visible as soon as the label gets the keyboard. Qt would want one more
/// Tab for that, and shows nothing until then.
void selectLinkOnFocus(QLabel& label);

/// Keeps a label with a Latin text at the edge at which the others begin, also where that is the right one.
void keepAtLeadingEdge(QLabel& label);

/// The address that opens the mail program with a message to support about this program.
[[nodiscard]] QString supportMailAddress();

/// Writes what needs no translation into the product labels of `form`, which is the form of a dialog that
/// shows them: version, copyright and the three links.
template <class Form>
void fillProductLabels(Form& form)
{
    namespace vars = quillon::vars;
    const auto setLink = [](QLabel& label, const char* address) {
        label.setText(makeLinkLabelText(QString::fromUtf8(address), QString::fromUtf8(address)));
        selectLinkOnFocus(label);
    };
    form.labelVersion->setText(QCoreApplication::applicationName() + QStringLiteral(" v") +
                               QCoreApplication::applicationVersion());
    form.labelCopyright->setText(QString::fromUtf8(vars::kCopyright));
    setLink(*form.labelHomePageUrl, vars::kHomePageUrl);
    setLink(*form.labelEmailUrl, vars::kSupportEmail);
    setLink(*form.labelDonateUrl, vars::kDonationUrl);
    for (QLabel* label : {form.labelVersion, form.labelCopyright, form.labelHomePageUrl, form.labelEmailUrl,
                          form.labelDonateUrl})
        keepAtLeadingEdge(*label);
}
