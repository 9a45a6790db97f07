#include <gmock/gmock.h>

#include "host/foundation/NotificationCenter.h"
#include "host/foundation/Object.h"

namespace zor {
namespace {

using testing::ElementsAre;

class NotificationCenterTest : public testing::Test {
protected:
    NotificationCenter::Handler note(std::string entry) {
        return [this, entry](const Notification&) { told.push_back(entry); };
    }

    NotificationCenter center;
    Object first, second, sender;
    std::vector<std::string> told;
};

TEST_F(NotificationCenterTest, DeliversInOrderOfRegistration) {
    center.addObserver(&first, "a", nullptr, note("first"));
    center.addObserver(&second, "a", nullptr, note("second"));
    center.addObserver(&first, "b", nullptr, note("other name"));
    center.post("a");
    EXPECT_THAT(told, ElementsAre("first", "second"));
    EXPECT_EQ(center.observerCount("a"), 2u);
    EXPECT_EQ(center.observerCount("c"), 0u);
}

TEST_F(NotificationCenterTest, HandsOverNameAndSender) {
    Notification received;
    center.addObserver(&first, "a", nullptr, [&](const Notification& notification) { received = notification; });
    center.post("a", &sender);
    EXPECT_EQ(received.name, "a");
    EXPECT_EQ(received.sender, &sender);
}

TEST_F(NotificationCenterTest, SenderFilters) {
    center.addObserver(&first, "a", &sender, note("only sender"));
    center.addObserver(&first, "a", nullptr, note("any"));
    center.post("a");
    center.post("a", &second);
    EXPECT_THAT(told, ElementsAre("any", "any"));
    told.clear();
    center.post("a", &sender);
    EXPECT_THAT(told, ElementsAre("only sender", "any"));
}

TEST_F(NotificationCenterTest, RemovesExactlyTheNameAndSender) {
    center.addObserver(&first, "a", nullptr, note("any"));
    center.addObserver(&first, "a", &sender, note("sender"));
    center.addObserver(&first, "b", nullptr, note("b"));
    center.addObserver(&second, "a", nullptr, note("second"));
    center.removeObserver(&first, "a", nullptr);
    center.post("a", &sender);
    center.post("b");
    EXPECT_THAT(told, ElementsAre("sender", "second", "b"));
}

TEST_F(NotificationCenterTest, TwoRegistrationsAreToldTwiceAndRemovedTogether) {
    center.addObserver(&first, "a", nullptr, note("x"));
    center.addObserver(&first, "a", nullptr, note("x"));
    center.post("a");
    EXPECT_THAT(told, ElementsAre("x", "x"));
    center.removeObserver(&first, "a", nullptr);
    EXPECT_EQ(center.observerCount("a"), 0u);
}

TEST_F(NotificationCenterTest, ObserverMayRemoveItselfWhileTold) {
    center.addObserver(&first, "a", nullptr, [this, text = std::string("a text of its own")](const Notification&) {
        center.removeObserver(&first, "a", nullptr);
        told.push_back(text);
    });
    center.addObserver(&second, "a", nullptr, note("second"));
    center.post("a");
    center.post("a");
    EXPECT_THAT(told, ElementsAre("a text of its own", "second", "second"));
}

TEST_F(NotificationCenterTest, ObserverRemovedByAnEarlierOneIsNotTold) {
    center.addObserver(&first, "a", nullptr,
                       [this](const Notification&) { center.removeObserver(&second, "a", nullptr); });
    center.addObserver(&second, "a", nullptr, note("second"));
    center.post("a");
    EXPECT_TRUE(told.empty());
}

TEST_F(NotificationCenterTest, ObserverAddedWhileTellingHearsTheNextOne) {
    bool added = false;
    center.addObserver(&first, "a", nullptr, [&](const Notification&) {
        if (!std::exchange(added, true)) center.addObserver(&second, "a", nullptr, note("second"));
    });
    center.post("a");
    EXPECT_TRUE(told.empty());
    center.post("a");
    EXPECT_THAT(told, ElementsAre("second"));
}

TEST_F(NotificationCenterTest, HandlerMayPost) {
    center.addObserver(&first, "a", nullptr, [this](const Notification&) { center.post("b"); });
    center.addObserver(&first, "b", nullptr, note("b"));
    center.addObserver(&second, "a", nullptr, note("a"));
    center.post("a");
    EXPECT_THAT(told, ElementsAre("b", "a"));
}

TEST_F(NotificationCenterTest, OneDefaultCenter) {
    EXPECT_EQ(&NotificationCenter::defaultCenter(), &NotificationCenter::defaultCenter());
    EXPECT_EQ(kAppTimerOneMinuteNotification, "kAppTimerOneMinuteNotification");
}

}  // namespace
}  // namespace zor
