#include "formats/check_report.h"

#include <algorithm>
#include <map>
#include <nlohmann/json.hpp>
#include <tuple>

#include "formats/json_text.h"
#include "yax/output.h"

namespace formats {

namespace {

std::map<std::string, std::size_t> NoteCounts(const CheckReport& report) {
  std::map<std::string, std::size_t> counts;
  for (const Remark& remark : report.Remarks)
    if (remark.Rank == Level::Note) ++counts[remark.Kind];
  return counts;
}

// The kind in words, "pads without wire"; of one thing without the plural's letter.
std::string Counted(std::string kind, std::size_t count) {
  std::replace(kind.begin(), kind.end(), '-', ' ');
  const std::size_t plural = kind.find("s without");
  if (count == 1 && plural != std::string::npos) kind.erase(plural, 1);
  return kind;
}

const char* PrefixOf(Level level) {
  return level == Level::Error ? "error: " : level == Level::Finding ? "finding: " : "note: ";
}

Json JsonOf(const CheckReport& report, Level level) {
  Json list = Json::array();
  for (const Remark& remark : report.Remarks) {
    if (remark.Rank != level) continue;
    Json item{{"file", remark.At.File}, {"line", remark.At.Line}, {"kind", remark.Kind}};
    if (remark.At.Line == 0) item["line"] = nullptr;
    item["what"] = remark.What;
    item["advice"] = remark.Advice;
    list.push_back(std::move(item));
  }
  return list;
}

}  // namespace

std::size_t CheckReport::Count(Level level) const {
  return static_cast<std::size_t>(std::count_if(
      Remarks.begin(), Remarks.end(), [level](const Remark& remark) { return remark.Rank == level; }));
}

void CheckReport::Sort() {
  // The side file's name is the package file's and more, so it comes after it.
  std::stable_sort(Remarks.begin(), Remarks.end(), [](const Remark& a, const Remark& b) {
    return std::tie(a.At.File, a.At.Line) < std::tie(b.At.File, b.At.Line);
  });
}

std::string Shown(std::string_view word) {
  constexpr std::size_t kMost = 60;
  std::string shown = "'";
  for (const char letter : word.substr(0, kMost)) {
    const bool control = static_cast<unsigned char>(letter) < ' ' || letter == '\x7f';
    shown += control ? '?' : letter;
  }
  return shown + (word.size() > kMost ? "...'" : "'");
}

void TellReport(const CheckReport& report, bool listNotes) {
  for (const Remark& remark : report.Remarks)
    if (listNotes || remark.Rank != Level::Note)
      yax::Complain(remark.At, PrefixOf(remark.Rank) + remark.What, remark.Advice);
  for (const auto& [kind, count] : NoteCounts(report)) {
    yax::Complain({.File = report.File}, "note: " + std::to_string(count) + " " + Counted(kind, count),
                  listNotes ? "" : "--notes lists them");
  }
  yax::WriteOutput("-", "read " + std::to_string(report.Lines) + " lines, " + std::to_string(report.Ignored) +
                            " ignored\n");
}

std::string JsonReport(const CheckReport& report, bool listNotes) {
  Json counts = Json::object();
  for (const auto& [kind, count] : NoteCounts(report)) counts[kind] = count;
  Json json{{"file", report.File},
            {"lines", report.Lines},
            {"ignored", report.Ignored},
            {"errors", JsonOf(report, Level::Error)},
            {"findings", JsonOf(report, Level::Finding)},
            {"note_counts", counts}};
  if (listNotes) json["notes"] = JsonOf(report, Level::Note);
  return JsonText(json);
}

}  // namespace formats
