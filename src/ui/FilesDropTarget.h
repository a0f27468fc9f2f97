#pragma once

#include <QDragEnterEvent>
#include <QDropEvent>
#include <QFrame>
#include <QLineEdit>
#include <QList>
#include <QMimeData>
#include <QUrl>

#include <cstdint>

/// Receives what the user drops onto a drop target.
class IFilesDragDropEvent
{
public:
    virtual ~IFilesDragDropEvent() = default;

    /// `id` is that of the drop target, so that one handler can serve several. `urls` may be empty and need
    /// not be local files. Called on the main thread.
    virtual void onFilesDropped(std::int32_t id, const QList<QUrl>& urls) = 0;
};

/// Takes files that are dragged as copies, and refuses anything else. The files are only read: were a
/// proposed move confirmed, the source might delete them.
inline void answerFilesDrag(QDropEvent& event)
{
    const bool isWanted = event.possibleActions().testFlag(Qt::CopyAction) && event.mimeData()->hasUrls() &&
                          !event.mimeData()->urls().isEmpty();
    event.setDropAction(isWanted ? Qt::CopyAction : Qt::IgnoreAction);
    event.setAccepted(isWanted);
}

/// Turns the widget class `Base` into a drop target for URLs. What `Base` itself does with drops is switched
/// off, so that a text field never inserts what was dropped as text.
template <class Base>
class FilesDropTarget : public Base
{
public:
    explicit FilesDropTarget(QWidget* parent = nullptr)
        : Base(parent)
    {
        this->setAcceptDrops(true);
    }

    /// The id that the handler is told, 0 until it is set.
    void setDropId(std::int32_t id) { m_dropId = id; }

    /// Who is told of drops; null tells nobody. Ownership stays with the caller, and the handler must outlive
    /// the drops.
    void setDropHandler(IFilesDragDropEvent* handler) { m_dropHandler = handler; }

protected:
    void dragEnterEvent(QDragEnterEvent* event) override { answerFilesDrag(*event); }
    void dragMoveEvent(QDragMoveEvent* event) override { answerFilesDrag(*event); }

    void dropEvent(QDropEvent* event) override
    {
        if (!event->mimeData()->hasUrls() || m_dropHandler == nullptr)
            return;
        answerFilesDrag(*event);
        if (event->isAccepted())
            m_dropHandler->onFilesDropped(m_dropId, event->mimeData()->urls());
    }

private:
    std::int32_t m_dropId = 0;
    IFilesDragDropEvent* m_dropHandler = nullptr;
};

/// A frame onto which files can be dropped, also onto those of its children that refuse them.
class CDragDropFrame final : public FilesDropTarget<QFrame>
{
    Q_OBJECT

public:
    using FilesDropTarget::FilesDropTarget;
};

/// An edit field for a file name onto which files can be dropped.
class CLineEditForFile final : public FilesDropTarget<QLineEdit>
{
    Q_OBJECT

public:
    using FilesDropTarget::FilesDropTarget;
};
