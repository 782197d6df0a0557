/// The error of an import: its cause, its place in the sources, and advice.
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace importer {

/// A line of a source; for tables the row.
struct SourcePlace {
  std::string File;
  std::size_t Line = 0;  ///< counted from 1; 0 for the whole file
};

/// Ends the import. The three parts make one message: "file:line: what; advice".
class ImportError : public std::exception {
 public:
  ImportError(SourcePlace place, std::string what, std::string advice)
      : Place(std::move(place)), What(std::move(what)), Advice(std::move(advice)) {}
  const char* what() const noexcept override { return What.c_str(); }

  SourcePlace Place;
  std::string What;
  std::string Advice;  ///< what to do
};

/// The same for the value of an option. The caller that knows where the option was given adds the place.
class ArgumentError : public ImportError {
 public:
  ArgumentError(std::string option, std::string what, std::string advice)
      : ImportError({}, std::move(what), std::move(advice)), Option(std::move(option)) {}

  std::string Option;  ///< without its dashes
};

/// A word of a source as messages show it: in single quotes, shortened, with control characters replaced.
std::string Quoted(std::string_view word);

}  // namespace importer
