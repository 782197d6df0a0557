/// The constant parts of every page, made from the files in viewer/.
#pragma once

namespace yax {

extern const char* const kPageFrame;  ///< page.html; "@NAME@" stands for another part
extern const char* const kPageStyle;
extern const char* const kPageScript;  ///< the viewer with three.js

}  // namespace yax
