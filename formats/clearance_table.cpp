#include "formats/clearance_table.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cstdio>
#include <nlohmann/json.hpp>

#include "formats/json.h"

namespace formats {

std::string LengthText(double length, const analysis::LengthUnit& unit) {
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", unit.Decimals, length);
  const std::string shown = text;
  const bool zero = shown.find_first_not_of("-0.") == std::string::npos;
  return zero && shown.front() == '-' ? shown.substr(1) : shown;
}

namespace {

using analysis::ClearanceRow;
using analysis::Clearances;
using analysis::Finding;
using analysis::LengthUnit;

const char* NameOf(Finding kind) {
  switch (kind) {
    case Finding::Touching:
      return "touching";
    case Finding::BelowLimit:
      return "below-limit";
    case Finding::None:
      break;
  }
  return "ok";
}

/// The number as shown. The JSON library takes no format: it writes the fewest digits that identify a number,
/// so the text is read back.
double ShownLength(double length, const LengthUnit& unit) {
  const std::string text = LengthText(length, unit);
  double shown = 0.0;
  std::from_chars(text.data(), text.data() + text.size(), shown);
  return shown;
}

std::string CountsText(const Clearances& clearances, const LengthUnit& unit) {
  const auto length = [&](double value) { return LengthText(value, unit) + " " + unit.Name; };
  std::string text = "# wires: " + std::to_string(clearances.Wires) +
                     ", diameter: " + length(clearances.WireDiameter) +
                     ", touching pairs: " + std::to_string(clearances.Count(Finding::Touching));
  if (clearances.Limit)
    text += ", others below " + length(*clearances.Limit) + ": " +
            std::to_string(clearances.Count(Finding::BelowLimit));
  return text + "\n";
}

/// The width of a text in columns; UTF-8 continuation bytes take none.
std::size_t WidthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

using Line = std::array<std::string, 7>;

Line LineOf(const ClearanceRow& row, const LengthUnit& unit) {
  return {LengthText(row.Clearance, unit),
          row.Name,
          row.Other,
          LengthText(row.Where[0], unit),
          LengthText(row.Where[1], unit),
          LengthText(row.Where[2], unit),
          NameOf(row.Kind)};
}

}  // namespace

std::string ColumnsOf(const Clearances& clearances, const LengthUnit& unit) {
  const std::string suffix = std::string("_") + unit.Name;
  std::vector<Line> lines{
      {"clearance" + suffix, "wire", "other", "x" + suffix, "y" + suffix, "z" + suffix, "finding"}};
  for (const ClearanceRow& row : clearances.Rows) lines.push_back(LineOf(row, unit));
  std::array<std::size_t, std::tuple_size_v<Line>> widths{};
  for (const Line& line : lines)
    for (std::size_t k = 0; k < line.size(); ++k) widths[k] = std::max(widths[k], WidthOf(line[k]));
  std::string text;
  for (const Line& line : lines) {
    for (std::size_t k = 0; k + 1 < line.size(); ++k) {
      const std::string blanks(widths[k] - WidthOf(line[k]), ' ');
      const bool isName = k == 1 || k == 2;
      text += (isName ? line[k] + blanks : blanks + line[k]) + "  ";
    }
    text += line.back() + "\n";
  }
  return text + CountsText(clearances, unit);
}

std::string JsonOf(const Clearances& clearances, const LengthUnit& unit) {
  // As many digits as the columns show.
  const auto length = [&unit](double value) { return ShownLength(value, unit); };
  Json json{{"unit", unit.Name},
            {"wire_diameter", length(clearances.WireDiameter)},
            {"limit", clearances.Limit ? Json(length(*clearances.Limit)) : Json()},
            {"wires", clearances.Wires},
            {"touching", clearances.Count(Finding::Touching)},
            {"below_limit", clearances.Count(Finding::BelowLimit)},
            {"pairs", Json::array()}};
  for (const ClearanceRow& row : clearances.Rows)
    json["pairs"].push_back({{"clearance", length(row.Clearance)},
                             {"wire", row.Name},
                             {"other", row.Other},
                             {"net", row.Net},
                             {"other_net", row.OtherNet},
                             {"x", length(row.Where[0])},
                             {"y", length(row.Where[1])},
                             {"z", length(row.Where[2])},
                             {"finding", NameOf(row.Kind)}});
  return JsonText(json);
}

}  // namespace formats
