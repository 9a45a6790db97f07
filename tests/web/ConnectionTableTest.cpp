#include "web/ConnectionTable.h"

#include <gtest/gtest.h>

namespace zor {
namespace {

using namespace std::chrono_literals;

class ConnectionTableTest : public testing::Test {
protected:
    static InternetAddress address(const std::string& text) { return InternetAddress::parse(text).value(); }
    static InternetAddress neighbour(int number) { return address("192.168.1." + std::to_string(number)); }

    std::vector<int> overdue(ConnectionTable::Time now) {
        return table.overdue(now, [&](int socket) { cut.push_back(socket); });
    }
    /// As many clients of the network as needed, eight connections each, the lowest socket the oldest.
    void fill() {
        for (int socket = 0; socket < 64; ++socket) table.enter(socket, neighbour(socket / 8), start + socket * 1ms);
    }

    const ConnectionTable::Time start = ConnectionTable::Time() + 1h;
    ConnectionTable table;
    std::vector<int> cut;
};

TEST_F(ConnectionTableTest, EightOfOneClientThenItsOldestUnfinishedHeadHasToGo) {
    for (int socket = 0; socket < 7; ++socket) table.enter(socket, neighbour(1), start + socket * 1s);
    EXPECT_EQ(table.roomFor(neighbour(1)).victim, std::nullopt);
    table.enter(7, neighbour(1), start + 7s);
    table.pass(0, start);
    EXPECT_TRUE(table.roomFor(neighbour(1)).isThere);
    EXPECT_EQ(table.roomFor(neighbour(1)).victim, 1);
    EXPECT_EQ(table.roomFor(neighbour(2)).victim, std::nullopt);
    for (int socket = 1; socket < 8; ++socket) table.pass(socket, start);
    EXPECT_FALSE(table.roomFor(neighbour(1)).isThere);
    table.leave(3);
    EXPECT_TRUE(table.roomFor(neighbour(1)).isThere);
}

TEST_F(ConnectionTableTest, ThisMachineMayHaveThirtyTwo) {
    for (int socket = 0; socket < 32; ++socket) {
        EXPECT_EQ(table.roomFor(address("127.0.0.1")).victim, std::nullopt);
        table.enter(socket, address("127.0.0.1"), start);
    }
    EXPECT_TRUE(table.roomFor(address("127.0.0.1")).victim);
}

TEST_F(ConnectionTableTest, ANetworkOfIPv6IsOneClient) {
    for (int socket = 0; socket < 8; ++socket) {
        table.enter(socket, address("2001:db8::" + std::to_string(socket + 1)), start);
    }
    EXPECT_TRUE(table.roomFor(address("2001:db8::99")).victim);
    EXPECT_FALSE(table.roomFor(address("2001:db8:0:1::99")).victim);
}

TEST_F(ConnectionTableTest, SixtyFourThenTheOldestUnfinishedHeadOfAllHasToGo) {
    fill();
    table.pass(0, start);
    table.refuse(1, start);
    EXPECT_EQ(table.roomFor(neighbour(99)).victim, 1);
    for (int socket = 0; socket < 64; ++socket) table.pass(socket, start);
    EXPECT_FALSE(table.roomFor(neighbour(99)).isThere);
}

TEST_F(ConnectionTableTest, AHeadHasFiveSecondsHoweverItTrickles) {
    table.enter(1, neighbour(1), start);
    EXPECT_EQ(table.nextDeadline(), start + 5s);
    EXPECT_TRUE(overdue(start + 4999ms).empty());
    EXPECT_EQ(overdue(start + 5s), std::vector<int>{1});
}

TEST_F(ConnectionTableTest, AnAnswerHasThirtySecondsOnceItIsMade) {
    table.enter(1, neighbour(1), start);
    table.pass(1, start);
    table.wait(1);
    EXPECT_EQ(table.nextDeadline(), std::nullopt);
    EXPECT_TRUE(overdue(start + 1h).empty());
    table.answer(1, start + 1h);
    EXPECT_TRUE(overdue(start + 1h + 29999ms).empty());
    EXPECT_TRUE(cut.empty());
    EXPECT_TRUE(overdue(start + 1h + 30s).empty());
    EXPECT_EQ(cut, std::vector<int>{1});
    // Once is enough.
    overdue(start + 2h);
    EXPECT_EQ(cut.size(), 1U);
    EXPECT_EQ(table.nextDeadline(), std::nullopt);
}

TEST_F(ConnectionTableTest, ARefusalHasASecond) {
    table.enter(1, neighbour(1), start);
    table.refuse(1, start + 4s);
    EXPECT_EQ(overdue(start + 5s), std::vector<int>{1});
    EXPECT_EQ(table.inGate(), std::vector<int>{1});
    table.leave(1);
    EXPECT_TRUE(table.inGate().empty());
}

}  // namespace
}  // namespace zor
