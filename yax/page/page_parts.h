/// The parts that are the same in every page, made from the files in viewer/.
#pragma once

namespace yax {

extern const char* const kPageFrame;  ///< page.html, with the names of the other parts between "@"
extern const char* const kPageStyle;
extern const char* const kPageScript;  ///< the viewer, with the library that draws

}  // namespace yax
