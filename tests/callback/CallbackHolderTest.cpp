#include "callback/CallbackHolder.h"

#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace quillon::callback {
namespace {

/// A message that notes who hears it.
using Message = std::function<void(char listener)>;

struct Listener final : ICallback<Message>
{
    explicit Listener(char ownName)
        : name(ownName)
    {
    }
    void onCallback(const Message& message) override { message(name); }

    const char name;
};

struct CallbackHolderTest : testing::Test
{
    std::string deliver(
        Listener* source, const std::function<void()>& change = [] {})
    {
        std::string heard;
        holder.handleCallback(source, [&](char listener) {
            heard += listener;
            change();
        });
        return heard;
    }

    CallbackHolder<Message> holder;
    Listener a{'a'}, b{'b'}, c{'c'};
};

TEST_F(CallbackHolderTest, ListenersHearOnceAndInTheOrderOfAdding)
{
    for (Listener* listener : {&b, &a, &b, &c})
        EXPECT_EQ(holder.addCallback(listener), err::ResultCode{});
    EXPECT_EQ(deliver(nullptr), "bac");
    EXPECT_EQ(deliver(&a), "bc");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(holder.removeCallback(&b), err::ResultCode{});
    EXPECT_EQ(deliver(nullptr), "ac");
    EXPECT_EQ(holder.clearCallbacks(), err::ResultCode{});
    EXPECT_EQ(deliver(nullptr), "");
    EXPECT_EQ(holder.addCallback(nullptr), err::programError(err::kNullPointer));
    EXPECT_EQ(holder.removeCallback(nullptr), err::programError(err::kNullPointer));
}

TEST_F(CallbackHolderTest, AChangeDuringADeliveryCountsFromTheNextOne)
{
    for (Listener* listener : {&a, &b})
        EXPECT_EQ(holder.addCallback(listener), err::ResultCode{});
    const auto change = [this] {
        EXPECT_EQ(holder.removeCallback(&b), err::ResultCode{});
        EXPECT_EQ(holder.addCallback(&c), err::ResultCode{});
    };
    EXPECT_EQ(deliver(nullptr, change), "ab");
    EXPECT_EQ(deliver(nullptr), "ac");
}

} // namespace
} // namespace quillon::callback
