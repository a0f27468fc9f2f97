/// Usage: kestrum_e2e_drag_source FILE
///
/// A window from which the mouse can drag the file, as from a file manager. What becomes of the drag is
/// written to standard output: "accepted" once the place under the pointer takes the file, then "dropped" or
/// "refused".

#include <QApplication>
#include <QDrag>
#include <QLabel>
#include <QMimeData>
#include <QUrl>

#include <iostream>

namespace {

class DragSource final : public QLabel
{
public:
    using QLabel::QLabel;

protected:
    void mousePressEvent(QMouseEvent* /*event*/) override
    {
        auto* const drag = new QDrag(this); // Qt deletes it once the other side is through with the drop
        auto* const files = new QMimeData;
        files->setUrls({QUrl::fromLocalFile(QApplication::arguments().at(1))});
        drag->setMimeData(files);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            if (action == Qt::CopyAction)
                std::cout << "accepted" << std::endl; // flushed, as the test waits for the line
        });
        connect(drag, &QObject::destroyed, this, [] { std::cout << "ended" << std::endl; });
        drag->exec(Qt::CopyAction | Qt::MoveAction | Qt::LinkAction, Qt::MoveAction); // as file managers do
    }
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    DragSource source(QStringLiteral("Drag from here"));
    source.setWindowTitle(QStringLiteral("Drag source"));
    source.setGeometry(1000, 50, 200, 100); // beside the program's window
    source.show();
    return QApplication::exec();
}
