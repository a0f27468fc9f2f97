#include "callback/CallbackHolder.h"

#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>

namespace quillon::callback {
namespace {

class CallbackHolderTest : public testing::Test
{
protected:
    struct Listener final : ICallback<std::string>
    {
        Listener(CallbackHolderTest& owner, char ownName)
            : test(owner)
            , name(ownName)
        {
        }
        void onCallback(const std::string& message) override
        {
            test.heard += message + name;
            if (test.change)
                test.change();
        }

        CallbackHolderTest& test;
        const char name;
    };

    std::string deliver(Listener* source = nullptr)
    {
        heard.clear();
        holder.handleCallback(source, "-");
        return heard;
    }

    CallbackHolder<std::string> holder;
    std::string heard;
    std::function<void()> change;
    Listener a{*this, 'a'};
    Listener b{*this, 'b'};
    Listener c{*this, 'c'};
};

TEST_F(CallbackHolderTest, ListenersHearOnceAndInTheOrderOfAdding)
{
    for (Listener* listener : {&b, &a, &b, &c})
        EXPECT_EQ(holder.addCallback(listener), err::ResultCode{});
    EXPECT_EQ(deliver(), "-b-a-c");
    EXPECT_EQ(deliver(&a), "-b-c");
    for (int i = 0; i < 2; ++i)
        EXPECT_EQ(holder.removeCallback(&b), err::ResultCode{});
    EXPECT_EQ(deliver(), "-a-c");
    EXPECT_EQ(holder.clearCallbacks(), err::ResultCode{});
    EXPECT_EQ(deliver(), "");
    EXPECT_EQ(holder.addCallback(nullptr), err::programError(err::kNullPointer));
    EXPECT_EQ(holder.removeCallback(nullptr), err::programError(err::kNullPointer));
}

TEST_F(CallbackHolderTest, AChangeDuringADeliveryCountsFromTheNextOne)
{
    for (Listener* listener : {&a, &b})
        static_cast<void>(holder.addCallback(listener));
    change = [this] {
        static_cast<void>(holder.removeCallback(&b));
        static_cast<void>(holder.addCallback(&c));
    };
    EXPECT_EQ(deliver(), "-a-b");
    EXPECT_EQ(deliver(), "-a-c");
}

} // namespace
} // namespace quillon::callback
