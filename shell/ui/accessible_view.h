/// What assistive technology sees of the view, the Dummy box, the loop picture and plain windows. Qt's own
/// roles and actions do not suffice there.
#pragma once

namespace shell::ui {

/// To be called once, before the first window: gives the view its "ShowMenu" action and the box its "Press",
/// and makes plain windows frames whose open menu is a child.
void InstallAccessibleViews();

}  // namespace shell::ui
