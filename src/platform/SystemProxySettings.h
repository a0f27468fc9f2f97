#pragma once

namespace quillon::platform {

/// Opens the page of the system's own settings on which its proxy is set, in a program of its own, and does
/// not wait for it. False where there is no such page, or no process for it. Meant for the user
/// interface thread.
bool showSystemProxySettings();

} // namespace quillon::platform
