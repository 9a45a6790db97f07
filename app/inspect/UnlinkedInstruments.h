#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "host/instruments/ZORWidgetHostView.h"
#include "host/station/SiteDocument.h"

namespace zor {

/// An instrument that holds the name of a property which its station lacks, or was unlinked from such a one.
struct UnlinkedInstrument {
    /// Where it stands; empty where only a canvas was looked over.
    std::shared_ptr<ZORPlugIn> dashboard;
    std::shared_ptr<ZORWidgetHostView> widget;
    std::string propertyName;

    bool operator==(const UnlinkedInstrument&) const = default;
};

/// The property that the widget's instrument holds or held last; nothing where it never was linked or cannot be.
std::optional<std::string> storedPropertyName(const ZORWidgetHostView& widget);
/// Those of a canvas, the lowest first. Children that are no widgets are passed over.
std::vector<UnlinkedInstrument> unlinkedInstrumentsOn(const View& canvas, const Agent& agent);
/// Those of every dashboard in the list, in its order, then of those that are only in a separate window. Views that
/// have not been made yet count too.
std::vector<UnlinkedInstrument> unlinkedInstrumentsOf(const SiteDocument& document);

/// "Round Gauge" for "roundGauge"; an unknown kind is its own name.
std::string labelOfKind(const std::string& kind);

/// Links the instrument as the property panel does, and the document counts as changed. The error says what is wrong.
Status linkInstrument(const UnlinkedInstrument& unlinked, const std::string& propertyName);

}  // namespace zor
