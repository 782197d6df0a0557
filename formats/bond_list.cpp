#include "formats/bond_list.h"

#include <algorithm>

#include "formats/length_table.h"
#include "model/numbers.h"

namespace formats {

namespace {

std::string Number(double value) { return model::GeneralText(static_cast<float>(value)); }

/// The bond that a wire is part of; none for a stitch.
const model::BondRec* BondOf(const model::Package& package, const model::RecordPlace& place) {
  if (place.Table == model::RecordTable::Bonds) return &package.Bonds[place.Number];
  return place.Table == model::RecordTable::SDBonds ? &package.SDBonds[place.Number] : nullptr;
}

std::string Joined(const std::vector<std::string>& fields) {
  std::string line;
  for (const std::string& field : fields) line += (line.empty() ? "" : ",") + CsvField(field);
  return line + "\n";
}

std::vector<std::size_t> InFileOrder(const BondListInputs& inputs) {
  std::vector<std::size_t> order(inputs.Loops.size());
  for (std::size_t k = 0; k < order.size(); ++k) order[k] = k;
  const auto line = [&](std::size_t k) { return inputs.Lines.Of(inputs.Loops[k].Place); };
  std::stable_sort(order.begin(), order.end(), [&](std::size_t a, std::size_t b) { return line(a) < line(b); });
  return order;
}

}  // namespace

std::string BondList(const BondListInputs& inputs) {
  std::string text =
      Joined({"Net Name", "Pad Name", "Side", "Layer", "Length", "Bond Angle", "Die X", "Die Y", "Subs X", "Subs Y"});
  for (const std::size_t k : InFileOrder(inputs)) {
    const analysis::WireLoop& loop = inputs.Loops[k];
    const analysis::WireRow& row = inputs.Rows[k];
    const model::BondRec* const bond = BondOf(inputs.Package, loop.Place);
    text += Joined({loop.Name, bond == nullptr ? "" : bond->Lead, bond == nullptr ? "" : bond->DieSide, row.Tier,
                    Number(row.Length), Number(row.Angle), Number(loop.Points.front().x), Number(loop.Points.front().y),
                    Number(loop.Points.back().x), Number(loop.Points.back().y)});
  }
  return text;
}

std::string NetList(const BondListInputs& inputs) {
  std::string text;
  std::size_t number = 0;
  for (const std::size_t k : InFileOrder(inputs)) {
    const analysis::WireLoop& loop = inputs.Loops[k];
    const model::BondRec* const bond = BondOf(inputs.Package, loop.Place);
    text += Joined({std::to_string(++number), loop.Name, bond == nullptr ? "" : bond->Lead,
                    Number(loop.Points.front().x), Number(loop.Points.front().y)});
  }
  return text;
}

}  // namespace formats
