#include "platform/Clock.h"
#include "platform/RuntimeLibrary.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <chrono>
#include <ctime>
#include <filesystem>

namespace quillon::platform {
namespace {

using namespace std::chrono;

TEST(LocalTime, IsThatOfTheRuntimeLibrarySince1601)
{
    const std::time_t now = std::time(nullptr);
    const std::tm local = *std::localtime(&now);
    const sys_days day = year{local.tm_year + 1900} / (local.tm_mon + 1) / local.tm_mday;
    const seconds since1601 = day - sys_days(1601y / 1 / 1) + local.tm_hour * 1h + local.tm_min * 1min;
    EXPECT_NEAR(static_cast<double>(localTimeTicks()) / 1e7, static_cast<double>(since1601.count()), 90);
}

TEST(LibraryWithoutAFolder, IsNotTakenFromTheCurrentOne)
{
    const tests::TempFolder folder;
    const std::string name = runtimeLibraryFileName("planted");
    const std::filesystem::path planted = folder.path() / name;
    std::filesystem::copy_file(KESTRUM_SOME_LIBRARY, planted);
    EXPECT_TRUE(loadRuntimeLibrary(tests::utf8Name(planted)));
    const std::filesystem::path former = std::filesystem::current_path();
    std::filesystem::current_path(folder.path());
    EXPECT_FALSE(loadRuntimeLibrary(name));
    std::filesystem::current_path(former);
}

} // namespace
} // namespace quillon::platform
