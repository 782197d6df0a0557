/// The inputs of a bonding diagram: package and wires, texts, title block, paper.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "model/package.h"
#include "sheet/diagram_wires.h"

namespace sheet {

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

}  // namespace sheet
