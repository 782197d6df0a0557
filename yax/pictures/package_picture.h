/// A picture of a package, drawn in memory as the viewer's window would draw it.
#pragma once

#include "yax/options/opened_package.h"
#include "yax/options/picture_options.h"

namespace yax {

/// Draws the picture and writes it to its file.
/// Faults  Unusable when OpenGL is not usable, the picture is too large, the package cannot be drawn, or the
///         file cannot be written
void WritePicture(const OpenedPackage& opened, const PictureOptions& options);

}  // namespace yax
