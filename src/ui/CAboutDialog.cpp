#include "ui/CAboutDialog.h"

#include "ui_CAboutDialog.h"

#include "ui/ProductLabels.h"
#include "ui/TextDirection.h"

#include <QCoreApplication>
#include <QDesktopServices>
#include <QUrl>

CAboutDialog::CAboutDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui_CAboutDialog>())
{
    m_ui->setupUi(this);
    keepButtonTextsCentred(*this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    m_ui->labelIcon->setPixmap(windowIcon().pixmap(m_ui->labelIcon->maximumSize()));
    connect(m_ui->buttonOk, &QPushButton::clicked, this, &CAboutDialog::onUiButtonOkPressed);
    connect(m_ui->labelEmailUrl, &QLabel::linkActivated, this, &CAboutDialog::onUiSupportEmailClicked);
}

CAboutDialog::~CAboutDialog() = default;

void CAboutDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (m_firstShow.exchange(false))
        fill();
}

void CAboutDialog::fill()
{
    const QString name = QCoreApplication::applicationName();
    fillProductLabels(*m_ui);
    m_ui->labelHomePage->setText(tr("%1 home page:").arg(name));
    m_ui->labelEmail->setText(tr("Support email:"));
    m_ui->labelDonate->setText(tr("Donate to the %1:").arg(name));
}

void CAboutDialog::onUiButtonOkPressed()
{
    accept();
}

void CAboutDialog::onUiSupportEmailClicked(const QString& /*strUrl*/)
{
    QDesktopServices::openUrl(QUrl(supportMailAddress()));
}
