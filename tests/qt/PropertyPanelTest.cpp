// The property panel as a person sees and edits it.

#include <QAbstractButton>
#include <QComboBox>
#include <QTreeWidget>

#include "host/instruments/ZORImageView.h"
#include "tests/qt/PropertyPanelFixture.h"

namespace zor {
namespace {

using test::PropertyPanelTest;

TEST_F(PropertyPanelTest, FloatsAndIsCalledPropertiesUntilItHasATitle) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    EXPECT_TRUE(window().isVisible());
    EXPECT_EQ(window().windowType(), Qt::Tool);
    EXPECT_EQ(window().windowTitle(), "Properties");
    controller->window()->setTitle("Wind");
    EXPECT_EQ(window().windowTitle(), "Wind");
}

TEST_F(PropertyPanelTest, GrowsDownwardsFromItsTopLeftCorner) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    const Rect frame = controller->window()->frame();
    EXPECT_EQ(frame.x, 100);
    EXPECT_EQ(frame.maxY(), 600);
    EXPECT_EQ(frame.width, 320);
    EXPECT_GT(frame.height, 300);
}

TEST_F(PropertyPanelTest, TypingChangesTheInstrumentAtOnce) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    type(part<QLineEdit>("stringToDraw"), "Rain");
    EXPECT_EQ(text().stringToDraw(), "Rain");
}

TEST_F(PropertyPanelTest, GeometryIsTheWidgets) {
    open(ZORWidgetHostView::boxWithRect({10, 20, 200, 40}));
    EXPECT_EQ(part<NumberField>("frameXCoordinate").number(), 10);
    EXPECT_EQ(part<NumberField>("frameHeight").number(), 40);
    type(part<QLineEdit>("frameWidth"), "250");
    EXPECT_EQ(widget->frame(), (Rect{10, 20, 250, 40}));
    press(part<NumberField>("frameXCoordinate"), Qt::Key_Up);
    EXPECT_EQ(widget->frame().x, 11);
}

TEST_F(PropertyPanelTest, FollowsADragOnTheCanvas) {
    open(ZORWidgetHostView::boxWithRect({10, 20, 200, 40}));
    widget->setFrame({33, 44.5, 120, 60});
    QApplication::processEvents();
    EXPECT_EQ(part<NumberField>("frameXCoordinate").number(), 33);
    EXPECT_EQ(part<NumberField>("frameYCoordinate").number(), 44.5);
    EXPECT_EQ(part<NumberField>("frameWidth").number(), 120);
    EXPECT_EQ(part<NumberField>("frameHeight").number(), 60);
}

TEST_F(PropertyPanelTest, ATargetThatDeclinesHasNoPositionEntries) {
    class Still : public ZORImageView {
    public:
        bool showPositionProperties() const override { return false; }
    };
    auto host = ZORWidgetHostView::initWithFrame({0, 0, 100, 100});
    host->setTargetView(std::make_shared<Still>());
    open(host);
    EXPECT_EQ(window().findChild<QWidget*>("frameWidth"), nullptr);
    EXPECT_NE(window().findChild<QWidget*>("backgroundColor"), nullptr);
}

TEST_F(PropertyPanelTest, WrongInputIsRefusedWithTheReason) {
    open(ZORWidgetHostView::boxWithRect({10, 20, 200, 40}));
    auto& width = part<QLineEdit>("frameWidth");
    type(width, "4");
    EXPECT_EQ(widget->frame().width, 200);
    EXPECT_EQ(reason("frameWidth"), "Must be at least 10");
    type(width, "wide");
    EXPECT_EQ(reason("frameWidth"), "Must be a number");
    EXPECT_EQ(width.text(), "wide");
    type(width, "44");
    EXPECT_EQ(reason("frameWidth"), "");
    EXPECT_EQ(widget->frame().width, 44);
    type(width, "wide");
    leave(part<NumberField>("frameWidth"));
    EXPECT_EQ(reason("frameWidth"), "");
    EXPECT_EQ(part<NumberField>("frameWidth").number(), 44);
}

TEST_F(PropertyPanelTest, ColorsAreReadInTheirUsualSpellings) {
    open(ZORWidgetHostView::boxWithRect({10, 20, 200, 40}));
    const auto fill = [&] { return widget->targetView()->valueForKey("fillColor"); };
    widget->targetView()->setValueForKey("fillColor", "#ffffffff");
    QApplication::processEvents();
    auto& field = part<LineField>("fillColor");
    type(field, "orange");
    EXPECT_EQ(fill(), Value("#ffa500ff"));
    type(field, "#0a6ed180");
    EXPECT_EQ(fill(), Value("#0a6ed180"));
    // Without digits for it, the opacity stays.
    type(field, "#ff0000");
    EXPECT_EQ(fill(), Value("#ff000080"));
    type(field, "rub");
    EXPECT_EQ(fill(), Value("#ff000080"));
    EXPECT_EQ(reason("fillColor"), "Must be a color such as #0a6ed1 or orange");
    type(*part<NumberField>("fillColor").findChild<QLineEdit*>(), "100");
    EXPECT_EQ(fill(), Value("#ff0000ff"));
}

TEST_F(PropertyPanelTest, ANameThatTheStationLacksIsShown) {
    const auto field = ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40});
    field->targetView()->setValueForKey("propertyName", "soilMoisture9");
    open(field);
    EXPECT_EQ(part<QAbstractButton>("propertyName").accessibleDescription(), "soilMoisture9 --");
}

TEST_F(PropertyPanelTest, PropertiesAreFoundByTyping) {
    const auto temperature = agent->addProperty("outdoorTemperature", "Outdoor Temperature", Quantity::temperature);
    agent->addProperty("windSpeed", "Wind Speed", Quantity::speed);
    temperature->setValue(21.5, now());
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    part<QAbstractButton>("propertyName").click();
    auto* list = editor("propertyName").findChild<QTreeWidget*>();
    ASSERT_NE(list, nullptr);
    EXPECT_EQ(list->topLevelItemCount(), 3);
    EXPECT_EQ(list->topLevelItem(0)->text(0), "None");
    EXPECT_EQ(list->topLevelItem(1)->text(1), QStringLiteral("21.5 °C"));
    auto* search = list->parentWidget()->findChild<QLineEdit*>();
    for (const char letter : std::string("outd")) press(*search, 0, QString(QChar(letter)));
    EXPECT_TRUE(list->topLevelItem(2)->isHidden());
    press(*search, Qt::Key_Return);
    EXPECT_EQ(text().propertyName(), "outdoorTemperature");
    EXPECT_EQ(part<QAbstractButton>("propertyName").accessibleDescription(),
              QStringLiteral("Outdoor Temperature 21.5 °C"));
    temperature->setValue(22.5, now());
    // The widget lives in no agent's dashboard here, so that the name alone was linked; the panel shows the station's.
    widget->targetView()->setNeedsDisplay(true);
    QApplication::processEvents();
    EXPECT_EQ(part<QAbstractButton>("propertyName").accessibleDescription(),
              QStringLiteral("Outdoor Temperature 22.5 °C"));
}

TEST_F(PropertyPanelTest, DateFormatsShowAnExample) {
    open(ZORWidgetHostView::dateTimeFieldWithRect({10, 20, 200, 40}));
    type(*part<QComboBox>("dateFormat").lineEdit(), "'noon'");
    EXPECT_EQ(widget->targetView()->valueForKey("dateFormat"), Value("'noon'"));
    EXPECT_EQ(editor("dateFormat").findChild<QLabel*>("example")->text(), "noon");
}

TEST_F(PropertyPanelTest, ALongExampleIsShownWhole) {
    open(ZORWidgetHostView::dateTimeFieldWithRect({10, 20, 200, 40}));
    type(*part<QComboBox>("dateFormat").lineEdit(), "EEEE, d MMMM yyyy HH:mm:ss, EEEE, d MMMM yyyy");
    QApplication::processEvents();
    const auto& example = *editor("dateFormat").findChild<QLabel*>("example");
    const QRect needed =
        example.fontMetrics().boundingRect(QRect(0, 0, example.width(), 1000), Qt::TextWordWrap, example.text());
    EXPECT_LE(needed.width(), example.width());
    EXPECT_LE(needed.height(), example.height());
}

TEST_F(PropertyPanelTest, RoomToSpareIsBelowTheEntries) {
    const auto pitch = [this](const char* kind) {
        open(ZORWidgetHostView::widgetOfKind(kind, {10, 20, 200, 40}, agent));
        const auto topOf = [this](const char* name) { return editor(name).mapTo(&window(), QPoint()).y(); };
        return topOf("frameWidth") - topOf("frameXCoordinate");
    };
    // Of many settings and of one.
    EXPECT_EQ(pitch("textField"), pitch("webView"));
}

TEST_F(PropertyPanelTest, AddressesAreTakenWhenTheyAreComplete) {
    open(ZORWidgetHostView::webViewWithRect({10, 20, 200, 40}));
    const auto url = [&] { return widget->targetView()->valueForKey("url").asString(); };
    auto& field = part<QLineEdit>("url");
    const std::string before = url();
    type(field, "ftp://example.org");
    EXPECT_EQ(reason("url"), "Must begin with https://, http:// or file://");
    type(field, "example.org/radar");
    EXPECT_EQ(url(), before);
    press(field, Qt::Key_Return);
    EXPECT_EQ(url(), "https://example.org/radar");
    EXPECT_EQ(field.text(), "https://example.org/radar");
}

TEST_F(PropertyPanelTest, ThresholdsAreRowsOfValueAndColor) {
    open(ZORWidgetHostView::ledWithRect({10, 20, 40, 40}));
    const auto thresholds = [&] { return widget->targetView()->valueForKey("thresholds"); };
    widget->targetView()->setValueForKey("thresholds", Value::Array{});
    QApplication::processEvents();
    auto& add = *editor("thresholds").findChild<QPushButton*>();
    add.click();
    add.click();
    QApplication::processEvents();
    ASSERT_EQ(thresholds().asArray().size(), 2U);
    EXPECT_EQ(thresholds().asArray()[1]["value"], Value(10.0));
    const auto rows = editor("thresholds").findChildren<NumberField*>();
    ASSERT_EQ(rows.size(), 2);
    type(*rows[0]->findChild<QLineEdit*>(), "25");
    // The instrument's are in order; the rows stay until the keyboard leaves.
    EXPECT_EQ(thresholds().asArray()[0]["value"], Value(10.0));
    EXPECT_EQ(thresholds().asArray()[1]["value"], Value(25.0));
    EXPECT_EQ(rows[0]->number(), 25);
    leave(*rows[0]);
    EXPECT_EQ(rows[0]->number(), 10);
}

TEST_F(PropertyPanelTest, RevertGivesBackWhatThereWasWhenItWasOpened) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    EXPECT_FALSE(revert().isEnabled());
    const std::string before = text().stringToDraw();
    type(part<QLineEdit>("stringToDraw"), "Rain");
    type(part<QLineEdit>("frameWidth"), "300");
    EXPECT_TRUE(revert().isEnabled());
    revert().click();
    EXPECT_EQ(text().stringToDraw(), before);
    EXPECT_EQ(widget->frame(), (Rect{10, 20, 200, 40}));
    EXPECT_FALSE(revert().isEnabled());
}

TEST_F(PropertyPanelTest, AnAutomaticRangeComesBack) {
    open(ZORWidgetHostView::roundGaugeWithRect({10, 20, 200, 200}));
    ASSERT_EQ(widget->targetView()->valueForKey("automaticRange"), Value(true));
    type(part<QLineEdit>("minimum"), "-5");
    EXPECT_EQ(widget->targetView()->valueForKey("automaticRange"), Value(false));
    revert().click();
    EXPECT_EQ(widget->targetView()->valueForKey("automaticRange"), Value(true));
}

TEST_F(PropertyPanelTest, AnotherTargetHasOtherEntriesInTheSameWindow) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    QWidget* before = &window();
    const auto first = widget;
    open(ZORWidgetHostView::boxWithRect({1, 2, 30, 40}));
    EXPECT_EQ(&window(), before);
    EXPECT_EQ(part<NumberField>("frameXCoordinate").number(), 1);
    // The one before is let go.
    first->setFrame({5, 5, 50, 50});
    QApplication::processEvents();
    EXPECT_EQ(part<NumberField>("frameXCoordinate").number(), 1);
}

TEST_F(PropertyPanelTest, WithoutATargetItIsEmpty) {
    open(ZORWidgetHostView::boxWithRect({1, 2, 30, 40}));
    controller->setTargetObject({});
    controller->setProperties(nullptr);
    controller->reload();
    QApplication::processEvents();
    EXPECT_EQ(window().findChild<QWidget*>("reason"), nullptr);
}

TEST_F(PropertyPanelTest, ASwitchThatIsOffShowsOnLightAndOnDarkGround) {
    open(ZORWidgetHostView::textFieldWithRect({10, 20, 200, 40}));
    auto& shown = part<QAbstractButton>("separateUnit");
    ASSERT_FALSE(shown.isChecked());
    for (const auto& [ground, ink] : {std::pair("#f5f5f7", "#1d1d1f"), std::pair("#232326", "#f0f0f2")}) {
        QPalette palette(QColor(ground).lighter(110), QColor(ground));
        palette.setColor(QPalette::WindowText, ink);
        shown.setPalette(palette);
        QImage image(shown.size(), QImage::Format_ARGB32_Premultiplied);
        image.fill(QColor(ground));
        shown.render(&image, {}, {}, QWidget::DrawChildren);
        // Beside the knob, which is at the left.
        const QColor track = image.pixelColor(image.width() - 10, image.height() / 2);
        EXPECT_GT(std::abs(track.lightness() - QColor(ground).lightness()), 40) << ground;
    }
}

}  // namespace
}  // namespace zor
