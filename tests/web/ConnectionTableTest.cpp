#include "web/ConnectionTable.h"

#include <gtest/gtest.h>

namespace zor {
namespace {

using namespace std::chrono_literals;

class ConnectionTableTest : public testing::Test {
protected:
    static InternetAddress address(const std::string& text) { return InternetAddress::parse(text).value(); }
    static InternetAddress neighbour(int number) { return address("192.168.1." + std::to_string(number)); }

    /// As many clients of the network as needed, eight connections each, the lowest socket the oldest.
    void fill() {
        for (int socket = 0; socket < 64; ++socket) table.enter(socket, neighbour(socket / 8), start + socket * 1ms);
    }

    const ConnectionTable::Time start = ConnectionTable::Time() + 1h;
    std::vector<int> cut;
    ConnectionTable table{[this](int socket) { cut.push_back(socket); }};
};

TEST_F(ConnectionTableTest, EightOfOneClientThenItsOldestUnfinishedHeadHasToGo) {
    for (int socket = 0; socket < 7; ++socket) table.enter(socket, neighbour(1), start + socket * 1s);
    EXPECT_EQ(table.makeRoomFor(neighbour(1)).victim, std::nullopt);
    table.enter(7, neighbour(1), start + 7s);
    table.pass(0, start);
    EXPECT_TRUE(table.makeRoomFor(neighbour(1)).isThere);
    EXPECT_EQ(table.makeRoomFor(neighbour(1)).victim, 1);
    EXPECT_EQ(table.makeRoomFor(neighbour(2)).victim, std::nullopt);
    for (int socket = 1; socket < 8; ++socket) table.pass(socket, start);
    EXPECT_FALSE(table.makeRoomFor(neighbour(1)).isThere);
    table.leave(3);
    EXPECT_TRUE(table.makeRoomFor(neighbour(1)).isThere);
}

TEST_F(ConnectionTableTest, ThisMachineMayHaveThirtyTwo) {
    for (int socket = 0; socket < 32; ++socket) {
        EXPECT_EQ(table.makeRoomFor(address("127.0.0.1")).victim, std::nullopt);
        table.enter(socket, address("127.0.0.1"), start);
    }
    EXPECT_TRUE(table.makeRoomFor(address("127.0.0.1")).victim);
}

TEST_F(ConnectionTableTest, ANetworkOfIPv6IsOneClient) {
    for (int socket = 0; socket < 8; ++socket) {
        table.enter(socket, address("2001:db8::" + std::to_string(socket + 1)), start);
    }
    EXPECT_TRUE(table.makeRoomFor(address("2001:db8::99")).victim);
    EXPECT_FALSE(table.makeRoomFor(address("2001:db8:0:1::99")).victim);
}

TEST_F(ConnectionTableTest, SixtyFourThenTheOldestUnfinishedHeadOfAllHasToGo) {
    fill();
    table.pass(0, start);
    table.refuse(1, start);
    EXPECT_EQ(table.makeRoomFor(neighbour(99)).victim, 1);
    for (int socket = 0; socket < 64; ++socket) table.pass(socket, start);
    EXPECT_FALSE(table.makeRoomFor(neighbour(99)).isThere);
}

TEST_F(ConnectionTableTest, AKeptConnectionHasToGoLikeAnyUnfinishedHead) {
    fill();
    for (int socket = 0; socket < 64; ++socket) table.pass(socket, start);
    table.keep(5, start + 2s);
    table.keep(6, start + 1s);
    EXPECT_TRUE(table.makeRoomFor(neighbour(99)).isThere);
    EXPECT_EQ(cut, std::vector<int>{6});
    // It takes no room while the library is still closing it, and nothing brings it back.
    table.enter(64, neighbour(99), start + 3s);
    table.answer(6, start + 3s);
    EXPECT_TRUE(table.makeRoomFor(neighbour(98)).isThere);
    EXPECT_EQ(cut, (std::vector<int>{6, 5}));
    table.enter(65, neighbour(98), start + 3s);
    EXPECT_EQ(table.makeRoomFor(neighbour(97)).victim, 64);
    EXPECT_EQ(cut.size(), 2U);
}

TEST_F(ConnectionTableTest, AKeptConnectionHasFiveSecondsForItsNextHead) {
    table.enter(1, neighbour(1), start);
    table.pass(1, start);
    table.answer(1, start);
    table.keep(1, start + 10s);
    EXPECT_TRUE(table.inGate().empty());
    EXPECT_EQ(table.nextDeadline(), start + 15s);
    EXPECT_TRUE(table.overdue(start + 15s).empty());
    EXPECT_EQ(cut, std::vector<int>{1});
}

TEST_F(ConnectionTableTest, AHeadHasFiveSecondsHoweverItTrickles) {
    table.enter(1, neighbour(1), start);
    EXPECT_EQ(table.nextDeadline(), start + 5s);
    EXPECT_TRUE(table.overdue(start + 4999ms).empty());
    EXPECT_EQ(table.overdue(start + 5s), std::vector<int>{1});
}

TEST_F(ConnectionTableTest, AnAnswerHasThirtySecondsOnceItIsMade) {
    table.enter(1, neighbour(1), start);
    table.pass(1, start);
    table.wait(1);
    EXPECT_EQ(table.nextDeadline(), std::nullopt);
    EXPECT_TRUE(table.overdue(start + 1h).empty());
    table.answer(1, start + 1h);
    EXPECT_TRUE(table.overdue(start + 1h + 29999ms).empty());
    EXPECT_TRUE(cut.empty());
    EXPECT_TRUE(table.overdue(start + 1h + 30s).empty());
    EXPECT_EQ(cut, std::vector<int>{1});
    // Once is enough.
    table.overdue(start + 2h);
    EXPECT_EQ(cut.size(), 1U);
    EXPECT_EQ(table.nextDeadline(), std::nullopt);
}

TEST_F(ConnectionTableTest, ARefusalHasASecond) {
    table.enter(1, neighbour(1), start);
    table.refuse(1, start + 4s);
    EXPECT_EQ(table.overdue(start + 5s), std::vector<int>{1});
    EXPECT_EQ(table.inGate(), std::vector<int>{1});
    table.leave(1);
    EXPECT_TRUE(table.inGate().empty());
}

}  // namespace
}  // namespace zor
