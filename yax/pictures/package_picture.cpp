#include "yax/pictures/package_picture.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "model/faults.h"
#include "render/bitmap.h"
#include "render/gl/frame.h"
#include "render/gl/offscreen.h"
#include "yax/output.h"
#include "yax/pictures/png_bytes.h"

namespace yax {

namespace {

using render::PixelSize;

void Open(render::gl::OffscreenSurface& surface) {
  // Mesa's warnings would only repeat this program's message in several lines.
  setenv("EGL_LOG_LEVEL", "fatal", 0);
  if (surface.CreateContext()) return;
  const auto text = [](const PixelSize& size) {
    return std::to_string(size.Width) + "x" + std::to_string(size.Height);
  };
  const PixelSize size = surface.Size();
  const PixelSize largest = surface.Largest();
  if (largest == PixelSize{})
    throw Unusable(CommandLine(), "OpenGL is not usable", "install Mesa's EGL and its software driver");
  if (size.Width > largest.Width || size.Height > largest.Height)
    throw Unusable(CommandLine(), "--size " + text(size) + " is larger than OpenGL can draw here",
                   "give at most " + text(largest));
  throw Unusable(CommandLine(), "there is not enough memory for --size " + text(size), "give a smaller one");
}

std::string BytesOf(const render::gl::OffscreenSurface& surface, PictureFormat format) {
  const PixelSize size = surface.Size();
  const auto read = [&surface](int first, int count, std::uint8_t* rgb) {
    surface.ReadRows(first, count, rgb);
  };
  if (format == PictureFormat::Png) return PngBytes(size, read);
  render::Picture picture{size.Width, size.Height, {}};
  picture.Rgb.resize(static_cast<std::size_t>(size.Width) * static_cast<std::size_t>(size.Height) * 3);
  read(0, size.Height, picture.Rgb.data());
  return render::BitmapBytes(picture);
}

}  // namespace

void WritePicture(const OpenedPackage& opened, const PictureOptions& options) {
  render::gl::OffscreenSurface surface(options.Size);
  Open(surface);
  try {
    render::gl::DrawPicture(opened.Inputs(options.Appearance), options.Viewpoint, options.Size);
  } catch (const model::Fault& fault) {
    throw opened.NotDrawn(fault);
  }
  const std::string bytes = BytesOf(surface, options.Format);
  WriteOutput(options.File, bytes);
}

}  // namespace yax
