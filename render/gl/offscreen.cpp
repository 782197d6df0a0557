#include "render/gl/offscreen.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>
#include <GL/gl.h>

#include <array>
#include <cstddef>
#include <optional>
#include <vector>

#include "render/gl/framebuffer.h"
#include "render/gl/read_back.h"

namespace render::gl {

namespace {

EGLDisplay OpenSurfaceless() {
  return eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
}

std::vector<EGLDisplay> OpenDevices() {
  const auto queryDevices =
      reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
  std::array<EGLDeviceEXT, 8> devices{};
  EGLint count = 0;
  if (queryDevices == nullptr || !queryDevices(EGLint(devices.size()), devices.data(), &count)) return {};
  std::vector<EGLDisplay> displays;
  for (EGLint device = 0; device < count; ++device)
    displays.push_back(
        eglGetPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, devices[static_cast<std::size_t>(device)], nullptr));
  return displays;
}

/// The first format with exactly 8 bits of red: EGL lists deeper ones first, whose pixels differ from a
/// window's.
EGLConfig ChooseConfig(EGLDisplay display) {
  const EGLint wanted[] = {EGL_SURFACE_TYPE,
                           EGL_PBUFFER_BIT,
                           EGL_RENDERABLE_TYPE,
                           EGL_OPENGL_BIT,
                           EGL_RED_SIZE,
                           8,
                           EGL_GREEN_SIZE,
                           8,
                           EGL_BLUE_SIZE,
                           8,
                           EGL_DEPTH_SIZE,
                           24,
                           EGL_NONE};
  EGLint count = 0;
  if (!eglChooseConfig(display, wanted, nullptr, 0, &count)) return nullptr;
  std::vector<EGLConfig> configs(static_cast<std::size_t>(count));
  if (!eglChooseConfig(display, wanted, configs.data(), count, &count)) return nullptr;
  for (const EGLConfig config : configs) {
    EGLint red = 0;
    if (eglGetConfigAttrib(display, config, EGL_RED_SIZE, &red) && red == 8) return config;
  }
  return nullptr;
}

}  // namespace

struct OffscreenSurface::Egl {
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLConfig config = nullptr;
  EGLContext context = EGL_NO_CONTEXT;
  EGLSurface surface = EGL_NO_SURFACE;
  std::optional<Framebuffer> framebuffer;

  Egl() = default;
  Egl(const Egl&) = delete;
  Egl& operator=(const Egl&) = delete;
  /// Leaves the display open: the process shares it, and closing it would end the contexts of other surfaces.
  ~Egl() { CloseContext(); }

  bool OpenDisplay() {
    if (display != EGL_NO_DISPLAY || Serves(OpenSurfaceless())) return true;
    for (const EGLDisplay device : OpenDevices())
      if (Serves(device)) return true;
    return false;
  }

  bool Serves(EGLDisplay candidate) {
    if (candidate == EGL_NO_DISPLAY || !eglInitialize(candidate, nullptr, nullptr)) return false;
    display = candidate;
    if (eglBindAPI(EGL_OPENGL_API)) config = ChooseConfig(display);
    if (config != nullptr && OpenContext()) return true;
    CloseDisplay();
    return false;
  }

  bool OpenContext() {
    if (context == EGL_NO_CONTEXT) context = eglCreateContext(display, config, EGL_NO_CONTEXT, nullptr);
    return context != EGL_NO_CONTEXT;
  }

  /// Opens a pbuffer of this size and makes it current; 1 x 1 is enough beside a framebuffer object.
  bool OpenSurface(const PixelSize& size) {
    const EGLint extent[] = {EGL_WIDTH, size.Width, EGL_HEIGHT, size.Height, EGL_NONE};
    surface = eglCreatePbufferSurface(display, config, extent);
    return surface != EGL_NO_SURFACE && MakeCurrent();
  }

  bool Holds(const PixelSize& size) const {
    EGLint width = 0;
    EGLint height = 0;
    eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_WIDTH, &width);
    eglGetConfigAttrib(display, config, EGL_MAX_PBUFFER_HEIGHT, &height);
    return size.Width <= width && size.Height <= height;
  }

  bool MakeCurrent() { return eglMakeCurrent(display, surface, surface, context); }

  /// The framebuffer's memory goes with the context.
  void CloseContext() {
    framebuffer.reset();
    if (context == EGL_NO_CONTEXT) return;
    eglMakeCurrent(display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
    eglDestroyContext(display, context);
    context = EGL_NO_CONTEXT;
    if (surface != EGL_NO_SURFACE) eglDestroySurface(display, surface);
    surface = EGL_NO_SURFACE;
  }

  void CloseDisplay() {
    if (display == EGL_NO_DISPLAY) return;
    CloseContext();
    eglTerminate(display);
    display = EGL_NO_DISPLAY;
    config = nullptr;
  }
};

OffscreenSurface::OffscreenSurface(const PixelSize& size) : size_(size), egl_(std::make_unique<Egl>()) {}

OffscreenSurface::~OffscreenSurface() = default;

bool OffscreenSurface::CreateContext() {
  DeleteContext();
  if (!egl_->OpenDisplay() || !egl_->OpenContext()) return false;
  const bool direct = egl_->Holds(size_);
  if (!egl_->OpenSurface(direct ? size_ : PixelSize{1, 1})) return false;
  std::array<GLint, 2> largest{};
  glGetIntegerv(GL_MAX_VIEWPORT_DIMS, largest.data());
  largest_ = {largest[0], largest[1]};
  if (size_.Width > largest_.Width || size_.Height > largest_.Height) return false;
  return direct || egl_->framebuffer.emplace().Bind(size_);
}

bool OffscreenSurface::MakeCurrent() {
  return egl_->context != EGL_NO_CONTEXT && egl_->surface != EGL_NO_SURFACE && egl_->MakeCurrent();
}

void OffscreenSurface::SwapBuffers() {
  if (!egl_->framebuffer) eglSwapBuffers(egl_->display, egl_->surface);
}

void OffscreenSurface::DeleteContext() { egl_->CloseContext(); }

void OffscreenSurface::ReadRows(int first, int count, std::uint8_t* rgb) const {
  if (egl_->framebuffer) return egl_->framebuffer->ReadRows(first, count, rgb);
  glReadBuffer(GL_BACK);
  render::gl::ReadRows(size_, false, first, count, rgb);
}

}  // namespace render::gl
