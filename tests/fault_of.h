/// The message of the fault that a piece of work throws.
#pragma once

#include <string>

#include "model/faults.h"

template <class Work>
std::string FaultOf(Work&& work) {
  try {
    work();
  } catch (const model::Fault& fault) {
    return fault.what();
  }
  return "no fault";
}
