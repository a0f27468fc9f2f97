#pragma once

#include <string>

namespace quillon::platform {

/// A full name that Windows opens whatever its length: one of 260 characters or more, which it refuses
/// otherwise unless the machine is set up for long ones, gets the prefix that lifts the limit. So does one
/// that ends in a blank, which Windows cuts off otherwise. `fullName` has neither slashes nor "." and ".." in
/// it, as behind that prefix they are names like any other.
[[nodiscard]] std::wstring withLongNamePrefix(const std::wstring& fullName);

/// `name` as CreateFileW may get it.
[[nodiscard]] std::wstring openableName(const std::wstring& name);

} // namespace quillon::platform
