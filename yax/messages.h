/// How a command ends, and what it says on standard error.
#pragma once

#include <cstddef>
#include <exception>
#include <string>
#include <string_view>

namespace yax {

/// The program's exit status.
enum class Status {
  Done = 0,
  Findings = 1,  ///< done, and there is something to look at
  Unusable = 2   ///< input or arguments with which nothing can be done
};

/// What a message is about: a file, perhaps one of its lines (counted from 1), or the program itself.
struct Place {
  std::string File;
  std::size_t Line = 0;  ///< 0 for the whole file
};

/// "file:line: what; advice". The advice says what to do and may be empty.
std::string MessageText(const Place& place, std::string_view what, std::string_view advice);

/// Writes that text as one line on standard error.
void Complain(const Place& place, std::string_view what, std::string_view advice);

/// The place of a message about the arguments.
Place CommandLine();

/// Ends the command with status Unusable and this message.
class Unusable : public std::exception {
 public:
  Unusable(const Place& place, std::string_view what, std::string_view advice);
  const char* what() const noexcept override { return text_.c_str(); }

 private:
  std::string text_;
};

}  // namespace yax
