#include "ui/FilesDropTarget.h"

#include "ui_CMainWindow.h"

#include <QApplication>
#include <QMimeData>

#include <gtest/gtest.h>

#include <vector>

namespace quillon::tests {
namespace {

class RecordedDrops final : public IFilesDragDropEvent
{
public:
    void onFilesDropped(std::int32_t id, const QList<QUrl>& urls) override
    {
        ids.push_back(id);
        lastUrls = urls;
    }

    std::vector<std::int32_t> ids;
    QList<QUrl> lastUrls;
};

void fillUrls(QMimeData& mime)
{
    mime.setUrls({QUrl("file:///first"), QUrl("file:///second")});
    mime.setText("file:///first");
}

bool isDragAccepted(QWidget& target, const QMimeData& mime)
{
    QDragEnterEvent enter(QPoint(5, 5), Qt::CopyAction, &mime, Qt::LeftButton, Qt::NoModifier);
    QApplication::sendEvent(&target, &enter);
    return enter.isAccepted();
}

/// The action that the source of a move is told in the end.
Qt::DropAction actionOfDrop(QWidget& target, const QMimeData& mime)
{
    QDropEvent drop(QPoint(5, 5), Qt::CopyAction | Qt::MoveAction, &mime, Qt::LeftButton, Qt::NoModifier);
    drop.setDropAction(Qt::MoveAction);
    QApplication::sendEvent(&target, &drop);
    return drop.isAccepted() ? drop.dropAction() : Qt::IgnoreAction;
}

template <class Widget>
class DropTarget : public testing::Test
{
protected:
    RecordedDrops drops;
    Widget widget;
    QMimeData mime;
};

using BothDropTargets = testing::Types<CDragDropFrame, CLineEditForFile>;
TYPED_TEST_SUITE(DropTarget, BothDropTargets);

TYPED_TEST(DropTarget, HandsAllUrlsToItsHandler)
{
    this->widget.setDropId(100);
    this->widget.setDropHandler(&this->drops);
    fillUrls(this->mime);
    ASSERT_TRUE(isDragAccepted(this->widget, this->mime));
    EXPECT_EQ(actionOfDrop(this->widget, this->mime), Qt::CopyAction)
        << "the source must not delete the file";
    EXPECT_EQ(this->drops.ids, std::vector<std::int32_t>{100});
    EXPECT_EQ(this->drops.lastUrls, (QList<QUrl>{QUrl("file:///first"), QUrl("file:///second")}));
}

TYPED_TEST(DropTarget, RefusesWhatHasNoUrls)
{
    EXPECT_FALSE(isDragAccepted(this->widget, this->mime));
    this->mime.setText("some text");
    EXPECT_FALSE(isDragAccepted(this->widget, this->mime));
    this->mime.setUrls({});
    EXPECT_FALSE(isDragAccepted(this->widget, this->mime));
}

TYPED_TEST(DropTarget, WithoutAHandlerADropIsRefused)
{
    fillUrls(this->mime);
    ASSERT_TRUE(isDragAccepted(this->widget, this->mime));
    EXPECT_EQ(actionOfDrop(this->widget, this->mime), Qt::IgnoreAction);
}

TEST(LineEditForFile, ADropNeverInsertsText)
{
    RecordedDrops drops;
    CLineEditForFile edit;
    edit.setDropHandler(&drops);
    edit.setText("before");
    QMimeData mime;
    fillUrls(mime);
    ASSERT_TRUE(isDragAccepted(edit, mime));
    actionOfDrop(edit, mime);
    EXPECT_EQ(edit.text(), "before");
    EXPECT_EQ(drops.ids, std::vector<std::int32_t>{0}) << "the id before any is set";
}

TEST(DragDropFrame, TakesDropsOntoTheDetailsPanelAndOntoTheDisabledEditField)
{
    QMainWindow window;
    Ui_CMainWindow form;
    form.setupUi(&window);
    RecordedDrops drops;
    form.frameInputFile->setDropHandler(&drops);
    form.frameInputFile->setDropId(1);
    form.lineEditInput->setEnabled(false);
    QMimeData mime;
    fillUrls(mime);
    for (QWidget* child :
         {form.textEditInputFileDetails->viewport(), static_cast<QWidget*>(form.lineEditInput)}) {
        EXPECT_TRUE(isDragAccepted(*child, mime));
        actionOfDrop(*child, mime);
    }
    EXPECT_EQ(drops.ids, (std::vector<std::int32_t>{1, 1}));
}

} // namespace
} // namespace quillon::tests
