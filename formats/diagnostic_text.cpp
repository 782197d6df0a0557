#include "formats/diagnostic_text.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <utility>

#include "formats/json.h"

namespace formats {

namespace {

using analysis::Diagnostic;
using analysis::Diagnostics;
using analysis::Severity;

std::map<std::string, std::size_t> NoteCounts(const Diagnostics& diagnostics) {
  std::map<std::string, std::size_t> counts;
  for (const Diagnostic& one : diagnostics.List)
    if (one.Severity == Severity::Note) ++counts[one.Kind];
  return counts;
}

// The kind in words, "pads without wire"; in the singular for one.
std::string Counted(std::string kind, std::size_t count) {
  if (kind == "rule") return count == 1 ? "value beyond its limit" : "values beyond their limits";
  std::replace(kind.begin(), kind.end(), '-', ' ');
  const std::size_t plural = kind.find("s without");
  if (count == 1 && plural != std::string::npos) kind.erase(plural, 1);
  return kind;
}

const char* PrefixOf(Severity severity) {
  switch (severity) {
    case Severity::Error:
      return "error: ";
    case Severity::Finding:
      return "finding: ";
    case Severity::Note:
      break;
  }
  return "note: ";
}

void AddMeasured(const analysis::RuleValue& measured, Json& item) {
  item["rule"] = measured.Rule;
  if (measured.Value) item["value"] = *measured.Value;
  if (measured.Limit) item["limit"] = *measured.Limit;
  item["unit"] = measured.Unit;
  if (measured.OtherLine != 0) item["other_line"] = measured.OtherLine;
}

Json ListOf(const Diagnostics& diagnostics, Severity severity) {
  Json list = Json::array();
  for (const Diagnostic& one : diagnostics.List) {
    if (one.Severity != severity) continue;
    Json item{{"file", one.Place.File}, {"line", one.Place.Line}, {"kind", one.Kind}};
    if (one.Place.Line == 0) item["line"] = nullptr;
    item["what"] = one.What;
    item["advice"] = one.Advice;
    if (one.Measured) AddMeasured(*one.Measured, item);
    list.push_back(std::move(item));
  }
  return list;
}

Json ObjectOf(const Diagnostics& diagnostics, bool listNotes) {
  Json counts = Json::object();
  for (const auto& [kind, count] : NoteCounts(diagnostics)) counts[kind] = count;
  Json json{{"file", diagnostics.File},
            {"lines", diagnostics.Lines},
            {"ignored", diagnostics.Ignored},
            {"errors", ListOf(diagnostics, Severity::Error)},
            {"findings", ListOf(diagnostics, Severity::Finding)},
            {"note_counts", counts}};
  if (listNotes) json["notes"] = ListOf(diagnostics, Severity::Note);
  return json;
}

}  // namespace

std::string MessagesOf(const Diagnostics& diagnostics, bool listNotes) {
  std::string text;
  const auto add = [&text](const model::FilePlace& place, const std::string& what,
                           const std::string& advice) {
    text += model::MessageText(place, what, advice) + "\n";
  };
  for (const Diagnostic& one : diagnostics.List)
    if (listNotes || one.Severity != Severity::Note)
      add(one.Place, PrefixOf(one.Severity) + one.What, one.Advice);
  for (const auto& [kind, count] : NoteCounts(diagnostics))
    add({.File = diagnostics.File}, "note: " + std::to_string(count) + " " + Counted(kind, count),
        listNotes ? "" : "--notes lists them");
  return text;
}

std::string SummaryOf(const Diagnostics& diagnostics) {
  return "read " + std::to_string(diagnostics.Lines) + " lines, " + std::to_string(diagnostics.Ignored) +
         " ignored\n";
}

std::string JsonOf(const Diagnostics& diagnostics, bool listNotes) {
  return JsonText(ObjectOf(diagnostics, listNotes));
}

std::string JsonOf(const std::vector<Diagnostics>& files, bool listNotes) {
  Json list = Json::array();
  for (const Diagnostics& file : files) list.push_back(ObjectOf(file, listNotes));
  return JsonText(list);
}

}  // namespace formats
