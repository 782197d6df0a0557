/// Callbacks that report, line by line, what the reader did with a package file.
#pragma once

#include <cstddef>
#include <cstdint>

#include "model/reader/keywords.h"
#include "model/record_place.h"
#include "model/text.h"

namespace model::reader {

enum class LineFate {
  Taken,
  UnknownKeyword,
  BeforeCompz,   ///< a line of the body, ignored in the header
  AfterCompz,    ///< a line of the header, ignored in the body
  NamesNothing,  ///< names a pad, ring or wire that does not exist, or not yet
  NotTwoFields,  ///< in the side file
};

struct LineNote {
  std::size_t Line;  ///< counted from 1
  const Tokens& Fields;
  LineFate Fate;
  reader::Keyword Keyword;  ///< None in the side file
  std::uint32_t Numbers;    ///< bit n: field n was read as a number
  /// The record that the line filled or changed: for a bond its part, for a ring segment the ring.
  RecordPlace Record;

  bool ReadAsNumber(std::size_t field) const { return (Numbers >> field & 1U) != 0; }
};

class ReadObserver {
 public:
  virtual ~ReadObserver() = default;

  // Called for every line that holds fields, in the file's order.
  virtual void OnPackageLine(const LineNote& note) = 0;
  virtual void OnSideFileLine(const LineNote& note) = 0;
  /// Called after the package file's last line; `lines` counts the empty ones too.
  virtual void OnPackageEnd(std::size_t /*lines*/) {}
};

}  // namespace model::reader
