#pragma once

#include <string>

namespace quillon::platform {

/// Makes the folder with the UTF-8 name `path` and all that is missing above it; on Unix what is made is its
/// owner's alone. A relative name counts from the current folder where the system takes one. A failure is
/// silent and shows at the next use of the folder.
void createFolders(const std::string& path);

} // namespace quillon::platform
