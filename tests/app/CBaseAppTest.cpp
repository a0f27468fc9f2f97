#include "app/CBaseApp.h"

#include <QCoreApplication>

#include <gtest/gtest.h>

namespace quillon {
namespace {

class Product final : public CBaseApp
{
public:
    explicit Product(std::uint32_t id)
        : m_id(id)
    {
    }

    [[nodiscard]] std::uint32_t getProductId() const override { return m_id; }
    [[nodiscard]] std::uint32_t getProductFlavour() const override { return 0; }
    void getProductVersion(std::uint32_t& major, std::uint32_t& minor, std::uint32_t& patch,
                           std::uint32_t& build) const override
    {
        major = 4'000'000'000;
        minor = 3;
        patch = 0;
        build = 12;
    }

private:
    std::uint32_t m_id;
};

TEST(CBaseApp, TheTitleIsTheNameAndTheFourNumbersOfTheVersion)
{
    EXPECT_EQ(Product(20).getProductTitle(), "Kestrum v4000000000.3.0.12");
}

TEST(CBaseApp, AProductThatIsNotInTheTableHasNoTitle)
{
    EXPECT_EQ(Product(21).getProductName(), "");
    EXPECT_EQ(Product(21).getProductTitle(), "");
}

TEST(CBaseApp, TheApplicationObjectLearnsWhoItIs)
{
    Product(20).applyCoreAppIdentity();
    EXPECT_EQ(QCoreApplication::organizationName(), "Quillon.example");
    EXPECT_EQ(QCoreApplication::organizationDomain(), "Quillon.example");
    EXPECT_EQ(QCoreApplication::applicationName(), "Kestrum");
    EXPECT_EQ(QCoreApplication::applicationVersion(), "4000000000.3.0.12");
}

} // namespace
} // namespace quillon
