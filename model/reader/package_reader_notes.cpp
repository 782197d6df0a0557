#include "model/reader/package_reader.h"

namespace model::reader {

namespace {

LineFate FateInHeader(Keyword keyword) {
  if (IsOfHeader(keyword)) return LineFate::Taken;
  return IsOfBody(keyword) ? LineFate::BeforeCompz : LineFate::UnknownKeyword;
}

LineFate FateInBody(Keyword keyword, const RecordPlace& record) {
  if (IsOfHeader(keyword)) return LineFate::AfterCompz;
  if (!IsOfBody(keyword)) return LineFate::UnknownKeyword;
  return record.Table == RecordTable::None ? LineFate::NamesNothing : LineFate::Taken;
}

}  // namespace

void PackageReader::NoteHeaderLine(Keyword keyword) {
  if (tokens_.Found() == 0) return;
  const bool number =
      IsOfHeader(keyword) && keyword != Keyword::Technology && keyword != Keyword::SdTechnology;
  observer_->OnPackageLine({line_, tokens_, FateInHeader(keyword), keyword, number ? 1U << 1 : 0U, {}});
}

void PackageReader::NoteBodyLine(Keyword keyword) {
  if (tokens_.Found() == 0) return;
  const RecordPlace record = PlaceOf(keyword);
  observer_->OnPackageLine({line_, tokens_, FateInBody(keyword, record), keyword, numbers_, record});
  numbers_ = 0;
}

/// The record that the last line filled, or that it changed by naming it.
RecordPlace PackageReader::PlaceOf(Keyword keyword) {
  const auto last = [](RecordTable which, const auto& table) {
    return RecordPlace{which, table.UpperBound() - 1};
  };
  switch (keyword) {
    case Keyword::Cbp:
      return last(RecordTable::Bonds, package_.Bonds);
    case Keyword::SdCbp:
      return last(RecordTable::SDBonds, package_.SDBonds);
    case Keyword::Sbp:
      return BondPlace(index_.Find(tokens_[1]), BondPart::SubstratePad);
    case Keyword::Wb:
      return BondPlace(index_.Find(tokens_[1]), BondPart::Wire);
    case Keyword::Stch:
      return last(RecordTable::Stitches, package_.Stitches);
    case Keyword::Ring:
      return last(RecordTable::Rings, package_.Rings);
    case Keyword::SRing:
      return last(RecordTable::SRings, package_.SRings);
    case Keyword::SrSeg:
      return RingPlace(index_.Find(tokens_[1]));
    case Keyword::Dap:
      return last(RecordTable::Daps, package_.Daps);
    default:
      break;
  }
  return {};
}

}  // namespace model::reader
