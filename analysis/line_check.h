/// What the reader did in silence with the lines of a package, told by watching it.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "formats/check_report.h"
#include "model/package.h"
#include "model/reader/read_observer.h"

namespace analysis {

/// The lines that made a bond; 0 where there is none.
struct BondLines {
  std::size_t Pad = 0, SubstratePad = 0, Wire = 0;
  bool Again = false;  ///< a pad before it on the same die has its name
};

/// The line of every record of a package.
struct PackageLines {
  std::unordered_map<std::string, std::size_t> Headers;  ///< by keyword; of several lines the last one
  std::vector<BondLines> Bonds, SDBonds;
  std::vector<std::size_t> Stitches, Rings, SRings, Daps;
  std::vector<std::vector<std::size_t>> Segments;  ///< by ring
  std::unordered_set<std::string> StitchedPads;    ///< names of the pads at the stitches' ends
  std::unordered_set<std::size_t> Incomplete;      ///< lines that end before their last number
  std::unordered_set<std::size_t> Unreadable;      ///< lines with a number that was read as 0

  /// The line that gave a header keyword its value; 0 when there is none.
  std::size_t HeaderOf(const std::string& keyword) const;
  /// True when it was told already why the line's numbers are 0.
  bool Tells(std::size_t line) const;

  /// True where there is anything that only wire-bonded packages show.
  bool HasMoreThanDies() const;
};

/// Watches one read and adds to the report what it sees.
class LineCheck final : public model::reader::ReadObserver {
 public:
  explicit LineCheck(formats::CheckReport& report) : report_(report) {}

  void OnPackageLine(const model::reader::LineNote& note) override;
  void OnSideFileLine(const model::reader::LineNote& note) override;
  void OnPackageEnd(std::size_t lines) override { report_.Lines = lines; }

  /// Adds what only the whole package tells.
  void Finish(const model::Package& package);

  const PackageLines& Lines() const { return lines_; }

 private:
  using FirstLines = std::unordered_map<std::string, std::size_t>;
  struct Nameless {
    std::size_t line;
    std::string keyword, name;
    bool ring;
  };

  void Add(formats::Level level, const char* kind, std::size_t line, std::string what, std::string advice);
  void Ignored(const model::reader::LineNote& note);
  void CheckNumbers(const model::reader::LineNote& note);
  void TakeHeaderLine(const model::reader::LineNote& note);
  void TakeRecord(const model::reader::LineNote& note);
  void TakePad(const model::reader::LineNote& note, std::vector<BondLines>& bonds, FirstLines& names);
  void TakeOfBond(const model::reader::LineNote& note, std::size_t BondLines::*which);
  std::size_t Before(FirstLines& lines, std::string key, std::size_t line);
  void FindTwins(const model::reader::LineNote& note);

  formats::CheckReport& report_;
  PackageLines lines_;
  FirstLines pads_, stackedPads_, rings_, twins_;
  std::vector<Nameless> nameless_;
  std::vector<formats::Remark> repeatedPads_, unknownNets_;  ///< of interest in a package with wires only
  struct NetType {
    std::string type;
    std::size_t line = 0;
  };
  std::unordered_map<std::string, NetType> netTypes_;
};

}  // namespace analysis
