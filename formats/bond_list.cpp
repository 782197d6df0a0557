#include "formats/bond_list.h"

#include "analysis/wire_numbers.h"
#include "formats/length_table.h"
#include "model/numbers.h"

namespace formats {

namespace {

/// The bond of a wire; null for a stitch.
const model::BondRec* BondOf(const model::Package& package, const model::RecordPlace& place) {
  if (place.Table == model::RecordTable::Bonds) return &package.Bonds[place.Number];
  return place.Table == model::RecordTable::SDBonds ? &package.SDBonds[place.Number] : nullptr;
}

std::string Joined(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += CsvField(field) + ",";
  line.back() = '\n';
  return line;
}

}  // namespace

std::string BondList(const BondListInputs& inputs) {
  std::string text = Joined({"Net Name", "Pad Name", "Side", "Layer", "Length", "Bond Angle", "Die X",
                             "Die Y", "Subs X", "Subs Y"});
  for (const std::size_t k : analysis::InFileOrder(WireNumbers(inputs.Package, inputs.Loops, inputs.Lines))) {
    const analysis::WireLoop& loop = inputs.Loops[k];
    const analysis::WireRow& row = inputs.Rows[k];
    const model::BondRec* const bond = BondOf(inputs.Package, loop.Place);
    text += Joined({loop.Name, bond == nullptr ? "" : bond->Lead, bond == nullptr ? "" : bond->DieSide,
                    row.Tier, model::GeneralText(row.Length), model::GeneralText(row.Angle),
                    model::GeneralText(loop.Points.front().x), model::GeneralText(loop.Points.front().y),
                    model::GeneralText(loop.Points.back().x), model::GeneralText(loop.Points.back().y)});
  }
  return text;
}

std::string NetList(const BondListInputs& inputs) {
  std::string text;
  const std::vector<std::size_t> numbers = WireNumbers(inputs.Package, inputs.Loops, inputs.Lines);
  for (const std::size_t k : analysis::InFileOrder(numbers)) {
    const analysis::WireLoop& loop = inputs.Loops[k];
    const model::BondRec* const bond = BondOf(inputs.Package, loop.Place);
    text += Joined({std::to_string(numbers[k]), loop.Name, bond == nullptr ? "" : bond->Lead,
                    model::GeneralText(loop.Points.front().x), model::GeneralText(loop.Points.front().y)});
  }
  return text;
}

}  // namespace formats
