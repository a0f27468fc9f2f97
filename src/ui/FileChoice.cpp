#include "ui/FileChoice.h"

#include <QCoreApplication>
#include <QFileDialog>
#include <QFileIconProvider>
#include <QFileInfo>

namespace {

/// Names the kind of a file by its ending and in the program's language. Qt 6 would name it in the desktop's.
class Kinds : public QFileIconProvider
{
public:
    [[nodiscard]] QString type(const QFileInfo& file) const override
    {
        if (!file.isFile() || file.isRoot())
            return QFileIconProvider::type(file);
        const QString ending = file.suffix();
        return ending.isEmpty() ? QCoreApplication::translate("QFileDialog", "File")
                                : QCoreApplication::translate("QFileDialog", "%1 File").arg(ending);
    }
};

} // namespace

QString chooseFile(QWidget* parent, const QString& title, const QString& filter)
{
    Kinds kinds;
    QFileDialog dialog(parent, title, QString(), filter);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setIconProvider(&kinds);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}
