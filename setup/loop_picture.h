/// The setup window's side view: one wire of each kind beside the dies, to scale, as plain lines.
#pragma once

#include <string>
#include <vector>

#include "model/package.h"
#include "model/wire_bond_settings.h"

namespace setup {

/// What a line of the picture shows.
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

/// Draws the package's wire of middle length of each kind, or a likely one where it has none, with the loops
/// that the settings give it, and a dimension line for the height and one for the extension of each.
/// The base die's edge lies at one place for all of them. A wire that cannot be drawn is left out.
/// Units   settings in file units; `width` and `height` in pixels
LoopPicture DrawLoops(const model::Package& package, const model::WireBondSettings& settings, float width,
                      float height);

}  // namespace setup
