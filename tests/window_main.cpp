// The window tests' own main: a test needs the application object, listing the tests does not.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

// Last, for their macros.
#include <GL/glx.h>
#include <X11/Xlib.h>

#ifdef __SANITIZE_ADDRESS__

/// Of the leaks that the sanitizer finds, those of the software renderer's compiler are not ours.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() { return "leak:libLLVM"; }

/// Keeps that compiler loaded: once it is gone the sanitizer can no longer tell whose its leaks are.
static void HoldCompiler() {
  static Display* const display = XOpenDisplay(nullptr);
  if (display != nullptr) glXQueryExtensionsString(display, DefaultScreen(display));
}

#else

static void HoldCompiler() {}

#endif

int main(int argc, char** argv) {
  testing::InitGoogleTest(&argc, argv);
  std::unique_ptr<QApplication> application;
  if (!GTEST_FLAG_GET(list_tests)) {
    HoldCompiler();
    application = std::make_unique<QApplication>(argc, argv);
    application->setQuitOnLastWindowClosed(false);
  }
  return RUN_ALL_TESTS();
}
