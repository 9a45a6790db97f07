#include "qt/interface/Form.h"

#include <QFile>
#include <QXmlStreamReader>

#include "host/foundation/Font.h"

namespace zor {

namespace {

constexpr int deepestNesting = 64;

class FormReader {
public:
    explicit FormReader(QIODevice& file) : xml_(&file) {}

    Form read() {
        Form form;
        if (!xml_.readNextStartElement() || xml_.name() != QLatin1String("ui")) {
            xml_.raiseError("it is no form");
        }
        while (xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("widget")) {
                form.root = widget(0);
            } else if (xml_.name() == QLatin1String("connections")) {
                while (xml_.readNextStartElement()) form.connections.push_back(connection());
            } else {
                xml_.skipCurrentElement();
            }
        }
        if (!xml_.hasError() && form.root.className.empty()) xml_.raiseError("it holds no widget");
        return form;
    }

    /// Empty for a form that is well made.
    std::string fault() const {
        if (!xml_.hasError()) return {};
        return "line " + std::to_string(xml_.lineNumber()) + ": " + xml_.errorString().toStdString();
    }

private:
    std::string attribute(const char* name) const {
        return xml_.attributes().value(QLatin1String(name)).toString().toStdString();
    }

    std::string text() { return xml_.readElementText(QXmlStreamReader::SkipChildElements).toStdString(); }

    double number() {
        bool good = false;
        const double value = xml_.readElementText().toDouble(&good);
        if (!good) xml_.raiseError("a number is none");
        return value;
    }

    /// The child elements by name, each read by `readChild`.
    template <typename Read>
    auto children(Read readChild) {
        std::map<std::string, decltype(readChild())> found;
        while (xml_.readNextStartElement()) {
            const std::string name = xml_.name().toString().toStdString();
            found[name] = readChild();
        }
        return found;
    }

    FormWidget widget(int depth) {
        FormWidget read{attribute("class"), attribute("name"), {}, {}};
        if (depth > deepestNesting) xml_.raiseError("widgets are nested too deeply");
        while (xml_.readNextStartElement()) {
            if (xml_.name() == QLatin1String("widget")) {
                read.children.push_back(widget(depth + 1));
            } else if (xml_.name() == QLatin1String("property")) {
                const std::string name = attribute("name");
                while (xml_.readNextStartElement()) read.properties[name] = value();
            } else {
                xml_.skipCurrentElement();
            }
        }
        return read;
    }

    Value value() {
        const auto kind = xml_.name();
        if (kind == QLatin1String("rect")) {
            auto sides = children([this] { return number(); });
            return Rect{sides["x"], sides["y"], sides["width"], sides["height"]};
        }
        if (kind == QLatin1String("bool")) return text() == "true";
        if (kind == QLatin1String("number")) return static_cast<std::int64_t>(number());
        if (kind == QLatin1String("double")) return number();
        if (kind == QLatin1String("font")) return font();
        for (const char* textual : {"string", "cstring", "enum", "set"}) {
            if (kind == QLatin1String(textual)) return text();
        }
        xml_.skipCurrentElement();
        return {};
    }

    Value font() {
        auto traits = children([this] { return text(); });
        Font read;
        if (traits.contains("family")) read.family = traits["family"];
        if (traits.contains("pointsize")) read.size = QString::fromStdString(traits["pointsize"]).toDouble();
        read.bold = traits["bold"] == "true";
        return ValueConversion<Font>::to(read);
    }

    FormConnection connection() {
        auto ends = children([this] { return text(); });
        const auto withoutArguments = [&](const char* name) { return ends[name].substr(0, ends[name].find('(')); };
        return {ends["sender"], withoutArguments("signal"), ends["receiver"], withoutArguments("slot")};
    }

    QXmlStreamReader xml_;
};

}  // namespace

Value FormWidget::property(std::string_view key) const {
    const auto found = properties.find(key);
    return found == properties.end() ? Value() : found->second;
}

Result<Form> readForm(const std::filesystem::path& path) {
    QFile file(QString::fromStdString(path.string()));
    if (!file.open(QIODevice::ReadOnly)) return Error{path.string() + ": it cannot be read"};
    FormReader reader(file);
    Form form = reader.read();
    if (const auto fault = reader.fault(); !fault.empty()) return Error{path.string() + ": " + fault};
    return form;
}

}  // namespace zor
