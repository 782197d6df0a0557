#include "tests/pattern.h"

std::regex Pattern(const std::string& text) { return std::regex(text); }
