#include "sheet/pango/typesetter.h"

#include <pango/pangocairo.h>

#include <algorithm>
#include <set>

namespace sheet::pango {

namespace {

/// Pango rounds to 1/1024: at this size the rounding is invisible.
constexpr double kSetSize = 100.0;

template <class Object>
struct Unreference {
  void operator()(Object* object) const { g_object_unref(object); }
};
template <class Object>
using Reference = std::unique_ptr<Object, Unreference<Object>>;

struct FreeFont {
  void operator()(PangoFontDescription* font) const { pango_font_description_free(font); }
};
using Font = std::unique_ptr<PangoFontDescription, FreeFont>;

Font FontOf(PangoWeight weight) {
  Font font(pango_font_description_new());
  pango_font_description_set_family_static(font.get(), "DejaVu Sans");
  pango_font_description_set_weight(font.get(), weight);
  pango_font_description_set_absolute_size(font.get(), kSetSize * PANGO_SCALE);
  return font;
}

/// A font map for this thread, with unhinted outlines.
Reference<PangoContext> ContextOf(PangoFontMap& fonts) {
  Reference<PangoContext> context(pango_font_map_create_context(&fonts));
  cairo_font_options_t* const options = cairo_font_options_create();
  cairo_font_options_set_hint_style(options, CAIRO_HINT_STYLE_NONE);
  cairo_font_options_set_hint_metrics(options, CAIRO_HINT_METRICS_OFF);
  pango_cairo_context_set_font_options(context.get(), options);
  cairo_font_options_destroy(options);
  pango_context_set_round_glyph_positions(context.get(), FALSE);
  return context;
}

}  // namespace

struct Typesetter::Parts {
  Reference<PangoFontMap> Fonts{pango_cairo_font_map_new()};
  Reference<PangoContext> Context = ContextOf(*Fonts);
  Reference<PangoLayout> Layout{pango_layout_new(Context.get())};
  Font Normal = FontOf(PANGO_WEIGHT_NORMAL), Bold = FontOf(PANGO_WEIGHT_BOLD);
};

Typesetter::Typesetter() : parts_(std::make_unique<Parts>()) {
  pango_layout_set_single_paragraph_mode(parts_->Layout.get(), TRUE);
  // No ligatures: one would be a single glyph for several characters of a name.
  PangoAttrList* const attributes = pango_attr_list_new();
  pango_attr_list_insert(attributes, pango_attr_font_features_new("liga=0, clig=0, dlig=0"));
  pango_layout_set_attributes(parts_->Layout.get(), attributes);
  pango_attr_list_unref(attributes);
}

Typesetter::~Typesetter() = default;

void Typesetter::Set(std::string_view words, bool bold) {
  pango_layout_set_font_description(parts_->Layout.get(), bold ? parts_->Bold.get() : parts_->Normal.get());
  pango_layout_set_text(parts_->Layout.get(), words.data(), static_cast<int>(words.size()));
}

double Typesetter::Width() const {
  PangoRectangle logical;
  pango_layout_get_extents(parts_->Layout.get(), nullptr, &logical);
  return logical.width / (PANGO_SCALE * kSetSize);
}

int Typesetter::MissingGlyphs() const { return pango_layout_get_unknown_glyphs_count(parts_->Layout.get()); }

void Typesetter::Show(cairo_t* page) const {
  cairo_save(page);
  cairo_scale(page, 1.0 / kSetSize, 1.0 / kSetSize);
  cairo_move_to(page, 0.0, 0.0);
  pango_cairo_show_layout_line(page, pango_layout_get_line_readonly(parts_->Layout.get(), 0));
  cairo_restore(page);
}

namespace {

Typesetter& Measure(std::string_view words, bool bold) {
  thread_local Typesetter typesetter;
  typesetter.Set(words, bold);
  return typesetter;
}

}  // namespace

double TextWidth(std::string_view words, double size, bool bold) {
  return Measure(words, bold).Width() * size;
}

std::vector<std::string> TextsWithoutGlyphs(const Drawing& drawing) {
  std::vector<std::string> texts;
  std::set<std::string_view> tried;
  for (const Page& page : drawing.Pages)
    for (const Item& item : page.Items) {
      const auto* const text = std::get_if<Text>(&item.What);
      // Every font has ASCII.
      if (text == nullptr ||
          std::all_of(text->Words.begin(), text->Words.end(), [](unsigned char c) { return c < 0x80; }))
        continue;
      if (tried.insert(text->Words).second && Measure(text->Words, text->Bold).MissingGlyphs() > 0)
        texts.push_back(text->Words);
    }
  return texts;
}

}  // namespace sheet::pango
