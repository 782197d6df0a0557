/// A die from the file of a chip: DEF, LEF or a table of pads.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "import/die.h"
#include "import/terminals.h"

namespace importer {

/// The die's file, and the values given with it. Lengths in millimetres.
struct DieRequest {
  std::string File;
  std::vector<std::string> LefFiles = {};
  std::string Macro = {};
  PadRule Rule = {};
  std::optional<glm::dvec2> PadSize = std::nullopt, DieSize = std::nullopt;
  double TableUnit = 1.0;  ///< a table's unit, in millimetres
};

/// Reads   the die by its file's ending: .def, .lef (either may be gzipped), .csv, .tsv, .txt. Names of pads
///         may repeat, and pads have no edges yet.
/// Faults  InputError when the file holds no die that can be bonded
Die ReadDie(const DieRequest& request);

/// True when the name of a file ends so, in any letter case; `ending` is given in upper case.
bool EndsWith(const std::string& file, std::string_view ending);

/// True for the files that are read as tables.
bool IsTableFile(const std::string& file);

/// Throws an InputError: the file's ending is not one of `wanted`.
[[noreturn]] void RefuseKind(const std::string& file, const std::string& wanted);

}  // namespace importer
