#include "ui_CMainWindow.h"

#include "ui/PrintQString.h"

#include <QApplication>
#include <QRegularExpression>
#include <QTest>
#include <QTranslator>

#include <gtest/gtest.h>

namespace quillon::tests {
namespace {

class MainWindowForm : public testing::Test
{
protected:
    MainWindowForm() { form.setupUi(&window); }

    QMainWindow window;
    Ui_CMainWindow form;
};

TEST_F(MainWindowForm, EveryFieldAndButtonHasAnAccessibleName)
{
    for (const QWidget* widget : form.centralWidget->findChildren<QWidget*>(
             QRegularExpression("^(lineEdit|button|textEdit|plainTextEdit)")))
        EXPECT_FALSE(widget->accessibleName().isEmpty()) << widget->objectName().toStdString();
    EXPECT_EQ(form.labelResultHexCaption->buddy(), form.plainTextEditHashHex);
}

TEST_F(MainWindowForm, TheTabKeyWalksFromTopToBottom)
{
    window.show();
    // Not every offscreen platform makes a shown window the active one.
    QApplication::setActiveWindow(&window);
    form.lineEditInput->setFocus();
    for (const char* name :
         {"buttonDefineInputFile", "buttonGotoInputDir", "textEditInputFileDetails", "plainTextEditHashHex",
          "buttonCopyHashHex", "plainTextEditHashBase64", "buttonCopyHashBase64", "lineEditInput"}) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(window.focusWidget()->objectName(), name);
    }
}

/// Marks every text of the main window, and moves one shortcut.
class MarkingTranslator final : public QTranslator
{
public:
    [[nodiscard]] bool isEmpty() const override { return false; }
    QString translate(const char* context, const char* text, const char* /*unused*/,
                      int /*unused*/) const override
    {
        if (qstrcmp(context, "CMainWindow") != 0)
            return {};
        return qstrcmp(text, "F5") == 0 ? QString("F6") : QLatin1Char('~') + QString(text);
    }
};

TEST_F(MainWindowForm, RetranslatingReachesEveryText)
{
    MarkingTranslator translator;
    QCoreApplication::installTranslator(&translator);
    form.retranslateUi(&window);
    QCoreApplication::removeTranslator(&translator);
    for (const QAction* action : window.findChildren<QAction*>(QRegularExpression("^action")))
        EXPECT_TRUE(action->text().startsWith('~')) << action->objectName().toStdString();
    EXPECT_EQ(form.actionHash_Calculate->shortcut(), QKeySequence(Qt::Key_F6));
    EXPECT_EQ(form.actionHash_Calculate->toolTip(), "~Start hash calculation");
    EXPECT_EQ(form.menuEncryption->title(), "~Hash");
    EXPECT_EQ(form.labelResultHexCaption->text(), "~HEX hash value:");
    EXPECT_EQ(form.buttonCopyHashHex->accessibleName(), "~Copy HEX hash to clipboard");
}

} // namespace
} // namespace quillon::tests
