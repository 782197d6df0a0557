/// The bonding diagram of a package: plan, numbers, names, title block and tables on sheets.
#pragma once

#include <array>
#include <cstddef>
#include <glm/vec2.hpp>
#include <optional>
#include <stdexcept>
#include <string>
#include <utility>
#include <vector>

#include "analysis/record_lines.h"
#include "analysis/wire_loops.h"
#include "model/package.h"
#include "model/record_place.h"
#include "sheet/drawing.h"

namespace sheet {

/// A wire for the sheets. Texts may contain any bytes.
struct DiagramWire {
  model::RecordPlace Place;  ///< a bond's wire, or a stitch
  std::size_t Number = 0;    ///< 1 for the first wire of the file
  std::string Name = {};     ///< as in the wire list: "A", or "A:B" for a stitch
  std::string Lead = {};
  std::string Tier = {}, NetType = {};
  bool Offends = false;                                ///< has a finding
  glm::dvec2 From{}, To{};                             ///< file units
  double PlanLength = 0.0, Length = 0.0, Angle = 0.0;  ///< file units, degrees

  bool IsStitch() const { return Place.Table == model::RecordTable::Stitches; }
};

/// The wires of the loops, numbered in the order of the file's lines.
std::vector<DiagramWire> DiagramWiresOf(const model::Package& package,
                                        const std::vector<analysis::WireLoop>& loops,
                                        const analysis::RecordLines& lines);

/// "label: value", a line of the measured data.
struct Fact {
  std::string Label, Value;
};

/// The fields of a title block; an empty text leaves the field blank.
struct TitleFields {
  std::string Title = {}, Part = {}, Package = {}, Drawn = {}, Checked = {}, Approved = {}, Date = {},
              Revision = {};
};

struct Paper {
  std::string Name;
  double Width = 420.0, Height = 297.0;
};

/// The papers with names, in landscape, in the order in which they are proposed.
const std::vector<Paper>& NamedPapers();

enum class Split { None, Tier, NetType };

struct DiagramInputs {
  const model::Package& Package;
  const std::vector<DiagramWire>& Wires;  ///< by number
  const std::vector<Fact>& Facts;
  const std::vector<std::string>& Notes;     ///< lines of text
  const std::vector<std::string>& Findings;  ///< broken rules, one line for each
  TitleFields Title;
  std::string FileName, Digest;  ///< the package file's
  double Millimetres = 1.0;      ///< length of a file unit
  std::string Unit = "mm";       ///< of the numbers on the sheets
  double NumberScale = 1.0;      ///< length of a file unit in `Unit`
  sheet::Paper Paper;
  std::optional<double> Scale;  ///< none: the largest round one that fits
  Split Into = Split::None;
  bool Table = false;
};

/// The sheet is too small. The message says what to do.
class DoesNotFit : public std::runtime_error {
 public:
  explicit DoesNotFit(const std::string& text, std::optional<Paper> fitting = {})
      : std::runtime_error(text), Fitting(std::move(fitting)) {}

  std::optional<Paper> Fitting;  ///< a paper that the plan fits on, if there is one
};

/// Faults  DoesNotFit; DivisionByZero for a bowed ring without bulge
Drawing BondingDiagram(const DiagramInputs& inputs);

}  // namespace sheet
