/// What the measuring programs ask of the X server, without its headers: their names clash with the
/// toolkit's.
#pragma once

struct _XDisplay;

namespace bench {

/// A connection of its own to the server, as another client has it.
_XDisplay* OpenDisplay();

/// Returns once the server has done all that was asked of it.
void Sync(_XDisplay* display);

void ResizeWindow(_XDisplay* display, unsigned long window, int width, int height);

/// A checksum of what a window shows, to see that two windows show the same.
unsigned PictureSum(_XDisplay* display, unsigned long window, int width, int height);

}  // namespace bench
