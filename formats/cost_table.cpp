#include "formats/cost_table.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "formats/json.h"
#include "formats/length_table.h"
#include "model/numbers.h"

namespace formats {

namespace {

template <class TextOf>
void AddLine(const std::vector<CostCell>& cells, TextOf&& textOf, std::string& text) {
  bool first = true;
  for (const CostCell& cell : cells) {
    if (!std::exchange(first, false)) text += ',';
    text += CsvField(textOf(cell));
  }
  text += '\n';
}

}  // namespace

std::vector<CostCell> CostCells(const analysis::WireCost& wire) {
  const analysis::WireImpedance& impedance = wire.Impedance;
  return {{"name", wire.Wire.Name, false},
          {"other_name", wire.Wire.OtherName, false},
          {"table", TableOf(wire.Wire.Place), false},
          {"tier", wire.Wire.Tier, false},
          {"net_type", wire.Wire.NetType, false},
          {"length_mm", model::GeneralText(impedance.Length * 1e3), true},
          {"r_dc_mohm", model::GeneralText(impedance.DirectResistance * 1e3), true},
          {"r_mohm", model::GeneralText(impedance.Resistance * 1e3), true},
          {"l_nh", model::GeneralText(impedance.Inductance * 1e9), true},
          {"nearest", wire.Nearest, false},
          {"k", wire.K ? model::GeneralText(*wire.K) : "", true}};
}

std::string CostsCsv(const analysis::WireCosts& costs) {
  std::string text;
  AddLine(
      CostCells({}), [](const CostCell& cell) { return cell.Column; }, text);
  for (const analysis::WireCost& wire : costs.Rows)
    AddLine(
        CostCells(wire), [](const CostCell& cell) { return cell.Text; }, text);
  return text;
}

std::string CostsJson(const analysis::WireCosts& costs) {
  Json json{{"wires", Json::array()}};
  for (const analysis::WireCost& wire : costs.Rows) {
    Json& row = json["wires"].emplace_back();
    for (const CostCell& cell : CostCells(wire)) {
      if (!cell.IsNumber)
        row[cell.Column] = cell.Text;
      else
        row[cell.Column] = cell.Text.empty() ? Json() : Json::parse(cell.Text);
    }
  }
  return JsonText(json);
}

}  // namespace formats
