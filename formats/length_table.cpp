#include "formats/length_table.h"

#include <nlohmann/json.hpp>
#include <utility>

#include "formats/json.h"
#include "model/numbers.h"

namespace formats {

const char* TableOf(const model::RecordPlace& place) {
  if (place.Table == model::RecordTable::Stitches) return "stitch";
  return place.Table == model::RecordTable::SDBonds ? "stacked" : "base";
}

namespace {

/// A row as named values. Both formats take the columns' names from here.
Json ValuesOf(const analysis::WireRow& row, const std::string& unit) {
  return {{"name", row.Name},
          {"other_name", row.OtherName},
          {"table", TableOf(row.Place)},
          {"tier", row.Tier},
          {"net_type", row.NetType},
          {"plan_length_" + unit, row.PlanLength},
          {"length_" + unit, row.Length},
          {"angle_deg", row.Angle},
          {"start_height_" + unit, row.StartHeight},
          {"top_height_" + unit, row.TopHeight},
          {"end_height_" + unit, row.EndHeight}};
}

Json ValuesOf(const analysis::WireGroup& group, const std::string& unit) {
  return {{"tier", group.Tier},           {"net_type", group.NetType},
          {"wires", group.Wires},         {"shortest_" + unit, group.Shortest},
          {"mean_" + unit, group.Mean},   {"longest_" + unit, group.Longest},
          {"total_" + unit, group.Total}, {"largest_angle_deg", group.LargestAngle}};
}

template <class Row>
std::string Csv(const std::vector<Row>& rows, const std::string& unit) {
  std::string text;
  const auto addLine = [&text](const Json& values, auto&& fieldOf) {
    bool first = true;
    for (const auto& [key, value] : values.items()) {
      if (!std::exchange(first, false)) text += ',';
      text += CsvField(fieldOf(key, value));
    }
    text += '\n';
  };
  addLine(ValuesOf(Row{}, unit), [](const std::string& key, const Json&) { return key; });
  for (const Row& row : rows)
    addLine(ValuesOf(row, unit), [](const std::string&, const Json& value) {
      if (value.is_number_float()) return model::GeneralText(static_cast<float>(value.get<double>()));
      return value.is_string() ? value.get<std::string>() : value.dump();
    });
  return text;
}

template <class Row>
Json List(const std::vector<Row>& rows, const std::string& unit) {
  Json list = Json::array();
  for (const Row& row : rows) list.push_back(ValuesOf(row, unit));
  return list;
}

}  // namespace

std::string CsvField(std::string_view text) {
  if (text.find_first_of(",\"\r\n") == std::string_view::npos) return std::string(text);
  std::string quoted = "\"";
  for (const char letter : text) quoted += letter == '"' ? "\"\"" : std::string(1, letter);
  return quoted + '"';
}

std::string WiresCsv(const std::vector<analysis::WireRow>& rows, const std::string& unit) {
  return Csv(rows, unit);
}

std::string GroupsCsv(const std::vector<analysis::WireGroup>& groups, const std::string& unit) {
  return Csv(groups, unit);
}

std::string WiresJson(const std::vector<analysis::WireRow>* rows,
                      const std::vector<analysis::WireGroup>& groups, const std::string& unit) {
  Json json;
  json["unit"] = unit;
  if (rows != nullptr) json["wires"] = List(*rows, unit);
  json["summary"] = List(groups, unit);
  return JsonText(json);
}

}  // namespace formats
