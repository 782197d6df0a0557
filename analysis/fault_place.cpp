#include "analysis/fault_place.h"

#include "analysis/drawing_check.h"
#include "analysis/line_check.h"
#include "formats/check_report.h"
#include "yax/options/package.h"

namespace analysis {

yax::Unusable NotDrawn(const std::string& packageFile, const model::Fault& fault) {
  formats::CheckReport report{.File = packageFile};
  LineCheck lines(report);
  model::Package package = yax::LoadPackage({packageFile}, &lines);
  CheckDrawing(package, lines.Lines(), report);
  for (const formats::Remark& remark : report.Remarks)
    if (remark.Rank == formats::Level::Error && remark.What.find(fault.what()) != std::string::npos)
      return {remark.At, fault.what(), remark.Advice};
  // Only with settings other than those after a load.
  return {{.File = packageFile}, fault.what(), "correct the record, or use other settings"};
}

}  // namespace analysis
