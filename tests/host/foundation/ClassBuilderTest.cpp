#include "host/foundation/ClassBuilder.h"

#include "host/foundation/Color.h"

namespace zor {
namespace {

class Lamp : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<Lamp>("Lamp", &Object::staticClass())
                                               .creatable()
                                               .initializer([](std::span<const Value> arguments) -> ObjectPtr {
                                                   auto lamp = std::make_shared<Lamp>();
                                                   if (!arguments.empty()) lamp->setName(arguments[0].asString());
                                                   return lamp;
                                               })
                                               .action("toggle:", &Lamp::toggle)
                                               .action("describe", &Lamp::describe)
                                               .action("table:shouldSelectRow:", &Lamp::shouldSelectRow)
                                               .action("twin", &Lamp::twin)
                                               .property("name", &Lamp::name, &Lamp::setName)
                                               .property("level", &Lamp::level, &Lamp::setLevel)
                                               .property("small", &Lamp::small, &Lamp::setSmall)
                                               .property("lit", &Lamp::isLit, &Lamp::setLit)
                                               .property("frame", &Lamp::frame, &Lamp::setFrame)
                                               .property("color", &Lamp::color, &Lamp::setColor)
                                               .property("limit", &Lamp::limit, &Lamp::setLimit)
                                               .property("twin", &Lamp::twin, &Lamp::setTwin)
                                               .property("marks", &Lamp::marks, &Lamp::setMarks)
                                               .property("toggles", &Lamp::toggles)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    void toggle(const ObjectPtr& sender) {
        ++toggles_;
        lastSender = sender;
    }
    std::string describe() const { return "lamp " + name_; }
    bool shouldSelectRow(const ObjectPtr& table, std::int64_t row) { return table.get() == this && row == 3; }

    const std::string& name() const { return name_; }
    void setName(const std::string& name) { name_ = name; }
    double level() const { return level_; }
    void setLevel(double level) { level_ = level; }
    std::uint8_t small() const { return small_; }
    void setSmall(std::uint8_t small) { small_ = small; }
    bool isLit() const { return lit_; }
    void setLit(bool lit) { lit_ = lit; }
    const Rect& frame() const { return frame_; }
    void setFrame(const Rect& frame) { frame_ = frame; }
    Color color() const { return color_; }
    void setColor(const Color& color) { color_ = color; }
    std::optional<double> limit() const { return limit_; }
    void setLimit(const std::optional<double>& limit) { limit_ = limit; }
    std::shared_ptr<Lamp> twin() const { return twin_.lock(); }
    void setTwin(const std::shared_ptr<Lamp>& twin) { twin_ = twin; }
    const std::vector<std::string>& marks() const { return marks_; }
    void setMarks(std::vector<std::string> marks) { marks_ = std::move(marks); }
    std::int64_t toggles() const { return toggles_; }

    ObjectPtr lastSender;

private:
    std::string name_;
    double level_ = 0;
    std::uint8_t small_ = 0;
    bool lit_ = false;
    Rect frame_;
    Color color_;
    std::optional<double> limit_;
    std::weak_ptr<Lamp> twin_;
    std::vector<std::string> marks_;
    std::int64_t toggles_ = 0;
};

class Lantern : public Lamp {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record =
            ClassBuilder<Lantern>("Lantern", &Lamp::staticClass()).property("name", &Lantern::fixedName).registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }
    std::string fixedName() const { return "lantern"; }
};

TEST(ClassBuilderTest, CreatesAndInitialises) {
    const auto* record = &Lamp::staticClass();
    EXPECT_EQ(ClassRegistry::shared().find("Lamp"), record);
    ASSERT_TRUE(record->isCreatable());
    EXPECT_EQ(&record->create()->classRecord(), record);
    const Value name("hall");
    EXPECT_EQ(record->initializer()({&name, 1})->valueForKey("name"), Value("hall"));
    EXPECT_FALSE(Object::staticClass().initializer());
}

TEST(ClassBuilderTest, PropertiesAreReadAndWrittenByName) {
    const auto lamp = std::make_shared<Lamp>();
    EXPECT_TRUE(lamp->setValueForKey("name", "desk"));
    EXPECT_TRUE(lamp->setValueForKey("level", 3));
    EXPECT_TRUE(lamp->setValueForKey("lit", true));
    EXPECT_TRUE(lamp->setValueForKey("frame", Value::Array{1, 2, 3, 4}));
    EXPECT_TRUE(lamp->setValueForKey("color", "#ff8000"));
    EXPECT_TRUE(lamp->setValueForKey("marks", Value::Array{"a", "b"}));
    EXPECT_EQ(lamp->valueForKey("name"), Value("desk"));
    EXPECT_EQ(lamp->valueForKey("level"), Value(3.0));
    EXPECT_EQ(lamp->valueForKey("lit"), Value(true));
    EXPECT_EQ(lamp->frame(), (Rect{1, 2, 3, 4}));
    EXPECT_EQ(lamp->valueForKey("color"), Value("#ff8000ff"));
    EXPECT_EQ(lamp->valueForKey("marks"), Value(Value::Array{"a", "b"}));
    EXPECT_TRUE(lamp->valueForKey("unheard of").isAbsent());
}

TEST(ClassBuilderTest, ValueOfTheWrongKindIsRefusedAndChangesNothing) {
    const auto lamp = std::make_shared<Lamp>();
    lamp->setMarks({"kept"});
    lamp->setLimit(5);
    EXPECT_FALSE(lamp->setValueForKey("name", 1));
    EXPECT_FALSE(lamp->setValueForKey("level", "3"));
    EXPECT_FALSE(lamp->setValueForKey("lit", 1));
    EXPECT_FALSE(lamp->setValueForKey("frame", Value::Array{1, 2, 3}));
    EXPECT_FALSE(lamp->setValueForKey("color", "red"));
    EXPECT_FALSE(lamp->setValueForKey("marks", Value::Array{"a", 1}));
    EXPECT_FALSE(lamp->setValueForKey("limit", "high"));
    EXPECT_FALSE(lamp->setValueForKey("toggles", 1));
    EXPECT_FALSE(lamp->setValueForKey("unheard of", 1));
    EXPECT_EQ(lamp->marks(), std::vector<std::string>{"kept"});
    EXPECT_EQ(lamp->limit(), 5.0);
}

TEST(ClassBuilderTest, IntegersMustFitTheirType) {
    const auto lamp = std::make_shared<Lamp>();
    EXPECT_TRUE(lamp->setValueForKey("small", 255));
    EXPECT_FALSE(lamp->setValueForKey("small", 256));
    EXPECT_FALSE(lamp->setValueForKey("small", -1));
    EXPECT_EQ(lamp->valueForKey("small"), Value(255));
}

TEST(ClassBuilderTest, AbsentClearsOptionalsAndObjects) {
    const auto lamp = std::make_shared<Lamp>();
    EXPECT_TRUE(lamp->valueForKey("limit").isAbsent());
    EXPECT_TRUE(lamp->setValueForKey("limit", 2.5));
    EXPECT_EQ(lamp->valueForKey("limit"), Value(2.5));
    EXPECT_TRUE(lamp->setValueForKey("limit", Value()));
    EXPECT_FALSE(lamp->limit());

    EXPECT_TRUE(lamp->setValueForKey("twin", lamp));
    EXPECT_EQ(lamp->twin(), lamp);
    EXPECT_FALSE(lamp->setValueForKey("twin", std::make_shared<Object>()));
    EXPECT_EQ(lamp->twin(), lamp);
    EXPECT_TRUE(lamp->setValueForKey("twin", Value()));
    EXPECT_EQ(lamp->twin(), nullptr);
}

TEST(ClassBuilderTest, ActionsArePerformedByName) {
    const auto lamp = std::make_shared<Lamp>();
    const auto sender = std::make_shared<Object>();
    EXPECT_TRUE(lamp->respondsTo("toggle:"));
    EXPECT_FALSE(lamp->respondsTo("toggle"));
    EXPECT_TRUE(lamp->performWithSender("toggle:", sender).isAbsent());
    EXPECT_EQ(lamp->toggles(), 1);
    EXPECT_EQ(lamp->lastSender, sender);
    lamp->setName("x");
    EXPECT_EQ(lamp->perform("describe"), Value("lamp x"));
    EXPECT_TRUE(lamp->perform("unheard of:").isAbsent());
}

TEST(ClassBuilderTest, MissingArgumentsAreAbsent) {
    const auto lamp = std::make_shared<Lamp>();
    lamp->lastSender = lamp;
    lamp->perform("toggle:");
    EXPECT_EQ(lamp->lastSender, nullptr);

    const std::vector<Value> arguments{lamp, 3};
    EXPECT_EQ(lamp->perform("table:shouldSelectRow:", arguments), Value(true));
    EXPECT_EQ(lamp->perform("table:shouldSelectRow:", std::span(arguments).first(1)), Value(false));
}

TEST(ClassBuilderTest, DerivedClassInheritsAndOverrides) {
    const auto lantern = std::make_shared<Lantern>();
    EXPECT_TRUE(lantern->isKindOf(Lamp::staticClass()));
    EXPECT_EQ(lantern->valueForKey("name"), Value("lantern"));
    EXPECT_FALSE(lantern->setValueForKey("name", "other"));
    EXPECT_TRUE(lantern->setValueForKey("level", 4.0));
    lantern->performWithSender("toggle:", {});
    EXPECT_EQ(lantern->toggles(), 1);
    EXPECT_FALSE(Lantern::staticClass().isCreatable());
}

TEST(ClassBuilderTest, SharedContentIsHandedOnNotCopied) {
    using Data = ValueConversion<std::shared_ptr<const Bytes>>;
    using Array = ValueConversion<std::shared_ptr<const Value::Array>>;
    const auto data = std::make_shared<const Bytes>(Bytes{1, 2});
    const auto array = std::make_shared<const Value::Array>(Value::Array{1});
    EXPECT_EQ(Data::from(Data::to(data)), data);
    EXPECT_EQ(Array::from(Array::to(array)), array);
    EXPECT_TRUE(Data::to({}).isAbsent());
    EXPECT_EQ(Data::from(Value()), std::shared_ptr<const Bytes>());
    EXPECT_FALSE(Data::from("text"));
    EXPECT_FALSE(Array::from(Value(data)));
}

TEST(ClassBuilderTest, AskingAnAbsentObjectGivesTheZeroAnswer) {
    std::shared_ptr<Lamp> lamp;
    EXPECT_EQ(ask(lamp, [](const Lamp& present) { return present.name(); }), "");
    ask(lamp, [](Lamp& present) { present.setName("never"); });
    lamp = std::make_shared<Lamp>();
    ask(lamp, [](Lamp& present) { present.setName("now"); });
    EXPECT_EQ(ask(lamp, [](const Lamp& present) { return present.name(); }), "now");
}

}  // namespace
}  // namespace zor
