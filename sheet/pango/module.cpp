#include "sheet/pango/pdf.h"
#include "sheet/pango/typesetter.h"
#include "sheet/typesetting.h"

extern "C" const sheet::Typesetting* SheetTypesetting() {
  static constexpr sheet::Typesetting kTypesetting{sheet::pango::TextWidth, sheet::pango::TextsWithoutGlyphs,
                                                   sheet::pango::PdfOf};
  return &kTypesetting;
}
