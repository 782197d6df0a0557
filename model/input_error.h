/// The error for input that cannot be used: where it is, what is wrong, and what to do.
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>
#include <utility>

namespace model {

/// The place that a message names: a file, or one of its lines.
struct FilePlace {
  std::string File;
  std::size_t Line = 0;  ///< counted from 1; 0 for the whole file
};

/// "file:line: what; advice". The advice says what to do and may be empty.
inline std::string MessageText(const FilePlace& place, std::string_view what, std::string_view advice) {
  std::string text = place.File.empty() ? "''" : place.File;
  if (place.Line != 0) text += ":" + std::to_string(place.Line);
  text.append(": ").append(what);
  if (!advice.empty()) text.append("; ").append(advice);
  return text;
}

/// Unusable input; what() is its MessageText.
class InputError : public std::exception {
 public:
  InputError(FilePlace place, std::string_view what, std::string_view advice)
      : Place(std::move(place)), What(what), Advice(advice), text_(MessageText(Place, What, Advice)) {}

  const char* what() const noexcept override { return text_.c_str(); }

  FilePlace Place;
  std::string What;
  std::string Advice;  ///< what to do; may be empty

 private:
  std::string text_;
};

}  // namespace model
