/// The reader's state from line to line, for the reader's sources; all others include read_package.h.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "model/numbers.h"
#include "model/reader/keywords.h"
#include "model/reader/name_index.h"
#include "model/reader/package_header.h"
#include "model/reader/read_observer.h"
#include "model/reader/read_package.h"
#include "model/reader/wire_names.h"
#include "model/text.h"

namespace model::reader {

/// One pass over a package file. The name index holds views into the file's text.
class PackageReader {
 public:
  PackageReader(const PackageScalars& before, ReadObserver* observer) : observer_(observer) {
    static_cast<PackageScalars&>(package_) = before;
  }

  void ReadText(std::string text) {
    text_ = std::move(text);
    DropCarriageReturns(text_);
    Lines lines(text_);
    if (ReadHeader(lines)) ReadBody(lines);
    if (observer_ != nullptr) observer_->OnPackageEnd(line_);
  }

  void ReadSideFile(std::string_view text) { ReadNetTypes(text, index_, package_, observer_); }
  void SetWireTiers() { SetTiers(wirePlaces_, index_, package_); }

  Package& Result() { return package_; }

 private:
  bool NextRecord(Lines& lines);
  bool ReadHeader(Lines& lines);
  void ReserveTables(Lines lines);
  void ReadBody(Lines& lines);
  void BodyLine(Keyword keyword);
  void NoteHeaderLine(Keyword keyword);
  void NoteBodyLine(Keyword keyword);
  RecordPlace PlaceOf(Keyword keyword);
  void ReadDiePad(bool stacked);
  void ReadSubstratePad();
  void ReadWire();
  void ReadStitch();
  void ReadRing();
  void ReadSRing();
  void ReadSegment();
  void ReadDap();
  RecordPlace BondPlace(std::uint32_t name, BondPart part);
  RecordPlace RingPlace(std::uint32_t name);
  BondRec* BondAt(const RecordPlace& place);
  const BondRec* LastBond(std::uint32_t name);
  void AddWireName(const RecordPlace& wire, std::uint32_t name, std::string_view text,
                   std::string_view text2);
  float Number(std::size_t field) {
    numbers_ |= 1U << field;
    return ToNumber(tokens_[field]);
  }
  float Scaled(std::size_t field) { return Number(field) / package_.UnitScale; }

  Package package_;
  std::string text_;
  Tokens tokens_;
  NameIndex index_;
  std::vector<std::uint32_t> wirePlaces_;  ///< number in the index of each wire-list entry's name
  ReadObserver* observer_;                 ///< may be null
  std::size_t line_ = 0;                   ///< lines read so far
  std::uint32_t numbers_ = 0;              ///< bit n: field n was read as a number since the last note
};

}  // namespace model::reader
