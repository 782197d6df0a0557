/// A picture of a package, drawn in memory as the viewer's window would draw it.
#pragma once

#include <string>

#include "model/package.h"
#include "model/wire_bond_settings.h"
#include "model/wire_selection.h"
#include "model/wire_shapes.h"
#include "yax/options/camera.h"
#include "yax/options/picture.h"

namespace yax {

/// What is seen, and from where.
struct PictureRequest {
  model::Package& package;  ///< drawing puts parts of it in order, as in the viewer
  const model::WireBondSettings& settings;
  const model::WireSelection& selection;
  const CameraOptions& camera;
  const PictureOptions& picture;
  const model::WireShapes* shapes = nullptr;  ///< wires with loops of their own
};

/// The picture as the bytes of a file.
/// Faults  Unusable without usable GL, for a picture too large, and when the package cannot be drawn
std::string PictureBytes(const PictureRequest& request, PictureFormat format);

}  // namespace yax
