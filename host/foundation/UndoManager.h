#pragma once
// One undo history. Each registration is one step.

#include <cstdint>
#include <functional>
#include <memory>
#include <vector>

#include "host/foundation/Object.h"

namespace zor {

class UndoManager : public Object {
public:
    static const ClassRecord& staticClass();
    const ClassRecord& classRecord() const override { return staticClass(); }

    /// The target is held weakly and handed to the handler; a step whose target is gone runs nothing.
    /// While undoing, a registration becomes a redo step; otherwise it is a new undo step and redoing ends.
    void registerUndoWithTarget(const ObjectPtr& target, std::function<void(Object& target)> handler);
    /// Runs and drops the newest step; nothing where there is none, or from within a handler.
    void undo();
    void redo();
    bool canUndo() const { return !undoStack_.empty(); }
    bool canRedo() const { return !redoStack_.empty(); }
    /// Steps on the undo stack.
    std::int64_t depth() const { return static_cast<std::int64_t>(undoStack_.size()); }
    void removeAllActions();
    bool isUndoing() const { return state_ == State::undoing; }
    bool isRedoing() const { return state_ == State::redoing; }

private:
    struct Step {
        std::weak_ptr<Object> target;
        std::function<void(Object&)> handler;
    };
    enum class State { recording, undoing, redoing };
    void run(std::vector<Step>& stack, State state);

    std::vector<Step> undoStack_;
    std::vector<Step> redoStack_;
    State state_ = State::recording;
};

}  // namespace zor
