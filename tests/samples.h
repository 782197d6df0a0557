/// The packages that come with the program.
#pragma once

#include <string>

inline constexpr const char* kSamples[] = {
    "AAAc", "bga332", "caravel-qfn64", "cob32", "flipchip-bigblade", "lqfp100", "stacked-ram", "stagger40"};

inline std::string SamplePath(const std::string& name) {
  return std::string(YAX_SAMPLES "/") + name + ".yax";
}
