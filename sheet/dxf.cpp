#include <utf8.h>
#include <algorithm>
#include <array>
#include <cstdio>
#include <limits>
#include <string_view>
#include <utility>

#include "sheet/drawing.h"
#include "sheet/paint_order.h"

namespace sheet {

namespace {

/// Height of a capital letter for an em square of 1: DXF measures text by its capitals.
constexpr double kCapital = 0.73;
/// Narrows texts: a CAD program's plain font is wider than the font that placed them.
constexpr double kWidthFactor = 0.8;
/// Room between pages, in millimetres on paper.
constexpr double kBetweenPages = 20.0;

/// Encodes a string for DXF: only ASCII, and nothing that a reader takes for a control code.
std::string Encoded(std::string_view words) {
  std::string text;
  const std::u32string characters = utf8::utf8to32(words);
  for (std::size_t k = 0; k < characters.size(); ++k) {
    const char32_t c = characters[k];
    const std::u32string_view rest = std::u32string_view(characters).substr(k);
    const bool code = c > U'~' || rest.starts_with(U"\\U+");
    if (code) {
      char hex[8];
      // The code has four digits: characters beyond U+FFFF become the replacement character.
      std::snprintf(hex, sizeof hex, "\\U+%04X", c > 0xFFFF ? 0xFFFDU : unsigned(c));
      text += hex;
    } else if (rest.starts_with(U"%%")) {
      text += "%%%";
    } else if (c == U'^') {
      text += "^ ";
    } else {
      text += static_cast<char>(c);
    }
  }
  return text;
}

constexpr std::array<std::pair<Dash, const char*>, 6> kLineTypes{{{Dash::Solid, "CONTINUOUS"},
                                                                  {Dash::Dashed, "DASHED"},
                                                                  {Dash::Centre, "CENTER"},
                                                                  {Dash::Dotted, "DOT"},
                                                                  {Dash::DashDot, "DASHDOT"},
                                                                  {Dash::DashDotDot, "DIVIDE"}}};

const char* NameOf(Dash pattern) { return kLineTypes[static_cast<std::size_t>(pattern)].second; }

/// The nearest colour of the fixed palette. 7 is black on white and white on black, 8 grey; 1 is
/// red, 3 green, 5 blue, 6 magenta, 30 orange.
std::string_view PaletteOf(const Ink& ink) {
  if (ink == Grey(ink.Red)) return ink.Red > 0.3 ? "8" : "7";
  const double most = std::max({ink.Red, ink.Green, ink.Blue});
  if (most == ink.Red) return ink.Blue == most ? "6" : ink.Green > 0.3 * most ? "30" : "1";
  return most == ink.Green ? "3" : "5";
}

class Writer {
 public:
  explicit Writer(const Drawing& drawing) : drawing_(drawing) {}

  std::string Run() {
    Header();
    Tables();
    Start("BLOCKS");
    End();
    Start("ENTITIES");
    for (const Page& page : drawing_.Pages) {
      for (const Item* item : InPaintOrder(drawing_, page.Items)) {
        layer_ = drawing_.Layers[item->Layer];
        std::visit(*this, item->What);
      }
      pageLeft_ += drawing_.Width + kBetweenPages;
    }
    End();
    Pair(0, "EOF");
    return std::move(dxf_);
  }

  void operator()(const Line& line) {
    Entity("LINE", &line.Pen);
    Point(10, line.From);
    Point(11, line.To);
  }

  void operator()(const Area& area) {
    // Fill only marks, which are small areas without a stroke; the pale fills of pads are only for paper.
    if (!area.Pen && area.Fill && area.Outlines.size() == 1 && area.Outlines[0].size() <= 4)
      Solid(area.Outlines[0]);
    if (!area.Pen) return;
    for (const std::vector<glm::dvec2>& outline : area.Outlines) {
      Entity("POLYLINE", &*area.Pen);
      Pair(66, "1");
      Point(10, drawing_.Origin);
      Pair(70, "1");
      for (const glm::dvec2& point : outline) {
        Entity("VERTEX", &*area.Pen);
        Point(10, point);
      }
      Entity("SEQEND", &*area.Pen);
    }
  }

  void operator()(const Circle& circle) {
    Entity("CIRCLE", circle.Pen ? &*circle.Pen : nullptr);
    Point(10, circle.Centre);
    Pair(40, Number(circle.Radius / drawing_.Scale));
  }

  void operator()(const Text& text) {
    const Stroke colour{.Colour = text.Colour};
    Entity("TEXT", &colour);
    Point(10, text.At);
    Pair(40, Number(text.Size * kCapital / drawing_.Scale));
    Pair(1, Encoded(text.Words));
    Pair(50, text.Upright ? "90" : "0");
    Pair(41, Number(kWidthFactor));
    Pair(7, "STANDARD");
    if (text.Alignment == Align::Start) return;
    Pair(72, text.Alignment == Align::End ? "2" : "1");
    Point(11, text.At);
  }

 private:
  static std::string Number(double value) { return Decimal(value, 9); }

  void Pair(int code, std::string_view value) {
    dxf_.append(std::to_string(code)).append("\n").append(value).append("\n");
  }
  void Start(const char* section) {
    Pair(0, "SECTION");
    Pair(2, section);
  }
  void End() { Pair(0, "ENDSEC"); }

  void Point(int code, const glm::dvec2& onPaper) {
    const glm::dvec2 place = InModel(onPaper + glm::dvec2(pageLeft_, 0.0));
    Pair(code, Number(place.x));
    Pair(code + 10, Number(place.y));
    Pair(code + 20, "0");
  }
  glm::dvec2 InModel(const glm::dvec2& onPaper) const { return (onPaper - drawing_.Origin) / drawing_.Scale; }

  void Entity(const char* kind, const Stroke* stroke) {
    Pair(0, kind);
    Pair(8, layer_);
    if (stroke == nullptr) return;
    if (stroke->Pattern != Dash::Solid) Pair(6, NameOf(stroke->Pattern));
    if (PaletteOf(stroke->Colour) != ColourOf(layer_)) Pair(62, PaletteOf(stroke->Colour));
  }

  void Solid(const std::vector<glm::dvec2>& outline) {
    Entity("SOLID", nullptr);
    // SOLID swaps the third and fourth corner; a triangle repeats its last.
    const std::size_t last = outline.size() - 1;
    Point(10, outline[0]);
    Point(11, outline[1]);
    Point(12, outline[last]);
    Point(13, outline[last == 3 ? 2 : last]);
  }

  void Header() {
    Start("HEADER");
    Variable("$ACADVER");
    Pair(1, "AC1009");
    const glm::dvec2 low = InModel({0.0, 0.0});
    const double pages = static_cast<double>(drawing_.Pages.size());
    const glm::dvec2 high =
        InModel({pages * (drawing_.Width + kBetweenPages) - kBetweenPages, drawing_.Height});
    for (const auto& [name, corner] : {std::pair("$EXTMIN", low), std::pair("$EXTMAX", high)}) {
      Variable(name);
      Pair(10, Number(corner.x));
      Pair(20, Number(corner.y));
      Pair(30, "0");
    }
    Variable("$LTSCALE");
    Pair(40, Number(1.0 / drawing_.Scale));
    End();
  }
  void Variable(const char* name) { Pair(9, name); }

  void Tables() {
    Start("TABLES");
    Table("LTYPE", kLineTypes.size());
    for (const auto& [pattern, name] : kLineTypes) LineType(name, pattern);
    Pair(0, "ENDTAB");
    Table("LAYER", drawing_.Layers.size());
    for (const std::string& layer : drawing_.Layers) {
      Pair(0, "LAYER");
      Pair(2, layer);
      Pair(70, "0");
      Pair(62, ColourOf(layer));
      Pair(6, "CONTINUOUS");
    }
    Pair(0, "ENDTAB");
    Table("STYLE", 1);
    TextStyle();
    Pair(0, "ENDTAB");
    End();
  }

  void Table(const char* kind, std::size_t count) {
    Pair(0, "TABLE");
    Pair(2, kind);
    Pair(70, std::to_string(count));
  }

  void LineType(const char* name, Dash pattern) {
    const std::vector<double> lengths = DashLengths(pattern);
    double total = 0.0;
    for (const double length : lengths) total += length;
    Pair(0, "LTYPE");
    Pair(2, name);
    Pair(70, "0");
    Pair(3, lengths.empty() ? "Solid line" : name);
    Pair(72, "65");
    Pair(73, std::to_string(lengths.size()));
    Pair(40, Number(total));
    for (std::size_t k = 0; k < lengths.size(); ++k) Pair(49, Number(k % 2 == 0 ? lengths[k] : -lengths[k]));
  }

  void TextStyle() {
    Pair(0, "STYLE");
    Pair(2, "STANDARD");
    Pair(70, "0");
    Pair(40, "0");
    Pair(41, Number(kWidthFactor));
    Pair(50, "0");
    Pair(71, "0");
    Pair(42, "2.5");
    Pair(3, "txt");
    Pair(4, "");
  }

  static std::string_view ColourOf(std::string_view layer) {
    if (layer == "FINDINGS") return "1";
    if (layer == "WIRES_2") return "5";
    if (layer == "WIRES_3") return "3";
    if (layer == "WIRES_4") return "6";
    if (layer == "WIRES_STITCH") return "30";
    return layer == "PADDLE" || layer == "RINGS" ? "8" : "7";
  }

  const Drawing& drawing_;
  std::string dxf_;
  std::string_view layer_;
  double pageLeft_ = 0.0;
};

}  // namespace

std::string DxfOf(const Drawing& drawing) { return Writer(drawing).Run(); }

}  // namespace sheet
