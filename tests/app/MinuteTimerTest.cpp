#include "app/MinuteTimer.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QTimer>
#include <cmath>
#include <cstdint>
#include <functional>

#include "host/foundation/NotificationCenter.h"
#include "host/foundation/Object.h"

namespace zor {
namespace {

using std::chrono::milliseconds;

constexpr Seconds kMinute = 1700000040;
static_assert(static_cast<std::int64_t>(kMinute) % 60 == 0);

class MinuteTimerTest : public testing::Test {
protected:
    void SetUp() override {
        setClock([] { return time; });
        NotificationCenter::defaultCenter().addObserver(&observer_, kAppTimerOneMinuteNotification, nullptr,
                                                        [this](const Notification&) {
                                                            ++posts;
                                                            if (afterPost) afterPost();
                                                        });
    }
    void TearDown() override {
        NotificationCenter::defaultCenter().removeObserver(&observer_, kAppTimerOneMinuteNotification, nullptr);
        setClock(nullptr);
    }

    /// Returns when that many have come, or after a minute, which a wait of moments never takes.
    void runUntilPosts(int count) const {
        QTimer hang;
        hang.setSingleShot(true);
        hang.start(std::chrono::minutes(1));
        while (posts < count && hang.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    static void runFor(milliseconds duration) {
        QTimer end;
        end.setSingleShot(true);
        end.start(duration);
        while (end.isActive()) QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }

    static inline Seconds time = kMinute;
    int posts = 0;
    std::function<void()> afterPost;

private:
    Object observer_;
    int argumentCount_ = 1;
    char programName_[10] = "app_tests";
    char* arguments_[2] = {programName_, nullptr};
    QCoreApplication application_{argumentCount_, arguments_};
};

TEST_F(MinuteTimerTest, WaitsForTheNextFullMinuteAndHardlyLonger) {
    const auto expectWait = [](Seconds from, milliseconds least) {
        EXPECT_GT(MinuteTimer::waitFrom(from), least);
        EXPECT_LE(MinuteTimer::waitFrom(from), least + milliseconds(10));
    };
    expectWait(kMinute - 0.25, milliseconds(250));
    expectWait(std::nextafter(kMinute, 0), milliseconds(0));
    expectWait(kMinute, milliseconds(60000));
    expectWait(kMinute + 0.5, milliseconds(59500));
    expectWait(kMinute + 45, milliseconds(15000));
}

TEST_F(MinuteTimerTest, TellsOncePerMinute) {
    time = kMinute - 0.03;
    // Each minute but the last is made a short one.
    afterPost = [this] { time = posts < 3 ? kMinute + 60 * posts - 0.03 : kMinute + 120.01; };
    const MinuteTimer minutes;
    EXPECT_EQ(posts, 0);
    runUntilPosts(3);
    EXPECT_EQ(posts, 3);
    runFor(milliseconds(200));
    EXPECT_EQ(posts, 3);
}

TEST_F(MinuteTimerTest, TellsNothingInTheMiddleOfAMinute) {
    time = kMinute + 10;
    const MinuteTimer minutes;
    runFor(milliseconds(200));
    EXPECT_EQ(posts, 0);
}

TEST_F(MinuteTimerTest, TellsNothingWhenItIsGone) {
    time = kMinute - 0.03;
    { const MinuteTimer minutes; }
    runFor(milliseconds(200));
    EXPECT_EQ(posts, 0);
}

}  // namespace
}  // namespace zor
