#include "platform/qt/FileDialogFilter.h"

namespace quillon::platform {

QString allFilesPattern()
{
    return QStringLiteral(" (*.*)");
}

} // namespace quillon::platform
