/// A die from the file of a chip: DEF, LEF or a table of pads.
#pragma once

#include <string>
#include <string_view>

#include "import/die.h"

namespace importer {

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
