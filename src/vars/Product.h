#pragma once

#include "vars/ProductVersion.h"

#include <cstdint>

/// Who the program is: every fixed fact of the product, in one place, for all layers. All texts are UTF-8.
namespace quillon::vars {

inline constexpr std::uint32_t kProductId = 20;
inline constexpr std::uint32_t kProductFlavour = 0;
inline constexpr const char* kProductName = "Kestrum";

/// Names the product to the desktop shell; never changes between versions.
inline constexpr const char* kProductGuid = "{6D0C2B1E-94A7-4F53-8E21-7B5A90C3D4F8}";

/// Serves as organisation name and as organisation domain. A reserved domain (RFC 2606), so that it points at
/// nobody.
inline constexpr const char* kOrganisation = "Quillon.example";

inline constexpr const char* kHomePageUrl = "https://kestrum.quillon.example/";
inline constexpr const char* kDonationUrl = "https://kestrum.quillon.example/donate";
inline constexpr const char* kSupportEmail = "support@quillon.example";
inline constexpr const char* kCopyright = "Copyright © 2026 The Kestrum authors";

/// The page that a check of the Internet connection asks for.
inline constexpr const char* kProbeUrl = "http://example.com/";

/// The desktop entry under which Unix desktops know the program, without its ".desktop": to Wayland this is
/// the name of its windows, and to icon themes that of its icon.
inline constexpr const char* kDesktopId = "example.quillon.Kestrum";

} // namespace quillon::vars
