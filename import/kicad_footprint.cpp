#include "import/kicad_footprint.h"

#include <algorithm>
#include <cmath>
#include <glm/geometric.hpp>
#include <map>
#include <string_view>
#include <utility>

#include "import/body_outline.h"
#include "import/names.h"
#include "import/s_expression.h"
#include "import/source_file.h"
#include "model/input_error.h"
#include "model/text.h"

namespace importer {

namespace {

/// A pad on the package's side of the board, in the footprint's own axes with y up.
struct CopperPad {
  std::string Number, Function, Net;
  std::size_t Line = 0;
  bool Hole = false;
  glm::dvec2 Middle{0.0}, Size{0.0};
  double Degrees = 0.0;

  bool CoversMiddle() const {
    const glm::dvec2 own = Turned(Middle, -Degrees);
    return std::fabs(own.x) <= Size.x / 2.0 && std::fabs(own.y) <= Size.y / 2.0;
  }
  Box Bounds() const {
    Box box{Middle, Middle};
    for (const glm::dvec2& corner : {Size / 2.0, glm::dvec2(Size.x, -Size.y) / 2.0}) {
      const glm::dvec2 turned = Turned(corner, Degrees);
      box = Around(box, BoxOf(Middle + turned, Middle - turned));
    }
    return box;
  }
};

glm::dvec2 Up(const glm::dvec2& point) { return {point.x, -point.y}; }

double AngleIn(const std::string& word, const SExpression& element) {
  const std::optional<double> degrees = NumberIn(word);
  if (!degrees) element.Fail("the angle " + model::Quoted(word) + " is not a number", "correct it");
  return *degrees;
}

/// The angle in "(at X Y [ANGLE] [unlocked])".
double AngleOf(const std::vector<std::string>& at, const SExpression& element) {
  return at.size() < 3 || at[2] == "unlocked" ? 0.0 : AngleIn(at[2], element);
}

/// Replaces KiCad's escapes for characters that names cannot hold. Other braces, as in "~{RESET}", belong to
/// the name.
std::string WithoutEscapes(const std::string& word) {
  static constexpr std::pair<std::string_view, char> kEscapes[] = {
      {"slash", '/'},    {"backslash", '\\'}, {"colon", ':'}, {"space", ' '},  {"quote", '\''},
      {"dblquote", '"'}, {"lt", '<'},         {"gt", '>'},    {"bar", '|'},    {"comma", ','},
      {"brace", '{'},    {"dollar", '$'},     {"tab", '\t'},  {"return", '\n'}};
  std::string name;
  for (std::size_t at = 0; at < word.size(); ++at) {
    const std::size_t end = word[at] == '{' ? word.find('}', at) : std::string::npos;
    const std::string_view inside =
        end == std::string::npos ? std::string_view() : std::string_view(word).substr(at + 1, end - at - 1);
    const auto* const found = std::find_if(std::begin(kEscapes), std::end(kEscapes),
                                           [&](const auto& e) { return e.first == inside; });
    const bool escape = found != std::end(kEscapes);
    name += escape ? found->second : word[at];
    if (escape) at = end;
  }
  return name;
}

/// A parsed footprint.
class Footprint {
 public:
  Footprint(const ElementSpan& span, const std::string& file) : span_(span), file_(file) {}

  /// Finds the reference alone, which is quick.
  std::string Reference() const;
  LeadFrame Frame(bool onBoard);

 private:
  void Read(bool onBoard);
  void ReadPad(const ElementSpan& span);
  void ReadGraphic(const ElementSpan& span);
  bool IsOnSide(const std::vector<std::string>& layers) const;
  void DropVias();
  std::optional<Paddle> TakePaddle();
  std::optional<Paddle> TakePaddleInParts();
  glm::dvec2 Middle() const;
  void DropNumber(const std::string& number);
  Box PadBounds() const;
  Lead LeadOf(const CopperPad& pad) const;
  void Cut(Lead& lead, const Box& body) const;

  ElementSpan span_;
  std::string file_;
  char side_ = 'F';  ///< side of the board: 'F' or 'B'
  double degrees_ = 0.0;
  std::vector<CopperPad> pads_;
  BodyOutline outline_;
};

std::string Footprint::Reference() const {
  for (const ElementSpan& element : ElementsWithin(span_)) {
    if (element.Name != "fp_text" && element.Name != "property") continue;
    const SExpression text(element, file_);
    const std::string kind = text.Word(0);
    if (kind == "reference" || kind == "Reference") return text.Word(1);
  }
  return {};
}

void Footprint::Read(bool onBoard) {
  const std::vector<ElementSpan> elements = ElementsWithin(span_);
  for (const ElementSpan& element : elements) {
    if (element.Name == "layer" && SExpression(element, file_).Word(0) == "B.Cu") side_ = 'B';
    if (element.Name == "at" && onBoard) {
      const SExpression at(element, file_);
      degrees_ = at.Word(2).empty() ? 0.0 : AngleIn(at.Word(2), at);
    }
  }
  for (const ElementSpan& element : elements) {
    if (element.Name == "pad") ReadPad(element);
    if (element.Name.starts_with("fp_") && element.Name != "fp_text") ReadGraphic(element);
  }
}

bool Footprint::IsOnSide(const std::vector<std::string>& layers) const {
  return std::any_of(layers.begin(), layers.end(), [this](const std::string& layer) {
    return layer == "*.Cu" || layer == "F&B.Cu" || layer == std::string(1, side_) + ".Cu";
  });
}

/// (pad NUMBER TYPE SHAPE (at X Y [ANGLE]) (size W H) (layers ...) ...)
void Footprint::ReadPad(const ElementSpan& span) {
  const SExpression pad(span, file_);
  const std::string type = pad.Word(1);
  if (!IsOnSide(pad.WordsOf("layers")) || type == "np_thru_hole") return;
  const std::vector<double> at = pad.NumbersOf("at", 2);
  const std::vector<double> size = pad.NumbersOf("size", 2);
  if (!(size[0] > 0.0 && size[1] > 0.0)) pad.Fail("the pad has no size", "give it one above 0");
  Box own{{-size[0] / 2.0, -size[1] / 2.0}, {size[0] / 2.0, size[1] / 2.0}};
  // A pad of any shape is drawn as its box.
  for (const glm::dvec2& point : pad.Points()) own = Around(own, {Up(point), Up(point)});
  CopperPad copper{.Number = pad.Word(0),
                   .Function = WithoutEscapes(pad.LastWordOf("pinfunction")),
                   .Net = WithoutEscapes(pad.LastWordOf("net")),
                   .Line = span.Line,
                   .Hole = type == "thru_hole"};
  copper.Degrees = AngleOf(pad.WordsOf("at"), pad) - degrees_;
  copper.Middle = Up({at[0], at[1]}) + Turned(own.Middle() + Up(pad.PointOf("offset")), copper.Degrees);
  copper.Size = own.Size();
  pads_.push_back(std::move(copper));
}

void Footprint::ReadGraphic(const ElementSpan& span) {
  const SExpression graphic(span, file_);
  const std::vector<std::string> layers = graphic.WordsOf("layer");
  if (layers.empty() || layers.front() != std::string(1, side_) + ".Fab") return;
  const glm::dvec2 start = Up(graphic.PointOf("start"));
  const glm::dvec2 end = Up(graphic.PointOf("end"));
  if (span.Name == "fp_line") {
    outline_.AddLine(start, end);
  } else if (span.Name == "fp_rect") {
    outline_.AddClosed(BoxOf(start, end));
  } else if (span.Name == "fp_arc") {
    // Since KiCad 6 an arc has both ends; before, its centre, one end and an angle, clockwise on the screen.
    const std::string angle = graphic.LastWordOf("angle");
    outline_.AddLine(angle.empty() ? start : start + Turned(end - start, -AngleIn(angle, graphic)), end);
  } else if (span.Name == "fp_poly") {
    const std::vector<glm::dvec2> points = graphic.Points();
    for (std::size_t i = 0; i < points.size(); ++i)
      outline_.AddLine(Up(points[i]), Up(points[(i + 1) % points.size()]));
  }
}

/// Holes with the number of a flat pad, or several with one number, are vias.
void Footprint::DropVias() {
  std::map<std::string, std::size_t> flat;
  std::map<std::string, std::size_t> holes;
  for (const CopperPad& pad : pads_) ++(pad.Hole ? holes : flat)[pad.Number];
  std::erase_if(pads_, [&](const CopperPad& pad) {
    return pad.Hole && (flat.contains(pad.Number) || holes[pad.Number] > 1);
  });
}

void Footprint::DropNumber(const std::string& number) {
  std::erase_if(pads_, [&](const CopperPad& pad) { return pad.Number == number; });
}

Box Footprint::PadBounds() const {
  Box bounds = pads_.front().Bounds();
  for (const CopperPad& pad : pads_) bounds = Around(bounds, pad.Bounds());
  return bounds;
}

/// The paddle is the largest pad over the middle. Further pads with its number belong to it.
std::optional<Paddle> Footprint::TakePaddle() {
  const CopperPad* largest = nullptr;
  for (const CopperPad& pad : pads_) {
    const bool larger = largest == nullptr || pad.Size.x * pad.Size.y > largest->Size.x * largest->Size.y;
    if (pad.CoversMiddle() && larger) largest = &pad;
  }
  if (largest == nullptr) return TakePaddleInParts();
  const Paddle paddle{largest->Middle, largest->Size, largest->Degrees};
  const std::string number = largest->Number;
  DropNumber(number);
  return paddle;
}

/// A paddle may be cut into pads of one number, which then fill a good part of the box around them.
std::optional<Paddle> Footprint::TakePaddleInParts() {
  struct Parts {
    Box Bounds;
    double Area = 0.0;
    std::size_t Count = 0;
  };
  std::map<std::string, Parts> numbers;
  for (const CopperPad& pad : pads_) {
    Parts& parts = numbers[pad.Number];
    parts.Bounds = parts.Count++ == 0 ? pad.Bounds() : Around(parts.Bounds, pad.Bounds());
    parts.Area += pad.Size.x * pad.Size.y;
  }
  for (const auto& [number, parts] : numbers) {
    constexpr double kFilled = 0.5;
    if (numbers.size() < 2 || parts.Count < 2 || parts.Area < kFilled * parts.Bounds.Area() ||
        !Contains(parts.Bounds, Box{}))
      continue;
    const Paddle paddle{parts.Bounds.Middle(), parts.Bounds.Size()};
    DropNumber(number);
    return paddle;
  }
  return std::nullopt;
}

/// A lead runs along the longer side of its pad or, if both sides are equal, along the one that points to the
/// middle.
Lead Footprint::LeadOf(const CopperPad& pad) const {
  constexpr double kSquare = 1.02;
  bool alongX = pad.Size.x > pad.Size.y;
  if (std::max(pad.Size.x, pad.Size.y) < kSquare * std::min(pad.Size.x, pad.Size.y)) {
    const glm::dvec2 own = Turned(pad.Middle, -pad.Degrees);
    alongX = std::fabs(own.x) >= std::fabs(own.y);
  }
  Lead lead{.Number = pad.Number,
            .Name = pad.Function,
            .Net = pad.Net,
            .Width = alongX ? pad.Size.y : pad.Size.x,
            .Row = pad.Line};
  LayLead(lead, pad.Middle, alongX ? pad.Size.x : pad.Size.y, pad.Degrees + (alongX ? 0.0 : 90.0));
  return lead;
}

/// Moves the outer end to where the lead leaves the body. A lead that begins outside stays as it is.
void Footprint::Cut(Lead& lead, const Box& body) const {
  if (!Contains(body, {lead.Inner, lead.Inner})) return;
  double part = 1.0;
  const glm::dvec2 along = lead.Outer - lead.Inner;
  for (int axis = 0; axis < 2; ++axis) {
    if (along[axis] == 0.0) continue;
    const double edge = along[axis] > 0.0 ? body.High[axis] : body.Low[axis];
    part = std::min(part, (edge - lead.Inner[axis]) / along[axis]);
  }
  // A lead with its inner end on the outline would get no length.
  if (part > 0.0) lead.Outer = lead.Inner + along * part;
}

/// The package's middle: the footprint's origin, unless that lies off centre, as in footprints with their
/// origin at lead 1.
glm::dvec2 Footprint::Middle() const {
  const Box bounds = PadBounds();
  const glm::dvec2 middle = bounds.Middle();
  const double near = std::max(bounds.Size().x, bounds.Size().y) / 4.0;
  const bool aside = std::fabs(middle.x) > near || std::fabs(middle.y) > near;
  return aside ? middle : glm::dvec2(0.0);
}

LeadFrame Footprint::Frame(bool onBoard) {
  Read(onBoard);
  DropVias();
  LeadFrame frame{.File = file_, .Leads = {}, .DiePaddle = {}};
  if (pads_.empty())
    throw model::InputError({file_, span_.Line}, "the footprint has no pads",
                            "give one with a pad for each lead");
  const glm::dvec2 middle = Middle();
  if (middle != glm::dvec2(0.0))
    frame.Notes.push_back("the footprint's origin is not in its middle; the die is placed in the middle");
  for (CopperPad& pad : pads_) pad.Middle -= middle;
  frame.DiePaddle = TakePaddle();
  std::optional<Box> body = outline_.Bounds();
  if (body) body = Box{body->Low - middle, body->High - middle};
  for (const CopperPad& pad : pads_) {
    if (pad.Number.empty()) continue;
    Lead lead = LeadOf(pad);
    if (body) Cut(lead, *body);
    frame.Leads.push_back(std::move(lead));
  }
  if (frame.Leads.empty())
    throw model::InputError({file_, span_.Line}, "none of the footprint's pads is a lead",
                            "give one with a numbered pad for each lead");
  RefuseDuplicates(frame);
  // Turning the package is turning the die the other way.
  PlaceDie(frame, -degrees_, glm::dvec2(0.0));
  if (side_ == 'B') Mirror(frame);
  return frame;
}

bool IsFootprint(std::string_view name) { return name == "footprint" || name == "module"; }

}  // namespace

LeadFrame FootprintOf(std::string_view text, const std::string& file) {
  const ElementSpan whole = WholeElement(text, file);
  if (!IsFootprint(whole.Name))
    throw model::InputError({file, whole.Line}, "it is not a footprint",
                            "give a .kicad_mod file, or a board's footprint as FILE.kicad_pcb:REFERENCE");
  return Footprint(whole, file).Frame(false);
}

LeadFrame FootprintOnBoard(std::string_view text, const std::string& file, const std::string& reference) {
  const ElementSpan board = WholeElement(text, file);
  if (board.Name != "kicad_pcb")
    throw model::InputError({file, board.Line}, "it is not a board",
                            "give a .kicad_pcb file of KiCad 5 or later");
  std::vector<std::string> others;
  for (const ElementSpan& element : ElementsWithin(board)) {
    if (!IsFootprint(element.Name)) continue;
    Footprint footprint(element, file);
    const std::string found = footprint.Reference();
    if (found == reference) return footprint.Frame(true);
    others.push_back(found);
  }
  throw model::InputError({file}, "no footprint has the reference " + model::Quoted(reference),
                          others.empty() ? "the board has no footprints" : "it has " + Listed(others));
}

}  // namespace importer
