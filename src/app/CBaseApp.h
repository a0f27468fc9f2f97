#pragma once

#include <QString>

#include <cstdint>

namespace quillon {

/// What every product of the house has in common, whatever its window looks like: who it is. The main window
/// derives from it and supplies the product's constants.
class CBaseApp
{
public:
    virtual ~CBaseApp() = default;

    [[nodiscard]] virtual std::uint32_t getProductId() const = 0;
    [[nodiscard]] virtual std::uint32_t getProductFlavour() const = 0;
    virtual void getProductVersion(std::uint32_t& major, std::uint32_t& minor, std::uint32_t& patch,
                                   std::uint32_t& build) const = 0;

    /// The name of the product table for the product's id; empty where the table has none.
    [[nodiscard]] QString getProductName() const;

    /// The four version numbers, joined by ".".
    [[nodiscard]] QString getProductVersionString() const;

    /// Name and version as a window title shows them; empty where the product has no name.
    [[nodiscard]] QString getProductTitle() const;

    /// Hands organisation, name and version to the application object's class.
    void applyCoreAppIdentity() const;
};

} // namespace quillon
