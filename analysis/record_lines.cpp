#include "analysis/record_lines.h"

#include "model/text.h"

namespace analysis {

using model::RecordPlace;
using model::RecordTable;
using model::reader::Keyword;
using model::reader::LineNote;

void RecordLines::OnPackageLine(const LineNote& note) {
  if (note.Fate != model::reader::LineFate::Taken) return;
  const auto part = static_cast<std::size_t>(note.Record.Part);
  switch (note.Keyword) {
    case Keyword::Cbp:
      bonds_.push_back({note.Line, 0, 0});
      break;
    case Keyword::SdCbp:
      sdBonds_.push_back({note.Line, 0, 0});
      break;
    case Keyword::Sbp:
    case Keyword::Wb:
      (note.Record.Table == RecordTable::Bonds ? bonds_ : sdBonds_)[note.Record.Number][part] = note.Line;
      if (note.Keyword == Keyword::Wb) wireNames_.push_back(note.Line);
      break;
    case Keyword::Stch:
      stitches_.push_back(note.Line);
      wireNames_.push_back(note.Line);
      break;
    case Keyword::Ring:
      rings_.push_back(note.Line);
      break;
    case Keyword::SRing:
      sRings_.push_back(note.Line);
      segments_.emplace_back();
      break;
    case Keyword::SrSeg:
      segments_[note.Record.Number].push_back(note.Line);
      break;
    case Keyword::Dap:
      daps_.push_back(note.Line);
      break;
    default:
      headers_[model::UpperCase(note.Fields[0])] = note.Line;
      break;
  }
}

std::size_t RecordLines::Of(const RecordPlace& place) const {
  const auto at = [&](const LineOfRecord& lines) {
    return place.Number < lines.size() ? lines[place.Number] : 0;
  };
  const auto part = [&](const auto& bonds) {
    return place.Number < bonds.size() ? bonds[place.Number][static_cast<std::size_t>(place.Part)] : 0;
  };
  switch (place.Table) {
    case RecordTable::Bonds:
      return part(bonds_);
    case RecordTable::SDBonds:
      return part(sdBonds_);
    case RecordTable::Stitches:
      return at(stitches_);
    case RecordTable::Rings:
      return at(rings_);
    case RecordTable::SRings:
      return at(sRings_);
    case RecordTable::Daps:
      return at(daps_);
    case RecordTable::WireNames:
      return at(wireNames_);
    case RecordTable::None:
      break;
  }
  return 0;
}

std::size_t RecordLines::OfHeader(const std::string& keyword) const {
  const auto found = headers_.find(keyword);
  return found == headers_.end() ? 0 : found->second;
}

}  // namespace analysis
