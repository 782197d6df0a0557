/// Captures the message of a refusal.
#pragma once

#include <CLI/Error.hpp>
#include <string>

#include "yax/messages.h"

namespace yax {

/// The message when `work` is refused; empty when it is not.
template <class Work>
std::string Refusal(Work&& work) {
  try {
    work();
  } catch (const Unusable& unusable) {
    return unusable.what();
  } catch (const CLI::ParseError& error) {
    return error.what();
  }
  return {};
}

}  // namespace yax
