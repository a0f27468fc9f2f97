#include "ui_CMainWindow.h"

#include "ui/Table.h"

#include <QApplication>
#include <QMimeData>
#include <QTest>

#include <optional>

namespace quillon::tests {
namespace {

class MainWindowForm : public testing::Test, public IFilesDragDropEvent
{
protected:
    MainWindowForm()
    {
        form.setupUi(&window);
        form.frameInputFile->setDropHandler(this);
        form.lineEditInput->setDropHandler(this);
        mime.setText("file:///a");
    }

    void onFilesDropped(std::int32_t /*id*/, const QList<QUrl>& /*urls*/) override {}

    /// What the source of a move is told in the end; nothing where not even the drag is taken.
    std::optional<Qt::DropAction> drop(QWidget* target) const
    {
        QDragEnterEvent enter({5, 5}, Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
        QApplication::sendEvent(target, &enter);
        if (!enter.isAccepted())
            return std::nullopt;
        QDropEvent drop(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
        drop.setDropAction(Qt::MoveAction);
        QApplication::sendEvent(target, &drop);
        return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
    }

    QMainWindow window;
    Ui_CMainWindow form;
    QMimeData mime;
};

TEST_F(MainWindowForm, TakesDropsOfFilesOnTheWholePanelAsCopiesAndNoOthers)
{
    EXPECT_EQ(drop(form.lineEditInput), std::nullopt) << "a text";
    mime.setUrls({});
    EXPECT_EQ(drop(form.frameInputFile), std::nullopt) << "a list of no files";
    mime.setUrls({QUrl("file:///a")});
    EXPECT_EQ(drop(form.lineEditInput), Qt::CopyAction) << "the source of a move would delete the file";
    EXPECT_EQ(form.lineEditInput->text(), "");
    form.lineEditInput->setEnabled(false);
    EXPECT_EQ(drop(form.lineEditInput), Qt::CopyAction);
    EXPECT_EQ(drop(form.textEditInputFileDetails->viewport()), Qt::CopyAction);
}

TEST_F(MainWindowForm, TheTabKeyWalksFromTopToBottomOverFieldsWithAccessibleNames)
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
        EXPECT_FALSE(window.focusWidget()->accessibleName().isEmpty()) << name;
    }
}

} // namespace
} // namespace quillon::tests
