/// What is said when something is refused.
#pragma once

#include <CLI/Error.hpp>
#include <string>

#include "yax/messages.h"

namespace yax {

/// The message with which `work` is refused; empty when it is not.
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
