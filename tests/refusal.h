/// The message of what a piece of work throws.
#pragma once

#include <exception>
#include <string>

/// Empty when nothing is thrown.
template <class Work>
std::string Refusal(Work&& work) {
  try {
    work();
  } catch (const std::exception& refusal) {
    return refusal.what();
  }
  return {};
}
