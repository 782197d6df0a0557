/// A regular expression, compiled in one source for all tests: its templates take seconds in each.
#pragma once

#include <regex>
#include <string>

std::regex Pattern(const std::string& text);
