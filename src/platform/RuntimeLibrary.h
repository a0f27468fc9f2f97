#pragma once

#include <memory>
#include <string>

namespace quillon::platform {

struct RuntimeLibraryCloser
{
    void operator()(void* library) const noexcept;
};

/// A library that was loaded by name while the program runs, and is given back by its owner.
using RuntimeLibrary = std::unique_ptr<void, RuntimeLibraryCloser>;

/// Loads the library with the UTF-8 name `path`; empty where there is none.
[[nodiscard]] RuntimeLibrary loadRuntimeLibrary(const std::string& path);

/// The address of an exported name, or null. Valid while the library is loaded.
[[nodiscard]] void* findLibrarySymbol(const RuntimeLibrary& library, const char* name);

} // namespace quillon::platform
