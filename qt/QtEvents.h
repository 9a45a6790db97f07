#pragma once
// Qt's events as the host's.

#include "host/views/Event.h"

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace zor {

/// On the keyboard the Control key is the Command flag. Keys without a character carry the private code points that
/// the plug-in knows them by (arrows 0xF700 to 0xF703, forward delete 0xF728); with the Control key held the character
/// is the one without it. Empty for a modifier key alone.
EventPtr eventFromQt(const QKeyEvent& event);
/// On the mouse the Control key is the Control flag.
EventPtr eventFromQt(const QMouseEvent& event, EventType type, int clickCount);
EventPtr eventFromQt(const QWheelEvent& event);

}  // namespace zor
