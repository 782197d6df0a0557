/// A picture of a package, drawn in memory as the viewer's window would draw it.
#pragma once

#include <string>

#include "yax/options/camera_options.h"
#include "yax/options/opened_package.h"
#include "yax/options/picture_options.h"

namespace yax {

/// The picture as the bytes of a file.
/// Faults  Unusable when OpenGL is not usable, the picture is too large, or the package cannot be drawn
std::string PictureBytes(const OpenedPackage& opened, const CameraOptions& camera,
                         const PictureOptions& picture, PictureFormat format);

}  // namespace yax
