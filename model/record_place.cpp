#include "model/record_place.h"

#include "model/package.h"
#include "model/text.h"
#include "model/wire_list_entry.h"

namespace model {

namespace {

/// The words before the record's name.
const char* WordsBefore(const RecordPlace& place) {
  switch (place.Table) {
    case RecordTable::Bonds:
    case RecordTable::SDBonds:
      if (place.Part == BondPart::Wire) return "wire ";
      if (place.Part == BondPart::SubstratePad) return "substrate pad of ";
      return place.Table == RecordTable::Bonds ? "die pad " : "stacked die pad ";
    case RecordTable::Stitches:
    case RecordTable::WireNames:
      return "wire ";
    case RecordTable::Rings:
      return "ring ";
    case RecordTable::SRings:
      return "segmented ring ";
    case RecordTable::Daps:
      return "die attach band ";
    case RecordTable::None:
      break;
  }
  return "";
}

/// True for records without a name.
bool IsCounted(const RecordPlace& place) { return place.Table == RecordTable::Rings; }

std::string NumberOf(const RecordPlace& place) { return std::to_string(place.Number + 1); }

}  // namespace

std::string NameOf(const Package& package, const RecordPlace& place) {
  switch (place.Table) {
    case RecordTable::Bonds:
      return package.Bonds[place.Number].Name;
    case RecordTable::SDBonds:
      return package.SDBonds[place.Number].Name;
    case RecordTable::Stitches:
      return package.Stitches[place.Number].Name;
    case RecordTable::SRings:
      return package.SRings[place.Number].Name;
    case RecordTable::Daps:
      return package.Daps[place.Number].Name;
    case RecordTable::WireNames:
      return EntryText(package.WireNames[place.Number]);
    case RecordTable::Rings:
    case RecordTable::None:
      break;
  }
  return {};
}

std::string RecordName(const Package& package, const RecordPlace& place) {
  return WordsBefore(place) + (IsCounted(place) ? NumberOf(place) : NameOf(package, place));
}

std::string QuotedRecordName(const Package& package, const RecordPlace& place) {
  return WordsBefore(place) + (IsCounted(place) ? NumberOf(place) : Quoted(NameOf(package, place)));
}

const char* TableName(RecordTable table) {
  switch (table) {
    case RecordTable::Bonds:
      return "bonds";
    case RecordTable::SDBonds:
      return "stacked die bonds";
    case RecordTable::Stitches:
      return "stitches";
    case RecordTable::Rings:
      return "rings";
    case RecordTable::SRings:
      return "segmented rings";
    case RecordTable::Daps:
      return "die attach bands";
    case RecordTable::WireNames:
      return "wire list entries";
    case RecordTable::None:
      break;
  }
  return "records";
}

}  // namespace model
