/// Lines of text set with Pango in the one font of the sheets.
#pragma once

#include <cairo.h>

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "sheet/drawing.h"

namespace sheet::pango {

/// Sets one line at a time, at size 1.
class Typesetter {
 public:
  Typesetter();
  ~Typesetter();
  Typesetter(const Typesetter&) = delete;
  Typesetter& operator=(const Typesetter&) = delete;

  void Set(std::string_view words, bool bold);
  double Width() const;
  int MissingGlyphs() const;
  /// Paints the line with its base line's start at the origin, x to the right and y down.
  void Show(cairo_t* page) const;

 private:
  struct Parts;
  std::unique_ptr<Parts> parts_;
};

// See the routines of these names in sheet/drawing.h.
double TextWidth(std::string_view words, double size, bool bold);
std::vector<std::string> TextsWithoutGlyphs(const Drawing& drawing);

}  // namespace sheet::pango
