#include "sheet/diagram_wires.h"

#include "analysis/lengths.h"
#include "analysis/wire_numbers.h"

namespace sheet {

namespace {

std::string LeadOf(const model::Package& package, const model::RecordPlace& place) {
  if (place.Table == model::RecordTable::Bonds) return package.Bonds[place.Number].Lead;
  return place.Table == model::RecordTable::SDBonds ? package.SDBonds[place.Number].Lead : "";
}

}  // namespace

std::vector<DiagramWire> DiagramWiresOf(const model::Package& package,
                                        const std::vector<analysis::WireLoop>& loops,
                                        const analysis::RecordLines& lines) {
  const std::vector<analysis::WireRow> rows = analysis::MeasureLengths(package, loops);
  std::vector<DiagramWire> wires;
  const std::vector<std::size_t> numbers = analysis::WireNumbers(package, loops, lines);
  for (const std::size_t k : analysis::InFileOrder(numbers))
    wires.push_back({.Place = loops[k].Place,
                     .Number = numbers[k],
                     .Name = loops[k].Name,
                     .Lead = LeadOf(package, loops[k].Place),
                     .Tier = rows[k].Tier,
                     .NetType = rows[k].NetType,
                     .From = glm::dvec2(loops[k].Points.front()),
                     .To = glm::dvec2(loops[k].Points.back()),
                     .PlanLength = rows[k].PlanLength,
                     .Length = rows[k].Length,
                     .Angle = rows[k].Angle});
  return wires;
}

}  // namespace sheet
