#include "host/foundation/UndoManager.h"

#include "host/foundation/ClassBuilder.h"

namespace zor {

const ClassRecord& UndoManager::staticClass() {
    static const ClassRecord& record = ClassBuilder<UndoManager>("UndoManager", &Object::staticClass())
                                           .creatable()
                                           .property("depth", &UndoManager::depth)
                                           .property("canUndo", &UndoManager::canUndo)
                                           .property("canRedo", &UndoManager::canRedo)
                                           .registered();
    return record;
}

void UndoManager::registerUndoWithTarget(const ObjectPtr& target, std::function<void(Object& target)> handler) {
    if (!target || !handler) return;
    auto& stack = state_ == State::undoing ? redoStack_ : undoStack_;
    stack.push_back({target, std::move(handler)});
    if (state_ == State::recording) redoStack_.clear();
}

void UndoManager::undo() {
    run(undoStack_, State::undoing);
}

void UndoManager::redo() {
    run(redoStack_, State::redoing);
}

void UndoManager::removeAllActions() {
    undoStack_.clear();
    redoStack_.clear();
}

void UndoManager::run(std::vector<Step>& stack, State state) {
    if (state_ != State::recording || stack.empty()) return;
    // A handler may drop the last owner of this manager.
    const auto keepAlive = weak_from_this().lock();
    const Step step = std::move(stack.back());
    stack.pop_back();
    state_ = state;
    if (const auto target = step.target.lock()) step.handler(*target);
    state_ = State::recording;
}

}  // namespace zor
