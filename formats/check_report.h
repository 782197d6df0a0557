/// What a check has to tell of a package file.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "yax/messages.h"

namespace formats {

enum class Level {
  Error,    ///< would end the viewer
  Finding,  ///< ignored, read as 0, overwritten or not drawn, without a word
  Note      ///< may well be meant
};

struct Remark {
  Level Rank;
  const char* Kind;  ///< a short name for programs
  yax::Place At;
  std::string What;
  std::string Advice;
};

struct CheckReport {
  std::string File;
  std::vector<Remark> Remarks = {};
  std::size_t Lines = 0;    ///< of the package file
  std::size_t Ignored = 0;  ///< of these

  std::size_t Count(Level level) const;
  /// Puts the remarks into the order of the files and their lines.
  void Sort();
};

/// A word of a file between single quotes, shortened and safe to print.
std::string Shown(std::string_view word);

/// Tells every error and finding on standard error, and how many notes of each kind there are; `listNotes`
/// tells these one by one too. The lines read go to standard output.
void TellReport(const CheckReport& report, bool listNotes);

/// The same as one JSON object.
std::string JsonReport(const CheckReport& report, bool listNotes);

}  // namespace formats
