#include "model/reader/package_reader.h"

namespace model::reader {

void PackageReader::NoteHeaderLine(HeaderLine kind) {
  if (tokens_.Found() == 0) return;
  const bool number = kind == HeaderLine::Number || kind == HeaderLine::End;
  const LineFate fate = kind != HeaderLine::Unknown                      ? LineFate::Taken
                        : BodyKeywordOf(tokens_[0]) != BodyKeyword::None ? LineFate::BeforeCompz
                                                                         : LineFate::UnknownKeyword;
  observer_->OnPackageLine({line_, tokens_, fate, BodyKeyword::None, number ? 1U << 1 : 0U, {}});
}

void PackageReader::NoteBodyLine(BodyKeyword keyword) {
  if (tokens_.Found() == 0) return;
  const RecordPlace record = PlaceOf(keyword);
  LineFate fate = LineFate::Taken;
  if (keyword == BodyKeyword::None) {
    PackageScalars unused;
    fate = TakeHeaderLine(tokens_, unused) == HeaderLine::Unknown ? LineFate::UnknownKeyword
                                                                  : LineFate::AfterCompz;
  } else if (record.Table == RecordTable::None) {
    fate = LineFate::NamesNothing;
  }
  observer_->OnPackageLine({line_, tokens_, fate, keyword, numbers_, record});
  numbers_ = 0;
}

/// The record that the line just read has filled, or changed by its name.
RecordPlace PackageReader::PlaceOf(BodyKeyword keyword) {
  const auto last = [](RecordTable which, const auto& table) {
    return RecordPlace{which, table.UpperBound() - 1};
  };
  switch (keyword) {
    case BodyKeyword::Cbp:
      return last(RecordTable::Bonds, package_.Bonds);
    case BodyKeyword::SdCbp:
      return last(RecordTable::SDBonds, package_.SDBonds);
    case BodyKeyword::Sbp:
      return BondPlace(index_.Find(tokens_[1]), BondPart::SubstratePad);
    case BodyKeyword::Wb:
      return BondPlace(index_.Find(tokens_[1]), BondPart::Wire);
    case BodyKeyword::Stch:
      return last(RecordTable::Stitches, package_.Stitches);
    case BodyKeyword::Ring:
      return last(RecordTable::Rings, package_.Rings);
    case BodyKeyword::SRing:
      return last(RecordTable::SRings, package_.SRings);
    case BodyKeyword::SrSeg:
      return RingPlace(index_.Find(tokens_[1]));
    case BodyKeyword::Dap:
      return last(RecordTable::Daps, package_.Daps);
    case BodyKeyword::None:
      break;
  }
  return {};
}

}  // namespace model::reader
