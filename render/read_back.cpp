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
  // GL counts rows from the bottom.
  std::uint8_t* top = picture.Rgb.data();
  std::uint8_t* bottom = top + picture.Rgb.size();
  for (int pair = 0; pair < size.Height / 2; ++pair, top += row) {
    bottom -= row;
    std::swap_ranges(top, top + row, bottom);
  }
  return picture;
}

}  // namespace render
