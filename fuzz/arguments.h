/// Splits an input into a program's arguments.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

/// The pieces between NUL bytes, which no argument can contain.
inline std::vector<std::string> ArgumentsOf(std::string_view bytes) {
  std::vector<std::string> arguments;
  while (!bytes.empty()) {
    const std::size_t end = bytes.find('\0');
    arguments.emplace_back(bytes.substr(0, end));
    bytes.remove_prefix(end == std::string_view::npos ? bytes.size() : end + 1);
  }
  return arguments;
}
