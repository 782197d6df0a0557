/// The setup window's side view as plain shapes: one wire of each kind beside the dies, to scale.
#pragma once

#include <string>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// The thing that a line of the picture shows.
enum class PicturePart { Substrate, Die, StackedDie, Pad, BaseWire, StackWire, StitchWire, Dimension };

/// Pixels from the picture's top left corner.
struct PicturePoint {
  float X = 0.0F, Y = 0.0F;
};

struct PictureShape {
  PicturePart Part = PicturePart::Substrate;
  std::vector<PicturePoint> Points;
  bool Filled = false;  ///< a closed area; else an open line
};

struct PictureLabel {
  std::string Text;
  PicturePoint Centre;
};

struct LoopPicture {
  std::vector<PictureShape> Shapes;  ///< back to front
  std::vector<PictureLabel> Labels;
};

/// Draws one wire of each kind: the package's wire of median length, or a placeholder when it has none. Loops
/// follow the settings; each has a dimension line for its height and one for its extension. The base die's
/// edge is at the same place for all wires. Leaves out a wire that cannot be drawn.
/// Units   settings in file units; `width` and `height` in pixels
LoopPicture DrawLoops(const model::Package& package, const model::WireBondSettings& settings, float width,
                      float height);

}  // namespace setup
