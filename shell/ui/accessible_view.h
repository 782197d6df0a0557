/// What assistive technology sees of the view, the Dummy box and the windows round them, of which the toolkit
/// knows too little.
#pragma once

namespace shell::ui {

/// To be called once, before the first window: gives the view its "ShowMenu" action and the box its "Press",
/// and makes plain windows frames that list their open menu.
void InstallAccessibleViews();

}  // namespace shell::ui
