// The yardstick for the window: replays the same list in plain Xlib and GLX. bench_replay_window PACKAGE
// takes these orders: "frames N" draws and swaps N frames, "step N" sets the width to N and does the work
// that a new size requires, "build N" compiles the recorded calls and draws a frame. "picture N" answers with
// a checksum of the window's pixels, "memory N" with resident kilobytes.
#include <cstdlib>
#include <string>

#include "bench/bare_pass.h"
#include "bench/emission.h"
#include "bench/first_frame.h"
#include "bench/orders.h"
#include "bench/package_scene.h"
#include "bench/stopwatch.h"
#include "bench/x_window.h"
#include "render/gl/frame.h"

// Include these last: they define macros such as None.
#include <GL/gl.h>
#include <GL/glx.h>
#include <X11/Xlib.h>

namespace {

class ReplayWindow {
 public:
  explicit ReplayWindow(const std::string& path)
      : path_(path), opened_(path), emission_(opened_.Inputs()), display_(XOpenDisplay(nullptr)) {
    int wanted[] = {GLX_RGBA, GLX_DOUBLEBUFFER, GLX_DEPTH_SIZE, 24, GLX_RED_SIZE, 8, None};
    visual_ = glXChooseVisual(display_, DefaultScreen(display_), wanted);
    const Window root = DefaultRootWindow(display_);
    XSetWindowAttributes attributes{};
    attributes.colormap = XCreateColormap(display_, root, visual_->visual, AllocNone);
    attributes.override_redirect = True;
    window_ = XCreateWindow(display_, root, 1500, 0, unsigned(size_.Width), unsigned(size_.Height), 0,
                            visual_->depth, InputOutput, visual_->visual,
                            CWColormap | CWBorderPixel | CWOverrideRedirect, &attributes);
    XMapWindow(display_, window_);
    bench::Sync(display_);
    Start();
  }

  double Do(const std::string& order, int count) {
    if (order == "picture") return bench::PictureSum(display_, window_, size_.Width, size_.Height);
    if (order == "memory") return double(bench::Memory("VmRSS"));
    // The resize itself is not part of the yardstick.
    if (order == "step") {
      size_.Width = count;
      bench::ResizeWindow(display_, window_, size_.Width, size_.Height);
    }
    const double start = bench::Seconds();
    if (order == "frames") {
      for (int i = 0; i < count; ++i) Frame();
    } else if (order == "build") {
      emission_.BuildList();
      Frame();
    } else if (order == "step") {
      bench::BarePass(path_);
      Start();
    }
    glFinish();
    bench::Sync(display_);
    return bench::Seconds() - start;
  }

 private:
  /// A fresh context, the list, one frame.
  void Start() {
    if (context_ != nullptr) {
      glXMakeCurrent(display_, None, nullptr);
      glXDestroyContext(display_, context_);
    }
    context_ = glXCreateContext(display_, visual_, nullptr, True);
    if (context_ == nullptr || !glXMakeCurrent(display_, window_, context_)) std::exit(1);
    emission_.Forget();
    render::gl::SetUpView(size_, opened_.appearance);
    emission_.BuildList();
    Frame();
  }

  void Frame() {
    bench::FirstFrame(emission_.List(), opened_.package.CompW);
    glXSwapBuffers(display_, window_);
  }

  std::string path_;
  bench::PackageScene opened_;
  bench::Emission emission_;
  Display* display_;
  XVisualInfo* visual_ = nullptr;
  Window window_ = 0;
  GLXContext context_ = nullptr;
  render::PixelSize size_{1280, 960};
};

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2) return 2;
  ReplayWindow window(argv[1]);
  bench::ObeyOrders([&](const std::string& order, int count) { return window.Do(order, count); });
}
