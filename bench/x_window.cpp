#include "bench/x_window.h"

#include <X11/Xlib.h>
#include <X11/Xutil.h>

namespace bench {

_XDisplay* OpenDisplay() { return XOpenDisplay(nullptr); }

void Sync(_XDisplay* display) { XSync(display, False); }

void ResizeWindow(_XDisplay* display, unsigned long window, int width, int height) {
  XResizeWindow(display, window, unsigned(width), unsigned(height));
  XSync(display, False);
}

unsigned PictureSum(_XDisplay* display, unsigned long window, int width, int height) {
  XSync(display, False);
  XImage* const image =
      XGetImage(display, window, 0, 0, unsigned(width), unsigned(height), AllPlanes, ZPixmap);
  if (image == nullptr) return 0;
  unsigned sum = 0;
  for (int y = 0; y < height; ++y) {
    for (int x = 0; x < width; ++x) sum = sum * 31U + unsigned(XGetPixel(image, x, y) & 0xFFFFFFU);
  }
  XDestroyImage(image);
  return sum;
}

}  // namespace bench
