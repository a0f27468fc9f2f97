#include "ui/CSelectAlgorithmDialog.h"

#include "ui_CSelectAlgorithmDialog.h"

#include "ui/AlgorithmList.h"
#include "ui/TextDirection.h"

CSelectAlgorithmDialog::CSelectAlgorithmDialog(QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui_CSelectAlgorithmDialog>())
{
    m_ui->setupUi(this);
    keepButtonTextsCentred(*this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    connect(m_ui->buttonOk, &QPushButton::clicked, this, &CSelectAlgorithmDialog::onUiOk);
    connect(m_ui->listWidgetSelectAlg, &QListWidget::itemDoubleClicked, this,
            &CSelectAlgorithmDialog::onUiOk);
    connect(m_ui->buttonCancel, &QPushButton::clicked, this, &CSelectAlgorithmDialog::onUiCancel);
    connect(m_ui->listWidgetSelectAlg, &QListWidget::currentItemChanged, this,
            &CSelectAlgorithmDialog::onUiCurrentAlgChanged);
}

CSelectAlgorithmDialog::~CSelectAlgorithmDialog() = default;

void CSelectAlgorithmDialog::showEvent(QShowEvent* event)
{
    QDialog::showEvent(event);
    if (!m_firstShow.exchange(false))
        return;
    QListWidget& list = *m_ui->listWidgetSelectAlg;
    fillAlgorithmList(m_provider, &list, true);
    if (list.count() > 0)
        list.setCurrentRow(0);
    if (const int row = findAlgorithmRow(list, m_current); row >= 0)
        list.setCurrentRow(row);
    m_ui->checkBoxAsDefault->setChecked(m_asDefault);
}

void CSelectAlgorithmDialog::onUiOk()
{
    const QListWidgetItem* item = m_ui->listWidgetSelectAlg->currentItem();
    m_current = item != nullptr ? parseAlgorithmItemData(item->data(Qt::UserRole)) : thisapp::SHashAlgId{};
    m_asDefault = m_ui->checkBoxAsDefault->isChecked();
    accept();
}

void CSelectAlgorithmDialog::onUiCancel()
{
    close();
}

void CSelectAlgorithmDialog::onUiCurrentAlgChanged(QListWidgetItem* current, QListWidgetItem* /*previous*/)
{
    const QString name = algorithmName(current);
    m_ui->labelSelectAlg->setText(name.isEmpty() ? tr("Algorithm:") : tr("Algorithm: %1").arg(name));
}

QString CSelectAlgorithmDialog::algorithmName(const QListWidgetItem* item) const
{
    if (item == nullptr || m_provider == nullptr)
        return {};
    const thisapp::SHashAlgId id = parseAlgorithmItemData(item->data(Qt::UserRole));
    return id.alg != 0 ? QString::fromStdString(m_provider->getAlgorithmName(id)) : QString();
}
