#include "sheet/pango/pdf.h"

#include <cairo-pdf.h>

#include <algorithm>
#include <memory>
#include <new>
#include <numbers>

#include "sheet/paint_order.h"
#include "sheet/pango/typesetter.h"

namespace sheet::pango {

namespace {

constexpr double kPointsPerMillimetre = 72.0 / 25.4;

cairo_status_t Append(void* closure, const unsigned char* bytes, unsigned int count) {
  try {
    static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), count);
  } catch (const std::bad_alloc&) {
    return CAIRO_STATUS_NO_MEMORY;
  }
  return CAIRO_STATUS_SUCCESS;
}

void Require(cairo_status_t status) {
  if (status == CAIRO_STATUS_NO_MEMORY) throw std::bad_alloc();
  if (status != CAIRO_STATUS_SUCCESS) throw TypesettingFault(cairo_status_to_string(status));
}

/// Paints shapes on the current page. The page's transformation flips y, because cairo counts downwards.
class PagePainter {
 public:
  PagePainter(cairo_t* page, Typesetter& typesetter, double height)
      : page_(page), typesetter_(typesetter), height_(height) {}

  void operator()(const Line& line) const {
    MoveTo(line.From);
    LineTo(line.To);
    Paint(std::nullopt, line.Pen);
  }

  void operator()(const Area& area) const {
    for (const std::vector<glm::dvec2>& outline : area.Outlines) {
      for (std::size_t k = 0; k < outline.size(); ++k) k == 0 ? MoveTo(outline[k]) : LineTo(outline[k]);
      cairo_close_path(page_);
    }
    Paint(area.Fill, area.Pen);
  }

  void operator()(const Circle& circle) const {
    cairo_new_sub_path(page_);
    cairo_arc(page_, circle.Centre.x, height_ - circle.Centre.y, circle.Radius, 0.0, 2.0 * std::numbers::pi);
    cairo_close_path(page_);
    Paint(circle.Fill, circle.Pen);
  }

  void operator()(const Text& text) const {
    typesetter_.Set(text.Words, text.Bold);
    cairo_save(page_);
    cairo_translate(page_, text.At.x, height_ - text.At.y);
    if (text.Upright) cairo_rotate(page_, -std::numbers::pi / 2.0);
    cairo_scale(page_, text.Size, text.Size);
    const double share = text.Alignment == Align::Start ? 0.0 : text.Alignment == Align::Middle ? 0.5 : 1.0;
    cairo_translate(page_, -share * typesetter_.Width(), 0.0);
    Use(text.Colour);
    typesetter_.Show(page_);
    cairo_restore(page_);
  }

 private:
  void MoveTo(const glm::dvec2& point) const { cairo_move_to(page_, point.x, height_ - point.y); }
  void LineTo(const glm::dvec2& point) const { cairo_line_to(page_, point.x, height_ - point.y); }
  void Use(const Ink& ink) const { cairo_set_source_rgb(page_, ink.Red, ink.Green, ink.Blue); }

  void Paint(const std::optional<Ink>& fill, const std::optional<Stroke>& stroke) const {
    if (fill) {
      Use(*fill);
      cairo_fill_preserve(page_);
    }
    if (stroke) {
      Use(stroke->Colour);
      cairo_set_line_width(page_, stroke->Width);
      const std::vector<double> dashes = DashLengths(stroke->Pattern);
      cairo_set_dash(page_, dashes.data(), static_cast<int>(dashes.size()), 0.0);
      cairo_stroke_preserve(page_);
    }
    cairo_new_path(page_);
  }

  cairo_t* page_;
  Typesetter& typesetter_;
  double height_;
};

void PaintPage(cairo_t* page, Typesetter& typesetter, const Drawing& drawing,
               const std::vector<Item>& items) {
  const PagePainter painter(page, typesetter, drawing.Height);
  for (const Item* item : InPaintOrder(drawing, items)) std::visit(painter, item->What);
  cairo_show_page(page);
}

}  // namespace

std::string PdfOf(const Drawing& drawing) {
  std::string bytes;
  const std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)> surface(
      cairo_pdf_surface_create_for_stream(Append, &bytes, drawing.Width * kPointsPerMillimetre,
                                          drawing.Height * kPointsPerMillimetre),
      cairo_surface_destroy);
  // No date, so that the same drawing gives the same bytes.
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_CREATE_DATE, "");
  cairo_pdf_surface_set_metadata(surface.get(), CAIRO_PDF_METADATA_TITLE, drawing.Title.c_str());
  {
    const std::unique_ptr<cairo_t, decltype(&cairo_destroy)> page(cairo_create(surface.get()), cairo_destroy);
    cairo_scale(page.get(), kPointsPerMillimetre, kPointsPerMillimetre);
    cairo_set_fill_rule(page.get(), CAIRO_FILL_RULE_EVEN_ODD);
    cairo_set_line_cap(page.get(), CAIRO_LINE_CAP_ROUND);
    cairo_set_line_join(page.get(), CAIRO_LINE_JOIN_ROUND);
    Typesetter typesetter;
    for (const Page& sheet : drawing.Pages) PaintPage(page.get(), typesetter, drawing, sheet.Items);
    Require(cairo_status(page.get()));
  }
  cairo_surface_finish(surface.get());
  Require(cairo_surface_status(surface.get()));
  return bytes;
}

}  // namespace sheet::pango
