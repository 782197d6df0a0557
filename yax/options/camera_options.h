/// The camera options of a picture.
#pragma once

#include "render/named_view.h"

namespace CLI {
class App;
}

namespace yax {

/// Adds --view, and --pitch, --yaw, --cam, --heading and --look, which it excludes.
/// Faults  in the parse, Unusable when the target's height, --cam Y plus --look, leaves 16 bits
void AddCameraOptions(CLI::App& command, render::Viewpoint& viewpoint);

}  // namespace yax
