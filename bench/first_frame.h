/// The viewer's first frame of a list, in plain calls.
#pragma once

namespace bench {

/// Units   `depth` in scene units: the base die's width
/// Needs   a current context that is set up for the view
void FirstFrame(unsigned list, float depth);

}  // namespace bench
