/// The line of every record of a package file, found by look-up.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <vector>

#include "model/reader/read_observer.h"
#include "model/record_place.h"

namespace analysis {

/// Watches one read of a package.
class RecordLines final : public model::reader::ReadObserver {
 public:
  void OnPackageLine(const model::reader::LineNote& note) override;
  void OnSideFileLine(const model::reader::LineNote&) override {}

  /// The line that made a record: for a bond that of the given part, the last one of several; for a wire list
  /// entry that of the wire.
  /// Returns 0 where there is none
  std::size_t Of(const model::RecordPlace& place) const;

  /// The line of a piece of a segmented ring.
  std::size_t OfSegment(std::size_t ring, std::size_t segment) const { return segments_[ring][segment]; }

  /// The line that gave a header keyword its value, of several lines the last one; 0 when there is none.
  std::size_t OfHeader(const std::string& keyword) const;

 private:
  using LineOfRecord = std::vector<std::size_t>;

  std::unordered_map<std::string, std::size_t> headers_;
  std::vector<std::array<std::size_t, 3>> bonds_, sdBonds_;  ///< by bond and part
  LineOfRecord stitches_, rings_, sRings_, daps_, wireNames_;
  std::vector<LineOfRecord> segments_;
};

}  // namespace analysis
