/// What the fault of a piece of work says.
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
