/// Imports a chip and its package from their files.
#pragma once

#include <string>
#include <vector>

#include "import/assignment.h"
#include "import/bonded_package.h"
#include "import/die.h"

namespace importer {

/// The request for an import. Lengths in millimetres.
struct ImportRequest {
  DieRequest Chip;
  double Height = 0.0;
  std::string Package;  ///< an outline's numbers, a footprint, a board and a reference, or a table of fingers
  double Degrees = 0.0;  ///< turn of the die in its package, counter-clockwise; the die is moved afterwards
  glm::dvec2 Offset{0.0};
  BondRequest Bonds;
  NetPatterns Nets = UsualNets();
  double Unit = 1.0;  ///< of the package and of tables, in millimetres
  std::string UnitName = "mm";
};

/// A note on a source.
struct SourceNote {
  std::string File;
  std::string Text;
};

struct Imported {
  Bonded Made;
  std::vector<SourceNote> Notes;  ///< among them what was assumed for values not given
};

/// Faults  InputError; for the value of an option ArgumentError
Imported ImportChip(const ImportRequest& request);

/// The leads of the package that `package` describes, with the die at the origin and not turned.
LeadFrame FrameOf(const std::string& package, double unit, const glm::dvec2& dieSize);

}  // namespace importer
