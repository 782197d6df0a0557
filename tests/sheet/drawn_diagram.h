/// Packages and their diagrams, for the tests of the sheets.
#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "sheet/bonding_diagram.h"
#include "sheet/diagram_wires.h"
#include "sheet/measured_data.h"
#include "tests/refusal.h"
#include "tests/temporary_folder.h"
#include "yax/options/opened_package.h"

namespace sheet {

inline Paper PaperNamed(const std::string& name) {
  return *std::find_if(NamedPapers().begin(), NamedPapers().end(),
                       [&](const Paper& paper) { return paper.Name == name; });
}

/// A package and its diagram.
struct Drawn {
  yax::OpenedPackage Opened;
  std::vector<DiagramWire> Wires;
  std::vector<Fact> Facts = {};
  std::vector<std::string> Notes = {}, Findings = {};
  double Millimetres = 1.0;

  explicit Drawn(const std::string& path) : Opened({.File = path, .Loops = {.DieHeight = true}}) {
    Wires = DiagramWiresOf(Opened.Package, Opened.Loops(), Opened.Lines);
  }

  Drawing On(const Paper& paper, std::optional<double> scale = {}, Split split = Split::None,
             bool table = false) {
    Facts = MeasuredData({Opened.Package, Wires, Opened.Settings, "mm", 1.0, "", ""});
    return BondingDiagram({.Package = Opened.Package,
                           .Wires = Wires,
                           .Facts = Facts,
                           .Notes = Notes,
                           .Findings = Findings,
                           .Title = {.Title = "T"},
                           .FileName = "board.yax",
                           .Digest = "0123456789ab",
                           .Millimetres = Millimetres,
                           .Paper = paper,
                           .Scale = scale,
                           .Into = split,
                           .Table = table});
  }

  /// The reason why it does not fit; empty when it does.
  std::string RefusalOn(const Paper& paper, double scale, bool table = false) {
    return Refusal([&] { On(paper, scale, Split::None, table); });
  }
};

inline std::string PutPackage(const TemporaryFolder& folder, const std::string& wires) {
  return PutFile(folder / "board.yax", "TECHNOLOGY WIRE_BOND\nCOMPL 4\nCOMPW 4\nCOMPZ 0.3\n" + wires);
}

/// A wire to the right from (1.9, y), with a lead of 1 x 0.2 that ends at x = 4.5.
inline std::string Wire(const std::string& name, double y, const std::string& lead) {
  const std::string at = std::to_string(y);
  return "CBP " + name + " 1.9 " + at + " 0 0.08 0.08 0 R RECTANGLE\nSBP " + name + " 4 " + at +
         " 0 1 0.2 0 RECTANGLE 1 1\nWB " + name + " 1.9 " + at + " " + lead + " 4 " + at + " 0.3 0\n";
}

template <class Kind>
std::vector<Kind> OfLayer(const Drawing& drawing, std::size_t page, const std::string& layer) {
  std::vector<Kind> found;
  for (const Item& item : drawing.Pages.at(page).Items)
    if (drawing.Layers[item.Layer] == layer)
      if (const auto* const shape = std::get_if<Kind>(&item.What)) found.push_back(*shape);
  return found;
}

inline std::vector<std::string> WordsOf(const Drawing& drawing, const std::string& layer) {
  std::vector<std::string> words;
  for (const Text& text : OfLayer<Text>(drawing, 0, layer)) words.push_back(text.Words);
  return words;
}

inline bool Has(const std::vector<std::string>& words, const std::string& wanted) {
  return std::find(words.begin(), words.end(), wanted) != words.end();
}

/// Around a text, with the room that its letters take.
struct TextBox {
  glm::dvec2 Low, High;
};

inline TextBox BoxOf(const Text& text) {
  const double width = TextWidth(text.Words, text.Size);
  const double start = text.Alignment == Align::Start    ? 0.0
                       : text.Alignment == Align::Middle ? -width / 2
                                                         : -width;
  const glm::dvec2 low(start, -0.24 * text.Size), high(start + width, 0.76 * text.Size);
  if (!text.Upright) return {text.At + low, text.At + high};
  return {text.At + glm::dvec2(-high.y, low.x), text.At + glm::dvec2(-low.y, high.x)};
}

}  // namespace sheet
