#include "ui/CSelectAlgFrame.h"

#include "ui_CSelectAlgFrame.h"

#include "ui/AlgorithmList.h"

#include <QKeyEvent>
#include <QListWidget>
#include <QRegularExpression>

namespace {

/// A style sheet for a layout from right to left. The toolkit turns positions, but neither paddings nor
/// borders.
QString mirrored(QString sheet)
{
    // Names of properties only
    sheet.replace(QRegularExpression(QStringLiteral("left(?=[-:])")), QStringLiteral("@"));
    sheet.replace(QRegularExpression(QStringLiteral("right(?=[-:])")), QStringLiteral("left"));
    sheet.replace(QLatin1Char('@'), QStringLiteral("right"));
    const QRegularExpression fourSides(QStringLiteral("(: \\S+) (\\S+) (\\S+) (\\S+);"));
    return sheet.replace(fourSides, QStringLiteral("\\1 \\4 \\3 \\2;"));
}

} // namespace

CSelectAlgFrame::CSelectAlgFrame(QWidget* parent)
    : QFrame(parent)
    , m_ui(std::make_unique<Ui_CSelectAlgFrame>())
{
    m_ui->setupUi(this);
    // A list widget's rows are easier to fill than a bare model's; the combo box shows and then owns it.
    m_listView = new QListWidget(this);
    m_listView->setUniformItemSizes(true);
    m_ui->comboBoxSelectAlg->setModel(m_listView->model());
    m_ui->comboBoxSelectAlg->setView(m_listView);
    // Styles whose combo boxes open like a menu switch this off, but a list of limited height needs it.
    m_listView->setVerticalScrollBarPolicy(Qt::ScrollBarAsNeeded);
    m_ui->comboBoxSelectAlg->installEventFilter(this);
    m_sheet = m_ui->comboBoxSelectAlg->styleSheet();
    orient();
}

CSelectAlgFrame::~CSelectAlgFrame() = default;

/// The box takes every key with a text for the beginning of a row's name, so also the window's shortcuts.
bool CSelectAlgFrame::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::KeyPress)
        return QFrame::eventFilter(watched, event);
    const auto& press = static_cast<const QKeyEvent&>(*event);
    const bool isShortcut = press.modifiers().testFlag(Qt::ControlModifier) &&
                            !press.modifiers().testFlag(Qt::AltModifier) && press.key() >= Qt::Key_A &&
                            press.key() <= Qt::Key_Z;
    if (isShortcut)
        event->ignore();
    return isShortcut;
}

void CSelectAlgFrame::changeEvent(QEvent* event)
{
    QFrame::changeEvent(event);
    if (event->type() == QEvent::LayoutDirectionChange)
        orient();
}

void CSelectAlgFrame::orient()
{
    m_ui->comboBoxSelectAlg->setStyleSheet(isRightToLeft() ? mirrored(m_sheet) : m_sheet);
}

void CSelectAlgFrame::reloadAlgorithms()
{
    fillAlgorithmList(m_provider, m_listView, false);
}

void CSelectAlgFrame::retranslateFrame()
{
    m_ui->retranslateUi(this);
}

thisapp::SHashAlgId CSelectAlgFrame::getCurrentAlgorithm() const
{
    return parseAlgorithmItemData(m_ui->comboBoxSelectAlg->currentData(Qt::UserRole));
}

void CSelectAlgFrame::setCurrentAlgorithm(const thisapp::SHashAlgId& id)
{
    if (const int row = findAlgorithmRow(*m_listView, id); row >= 0)
        m_ui->comboBoxSelectAlg->setCurrentIndex(row);
}
