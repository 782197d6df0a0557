/// The keywords of a package file's body.
#pragma once

#include <cstdint>
#include <string_view>

namespace model::reader {

enum class BodyKeyword { None, Cbp, SdCbp, Sbp, Wb, Stch, Ring, SRing, SrSeg, Dap };

/// A keyword of at most seven letters as one number, so that a line is told by a single comparison.
/// The leading 1 keeps a NUL byte in front of a word from vanishing.
constexpr std::uint64_t KeywordKey(std::string_view word) {
  std::uint64_t key = 1;
  if (word.size() > 7) return 0;
  for (const char c : word)
    key = key << 8 | static_cast<unsigned char>(c >= 'a' && c <= 'z' ? c - 'a' + 'A' : c);
  return key;
}

/// The keyword that a word is, in any letter case.
constexpr BodyKeyword BodyKeywordOf(std::string_view word) {
  switch (KeywordKey(word)) {
    case KeywordKey("CBP"):
      return BodyKeyword::Cbp;
    case KeywordKey("SD_CBP"):
      return BodyKeyword::SdCbp;
    case KeywordKey("SBP"):
      return BodyKeyword::Sbp;
    case KeywordKey("WB"):
      return BodyKeyword::Wb;
    case KeywordKey("STCH"):
      return BodyKeyword::Stch;
    case KeywordKey("RING"):
      return BodyKeyword::Ring;
    case KeywordKey("SRING"):
      return BodyKeyword::SRing;
    case KeywordKey("SRSEG"):
      return BodyKeyword::SrSeg;
    case KeywordKey("DAP"):
      return BodyKeyword::Dap;
    default:
      return BodyKeyword::None;
  }
}

}  // namespace model::reader
