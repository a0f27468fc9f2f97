/// Usage: kestrum_e2e_drag_source FILE ...
///
/// A window from which the mouse can drag the files, as from a file manager. What becomes of the drag is
/// written to standard output, a line for each step: "started", "accepted" once the place under the pointer
/// takes the files, then "dropped" or "refused".

#include <QApplication>
#include <QDrag>
#include <QFileInfo>
#include <QLabel>
#include <QMimeData>
#include <QMouseEvent>
#include <QUrl>

#include <iostream>

namespace {

void report(const char* step)
{
    std::cout << step << std::endl; // flushed, as the test waits for the line
}

class DragSource final : public QLabel
{
public:
    explicit DragSource(const QStringList& files)
        : QLabel(QStringLiteral("Drag from here"))
    {
        for (const QString& file : files)
            m_urls.append(QUrl::fromLocalFile(QFileInfo(file).absoluteFilePath()));
        setWindowTitle(QStringLiteral("Drag source"));
        setFixedSize(200, 100);
    }

protected:
    void mousePressEvent(QMouseEvent* event) override { event->accept(); }

    void mouseMoveEvent(QMouseEvent* /*event*/) override
    {
        auto* const drag = new QDrag(this); // Qt deletes it after the drop
        auto* const files = new QMimeData;
        files->setUrls(m_urls);
        drag->setMimeData(files);
        connect(drag, &QDrag::actionChanged, this, [](Qt::DropAction action) {
            if (action != Qt::IgnoreAction)
                report("accepted");
        });
        report("started");
        report(drag->exec(Qt::CopyAction) == Qt::CopyAction ? "dropped" : "refused");
    }

private:
    QList<QUrl> m_urls;
};

} // namespace

int main(int argc, char* argv[])
{
    const QApplication application(argc, argv);
    DragSource source(QApplication::arguments().mid(1));
    source.show();
    return QApplication::exec();
}
