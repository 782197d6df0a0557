/// Accessible roles and actions of the view, the Dummy box, the loop picture and plain windows, where Qt's
/// defaults are not enough.
#pragma once

namespace shell::ui {

/// Call once, before the first window: gives the view a "ShowMenu" action and the box a "Press" action, and
/// gives plain windows the role Frame with the open menu as a child.
void InstallAccessibleViews();

}  // namespace shell::ui
