#pragma once

namespace zor {

/// The toolkit's half of a property panel. It observes the controller, which keeps it, and shows the entries in the
/// controller's window.
class PropertyPanelPeer {
public:
    virtual ~PropertyPanelPeer() = default;
};

}  // namespace zor
