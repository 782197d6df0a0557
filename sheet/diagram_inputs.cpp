#include "sheet/diagram_inputs.h"

namespace sheet {

const std::vector<Paper>& NamedPapers() {
  static const std::vector<Paper> papers{{"a4", 297.0, 210.0},
                                         {"letter", 279.4, 215.9},
                                         {"a3", 420.0, 297.0},
                                         {"tabloid", 431.8, 279.4},
                                         {"a2", 594.0, 420.0}};
  return papers;
}

}  // namespace sheet
