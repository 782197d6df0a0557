/// The whole way from a chip's files to a package.
#pragma once

#include <string>
#include <vector>

#include "import/assignment.h"
#include "import/bonded_package.h"
#include "import/die_reader.h"

namespace importer {

/// Everything that an import is asked for. Lengths in millimetres.
struct ImportRequest {
  DieRequest Chip;
  double Height = 0.0;
  std::string Package;  ///< an outline's numbers, a footprint, a board and a reference, or a table of fingers
  double Degrees = 0.0;  ///< of the die in its package, counter-clockwise; then it is moved
  glm::dvec2 Offset{0.0};
  BondRequest Bonds;
  NetPatterns Nets = UsualNets();
  double Unit = 1.0;  ///< of the package and of tables, in millimetres
  std::string UnitName = "mm";
};

/// Something to be said of a source.
struct SourceNote {
  std::string File;
  std::string Text;
};

struct Imported {
  Bonded Made;
  std::vector<SourceNote> Notes;  ///< what was taken because nothing was given
};

/// Faults  ImportError, or ArgumentError with the option's name
Imported ImportChip(const ImportRequest& request);

/// The leads that the words for a package ask for, the die in the origin and not turned.
LeadFrame FrameOf(const std::string& package, double unit, const glm::dvec2& dieSize);

}  // namespace importer
