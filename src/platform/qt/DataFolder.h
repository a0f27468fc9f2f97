#pragma once

#include <QString>

namespace quillon::platform {

/// The folder in which programs keep this user's data, without a separator at its end: the roaming
/// application data on Windows, the XDG data home on Unix. Need not exist. Empty where the system does not
/// say.
[[nodiscard]] QString userDataFolder();

} // namespace quillon::platform
