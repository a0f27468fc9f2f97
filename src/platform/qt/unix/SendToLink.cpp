#include "platform/qt/SendToLink.h"

#include "platform/qt/DataFolder.h"

namespace quillon::platform {

QString sendToLinkPath(const QString& /*productName*/, const QString& productId)
{
    const QString folder = userDataFolder();
    return folder.isEmpty() ? QString() : folder + "/Thunar/sendto/" + productId + ".desktop";
}

} // namespace quillon::platform
