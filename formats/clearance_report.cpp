#include "formats/clearance_report.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <cstdio>
#include <nlohmann/json.hpp>
#include <unordered_map>

#include "analysis/clearance.h"
#include "formats/json_text.h"

namespace formats {

namespace {

/// A number for each different text.
class Numbers {
 public:
  std::uint32_t Of(const std::string& text) {
    return numbers_.emplace(text, static_cast<std::uint32_t>(numbers_.size())).first->second;
  }

 private:
  std::unordered_map<std::string, std::uint32_t> numbers_;
};

std::vector<analysis::LoopOfNet> LoopsOf(const ClearanceInputs& inputs) {
  Numbers nets;
  Numbers pads;
  std::vector<analysis::LoopOfNet> loops;
  loops.reserve(inputs.loops.size());
  for (const analysis::WireLoop& loop : inputs.loops)
    loops.push_back({.Points = loop.Points,
                     .Net = nets.Of(yax::NetOf(inputs.nets, loop.Name)),
                     .Pads = {pads.Of(loop.Pads[0]), pads.Of(loop.Pads[1])}});
  return loops;
}

const char* NameOf(Finding kind) {
  return kind == Finding::Touching ? "touching" : kind == Finding::BelowLimit ? "below-limit" : "ok";
}

std::string LengthText(const ClearanceReport& report, double length) {
  char text[400];
  std::snprintf(text, sizeof text, "%.*f", report.Unit.Decimals, length);
  const std::string shown = text;
  return shown.find_first_not_of("-0.") == std::string::npos && shown.front() == '-' ? shown.substr(1)
                                                                                     : shown;
}

std::string CountsText(const ClearanceReport& report) {
  const auto length = [&](double value) { return LengthText(report, value) + " " + report.Unit.Name; };
  std::string text = "# wires: " + std::to_string(report.Wires) +
                     ", diameter: " + length(report.WireDiameter) +
                     ", touching pairs: " + std::to_string(report.Count(Finding::Touching));
  if (report.Limit)
    text +=
        ", others below " + length(*report.Limit) + ": " + std::to_string(report.Count(Finding::BelowLimit));
  return text + "\n";
}

/// How many columns a text fills: continuations of a character fill none.
std::size_t WidthOf(const std::string& text) {
  return static_cast<std::size_t>(std::count_if(
      text.begin(), text.end(), [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

using Line = std::array<std::string, 7>;

Line LineOf(const ClearanceReport& report, const ClearanceRow& row) {
  return {LengthText(report, row.Clearance),
          row.Name,
          row.Other,
          LengthText(report, row.Where[0]),
          LengthText(report, row.Where[1]),
          LengthText(report, row.Where[2]),
          NameOf(row.Kind)};
}

}  // namespace

std::size_t ClearanceReport::Count(Finding kind) const {
  return static_cast<std::size_t>(
      std::count_if(Rows.begin(), Rows.end(), [kind](const ClearanceRow& row) { return row.Kind == kind; }));
}

ClearanceReport MeasureClearances(const ClearanceInputs& inputs) {
  ClearanceReport report{.Unit = inputs.unit,
                         .WireDiameter = inputs.wireDiameter,
                         .Limit = inputs.limit,
                         .Wires = inputs.loops.size(),
                         .Rows = {}};
  const double reach = inputs.all ? inputs.wireDiameter + std::max(inputs.limit.value_or(0.0), 0.0) : -1.0;
  for (const analysis::LoopPair& pair : analysis::FindNearLoops(LoopsOf(inputs), reach).Nearest) {
    const analysis::WireLoop& first = inputs.loops[pair.First];
    const analysis::WireLoop& second = inputs.loops[pair.Second];
    ClearanceRow row{.Name = first.Name,
                     .Other = second.Name,
                     .Net = yax::NetOf(inputs.nets, first.Name),
                     .OtherNet = yax::NetOf(inputs.nets, second.Name),
                     .Clearance = pair.Distance - inputs.wireDiameter,
                     .Where = pair.Where};
    if (row.Clearance <= 0.0) {
      row.Kind = Finding::Touching;
    } else if (inputs.limit && row.Clearance < *inputs.limit) {
      row.Kind = Finding::BelowLimit;
    }
    report.Rows.push_back(std::move(row));
  }
  return report;
}

std::string ColumnsOf(const ClearanceReport& report) {
  const std::string unit = std::string("_") + report.Unit.Name;
  std::vector<Line> lines{
      {"clearance" + unit, "wire", "other", "x" + unit, "y" + unit, "z" + unit, "finding"}};
  for (const ClearanceRow& row : report.Rows) lines.push_back(LineOf(report, row));
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
  return text + CountsText(report);
}

std::string JsonOf(const ClearanceReport& report) {
  // As many digits as the columns show.
  const auto length = [&report](double value) { return Json::parse(LengthText(report, value)); };
  Json json{{"unit", report.Unit.Name},
            {"wire_diameter", length(report.WireDiameter)},
            {"limit", report.Limit ? length(*report.Limit) : Json()},
            {"wires", report.Wires},
            {"touching", report.Count(Finding::Touching)},
            {"below_limit", report.Count(Finding::BelowLimit)},
            {"pairs", Json::array()}};
  for (const ClearanceRow& row : report.Rows)
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
