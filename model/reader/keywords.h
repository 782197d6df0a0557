/// The keywords of a package file, and the order of a die pad's sizes.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

#include "model/side.h"

namespace model::reader {

enum class Keyword {
  None,
  // Of the header.
  Technology,
  SdTechnology,
  CompL,
  CompW,
  CompZ,
  SdCompL,
  SdCompW,
  SdCompZ,
  SdRotation,
  SdXOffset,
  SdYOffset,
  // Of the body.
  Cbp,
  SdCbp,
  Sbp,
  Wb,
  Stch,
  Ring,
  SRing,
  SrSeg,
  Dap
};

constexpr bool IsOfHeader(Keyword keyword) {
  return keyword >= Keyword::Technology && keyword <= Keyword::SdYOffset;
}
constexpr bool IsOfBody(Keyword keyword) { return keyword >= Keyword::Cbp; }

/// Whether the line of a die pad gives its size along y before the size along x.
/// Deliberate: on the base die the side letter, in upper case only, decides; on the stacked die they are
/// always exchanged.
constexpr bool SizesExchanged(bool stacked, std::string_view dieSide) {
  const std::optional<Side> side = ExactSideOf(dieSide);
  return stacked || (side && !IsUpright(*side));
}

/// Encodes a word as one number, so that a single comparison recognizes it: letters in either case and "_"
/// are the digits 1 to 27 in base 28, and 64 bits hold 13 of them. Returns 0 for any other word.
constexpr std::uint64_t KeywordKey(std::string_view word) {
  if (word.size() > 13) return 0;
  std::uint64_t key = 0;
  for (const char c : word) {
    const char letter = c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c;
    if (letter != '_' && (letter < 'A' || letter > 'Z')) return 0;
    key = key * 28 + static_cast<std::uint64_t>(letter == '_' ? 27 : letter - 'A' + 1);
  }
  return key;
}

/// The keyword that a word spells, in any letter case.
constexpr Keyword KeywordOf(std::string_view word) {
  switch (KeywordKey(word)) {
    case KeywordKey("TECHNOLOGY"):
      return Keyword::Technology;
    case KeywordKey("SD_TECHNOLOGY"):
      return Keyword::SdTechnology;
    case KeywordKey("COMPL"):
      return Keyword::CompL;
    case KeywordKey("COMPW"):
      return Keyword::CompW;
    case KeywordKey("COMPZ"):
      return Keyword::CompZ;
    case KeywordKey("SD_COMPL"):
      return Keyword::SdCompL;
    case KeywordKey("SD_COMPW"):
      return Keyword::SdCompW;
    case KeywordKey("SD_COMPZ"):
      return Keyword::SdCompZ;
    case KeywordKey("SD_ROTATION"):
      return Keyword::SdRotation;
    case KeywordKey("SD_XOFFSET"):
      return Keyword::SdXOffset;
    case KeywordKey("SD_YOFFSET"):
      return Keyword::SdYOffset;
    case KeywordKey("CBP"):
      return Keyword::Cbp;
    case KeywordKey("SD_CBP"):
      return Keyword::SdCbp;
    case KeywordKey("SBP"):
      return Keyword::Sbp;
    case KeywordKey("WB"):
      return Keyword::Wb;
    case KeywordKey("STCH"):
      return Keyword::Stch;
    case KeywordKey("RING"):
      return Keyword::Ring;
    case KeywordKey("SRING"):
      return Keyword::SRing;
    case KeywordKey("SRSEG"):
      return Keyword::SrSeg;
    case KeywordKey("DAP"):
      return Keyword::Dap;
    default:
      return Keyword::None;
  }
}

}  // namespace model::reader
