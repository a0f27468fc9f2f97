#include "callback/CallbackHolder.h"

#include "support/PrintResultCode.h"

#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <tuple>

namespace {

using quillon::callback::CallbackHolder;
using quillon::callback::ICallback;
using quillon::err::ResultCode;

using Message = std::tuple<std::string>;
using Holder = CallbackHolder<Message>;

constexpr ResultCode kSuccess{0, 0};
constexpr ResultCode kNull{5, 6};

class Listener final : public ICallback<Message>
{
public:
    explicit Listener(std::function<void()> onMessage)
        : m_onMessage(std::move(onMessage))
    {
    }
    void onCallback(const Message&) override { m_onMessage(); }

private:
    std::function<void()> m_onMessage;
};

class CallbackHolderTest : public testing::Test
{
protected:
    std::string deliver(ICallback<Message>* source = nullptr)
    {
        m_heard.clear();
        m_holder.handleCallback(source, Message("news"));
        return m_heard;
    }

    Holder m_holder;
    std::string m_heard;
    Listener m_a{[this] { m_heard += 'a'; }};
    Listener m_b{[this] { m_heard += 'b'; }};
    Listener m_c{[this] { m_heard += 'c'; }};
};

TEST_F(CallbackHolderTest, ListenersHearOnceAndInTheOrderOfAdding)
{
    EXPECT_EQ(deliver(), "");
    for (Listener* listener : {&m_b, &m_a, &m_b, &m_c})
        EXPECT_EQ(m_holder.addCallback(listener), kSuccess);
    EXPECT_EQ(deliver(), "bac");
    EXPECT_EQ(deliver(&m_a), "bc");
    EXPECT_EQ(m_holder.removeCallback(&m_b), kSuccess);
    EXPECT_EQ(m_holder.removeCallback(&m_b), kSuccess);
    EXPECT_EQ(deliver(), "ac");
    EXPECT_EQ(m_holder.clearCallbacks(), kSuccess);
    EXPECT_EQ(deliver(), "");
    EXPECT_EQ(m_holder.addCallback(nullptr), kNull);
    EXPECT_EQ(m_holder.removeCallback(nullptr), kNull);
}

TEST_F(CallbackHolderTest, AChangeDuringADeliveryCountsFromTheNextOne)
{
    Listener changing{[this] {
        m_heard += 'x';
        (void)m_holder.removeCallback(&m_b);
        (void)m_holder.addCallback(&m_c);
    }};
    (void)m_holder.addCallback(&changing);
    (void)m_holder.addCallback(&m_b);
    EXPECT_EQ(deliver(), "xb");
    EXPECT_EQ(deliver(), "xc");
}

} // namespace
