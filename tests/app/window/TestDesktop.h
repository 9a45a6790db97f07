#pragma once

namespace zor {

class Desktop;
class SiteWindow;

namespace test {

/// The desktop of all tests of this program, with a home of its own. A damaged plug-in, Damaged.zorplugin, is there
/// too.
Desktop& desktop();
/// Its window with the demo station.
SiteWindow& siteWindow();

}  // namespace test
}  // namespace zor
