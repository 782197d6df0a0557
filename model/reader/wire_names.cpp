#include "model/reader/wire_names.h"

#include <string>

#include "model/arithmetic.h"
#include "model/numbers.h"
#include "model/text.h"

namespace model::reader {

namespace {

LineFate TakeNetType(const Tokens& tokens, NameIndex& index, Package& package) {
  if (tokens.Found() != 2) return LineFate::NotTwoFields;
  const std::uint32_t name = index.Find(tokens[0]);
  if (name == NamePlaces::kNone || index.At(name).FirstWire == NamePlaces::kNone)
    return LineFate::NamesNothing;
  package.WireNames[index.At(name).FirstWire].NetType = tokens[1];
  return LineFate::Taken;
}

}  // namespace

void ReadNetTypes(std::string_view text, NameIndex& index, Package& package, ReadObserver* observer) {
  Tokens tokens;
  Lines lines(text);
  std::string_view line;
  for (std::size_t number = 1; lines.Next(line); ++number) {
    if (line.ends_with('\r')) line.remove_suffix(1);
    tokens.SplitLine(line);
    const LineFate fate = TakeNetType(tokens, index, package);
    if (observer != nullptr && tokens.Found() != 0)
      observer->OnSideFileLine({number, tokens, fate, Keyword::None, 0, {}});
  }
  package.HaveVuFile = true;
}

void SetTiers(const std::vector<std::uint32_t>& wirePlaces, NameIndex& index, Package& package) {
  std::string lowest = "4";
  float lowestNumber = 4.0F;
  const auto copyFrom = [&](const Table<BondRec>& table, std::uint32_t NamePlaces::*first) {
    for (std::size_t i = 0; i < wirePlaces.size(); ++i) {
      const std::uint32_t number = index.At(wirePlaces[i]).*first;
      if (number == NamePlaces::kNone) continue;
      const std::string& tier = table[number].Tier;
      package.WireNames[i].Tier = tier;
      const float tierNumber = ToNumber(tier);
      if (!(lowestNumber > tierNumber)) continue;
      lowest = tier;
      lowestNumber = tierNumber;
    }
  };
  copyFrom(package.Bonds, &NamePlaces::FirstBond);
  copyFrom(package.SDBonds, &NamePlaces::FirstSDBond);
  if (lowest != "0") return;
  for (WireNameRec& entry : package.WireNames)
    entry.Tier = GeneralText(Single(double(ToNumber(entry.Tier)) + 1.0));
}

}  // namespace model::reader
