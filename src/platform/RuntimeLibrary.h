#pragma once

#include "err/ResultCode.h"

#include <memory>
#include <string>

namespace quillon::platform {

struct RuntimeLibraryCloser
{
    void operator()(void* library) const noexcept;
};

/// A library that was loaded by name while the program runs, and is given back by its owner.
using RuntimeLibrary = std::unique_ptr<void, RuntimeLibraryCloser>;

/// From now on libraries that are named without a folder come from the program's own folder and the system's
/// only, so that none that somebody has put into the current folder or the search path is loaded. To be
/// called first of all. On Unix the loader never looks there.
void restrictLibrarySearch();

/// The file name of the library called `name`, as the system spells it.
[[nodiscard]] std::string runtimeLibraryFileName(const std::string& name);

/// Loads the library with the UTF-8 name `path`; a name without a folder is looked for in the system's usual
/// places, on Windows after the program's folder. On failure `library` stays as it is, and the answer is {1,
/// number of the system}.
err::ResultCode loadRuntimeLibrary(const std::string& path, RuntimeLibrary& library);

/// The same for who needs no reason; empty where there is none.
[[nodiscard]] RuntimeLibrary loadRuntimeLibrary(const std::string& path);

/// Whether a load failed with `reason` because there is no such library, rather than a broken one.
[[nodiscard]] bool isLibraryMissing(const err::ResultCode& reason);

/// Stores the address of an exported name, valid while the library is loaded. Where there is none `address`
/// becomes null, and the answer is {1, number of the system}.
err::ResultCode findLibrarySymbol(const RuntimeLibrary& library, const char* name, void*& address);

/// The address of an exported name, or null. Valid while the library is loaded.
[[nodiscard]] void* findLibrarySymbol(const RuntimeLibrary& library, const char* name);

/// Leaves the library's code in memory until the process ends, also when its owner gives it back: for those
/// that start threads, or register things, of which they do not tell.
void keepRuntimeLibrary(const RuntimeLibrary& library);

} // namespace quillon::platform
