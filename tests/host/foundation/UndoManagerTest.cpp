#include "host/foundation/UndoManager.h"

namespace zor {
namespace {

class Counter : public Object {
public:
    int value = 0;
};

class UndoManagerTest : public testing::Test {
protected:
    /// Adds to the counter and registers the way back, which itself registers the way there.
    void add(int amount) {
        counter->value += amount;
        manager->registerUndoWithTarget(counter, [this, amount](Object&) { add(-amount); });
    }
    /// A step that subtracts and registers nothing.
    void registerSilentStep(int amount) {
        manager->registerUndoWithTarget(counter,
                                        [amount](Object& target) { static_cast<Counter&>(target).value -= amount; });
    }

    std::shared_ptr<UndoManager> manager = std::make_shared<UndoManager>();
    std::shared_ptr<Counter> counter = std::make_shared<Counter>();
};

TEST_F(UndoManagerTest, NothingToUndoAtFirst) {
    EXPECT_FALSE(manager->canUndo());
    EXPECT_FALSE(manager->canRedo());
    manager->undo();
    manager->redo();
    EXPECT_EQ(manager->depth(), 0);
}

TEST_F(UndoManagerTest, EachRegistrationIsOneStepNewestFirst) {
    registerSilentStep(1);
    registerSilentStep(10);
    EXPECT_EQ(manager->depth(), 2);
    manager->undo();
    EXPECT_EQ(counter->value, -10);
    EXPECT_EQ(manager->depth(), 1);
    manager->undo();
    EXPECT_EQ(counter->value, -11);
    EXPECT_FALSE(manager->canUndo());
}

TEST_F(UndoManagerTest, SilentStepLeavesNothingToRedo) {
    registerSilentStep(1);
    manager->undo();
    EXPECT_FALSE(manager->canRedo());
    manager->redo();
    EXPECT_EQ(counter->value, -1);
}

TEST_F(UndoManagerTest, RegistrationWhileUndoingCanBeRedoneAndUndoneAgain) {
    add(5);
    manager->undo();
    EXPECT_EQ(counter->value, 0);
    EXPECT_FALSE(manager->canUndo());
    ASSERT_TRUE(manager->canRedo());
    manager->redo();
    EXPECT_EQ(counter->value, 5);
    EXPECT_FALSE(manager->canRedo());
    ASSERT_TRUE(manager->canUndo());
    manager->undo();
    EXPECT_EQ(counter->value, 0);
}

TEST_F(UndoManagerTest, RedoingKeepsTheOtherRedoSteps) {
    add(1);
    add(2);
    manager->undo();
    manager->undo();
    manager->redo();
    EXPECT_EQ(counter->value, 1);
    EXPECT_TRUE(manager->canRedo());
    manager->redo();
    EXPECT_EQ(counter->value, 3);
}

TEST_F(UndoManagerTest, NewStepEndsRedoing) {
    add(5);
    manager->undo();
    ASSERT_TRUE(manager->canRedo());
    registerSilentStep(1);
    EXPECT_FALSE(manager->canRedo());
    EXPECT_EQ(manager->depth(), 1);
}

TEST_F(UndoManagerTest, StepWhoseTargetIsGoneRunsNothing) {
    bool ran = false;
    manager->registerUndoWithTarget(std::make_shared<Counter>(), [&](Object&) { ran = true; });
    EXPECT_EQ(manager->depth(), 1);
    manager->undo();
    EXPECT_FALSE(ran);
    EXPECT_EQ(manager->depth(), 0);
}

TEST_F(UndoManagerTest, TargetIsHeldWeakly) {
    registerSilentStep(1);
    const std::weak_ptr<Counter> watched = counter;
    counter.reset();
    EXPECT_TRUE(watched.expired());
}

TEST_F(UndoManagerTest, HandlerIsReleasedWithItsStep) {
    auto held = std::make_shared<int>(1);
    const std::weak_ptr<int> watched = held;
    manager->registerUndoWithTarget(counter, [kept = std::move(held)](Object&) {});
    EXPECT_FALSE(watched.expired());
    manager->undo();
    EXPECT_TRUE(watched.expired());
}

TEST_F(UndoManagerTest, UndoAndRedoWithinAHandlerDoNothing) {
    registerSilentStep(1);
    bool undoing = false;
    manager->registerUndoWithTarget(counter, [&](Object&) {
        undoing = manager->isUndoing() && !manager->isRedoing();
        manager->undo();
        manager->redo();
    });
    manager->undo();
    EXPECT_TRUE(undoing);
    EXPECT_FALSE(manager->isUndoing());
    EXPECT_EQ(counter->value, 0);
    EXPECT_EQ(manager->depth(), 1);
}

TEST_F(UndoManagerTest, RemoveAllActionsAlsoFromWithinAHandler) {
    add(1);
    add(2);
    manager->undo();
    manager->removeAllActions();
    EXPECT_FALSE(manager->canUndo());
    EXPECT_FALSE(manager->canRedo());

    registerSilentStep(1);
    manager->registerUndoWithTarget(counter, [&](Object&) { manager->removeAllActions(); });
    manager->undo();
    EXPECT_EQ(manager->depth(), 0);
}

TEST_F(UndoManagerTest, HandlerMayDropTheManager) {
    manager->registerUndoWithTarget(counter, [&](Object&) { manager.reset(); });
    manager->undo();
    EXPECT_EQ(manager, nullptr);
}

TEST_F(UndoManagerTest, AbsentTargetOrHandlerRegistersNothing) {
    manager->registerUndoWithTarget({}, [](Object&) {});
    manager->registerUndoWithTarget(counter, {});
    EXPECT_EQ(manager->depth(), 0);
}

TEST_F(UndoManagerTest, StateIsReadByName) {
    add(1);
    add(1);
    manager->undo();
    EXPECT_EQ(manager->valueForKey("depth"), Value(1));
    EXPECT_EQ(manager->valueForKey("canUndo"), Value(true));
    EXPECT_EQ(manager->valueForKey("canRedo"), Value(true));
}

}  // namespace
}  // namespace zor
