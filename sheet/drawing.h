/// A drawing as sheets of paper: lines, areas, circles and texts on named layers.
#pragma once

#include <cstddef>
#include <glm/vec2.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

namespace sheet {

// Units (whole file)  millimetres on paper, from the sheet's lower left corner, y up

/// Red, green, blue, each 0 to 1.
struct Ink {
  double Red = 0.0, Green = 0.0, Blue = 0.0;

  bool operator==(const Ink&) const = default;
};

inline constexpr Ink kBlack{};
inline constexpr Ink Grey(double lightness) { return {lightness, lightness, lightness}; }

enum class Dash { Solid, Dashed, Centre, Dotted, DashDot, DashDotDot };

struct Stroke {
  double Width = 0.25;
  Ink Colour = kBlack;
  Dash Pattern = Dash::Solid;
};

struct Line {
  glm::dvec2 From{}, To{};
  Stroke Pen{};
};

/// One or more closed outlines, filled by the even-odd rule.
struct Area {
  std::vector<std::vector<glm::dvec2>> Outlines;
  std::optional<Stroke> Pen{};
  std::optional<Ink> Fill{};
};

struct Circle {
  glm::dvec2 Centre{};
  double Radius = 0.0;
  std::optional<Stroke> Pen{};
  std::optional<Ink> Fill{};
};

/// The point of the text's base line that is at its position.
enum class Align { Start, Middle, End };

struct Text {
  glm::dvec2 At{};
  std::string Words;  ///< UTF-8 without control characters, see CleanText
  double Size = 2.5;  ///< height of the em square
  Align Alignment = Align::Start;
  bool Upright = false;  ///< turned by 90 degrees: reads from the bottom to the top
  bool Bold = false;
  Ink Colour = kBlack;
};

using Shape = std::variant<Line, Area, Circle, Text>;

struct Item {
  std::size_t Layer = 0;  ///< index into Drawing::Layers
  Shape What;
};

struct Page {
  std::vector<Item> Items;
};

struct Drawing {
  std::string Title;
  double Width = 420.0, Height = 297.0;  ///< of every page
  double Scale = 1.0;                    ///< paper millimetres for each millimetre of the package
  glm::dvec2 Origin{};                   ///< place of the package's origin on the paper
  std::vector<std::string> Layers = {};  ///< painted in this order
  std::vector<Page> Pages = {};

  /// The number of a layer; adds a new one.
  std::size_t LayerOf(std::string_view name);
};

/// The libraries that set and paint text are missing, or fail.
class TypesettingFault : public std::runtime_error {
 public:
  using std::runtime_error::runtime_error;
};

/// Cleans text for a sheet: bytes that are not UTF-8 become U+FFFD, control characters and line ends blanks.
std::string CleanText(std::string_view bytes);

// These three fault with TypesettingFault.

/// The width of a text in the font that the PDF file embeds. All writers use it to place texts.
double TextWidth(std::string_view words, double size, bool bold = false);

/// The distinct texts with characters that no installed font has; a PDF file shows boxes for these.
std::vector<std::string> TextsWithoutGlyphs(const Drawing& drawing);

/// One page for each sheet, fonts embedded. The same drawing gives the same bytes, also from the other
/// writers.
/// Faults  std::bad_alloc too
std::string PdfOf(const Drawing& drawing);

/// The sheets one below another, with one group for each layer.
std::string SvgOf(const Drawing& drawing);

/// R12 text, true to size: the package's origin at (0, 0), a millimetre of the package is one unit. Further
/// pages stand to the right of the first.
std::string DxfOf(const Drawing& drawing);

}  // namespace sheet
