/// The X server calls of the measuring programs, without Xlib's headers: their macros clash with Qt.
#pragma once

struct _XDisplay;

namespace bench {

/// A separate connection to the server, as another client has.
_XDisplay* OpenDisplay();

/// Returns once the server has finished all requests.
void Sync(_XDisplay* display);

void ResizeWindow(_XDisplay* display, unsigned long window, int width, int height);

/// A checksum of a window's pixels, to compare two windows.
unsigned PictureSum(_XDisplay* display, unsigned long window, int width, int height);

}  // namespace bench
