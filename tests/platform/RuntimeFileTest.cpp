#include "platform/Files.h"
#include "support/TempFolder.h"

#include <gtest/gtest.h>

#include <cerrno>
#include <filesystem>

namespace quillon::platform {
namespace {

TEST(RuntimeFile, PositionsBeyondFourGibibytesAreExact)
{
    constexpr std::int64_t kSizeBytes = (std::int64_t{5} << 30) + 3;
    const tests::TempFolder folder;
    const auto path = folder.write("large \u00E4\u6587", "");
    std::filesystem::resize_file(path, kSizeBytes);
    const RuntimeFile file = openRuntimeFile(tests::utf8Name(path).c_str(), "rb");
    ASSERT_TRUE(file);
    ASSERT_TRUE(seekRuntimeFileToEnd(file.get()));
    EXPECT_EQ(tellRuntimeFile(file.get()), kSizeBytes);
    ASSERT_TRUE(seekRuntimeFile(file.get(), kSizeBytes - 1));
    EXPECT_EQ(tellRuntimeFile(file.get()), kSizeBytes - 1);
}

TEST(RuntimeFile, AMissingFileLeavesItsReason)
{
    const tests::TempFolder folder;
    EXPECT_FALSE(openRuntimeFile(tests::utf8Name(folder.file("missing")).c_str(), "rb"));
    EXPECT_EQ(errno, ENOENT);
}

} // namespace
} // namespace quillon::platform
