#include "fuzz/PropertyListMutator.h"

#include <algorithm>
#include <array>
#include <bit>
#include <limits>
#include <string>

#include "host/foundation/PropertyListFormats.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t maxSize);

namespace zor::fuzz {

namespace {

using Kind = PropertyListKind;

/// What a file of ours may say at one place or another.
// clang-format off
constexpr std::array<std::string_view, 60> words{
    "$null", "$class", "$classname", "$classes", "$classhints", "NSArray", "NSMutableArray", "NSSet", "NSDictionary",
    "NSMutableDictionary", "NSString", "NSMutableString", "NSData", "NSDate", "NSNull", "NSObject", "NS.objects",
    "NS.keys", "NS.string", "NS.data", "NS.time", "ZORSiteDocument", "ZORAgent", "ZORProperty", "ZORPlugIn",
    "ZORDashboardPlugIn", "ZORDashboardToolbarPlugIn", "ZORDashboardEditView", "ZORWidgetHostView", "ZORTextFieldView",
    "ZORDateTimeFieldView", "ZORBoxView", "ZORImageView", "ZORLEDView", "ZORMapView", "ZORWebView", "ZORPlotView",
    "ZORLevelIndicatorView", "ZORRoundGaugeView", "ZORLinearGaugeView", "ZORDirectionGaugeView", "DashboardEditView",
    "QM4PlotView", "View", "Image", "Responder", "{{0, 0}, {1e300, 1e300}}", "{{nan, inf}, {-1, 0}}", "{{1, 2}, {3, 4}}",
    "{x = 1; y = 2; width = 3; height = 4}", "#00000000", "#ff3b30", "frame", "subviews", "editView", "targetView",
    "selectedObjects", "agent", "title", "thresholds"};
// clang-format on

constexpr std::size_t mostChanges = 4;
/// One in so many is a change of bytes.
constexpr std::size_t plainChange = 8;

}  // namespace

std::uint64_t PropertyListMutator::strangeNumber() {
    const std::array<std::uint64_t, 14> numbers{
        0,
        1,
        2,
        255,
        256,
        0x7FFF'FFFF,
        0xFFFF'FFFF,
        std::uint64_t{1} << 63,
        ~std::uint64_t{0},
        std::bit_cast<std::uint64_t>(1e300),
        std::bit_cast<std::uint64_t>(-0.5),
        std::bit_cast<std::uint64_t>(std::numeric_limits<double>::infinity()),
        std::bit_cast<std::uint64_t>(std::numeric_limits<double>::quiet_NaN()),
        tables_.nodes.size(),
    };
    return numbers[below(numbers.size())];
}

void PropertyListMutator::change() {
    PropertyListNode& node = randomNode();
    switch (below(6)) {
        case 0:
            return retarget();
        case 1:
            // Another node's content.
            node = randomNode();
            return;
        case 2:
            if (node.isContainer() || node.kind == Kind::string || node.kind == Kind::data) break;
            node.kind = std::array{Kind::boolean, Kind::integer, Kind::real, Kind::date, Kind::uid}[below(5)];
            return;
        default:
            break;
    }
    if (node.isContainer()) return changeEntries(node);
    if (node.kind == Kind::string || node.kind == Kind::data) return changeText(node);
    changeScalar(node);
}

void PropertyListMutator::changeScalar(PropertyListNode& node) {
    if (node.kind == Kind::uid) {
        node.payload = below(8) == 0 ? strangeNumber() : below(tables_.nodes.size());
    } else if (node.kind == Kind::boolean) {
        node.payload ^= 1;
    } else {
        node.payload = below(3) == 0 ? node.payload ^ (std::uint64_t{1} << below(64)) : strangeNumber();
    }
}

void PropertyListMutator::changeText(PropertyListNode& node) {
    switch (below(3)) {
        case 0:
            return setText(node, words[below(words.size())]);
        case 1: {
            const PropertyListNode& other = randomNode();
            if (other.kind == Kind::string) setText(node, std::string(tables_.text(other)));
            return;
        }
        default:
            return changeBytes(node);
    }
}

void PropertyListMutator::changeBytes(PropertyListNode& node) {
    constexpr std::size_t mostMore = 16;
    std::string text(tables_.text(node));
    const std::size_t size = text.size();
    text.resize(size + mostMore);
    text.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(text.data()), size, text.size()));
    if (node.kind == Kind::string) {
        // The writer takes UTF-8 only.
        for (char& unit : text) unit = static_cast<char>(unit & 0x7F);
    }
    setText(node, text);
}

void PropertyListMutator::setText(PropertyListNode& node, std::string_view text) {
    node.payload = tables_.source.size() + tables_.bytes.size();
    node.count = static_cast<std::uint32_t>(text.size());
    tables_.bytes.append(text);
}

void PropertyListMutator::retarget() {
    if (tables_.references.empty()) return;
    Index& reference = tables_.references[below(tables_.references.size())];
    const Kind kind = tables_.nodes[reference].kind;
    // Mostly to a node of its kind, so that keys stay keys.
    for (int trial = 0; trial < 4; ++trial) {
        reference = static_cast<Index>(below(tables_.nodes.size()));
        if (tables_.nodes[reference].kind == kind) return;
    }
}

void PropertyListMutator::changeEntries(PropertyListNode& container) {
    const std::size_t parts = container.kind == Kind::dictionary ? 2 : 1;
    const auto old = tables_.children(container);
    std::vector<Index> children(old.begin(), old.end());
    const std::size_t count = container.count;
    const std::size_t place = below(count);
    const auto at = [&](std::size_t part) {
        return children.begin() + static_cast<std::ptrdiff_t>(part * count + place);
    };
    switch (count == 0 ? 1 : below(3)) {
        case 0:
            for (std::size_t part = parts; part-- > 0;) children.erase(at(part));
            --container.count;
            break;
        case 1:
            // From the end, so that the places before stay.
            for (std::size_t part = parts; part-- > 0;) {
                const Index added = count == 0 || part + 1 == parts ? static_cast<Index>(below(tables_.nodes.size()))
                                                                    : children[part * count + below(count)];
                children.insert(at(part), added);
            }
            ++container.count;
            break;
        default:
            std::swap(*at(0), children[below(count)]);
            break;
    }
    container.payload = tables_.references.size();
    tables_.references.insert(tables_.references.end(), children.begin(), children.end());
}

std::size_t mutatePropertyList(std::uint8_t* data, std::size_t size, std::size_t maxSize, unsigned seed) {
    std::minstd_rand random(seed);
    if (random() % plainChange == 0) return LLVMFuzzerMutate(data, size, maxSize);
    auto tables = readBinaryPropertyList({data, size});
    if (!tables) return LLVMFuzzerMutate(data, size, maxSize);
    PropertyListMutator mutator(*tables, random);
    for (std::size_t changes = 1 + random() % mostChanges; changes > 0; --changes) mutator.change();
    const Bytes changed = writeBinaryPropertyList(*tables);
    if (changed.size() > maxSize) return LLVMFuzzerMutate(data, size, maxSize);
    std::ranges::copy(changed, data);
    return changed.size();
}

}  // namespace zor::fuzz
