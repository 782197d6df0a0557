/// What assistive technology sees of the view and the Dummy box, which the toolkit knows no actions for.
#pragma once

namespace shell {

/// To be called once, before the first window: gives the view its "ShowMenu" action and the box its "Press".
void InstallAccessibleViews();

}  // namespace shell
