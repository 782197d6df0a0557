/// Which record of a package a fault, a shape or a line of the file is about.
#pragma once

#include <compare>
#include <cstddef>
#include <string>

namespace model {

struct Package;

enum class RecordTable { None, Bonds, SDBonds, Stitches, Rings, SRings, Daps, WireNames };

/// A bond is one record, but three lines of a file make it and it is drawn as three things.
enum class BondPart { DiePad, SubstratePad, Wire };

struct RecordPlace {
  RecordTable Table = RecordTable::None;
  std::size_t Number = 0;            ///< counted from 0
  BondPart Part = BondPart::DiePad;  ///< only for the two tables of bonds

  auto operator<=>(const RecordPlace&) const = default;
};

/// The same record, whichever part of a bond the place names: for records as keys.
inline RecordPlace WholeRecord(RecordPlace place) {
  place.Part = BondPart::DiePad;
  return place;
}

/// The name that the file gives the record: a pad's, "A:B" for a stitch; empty for a ring, which has none.
/// Needs   a record of the package
std::string NameOf(const Package& package, const RecordPlace& place);

/// The record in words: "wire VDD_L3", "substrate pad of VDD_L3", "ring 3".
/// Needs   a record of the package
std::string RecordName(const Package& package, const RecordPlace& place);

/// The same with a name in quotes: "wire 'VDD_L3'", "ring 3".
std::string QuotedRecordName(const Package& package, const RecordPlace& place);

/// The records of a table in words: "stacked die bonds".
const char* TableName(RecordTable table);

}  // namespace model
