// Measures the seconds from a program's start until its window is mapped and shows a picture, that is, until
// a pixel of the middle column is not black: bench_first_picture PROGRAM ARGUMENTS...
#include <X11/Xlib.h>
#include <X11/Xutil.h>
#include <signal.h>
#include <sys/wait.h>
#include <unistd.h>

#include <fstream>
#include <string>

#include "bench/stopwatch.h"

namespace {

constexpr double kPatience = 30.0;

int Ignore(Display*, XErrorEvent*) { return 0; }

/// The window that was mapped last, or None.
Window NewlyMapped(Display* display) {
  while (XPending(display) > 0) {
    XEvent event{};
    XNextEvent(display, &event);
    if (event.type != MapNotify) continue;
    XWindowAttributes attributes{};
    if (XGetWindowAttributes(display, event.xmap.window, &attributes) && attributes.width > 500)
      return event.xmap.window;
  }
  return None;
}

/// Reads the middle column only: it is quick to fetch, and every package crosses it.
bool ShowsPicture(Display* display, Window window) {
  constexpr int kHeight = 300;
  XImage* const image = XGetImage(display, window, 500, 200, 8, kHeight, AllPlanes, ZPixmap);
  if (image == nullptr) return false;
  bool shows = false;
  for (int y = 0; y < kHeight && !shows; ++y) {
    for (int x = 0; x < 8 && !shows; ++x) shows = (XGetPixel(image, x, y) & 0xFFFFFFU) != 0;
  }
  XDestroyImage(image);
  return shows;
}

double PeakOf(pid_t process) {
  std::ifstream status("/proc/" + std::to_string(process) + "/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with("VmHWM:")) return std::stod(line.substr(6));
  }
  return 0.0;
}

}  // namespace

int main(int argc, char** argv) {
  Display* const display = XOpenDisplay(nullptr);
  if (argc < 2 || display == nullptr) return 2;
  XSetErrorHandler(Ignore);
  XSelectInput(display, DefaultRootWindow(display), SubstructureNotifyMask);
  XSync(display, False);

  const double start = bench::Seconds();
  const pid_t child = fork();
  if (child == 0) {
    execv(argv[1], argv + 1);
    _exit(127);
  }
  Window window = None;
  bool shown = false;
  while (!shown && bench::Seconds() - start < kPatience) {
    if (window == None) window = NewlyMapped(display);
    shown = window != None && ShowsPicture(display, window);
    if (!shown) usleep(500);
  }
  const double taken = bench::Seconds() - start;
  const double memory = PeakOf(child);
  kill(child, SIGTERM);
  waitpid(child, nullptr, 0);
  if (!shown) return 1;
  bench::Report("time", taken);
  bench::Report("memory", memory);
  return 0;
}
