#include "web/Listeners.h"

#include <gtest/gtest.h>

namespace zor {
namespace {

std::vector<std::string> texts(const Listeners& listeners) {
    std::vector<std::string> texts;
    for (const auto& address : listeners.addresses()) texts.push_back(address.text());
    return texts;
}

TEST(ListenersTest, ThisMachineAloneIsBothLoopbackAddressesOnOnePort) {
    const auto listeners = Listeners::open({}, 0);
    ASSERT_TRUE(listeners);
    EXPECT_NE(listeners->port(), 0);
    EXPECT_EQ(texts(*listeners).front(), "127.0.0.1");
    // There are machines without the newer protocol.
    if (texts(*listeners).size() > 1) {
        EXPECT_EQ(texts(*listeners).back(), "::1");
    }
    EXPECT_EQ(listeners->sockets().size(), listeners->addresses().size());
    EXPECT_FALSE(listeners->servesOthers());
}

TEST(ListenersTest, AnythingElseServesOthers) {
    const auto listeners = Listeners::open({"0.0.0.0"}, 0);
    ASSERT_TRUE(listeners);
    EXPECT_TRUE(listeners->servesOthers());
}

TEST(ListenersTest, AnErrorNamesTheAddress) {
    for (const std::string text : {"garden", "", "127.0.0.1:80", "[::1]"}) {
        const auto listeners = Listeners::open({text}, 0);
        ASSERT_FALSE(listeners);
        EXPECT_EQ(listeners.error().message, "cannot serve on " + text + ": it is not an address");
    }
    const auto foreign = Listeners::open({"203.0.113.1"}, 0);
    ASSERT_FALSE(foreign);
    EXPECT_TRUE(foreign.error().message.starts_with("cannot serve on 203.0.113.1:0: ")) << foreign.error().message;
}

TEST(ListenersTest, ATakenPortIsAnError) {
    const auto first = Listeners::open({}, 0);
    ASSERT_TRUE(first);
    const auto second = Listeners::open({}, first->port());
    ASSERT_FALSE(second);
    EXPECT_TRUE(
        second.error().message.starts_with("cannot serve on 127.0.0.1:" + std::to_string(first->port()) + ": "));
}

TEST(ListenersTest, APortIsTakenOfOneAddressOnly) {
    std::string faults;
    // Another program may hold just that port of the other address.
    for (int tries = 0; tries < 3; ++tries) {
        const auto first = Listeners::open({}, 0);
        ASSERT_TRUE(first);
        const auto other = Listeners::open({"127.0.0.2"}, first->port());
        if (other) return;
        faults += other.error().message + "\n";
    }
    FAIL() << faults;
}

}  // namespace
}  // namespace zor
