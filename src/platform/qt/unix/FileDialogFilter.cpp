#include "platform/qt/FileDialogFilter.h"

namespace quillon::platform {

QString allFilesPattern()
{
    // "*.*" would hide every name without a dot here.
    return QStringLiteral(" (*)");
}

} // namespace quillon::platform
