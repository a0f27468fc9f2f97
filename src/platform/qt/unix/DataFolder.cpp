#include "platform/qt/DataFolder.h"

#include <QStandardPaths>

namespace quillon::platform {

QString userDataFolder()
{
    return QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation);
}

} // namespace quillon::platform
