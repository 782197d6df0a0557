/// Finds lines of a package file that the reader ignores or misreads, by watching it.
#pragma once

#include <cstddef>
#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "analysis/diagnostics.h"
#include "analysis/record_lines.h"
#include "model/package.h"
#include "model/reader/read_observer.h"

namespace analysis {

/// Watches one read of a package.
class LineCheck final : public model::reader::ReadObserver {
 public:
  /// `file` is the package file's name for the messages.
  explicit LineCheck(std::string file) { found_.File = std::move(file); }

  void OnPackageLine(const model::reader::LineNote& note) override;
  void OnSideFileLine(const model::reader::LineNote& note) override;
  void OnPackageEnd(std::size_t lines) override { found_.Lines = lines; }

  /// All diagnostics; call it once the whole package is read.
  Diagnostics Finish(const model::Package& package);

  const RecordLines& Lines() const { return lines_; }
  /// True for a line that ends before its last number.
  bool IsIncomplete(std::size_t line) const { return incomplete_.contains(line); }
  /// True where a diagnostic already says why numbers of the line are 0.
  bool ExplainsZeros(std::size_t line) const { return IsIncomplete(line) || unreadable_.contains(line); }

 private:
  using FirstLines = std::unordered_map<std::string, std::size_t>;
  /// A line that names a pad or ring that does not exist, or not yet.
  struct UnresolvedReference {
    std::size_t Line;
    std::string Keyword, Name;
    bool Ring;
  };
  struct NetType {
    std::string Type;
    std::size_t Line = 0;
  };

  void Add(const char* kind, std::size_t line, std::string what, std::string advice);
  void AddIgnored(const model::reader::LineNote& note);
  void CheckNumbers(const model::reader::LineNote& note);
  void CheckHeaderLine(const model::reader::LineNote& note);
  void CheckRecord(const model::reader::LineNote& note);
  void CheckPad(const model::reader::LineNote& note);
  void CheckPartOfBond(const model::reader::LineNote& note);
  void CheckSRing(const model::reader::LineNote& note);
  void FindDuplicates(const model::reader::LineNote& note);

  Diagnostics found_;
  RecordLines lines_;
  FirstLines pads_, stackedPads_, rings_, records_;
  std::vector<UnresolvedReference> unresolved_;
  std::vector<Diagnostic> repeatedPads_, unknownNets_;  ///< reported for wire-bonded packages only
  std::unordered_map<std::string, NetType> netTypes_;
  std::unordered_set<std::size_t> incomplete_;
  std::unordered_set<std::size_t> unreadable_;  ///< lines with a number that is read as 0
};

}  // namespace analysis
