#include "ui/CCompareDialog.h"

#include "ui_CCompareDialog.h"

#include "compare/DigestValue.h"
#include "compare/ListFile.h"
#include "crypto/HashCatalogue.h"
#include "err/ErrorText.h"
#include "ui/FileChoice.h"
#include "ui/TextDirection.h"

#include <QAccessible>
#include <QClipboard>
#include <QFontDatabase>
#include <QGuiApplication>

#include <algorithm>

namespace compare = quillon::compare;
namespace crypto = quillon::crypto;

using compare::Answer;
using compare::Comparison;

namespace {

constexpr int kGroupDigits = 8;
constexpr int kGroupsInALine = 8;

QString nameOf(std::uint32_t algorithm)
{
    const std::string_view name = crypto::getHashAlgName(algorithm);
    return QString::fromUtf8(name.data(), static_cast<int>(name.size()));
}

bool isStrong(std::uint32_t algorithm)
{
    const auto rows = crypto::hashCatalogue();
    const auto row = std::ranges::find(rows, algorithm, [](const auto& each) { return each.id.alg; });
    return row == rows.end() || row->strong;
}

/// Our SHA3 is that of the submission to the contest, whose padding the standard has changed.
bool isSubmissionsSha3(std::uint32_t algorithm)
{
    return nameOf(algorithm).startsWith(QStringLiteral("SHA3"));
}

/// A text from outside as it can be shown: characters that move others about or break the line are made
/// visible.
QString harmless(QString shown)
{
    for (QChar& c : shown) {
        const bool isControl = c.category() == QChar::Other_Control ||
                               c.category() == QChar::Separator_Line ||
                               c.category() == QChar::Separator_Paragraph;
        const ushort code = c.unicode();
        const bool isDirection = code == 0x061C || code == 0x200E || code == 0x200F ||
                                 (code >= 0x202A && code <= 0x202E) || (code >= 0x2066 && code <= 0x2069);
        if (isControl || isDirection)
            c = QChar::ReplacementCharacter;
    }
    return shown;
}

/// A line of groups as HTML; those that differ from the other value's are marked.
QString groupsLine(const QString& digits, const QString& others, int start)
{
    QStringList groups;
    const int end = std::min(start + kGroupsInALine * kGroupDigits, static_cast<int>(digits.size()));
    for (int at = start; at < end; at += kGroupDigits) {
        const QString group = digits.mid(at, kGroupDigits);
        const bool isSame = group == others.mid(at, kGroupDigits);
        groups += isSame ? group
                         : QStringLiteral("<b><u style=\"background-color: #ffd9d9\">%1</u></b>").arg(group);
    }
    return groups.join(QLatin1Char(' '));
}

} // namespace

CCompareDialog::CCompareDialog(const compare::CalculatedValue& calculated, bool mayCalculate, QWidget* parent)
    : QDialog(parent)
    , m_ui(std::make_unique<Ui_CCompareDialog>())
    , m_calculated(calculated)
    , m_mayCalculate(mayCalculate)
{
    m_ui->setupUi(this);
    setWindowFlags(windowFlags() & ~Qt::WindowContextHelpButtonHint);
    const QFont digits = QFontDatabase::systemFont(QFontDatabase::FixedFont);
    for (QWidget* widget : std::initializer_list<QWidget*>{
             m_ui->plainTextEditCalculated, m_ui->plainTextEditExpected, m_ui->labelDifference})
        widget->setFont(digits);
    orientTexts();
    constexpr int kLines = 4;
    m_ui->plainTextEditCalculated->setFixedHeight(kLines *
                                                  m_ui->plainTextEditCalculated->fontMetrics().lineSpacing());
    m_ui->lineEditFile->setText(harmless(QString::fromStdString(m_calculated.fileName)));
    m_ui->lineEditAlgorithm->setText(nameOf(m_calculated.algorithm));
    m_ui->plainTextEditCalculated->setPlainText(QString::fromStdString(m_calculated.digits));
    connect(m_ui->plainTextEditExpected, &QPlainTextEdit::textChanged, this,
            &CCompareDialog::onUiTextChanged);
    connect(m_ui->plainTextEditExpected, &CExpectedEdit::fileGiven, this, &CCompareDialog::onUiFileGiven);
    connect(m_ui->buttonPaste, &QPushButton::clicked, m_ui->plainTextEditExpected, [this] {
        m_ui->plainTextEditExpected->selectAll();
        m_ui->plainTextEditExpected->paste();
    });
    connect(m_ui->buttonFromFile, &QPushButton::clicked, this, &CCompareDialog::onUiFromFile);
    connect(m_ui->buttonCalculate, &QPushButton::clicked, this, &CCompareDialog::onUiCalculate);
    connect(m_ui->buttonClose, &QPushButton::clicked, this, &CCompareDialog::reject);
    m_ui->plainTextEditExpected->setFocus();
    onUiTextChanged();
}

CCompareDialog::~CCompareDialog() = default;

void CCompareDialog::setExpectedText(const QString& text)
{
    m_ui->plainTextEditExpected->setPlainText(text);
}

QString CCompareDialog::expectedText() const
{
    return m_ui->plainTextEditExpected->toPlainText();
}

void CCompareDialog::takeClipboard()
{
    const QClipboard* const clipboard = QGuiApplication::clipboard();
    if (clipboard == nullptr || clipboard->ownsClipboard())
        return;
    const QString text = clipboard->text();
    if (text.size() > CExpectedEdit::kMostCharacters)
        return;
    const auto values = compare::readExpectedValues(text.toStdString());
    if (values.size() == 1 && compare::isDigestLength(values.front().digits.size()))
        setExpectedText(text);
}

void CCompareDialog::onUiTextChanged()
{
    showAnswer(compare::compareWith(compare::readExpectedValues(expectedText().toStdString()), m_calculated));
}

void CCompareDialog::onUiFromFile()
{
    const QString path = chooseFile(this, tr("Select a list of hash values"));
    if (!path.isEmpty())
        onUiFileGiven(path);
}

void CCompareDialog::onUiFileGiven(const QString& path)
{
    const compare::ListFile list = compare::readListFile(path.toStdString());
    const Comparison comparison = compare::compareWith(compare::readExpectedValues(list.text), m_calculated);
    QStringList lines = QString::fromStdString(comparison.lines).split(QLatin1Char('\n'));
    std::ranges::transform(lines, lines.begin(), harmless);
    setExpectedText(lines.join(QLatin1Char('\n')).trimmed());
    // What the text alone cannot tell
    if (list.isTooLong)
        showSentence(QStyle::SP_MessageBoxWarning, tr("The list is too long."));
    else if (!quillon::err::succeeded(list.result))
        showSentence(QStyle::SP_MessageBoxWarning,
                     tr("The list could not be read. Error: %1.")
                         .arg(QString::fromStdString(quillon::err::errorCodesText(list.result))));
    else
        showAnswer(comparison);
}

void CCompareDialog::onUiCalculate()
{
    m_wantedAlgorithm = m_offeredAlgorithm;
    accept();
}

void CCompareDialog::showAnswer(const Comparison& comparison)
{
    showSentence(iconFor(comparison.answer), sentenceFor(comparison) + remarksFor(comparison));
    offerCalculation(comparison.algorithms);
    if (comparison.answer == Answer::Different)
        showDifference(comparison.value.digits);
}

/// Digests and paths are read from left to right in every language; so is the table of two digests.
void CCompareDialog::orientTexts()
{
    m_ui->lineEditFile->setLayoutDirection(Qt::LeftToRight);
    m_ui->labelDifference->setLayoutDirection(Qt::LeftToRight);
    showLeftToRight(*m_ui->plainTextEditCalculated);
    showLeftToRight(*m_ui->plainTextEditExpected);
    if (isRightToLeft()) // a name stays beside its label
        m_ui->lineEditAlgorithm->setAlignment(Qt::AlignRight);
}

void CCompareDialog::showSentence(QStyle::StandardPixmap icon, const QString& sentence)
{
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    m_ui->labelIcon->setPixmap(style()->standardIcon(icon).pixmap(size));
    if (m_ui->labelAnswer->text() != sentence) {
        m_ui->labelAnswer->setText(sentence);
        QAccessibleEvent event(m_ui->labelAnswer, QAccessible::Alert);
        QAccessible::updateAccessibility(&event);
    }
    m_ui->labelDifference->clear();
    m_ui->labelDifference->hide();
    offerCalculation({});
}

void CCompareDialog::offerCalculation(const std::vector<std::uint32_t>& algorithms)
{
    m_offeredAlgorithm = algorithms.empty() ? 0 : algorithms.front();
    m_ui->buttonCalculate->setVisible(m_offeredAlgorithm != 0);
    m_ui->buttonCalculate->setEnabled(m_mayCalculate);
    m_ui->buttonCalculate->setText(tr("Calculate with %1").arg(nameOf(m_offeredAlgorithm)));
}

void CCompareDialog::showDifference(const std::string& expected)
{
    const QString theirs = QString::fromStdString(expected);
    const QString ours = QString::fromStdString(m_calculated.digits);
    const QString row = QStringLiteral("<tr><td>%1&nbsp;</td><td style=\"white-space: pre\">%2</td></tr>");
    QString rows;
    for (int start = 0; start < std::max(theirs.size(), ours.size()); start += kGroupsInALine * kGroupDigits)
        rows += row.arg(m_ui->labelExpected->text().toHtmlEscaped(), groupsLine(theirs, ours, start)) +
                row.arg(m_ui->labelCalculated->text().toHtmlEscaped(), groupsLine(ours, theirs, start));
    m_ui->labelDifference->setText(QStringLiteral("<table>%1</table>").arg(rows));
    m_ui->labelDifference->show();
}

QStyle::StandardPixmap CCompareDialog::iconFor(Answer answer) const
{
    switch (answer) {
    case Answer::Equal:
        return QStyle::SP_DialogApplyButton;
    case Answer::Different:
        return QStyle::SP_MessageBoxCritical;
    case Answer::Unread:
        return QStyle::SP_MessageBoxInformation;
    default:
        return QStyle::SP_MessageBoxWarning;
    }
}

QString CCompareDialog::sentenceFor(const Comparison& comparison) const
{
    const QString ours = isolated(nameOf(m_calculated.algorithm));
    switch (comparison.answer) {
    case Answer::Unread:
        return tr("No hash value was recognised.");
    case Answer::NotListed:
        return tr("The list has no hash value for this file.");
    case Answer::Contradictory:
        return tr("The list has different hash values for this file.");
    case Answer::OtherAlgorithm:
        return tr("The value is for %1. The file was calculated with %2.")
            .arg(algorithmNames(comparison), ours);
    case Answer::Equal:
        return tr("The hash values are equal.");
    case Answer::Beginning:
        return tr("Only the beginning of the hash value was given: %1 / %2 digits.")
            .arg(comparison.value.digits.size())
            .arg(m_calculated.digits.size());
    case Answer::OtherLength:
        return tr("The value has the length of %1. The file was calculated with %2.")
            .arg(algorithmNames(comparison), ours);
    case Answer::Different:
        return tr("The hash values differ.");
    }
    return {};
}

/// What has to be known beside the answer, each sentence with a blank before it.
QString CCompareDialog::remarksFor(const Comparison& comparison) const
{
    QString remarks;
    const auto add = [&remarks](const QString& sentence) { remarks += QLatin1Char(' ') + sentence; };
    if (comparison.answer == Answer::Unread)
        add(tr("Enter hexadecimal digits, Base64, or what a checksum program has written."));
    if (comparison.answer == Answer::Equal && !isStrong(m_calculated.algorithm))
        add(tr("This algorithm does not protect against deliberate changes."));
    if (comparison.answer == Answer::Different && isSubmissionsSha3(m_calculated.algorithm))
        add(tr(
            "SHA3 is calculated with the padding of the original submission. Programs that follow the later "
            "standard get other values."));
    if (comparison.isOfOtherName)
        add(tr("The value stands beside the name %1.")
                .arg(isolated(harmless(QString::fromStdString(comparison.value.fileName)))));
    return remarks;
}

/// The likeliest algorithm, and in brackets what else it may be.
QString CCompareDialog::algorithmNames(const Comparison& comparison) const
{
    if (comparison.algorithms.empty())
        return isolated(harmless(QString::fromStdString(comparison.value.algorithmName)));
    QStringList names;
    for (const std::uint32_t algorithm : comparison.algorithms)
        names += nameOf(algorithm);
    const QString likeliest = names.takeFirst();
    return isolated(names.isEmpty()
                        ? likeliest
                        : likeliest + QStringLiteral(" (%1)").arg(names.join(QStringLiteral(", "))));
}
