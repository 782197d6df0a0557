#include "render/offscreen.h"

#include <EGL/egl.h>
#include <EGL/eglext.h>

#include <array>
#include <vector>

namespace render {

struct OffscreenSurface::Egl {
  EGLDisplay display = EGL_NO_DISPLAY;
  EGLConfig config = nullptr;
  EGLSurface surface = EGL_NO_SURFACE;
  EGLContext context = EGL_NO_CONTEXT;
};

namespace {

EGLDisplay OpenSurfaceless() {
  const EGLDisplay display =
      eglGetPlatformDisplay(EGL_PLATFORM_SURFACELESS_MESA, EGL_DEFAULT_DISPLAY, nullptr);
  return display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr) ? display : EGL_NO_DISPLAY;
}

EGLDisplay OpenDevice() {
  const auto queryDevices =
      reinterpret_cast<PFNEGLQUERYDEVICESEXTPROC>(eglGetProcAddress("eglQueryDevicesEXT"));
  std::array<EGLDeviceEXT, 8> devices{};
  EGLint count = 0;
  if (queryDevices == nullptr || !queryDevices(EGLint(devices.size()), devices.data(), &count))
    return EGL_NO_DISPLAY;
  for (EGLint device = 0; device < count; ++device) {
    const EGLDisplay display =
        eglGetPlatformDisplay(EGL_PLATFORM_DEVICE_EXT, devices[static_cast<std::size_t>(device)], nullptr);
    if (display != EGL_NO_DISPLAY && eglInitialize(display, nullptr, nullptr)) return display;
  }
  return EGL_NO_DISPLAY;
}

/// The first format with exactly 8 bits of red: sorting puts deeper ones first, whose pixels differ from a
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

OffscreenSurface::OffscreenSurface(const PixelSize& size) : size_(size), egl_(std::make_unique<Egl>()) {}

OffscreenSurface::~OffscreenSurface() {
  DeleteContext();
  if (egl_->surface != EGL_NO_SURFACE) eglDestroySurface(egl_->display, egl_->surface);
  // The display stays open: it is the whole process's, and closing it would end the contexts of other
  // surfaces.
}

bool OffscreenSurface::CreateContext() {
  DeleteContext();
  if (egl_->display == EGL_NO_DISPLAY) egl_->display = OpenSurfaceless();
  if (egl_->display == EGL_NO_DISPLAY) egl_->display = OpenDevice();
  if (egl_->display == EGL_NO_DISPLAY || !eglBindAPI(EGL_OPENGL_API)) return false;
  if (egl_->config == nullptr) egl_->config = ChooseConfig(egl_->display);
  if (egl_->config == nullptr) return false;
  if (egl_->surface == EGL_NO_SURFACE) {
    const EGLint extent[] = {EGL_WIDTH, size_.Width, EGL_HEIGHT, size_.Height, EGL_NONE};
    egl_->surface = eglCreatePbufferSurface(egl_->display, egl_->config, extent);
  }
  if (egl_->surface == EGL_NO_SURFACE) return false;
  egl_->context = eglCreateContext(egl_->display, egl_->config, EGL_NO_CONTEXT, nullptr);
  return MakeCurrent();
}

bool OffscreenSurface::MakeCurrent() {
  return egl_->context != EGL_NO_CONTEXT &&
         eglMakeCurrent(egl_->display, egl_->surface, egl_->surface, egl_->context);
}

void OffscreenSurface::SwapBuffers() { eglSwapBuffers(egl_->display, egl_->surface); }

void OffscreenSurface::DeleteContext() {
  if (egl_->context == EGL_NO_CONTEXT) return;
  eglMakeCurrent(egl_->display, EGL_NO_SURFACE, EGL_NO_SURFACE, EGL_NO_CONTEXT);
  eglDestroyContext(egl_->display, egl_->context);
  egl_->context = EGL_NO_CONTEXT;
}

}  // namespace render
