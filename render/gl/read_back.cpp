#include "render/gl/read_back.h"

#include <GL/gl.h>

#include <algorithm>
#include <cstddef>

namespace render::gl {

Picture ReadFrame(const PixelSize& size) {
  Picture picture{size.Width, size.Height, {}};
  picture.Rgb.resize(static_cast<std::size_t>(size.Width) * static_cast<std::size_t>(size.Height) * 3);
  glReadBuffer(GL_BACK);
  ReadRows(size, false, 0, size.Height, picture.Rgb.data());
  return picture;
}

void ReadRows(const PixelSize& size, bool topRowFirst, int first, int count, std::uint8_t* rgb) {
  glPixelStorei(GL_PACK_ALIGNMENT, 1);
  // GL counts rows from the buffer's first row.
  const int y = topRowFirst ? first : size.Height - first - count;
  glReadPixels(0, y, size.Width, count, GL_RGB, GL_UNSIGNED_BYTE, rgb);
  if (topRowFirst) return;
  const std::ptrdiff_t row = static_cast<std::ptrdiff_t>(size.Width) * 3;
  std::uint8_t* top = rgb;
  std::uint8_t* bottom = rgb + row * count;
  for (int pair = 0; pair < count / 2; ++pair, top += row) {
    bottom -= row;
    std::swap_ranges(top, top + row, bottom);
  }
}

}  // namespace render::gl
