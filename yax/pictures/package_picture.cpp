#include "yax/pictures/package_picture.h"

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string>

#include "analysis/fault_place.h"
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

using render::gl::PixelSize;

void Open(render::gl::OffscreenSurface& surface) {
  // Its own warnings would only repeat, in several lines, what the message says.
  setenv("EGL_LOG_LEVEL", "fatal", 0);
  if (surface.CreateContext()) return;
  const auto text = [](const PixelSize& size) {
    return std::to_string(size.Width) + "x" + std::to_string(size.Height);
  };
  const PixelSize size = surface.Size();
  const PixelSize largest = surface.Largest();
  if (largest == PixelSize{})
    throw Unusable(CommandLine(), "there is no usable OpenGL", "install Mesa's EGL and its software driver");
  if (size.Width > largest.Width || size.Height > largest.Height)
    throw Unusable(CommandLine(), "--size " + text(size) + " is more than OpenGL draws here",
                   "give at most " + text(largest));
  throw Unusable(CommandLine(), "there is not enough memory for --size " + text(size), "give a smaller one");
}

render::SceneInputs InputsOf(const PictureRequest& request) {
  return {request.package, request.settings, request.picture.Appearance, request.selection, request.shapes};
}

/// Measures with a scene of its own: what a scene keeps from pad to pad must not reach the one that is drawn.
render::Eye EyeOf(render::NamedView view, const PictureRequest& request) {
  render::FitPen pen;
  render::Scene(InputsOf(request), pen).DrawPackage();
  return pen.Fit(view, request.picture.Size);
}

void DrawFrame(const PictureRequest& request) {
  render::gl::GlPen pen;
  render::Scene scene(InputsOf(request), pen);
  // Drawn at once, without a list, the driver would light the same faces a little differently.
  render::gl::SceneList list;
  list.CompileCube(scene);
  const CameraOptions& camera = request.camera;
  if (camera.View) {
    render::gl::DrawFrame(EyeOf(*camera.View, request), request.picture.Size, list);
  } else {
    render::gl::DrawFrame(camera.Camera, camera.Rotation, request.package.CompW, list);
  }
}

}  // namespace

std::string PictureBytes(const PictureRequest& request, PictureFormat format) {
  const PixelSize& size = request.picture.Size;
  render::gl::OffscreenSurface surface(size);
  Open(surface);
  render::gl::SetUpView(size, request.picture.Appearance);
  try {
    DrawFrame(request);
  } catch (const model::Fault& fault) {
    throw analysis::NotDrawn(request.package.PackagePath, fault);
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
