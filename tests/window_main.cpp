// The window tests' own main: a test needs the application object, listing the tests does not.
#include <gtest/gtest.h>

#include <QApplication>
#include <memory>

// Last, for their macros.
#include <GL/glx.h>
#include <X11/Xlib.h>

#ifdef __SANITIZE_ADDRESS__

/// Leaks in the software renderer's compiler and in the library of the session bus are not ours.
extern "C" const char* __lsan_default_suppressions();
extern "C" const char* __lsan_default_suppressions() {
  return "leak:libLLVM\nleak:libdbus-1\nleak:libfontconfig\n";
}

/// Keeps that compiler loaded: after it is unloaded the sanitizer cannot name the library of a leak.
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
    // Prints go into files; on a machine with printers they would go there.
    qputenv("CUPS_SERVER", "/nowhere");
    application = std::make_unique<QApplication>(argc, argv);
    application->setQuitOnLastWindowClosed(false);
  }
  return RUN_ALL_TESTS();
}
