#include "qt/interface/InterfaceLoader.h"

#include "host/foundation/ClassRegistry.h"
#include "host/views/ControlColors.h"
#include "host/views/Controls.h"
#include "host/views/Window.h"
#include "qt/interface/ControlPalette.h"
#include "qt/interface/Form.h"

namespace zor {

namespace {

/// What a loaded interface is kept alive by.
class LoadedInterface : public Object {
public:
    std::map<std::string, ObjectPtr, std::less<>> objects;
};

class FormContent : public View {
public:
    using View::View;
    void drawRect(DrawingContext& context, const Rect& dirty) override {
        context.fillRect(dirty, ControlColors::current().ground);
    }
};

/// A label that has the colours of the windows around, unless the form gives it one.
class FormLabel : public TextField {
public:
    explicit FormLabel(const FormWidget& widget)
        : hasOwnColor_(widget.property("textColor").isString()), isQuiet_(widget.property("quiet").asBool()) {
        setBackgroundColor(Color::clear());
    }
    void drawRect(DrawingContext& context, const Rect&) override {
        const auto& colors = ControlColors::current();
        drawString(context, hasOwnColor_ ? textColor() : isQuiet_ ? colors.quiet : colors.text);
    }

private:
    bool hasOwnColor_;
    bool isQuiet_;
};

std::shared_ptr<View> makeLabel(const FormWidget& widget) {
    auto label = std::make_shared<FormLabel>(widget);
    label->setStringValue(widget.property("text").asString());
    label->setWraps(widget.property("wordWrap").asBool());
    const std::string alignment = widget.property("alignment").asString();
    if (alignment.find("AlignHCenter") != std::string::npos || alignment.find("AlignCenter") != std::string::npos) {
        label->setAlignment(TextAlignment::center);
    } else if (alignment.find("AlignRight") != std::string::npos) {
        label->setAlignment(TextAlignment::right);
    }
    return label;
}

std::shared_ptr<View> makeButton(const FormWidget& widget) {
    auto button = std::make_shared<Button>();
    button->setTitle(widget.property("text").asString());
    if (widget.property("default").asBool()) button->setKeyEquivalent(std::u16string(Button::returnKey));
    if (widget.property("shortcut").asString() == "Esc") button->setKeyEquivalent(std::u16string(Button::escapeKey));
    return button;
}

/// Empty for a class that nobody knows.
std::shared_ptr<View> makeView(const FormWidget& widget) {
    if (widget.className == "QWidget" || widget.className == "QFrame") return std::make_shared<View>();
    if (widget.className == "QLabel") return makeLabel(widget);
    if (widget.className == "QPushButton") return makeButton(widget);
    if (widget.className == "QListWidget" || widget.className == "QListView") return std::make_shared<TableView>();
    const auto* record = ClassRegistry::shared().find(widget.className);
    return record ? std::dynamic_pointer_cast<View>(record->create()) : nullptr;
}

class InterfaceBuilder {
public:
    explicit InterfaceBuilder(ObjectPtr owner) : owner_(std::move(owner)) {}

    Result<ObjectPtr> build(const Form& form) {
        makeWindow(form.root);
        for (const auto& connection : form.connections) connect(connection, form.root.name);
        if (!fault_.empty()) return Error{fault_};
        for (const auto& [name, object] : made_->objects) {
            if (owner_ && owner_->classRecord().property(name)) owner_->setValueForKey(name, object);
        }
        return ObjectPtr(made_);
    }

private:
    void makeWindow(const FormWidget& widget) {
        const auto window = std::make_shared<Window>();
        const Rect frame = widget.property("geometry").rect().value_or(Rect{});
        const auto content = std::make_shared<FormContent>(Rect{0, 0, frame.width, frame.height});
        window->setTitle(widget.property("windowTitle").asString());
        window->setContentView(content);
        made_->objects[widget.name] = window;
        const bool isStack = widget.className == "QStackedWidget";
        const auto current = static_cast<std::size_t>(widget.property("currentIndex").asInteger());
        for (std::size_t index = 0; index < widget.children.size(); ++index) {
            const auto page = makeTree(widget.children[index]);
            if (page && isStack) page->setFrame(content->bounds());
            if (page && (!isStack || index == current)) content->addSubview(page);
        }
    }

    std::shared_ptr<View> makeTree(const FormWidget& widget) {
        const auto view = makeView(widget);
        if (!view) {
            fault_ = widget.name + ": there is no class " + widget.className;
            return {};
        }
        for (const auto& [name, value] : widget.properties) view->setValueForKey(name, value);
        if (const auto frame = widget.property("geometry").rect()) view->setFrame(*frame);
        if (const auto list = std::dynamic_pointer_cast<TableView>(view)) list->setDelegate(owner_);
        if (view->classRecord().property("owner")) view->setValueForKey("owner", Value(owner_));
        made_->objects[widget.name] = view;
        for (const auto& child : widget.children) {
            if (const auto inner = makeTree(child)) view->addSubview(inner);
        }
        return view;
    }

    ObjectPtr named(const std::string& name) const {
        const auto found = made_->objects.find(name);
        return found == made_->objects.end() ? nullptr : found->second;
    }

    void connect(const FormConnection& connection, const std::string& rootName) {
        const auto receiver = connection.receiver == rootName ? owner_ : named(connection.receiver);
        const auto sender = named(connection.sender);
        const auto button = std::dynamic_pointer_cast<Button>(sender);
        const auto list = std::dynamic_pointer_cast<TableView>(sender);
        ControlAction action{receiver, connection.slot + ":"};
        if (!receiver || !receiver->respondsTo(action.name)) {
            fault_ = connection.receiver + ": it has no action " + action.name;
        } else if (button && connection.signal == "clicked") {
            button->setAction(std::move(action));
        } else if (list && connection.signal == "itemDoubleClicked") {
            list->setDoubleAction(std::move(action));
        } else if (list && connection.signal == "itemSelectionChanged") {
            list->addSelectionAction(std::move(action));
        } else {
            fault_ = connection.sender + ": it has no signal " + connection.signal;
        }
    }

    ObjectPtr owner_;
    std::shared_ptr<LoadedInterface> made_ = std::make_shared<LoadedInterface>();
    std::string fault_;
};

}  // namespace

Result<ObjectPtr> loadInterfaceFile(const std::filesystem::path& file, const ObjectPtr& owner) {
    const auto form = readForm(file);
    if (!form) return form.error();
    followApplicationPalette();
    auto built = InterfaceBuilder(owner).build(*form);
    if (!built) return Error{file.string() + ": " + built.error().message};
    return built;
}

}  // namespace zor
