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

    template <class T>
    T* find(const char* name) const
    {
        auto* found = window.findChild<T*>(name);
        EXPECT_NE(found, nullptr) << name;
        return found;
    }

    QMainWindow window;
    Ui_CMainWindow form;
};

/// The names of a menu's or tool bar's entries, with "|" for a separator.
QStringList entryNames(const QWidget& owner)
{
    QStringList names;
    for (const QAction* action : owner.actions())
        names += action->isSeparator() ? QString("|") : action->objectName();
    return names;
}

QImage imageOf(const QIcon& icon)
{
    return icon.pixmap(32, 32).toImage();
}

struct ActionCase
{
    const char* name;
    const char* text;
    const char* toolTip; ///< null where Qt derives it from the text
    const char* shortcut;
    const char* icon;
};

constexpr ActionCase kActions[] = {
    {"actionFile_AddFile", "Add file", "Add file to calculate hash", "Ctrl+O", "additem"},
    {"actionFile_Exit", "Exit", nullptr, "", "exit"},
    {"actionHash_Calculate", "Calculate", "Start hash calculation", "F5", "start"},
    {"actionHash_Stop", "Stop", "Stop hash calculation", "F8", "stop"},
    {"actionHelp_HomePage", "Home page", nullptr, "", "home"},
    {"actionHelp_SupportEmail", "Support email", nullptr, "", "email"},
    {"actionHelp_Donate", "Donate", nullptr, "", nullptr},
    {"actionHelp_About", "About ...", nullptr, "", "help"},
    {"actionTools_KeyboardShortcuts", "Keyboard shortcuts ...", nullptr, "", "shortcuts"},
    {"actionTools_Options", "Options", nullptr, "", "settings"},
    {"actionFile_InputDir", "Open containing folder", nullptr, "Ctrl+F9", "folder"},
    {"actionHash_copyHexHash", "Copy HEX hash to clipboard", nullptr, "", "copy"},
    {"actionHash_copyBase64Hash", "Copy Base64 hash to clipboard", nullptr, "", "copy"},
    {"actionHash_selectAlgorithm", "Select algorithm ...", "Select algorithm to calculate hash", "",
     "algorithm"},
    {"actionTools_showHideToolbar", "Show/hide toolbar", nullptr, "", nullptr},
};

void expectIcon(const QIcon& icon, const char* file, const char* where)
{
    if (file == nullptr) {
        EXPECT_TRUE(icon.isNull()) << where;
        return;
    }
    ASSERT_FALSE(imageOf(icon).isNull()) << where;
    EXPECT_EQ(imageOf(icon), imageOf(QIcon(QString(":/kestrum/%1.ico").arg(file)))) << where;
}

TEST_F(MainWindowForm, TheActionsStandInTheirOrderWithTextsShortcutsAndIcons)
{
    const auto actions =
        window.findChildren<QAction*>(QRegularExpression("^action"), Qt::FindDirectChildrenOnly);
    ASSERT_EQ(actions.size(), static_cast<int>(std::size(kActions)));
    for (int index = 0; index < actions.size(); ++index) {
        const QAction& action = *actions.at(index);
        const ActionCase& expected = kActions[index];
        EXPECT_EQ(action.objectName(), expected.name);
        EXPECT_EQ(action.text(), expected.text);
        EXPECT_EQ(action.shortcut().toString(), expected.shortcut) << expected.name;
        EXPECT_EQ(action.isCheckable(), qstrcmp(expected.name, "actionTools_showHideToolbar") == 0);
        if (expected.toolTip != nullptr) {
            EXPECT_EQ(action.toolTip(), expected.toolTip) << expected.name;
        }
        expectIcon(action.icon(), expected.icon, expected.name);
    }
    EXPECT_TRUE(form.actionTools_showHideToolbar->isChecked());
    EXPECT_EQ(form.actionHash_copyHexHash->icon().cacheKey(),
              form.actionHash_copyBase64Hash->icon().cacheKey());
}

TEST_F(MainWindowForm, TheMenusHaveTheirEntries)
{
    EXPECT_EQ(form.menuFile->title(), "File");
    EXPECT_EQ(form.menuEncryption->title(), "Hash");
    EXPECT_EQ(form.menuTools->title(), "Tools");
    EXPECT_EQ(form.menuHelp->title(), "Help");
    QStringList menus;
    for (const QAction* entry : form.menuBar->actions())
        menus += entry->menu()->objectName() + ": " + entryNames(*entry->menu()).join(' ');
    EXPECT_EQ(
        menus,
        (QStringList{"menuFile: actionFile_AddFile | actionFile_InputDir | actionFile_Exit",
                     "menuEncryption: actionHash_Calculate actionHash_Stop | actionHash_selectAlgorithm | "
                     "actionHash_copyHexHash actionHash_copyBase64Hash",
                     "menuTools: actionTools_showHideToolbar actionTools_KeyboardShortcuts | "
                     "actionTools_Options",
                     "menuHelp: actionHelp_HomePage actionHelp_SupportEmail actionHelp_Donate "
                     "actionHelp_About"}));
}

TEST_F(MainWindowForm, TheToolBarStaysInItsPlace)
{
    EXPECT_EQ(entryNames(*form.toolBar).join(' '),
              "actionHash_Calculate actionHash_Stop | actionFile_AddFile | actionTools_Options");
    EXPECT_EQ(window.toolBarArea(form.toolBar), Qt::TopToolBarArea);
    EXPECT_FALSE(form.toolBar->isMovable() || form.toolBar->isFloatable());
    EXPECT_EQ(form.toolBar->iconSize(), QSize(32, 32));
    EXPECT_EQ(form.toolBar->windowTitle(), "toolBar");
    EXPECT_TRUE(form.toolBar->toolTip().isEmpty());
    EXPECT_EQ(window.toolButtonStyle(), Qt::ToolButtonTextUnderIcon);
    EXPECT_TRUE(form.statusBar->isSizeGripEnabled());
}

TEST_F(MainWindowForm, TheWindowHasItsNameSizeAndLocale)
{
    EXPECT_EQ(window.objectName(), "CMainWindow");
    EXPECT_EQ(window.windowTitle(), "Kestrum");
    EXPECT_EQ(window.size(), QSize(613, 505));
    EXPECT_EQ(window.minimumSize(), QSize(500, 0));
    EXPECT_EQ(window.locale(), QLocale(QLocale::English, QLocale::UnitedStates));
    expectIcon(window.windowIcon(), "main", "window");
}

struct LayoutCase
{
    const char* name;
    QStringList children;
    int leftMargin = 0;
};

TEST_F(MainWindowForm, TheCentralWidgetsStandInTheirLayouts)
{
    const LayoutCase cases[] = {
        {"verticalLayoutMain", {"frameInputFile", "frameResult"}},
        {"verticalLayoutInputFile", {"frameInputFileCaption", "frameInputFileContent"}},
        {"horizontalLayoutInputFileCaption", {"labelInputFileCaption"}, 9},
        {"verticalLayoutInputFileContent", {"frameSelectInputFile", "textEditInputFileDetails"}},
        {"horizontalLayoutSelectInputFile", {"lineEditInput", "buttonDefineInputFile", "buttonGotoInputDir"}},
        {"verticalLayoutOutputFile", {"frameResultCaption", "frameResultContent"}},
        {"horizontalLayoutOutputFileCaption", {"labelResultCaption"}, 9},
        {"verticalLayoutResultContent", {"frameResultHex", "frameResultBase64"}},
        {"verticalLayoutResultHex", {"frameResultHexCaption", "frameHashHex"}},
        {"horizontalLayoutResultHexCaption", {"labelResultHexCaption"}},
        {"horizontalLayoutHashHex", {"plainTextEditHashHex", "frameCopyHashHex"}},
        {"verticalLayoutCopyHashHex", {"buttonCopyHashHex", "|"}},
        {"verticalLayoutResultBase64", {"frameResultBase64Caption", "frameHashBase64"}},
        {"horizontalLayoutResultBase64Caption", {"labelResultBase64Caption"}},
        {"horizontalLayoutHashBase64", {"plainTextEditHashBase64", "frameCopyHashBase64"}},
        {"verticalLayoutCopyHashBase64", {"buttonCopyHashBase64", "|"}},
    };
    for (const LayoutCase& item : cases) {
        const auto* layout = find<QLayout>(item.name);
        QStringList children;
        for (int index = 0; index < layout->count(); ++index) {
            const QWidget* widget = layout->itemAt(index)->widget();
            children += widget != nullptr ? widget->objectName() : QString("|");
        }
        EXPECT_EQ(children, item.children) << item.name;
        EXPECT_EQ(layout->spacing(), 0) << item.name;
        EXPECT_EQ(layout->contentsMargins(), QMargins(item.leftMargin, 0, 0, 0)) << item.name;
    }
}

struct SizeCase
{
    const char* name;
    QSize minimum;
    QSize maximum;
};

TEST_F(MainWindowForm, SizesAreKeptWithinTheirLimits)
{
    constexpr int kAny = QWIDGETSIZE_MAX;
    const SizeCase cases[] = {
        {"frameInputFile", {0, 175}, {kAny, kAny}},    {"frameInputFileCaption", {0, 32}, {kAny, 32}},
        {"frameResult", {0, 185}, {kAny, 400}},        {"frameResultCaption", {0, 32}, {kAny, 32}},
        {"buttonDefineInputFile", {38, 38}, {38, 38}}, {"buttonGotoInputDir", {38, 38}, {38, 38}},
        {"buttonCopyHashHex", {38, 38}, {38, 38}},     {"buttonCopyHashBase64", {38, 38}, {38, 38}},
        {"frameCopyHashHex", {38, 0}, {38, kAny}},     {"frameCopyHashBase64", {38, 0}, {38, kAny}},
    };
    for (const SizeCase& item : cases) {
        EXPECT_EQ(find<QWidget>(item.name)->minimumSize(), item.minimum) << item.name;
        EXPECT_EQ(find<QWidget>(item.name)->maximumSize(), item.maximum) << item.name;
    }
}

struct ButtonCase
{
    const char* name;
    const char* toolTip;
    const char* icon;
};

TEST_F(MainWindowForm, TheFlatButtonsHaveIconsInsteadOfTexts)
{
    const ButtonCase cases[] = {
        {"buttonDefineInputFile", "Add file to calculate hash", "additem"},
        {"buttonGotoInputDir", "Open containing folder", "folder"},
        {"buttonCopyHashHex", "Copy the text (HEX hash value) to the clipboard", "copy"},
        {"buttonCopyHashBase64", "Copy the text (Base64 hash value) to the clipboard", "copy"},
    };
    for (const ButtonCase& item : cases) {
        const auto* button = find<QPushButton>(item.name);
        EXPECT_TRUE(button->isFlat() && button->text().isEmpty()) << item.name;
        EXPECT_EQ(button->toolTip(), item.toolTip);
        EXPECT_EQ(button->iconSize(), QSize(32, 32)) << item.name;
        expectIcon(button->icon(), item.icon, item.name);
    }
}

TEST_F(MainWindowForm, TheTextFieldsAreReadOnlyExceptForTheFileName)
{
    EXPECT_FALSE(form.lineEditInput->isReadOnly() || form.lineEditInput->hasFrame());
    EXPECT_TRUE(form.plainTextEditHashHex->isReadOnly() && form.plainTextEditHashBase64->isReadOnly());
    EXPECT_TRUE(form.textEditInputFileDetails->isReadOnly() &&
                form.textEditInputFileDetails->font().italic());
    EXPECT_EQ(form.textEditInputFileDetails->verticalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    EXPECT_EQ(form.textEditInputFileDetails->horizontalScrollBarPolicy(), Qt::ScrollBarAlwaysOff);
    for (const QFrame* frame :
         form.centralWidget->findChildren<QFrame*>(QRegularExpression("^(frame|text|plain)")))
        EXPECT_EQ(frame->frameShape(), QFrame::NoFrame) << frame->objectName().toStdString();
}

TEST_F(MainWindowForm, TheCaptionsAreWhiteOnTheAccentColour)
{
    window.show();
    for (const char* name : {"labelInputFileCaption", "labelResultCaption"}) {
        auto* label = find<QLabel>(name);
        EXPECT_EQ(label->font().weight(), 75);
        EXPECT_EQ(label->palette().color(QPalette::WindowText), QColor(255, 255, 255));
        EXPECT_EQ(label->grab().toImage().pixelColor(label->width() - 1, 1), QColor(79, 93, 115)) << name;
    }
    EXPECT_EQ(form.labelInputFileCaption->text(), "File to calculate hash");
    EXPECT_EQ(form.labelResultCaption->text(), "Calculated hash for the file");
    EXPECT_EQ(form.labelResultHexCaption->text(), "HEX hash value:");
    EXPECT_EQ(form.labelResultBase64Caption->text(), "Base64 hash value:");
}

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
    for (const ActionCase& item : kActions)
        EXPECT_EQ(find<QAction>(item.name)->text(), QString("~") + item.text);
    EXPECT_EQ(form.actionHash_Calculate->shortcut(), QKeySequence(Qt::Key_F6));
    EXPECT_EQ(form.actionHash_Calculate->toolTip(), "~Start hash calculation");
    EXPECT_EQ(form.menuEncryption->title(), "~Hash");
    EXPECT_EQ(form.labelResultHexCaption->text(), "~HEX hash value:");
    EXPECT_EQ(form.buttonCopyHashHex->accessibleName(), "~Copy HEX hash to clipboard");
}

} // namespace
} // namespace quillon::tests
