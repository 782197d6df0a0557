#include "render/read_back.h"

#include <GL/gl.h>

#include <algorithm>

namespace render {

Picture ReadFrame(const PixelSize& size) {
  glReadBuffer(GL_BACK);
  // GL counts rows from the bottom.
  return ReadRows(size, false);
}

Picture ReadRows(const PixelSize& size, bool topRowFirst) {
  Picture picture{size.Width, size.Height, {}};
  const auto row = static_cast<std::size_t>(size.Width) * 3;
  picture.Rgb.resize(row * static_cast<std::size_t>(size.Height));
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  glReadPixels(0, 0, size.Width, size.Height, GL_RGB, GL_UNSIGNED_BYTE, picture.Rgb.data());
  if (topRowFirst) return picture;
  auto top = picture.Rgb.begin();
  auto bottom = picture.Rgb.end();
  while (bottom - top >= static_cast<std::ptrdiff_t>(2 * row)) {
    bottom -= static_cast<std::ptrdiff_t>(row);
    std::swap_ranges(top, top + static_cast<std::ptrdiff_t>(row), bottom);
    top += static_cast<std::ptrdiff_t>(row);
  }
  return picture;
}

}  // namespace render
