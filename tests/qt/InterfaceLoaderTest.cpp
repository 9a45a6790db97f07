#include "qt/interface/InterfaceLoader.h"

#include <gmock/gmock.h>

#include <QApplication>
#include <QPalette>
#include <fstream>

#include "host/foundation/ClassBuilder.h"
#include "host/views/Controls.h"
#include "host/views/RecordingContext.h"
#include "host/views/Window.h"
#include "tests/support/TemporaryFolder.h"

using testing::ElementsAre;
using testing::HasSubstr;

namespace zor {
namespace {

/// What a form's objects are handed to.
class FormOwner : public Object {
public:
    static const ClassRecord& staticClass() {
        static const ClassRecord& record = ClassBuilder<FormOwner>("TestFormOwner", &Object::staticClass())
                                               .property("sheet", &FormOwner::sheet, &FormOwner::setSheet)
                                               .property("list", &FormOwner::list, &FormOwner::setList)
                                               .property("label", &FormOwner::label, &FormOwner::setLabel)
                                               .property("second", &FormOwner::second, &FormOwner::setSecond)
                                               .action("doneClicked:", &FormOwner::doneClicked)
                                               .registered();
        return record;
    }
    const ClassRecord& classRecord() const override { return staticClass(); }

    std::shared_ptr<Window> sheet() const { return sheet_.lock(); }
    void setSheet(const std::shared_ptr<Window>& window) { sheet_ = window; }
    std::shared_ptr<TableView> list() const { return list_.lock(); }
    void setList(const std::shared_ptr<TableView>& view) { list_ = view; }
    std::shared_ptr<TextField> label() const { return label_.lock(); }
    void setLabel(const std::shared_ptr<TextField>& view) { label_ = view; }
    std::shared_ptr<View> second() const { return second_.lock(); }
    void setSecond(const std::shared_ptr<View>& view) { second_ = view; }
    void doneClicked(const ObjectPtr&) { ++clicks; }
    int clicks = 0;

private:
    std::weak_ptr<Window> sheet_;
    std::weak_ptr<TableView> list_;
    std::weak_ptr<TextField> label_;
    std::weak_ptr<View> second_;
};

constexpr std::string_view formHead = R"(<?xml version="1.0" encoding="UTF-8"?>
<ui version="4.0"><class>Test</class>
<widget class="QStackedWidget" name="sheet">
 <property name="geometry"><rect><x>0</x><y>0</y><width>300</width><height>200</height></rect></property>
 <property name="windowTitle"><string>Choose &amp; Go</string></property>
 <property name="currentIndex"><number>0</number></property>
 <widget class="QWidget" name="first">
  <widget class="QListWidget" name="list">
   <property name="geometry"><rect><x>10</x><y>20</y><width>100</width><height>150</height></rect></property>
  </widget>
  <widget class="QLabel" name="label">
   <property name="text"><string>Zwölf • Grad</string></property>
   <property name="wordWrap"><bool>true</bool></property>
   <property name="alignment"><set>Qt::AlignRight|Qt::AlignTop</set></property>
   <property name="font"><font><pointsize>20</pointsize><bold>true</bold></font></property>
   <property name="textColor" stdset="0"><string>#102030</string></property>
   <property name="sizePolicy"><sizepolicy hsizetype="Fixed" vsizetype="Fixed"/></property>
  </widget>
  <widget class="QPushButton" name="done">
   <property name="text"><string>Done</string></property>
   <property name="default"><bool>true</bool></property>
  </widget>
 </widget>
 <widget class="QWidget" name="second"/>
</widget>)";
constexpr std::string_view formTail = R"(<connections>
 <connection><sender>done</sender><signal>clicked()</signal><receiver>sheet</receiver><slot>doneClicked()</slot>
  <hints><hint type="sourcelabel"><x>1</x><y>1</y></hint></hints></connection>
 <connection><sender>list</sender><signal>itemDoubleClicked(QListWidgetItem*)</signal><receiver>sheet</receiver>
  <slot>doneClicked()</slot></connection>
</connections></ui>)";

class InterfaceLoader : public testing::Test {
protected:
    Result<ObjectPtr> load(const std::string& text) { return loadInterfaceFile(folder.write("Test.ui", text), owner); }
    std::string faultOf(const std::string& text) {
        const auto loaded = load(text);
        return loaded ? "none" : loaded.error().message;
    }

    test::TemporaryFolder folder;
    std::shared_ptr<FormOwner> owner = std::make_shared<FormOwner>();
    const std::string form = std::string(formHead) + std::string(formTail);
};

TEST_F(InterfaceLoader, FillsTheOutletsAndKeepsTheirObjects) {
    auto loaded = load(form);
    ASSERT_TRUE(loaded);
    ASSERT_TRUE(owner->sheet() && owner->list() && owner->label() && owner->second());
    EXPECT_EQ(owner->sheet()->title(), "Choose & Go");
    EXPECT_FALSE(owner->sheet()->isVisible());
    EXPECT_EQ(owner->list()->frame(), (Rect{10, 20, 100, 150}));
    EXPECT_EQ(owner->list()->delegate(), owner);
    loaded = Error{};
    EXPECT_FALSE(owner->sheet() || owner->list() || owner->label() || owner->second());
}

TEST_F(InterfaceLoader, OnlyTheCurrentPageIsInTheContentAndPagesFillIt) {
    const auto loaded = load(form);
    const auto content = owner->sheet()->contentView();
    EXPECT_EQ(content->bounds(), (Rect{0, 0, 300, 200}));
    ASSERT_EQ(content->subviews().size(), 1u);
    EXPECT_EQ(content->subviews()[0].get(), owner->list()->superview());
    EXPECT_EQ(owner->second()->superview(), nullptr);
    EXPECT_EQ(owner->second()->frame(), (Rect{0, 0, 300, 200}));
}

TEST_F(InterfaceLoader, LabelsTakeTextFontColourAndAlignment) {
    const auto loaded = load(form);
    const auto label = owner->label();
    EXPECT_EQ(label->stringValue(), "Zwölf • Grad");
    EXPECT_TRUE(label->wraps());
    EXPECT_EQ(label->alignment(), TextAlignment::right);
    EXPECT_EQ(label->font().size, 20);
    EXPECT_TRUE(label->font().bold);
    EXPECT_EQ(label->textColor(), Color::rgb(0x102030));
    EXPECT_EQ(label->backgroundColor(), Color::clear());
}

TEST_F(InterfaceLoader, WhatHasNoColourFollowsThePalette) {
    const auto textColorOf = [](TextField& field) {
        RecordingContext context;
        field.drawRect(context, field.bounds());
        return context.operationsNamed("drawText").at(0).color;
    };
    const auto labelOf = [&](const std::string& properties) {
        return load(R"(<ui><widget class="QStackedWidget" name="sheet"><widget class="QWidget" name="page">
                    <widget class="QLabel" name="label">)" + properties + "</widget></widget></widget></ui>");
    };
    const QPalette before = QApplication::palette();
    QPalette dark(QColor(0x32, 0x32, 0x36), QColor(0x20, 0x20, 0x20));
    dark.setColor(QPalette::WindowText, QColor(0xf0, 0xf0, 0xf0));
    const auto plain = labelOf("");
    QApplication::setPalette(dark);
    EXPECT_EQ(textColorOf(*owner->label()), Color::rgb(0xf0f0f0));
    RecordingContext context;
    owner->sheet()->contentView()->drawRect(context, {0, 0, 9, 9});
    EXPECT_EQ(context.operationsNamed("fillRect").at(0).color, Color::rgb(0x202020));
    const auto quiet = labelOf(R"(<property name="quiet" stdset="0"><bool>true</bool></property>)");
    EXPECT_EQ(textColorOf(*owner->label()), Color::rgb(0xf0f0f0).mixedWith(Color::rgb(0x202020), 0.4));
    const auto colored = labelOf(R"(<property name="textColor" stdset="0"><string>#102030</string></property>)");
    EXPECT_EQ(textColorOf(*owner->label()), Color::rgb(0x102030));
    QApplication::setPalette(before);
}

TEST_F(InterfaceLoader, ConnectionsPerformTheOwnersActions) {
    const auto loaded = load(form);
    owner->sheet()->sendEvent(Event::key(u"\r", 0, 0));
    EXPECT_EQ(owner->clicks, 1);
    owner->list()->setRows({"a"});
    const Point row = owner->list()->rectOfRow(0).center();
    owner->sheet()->sendEvent(Event::mouse(EventType::mouseDown, {10 + row.x, 20 + row.y}, 0, 2));
    EXPECT_EQ(owner->clicks, 2);
}

TEST_F(InterfaceLoader, FaultsAreNamedAndFillNothing) {
    const auto withConnection = [](const std::string& sender, const std::string& signal, const std::string& receiver,
                                   const std::string& slot) {
        return std::string(formHead) + "<connections><connection><sender>" + sender + "</sender><signal>" + signal +
               "</signal><receiver>" + receiver + "</receiver><slot>" + slot + "</slot></connection></connections></ui>";
    };
    EXPECT_THAT(faultOf(withConnection("nobody", "clicked()", "sheet", "doneClicked()")),
                HasSubstr("nobody: it has no signal clicked"));
    EXPECT_THAT(faultOf(withConnection("done", "toggled(bool)", "sheet", "doneClicked()")),
                HasSubstr("done: it has no signal toggled"));
    EXPECT_THAT(faultOf(withConnection("done", "clicked()", "sheet", "fly()")),
                HasSubstr("sheet: it has no action fly:"));
    EXPECT_THAT(faultOf(R"(<ui><widget class="QWidget" name="sheet"><widget class="QDial" name="dial"/></widget></ui>)"),
                HasSubstr("dial: there is no class QDial"));
    EXPECT_FALSE(owner->sheet());
}

TEST_F(InterfaceLoader, WhatIsNoFormIsRefusedWithItsLine) {
    EXPECT_THAT(faultOf("<html/>"), HasSubstr("Test.ui: line 1: it is no form"));
    EXPECT_THAT(faultOf("<ui/>"), HasSubstr("it holds no widget"));
    EXPECT_THAT(faultOf("<ui>\n<widget class=\"QWidget\" name=\"a\">"), HasSubstr("line 2"));
    EXPECT_THAT(faultOf("<ui><widget class=\"QWidget\" name=\"a\"><property name=\"geometry\"><rect><x>wide</x></rect>"
                        "</property></widget></ui>"),
                HasSubstr("a number is none"));
    std::string deep = "<ui>";
    for (int level = 0; level < 100000; ++level) deep += "<widget class=\"QWidget\" name=\"a\">";
    EXPECT_THAT(faultOf(deep), HasSubstr("nested too deeply"));
    EXPECT_THAT(loadInterfaceFile(folder / "missing.ui", owner).error().message, HasSubstr("missing.ui"));
}

}  // namespace
}  // namespace zor
