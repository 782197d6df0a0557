/// Rules for an import that refuses a source.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string_view>

#include "fuzz/expect.h"
#include "model/input_error.h"

/// Runs `read`. A refusal must have a reason, advice, and a line that exists in the source.
template <class Read>
void ReadOrRefuse(std::string_view source, Read&& read) {
  try {
    read();
  } catch (const model::InputError& error) {
    const auto lines = static_cast<std::size_t>(std::count(source.begin(), source.end(), '\n')) + 1;
    Expect(!error.What.empty() && !error.Advice.empty() && error.Place.Line <= lines,
           "a refusal has a reason and a line");
  }
}
