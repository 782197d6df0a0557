/// The viewer's first frame of a list, as plain GL calls.
#pragma once

namespace bench {

/// Units   `depth` in scene units: the base die's width
/// Needs   a current context with the view's light and projection
void FirstFrame(unsigned list, float depth);

}  // namespace bench
