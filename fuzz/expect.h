/// Checks a rule that must hold for every input; the run stops at the first input that breaks it.
#pragma once

#include <cstdio>
#include <cstdlib>

/// Prints the broken rule and aborts, so that the input is kept.
inline void Expect(bool holds, const char* rule) {
  if (holds) return;
  std::fprintf(stderr, "broken: %s\n", rule);
  std::abort();
}
