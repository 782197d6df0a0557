#include "yax/pictures/package_picture.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "model/faults.h"
#include "render/bitmap.h"
#include "render/gl/frame.h"
#include "render/gl/gl_pen.h"
#include "render/gl/offscreen.h"
#include "render/gl/scene_list.h"
#include "render/scene.h"
#include "yax/messages.h"
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

/// Measures with a separate scene: a scene keeps state from pad to pad, which must not affect the drawn one.
render::Eye EyeOf(render::NamedView view, const render::SceneInputs& inputs, const PixelSize& size) {
  render::FitPen pen;
  render::Scene(inputs, pen).DrawPackage();
  return pen.Fit(view, size);
}

void DrawFrame(const render::SceneInputs& inputs, const CameraOptions& camera, const PixelSize& size) {
  render::gl::GlPen pen;
  render::Scene scene(inputs, pen);
  // Use a display list as the window does: without one the driver lights the same faces slightly differently.
  render::gl::SceneList list;
  list.CompileCube(scene);
  if (camera.View) {
    render::gl::DrawFrame(EyeOf(*camera.View, inputs, size), size, list);
  } else {
    render::gl::DrawFrame(camera.Camera, camera.Rotation, inputs.Package.CompW, list);
  }
}

}  // namespace

std::string PictureBytes(const OpenedPackage& opened, const CameraOptions& camera,
                         const PictureOptions& options, PictureFormat format) {
  const PixelSize& size = options.Size;
  render::gl::OffscreenSurface surface(size);
  Open(surface);
  render::gl::SetUpView(size, options.Appearance);
  try {
    DrawFrame(opened.Inputs(options.Appearance), camera, size);
  } catch (const model::Fault& fault) {
    throw opened.NotDrawn(fault);
  }
  const auto read = [&surface](int first, int count, std::uint8_t* rgb) {
    surface.ReadRows(first, count, rgb);
  };
  if (format == PictureFormat::Png) return PngBytes(size, read);
  render::Picture picture{size.Width, size.Height, {}};
  picture.Rgb.resize(static_cast<std::size_t>(size.Width) * static_cast<std::size_t>(size.Height) * 3);
  read(0, size.Height, picture.Rgb.data());
  return render::BitmapBytes(picture);
}

}  // namespace yax
