#include "model/reader/package_header.h"

#include <string_view>
#include <utility>

#include "model/numbers.h"

namespace model::reader {

namespace {

/// Divides by tens until the base die is at most 10 units long and wide.
void Rescale(PackageScalars& scalars) {
  scalars.UnitScale = 1.0F;
  while (scalars.CompL > 10.0F || scalars.CompW > 10.0F) {
    for (float* length : {&scalars.CompW, &scalars.CompL, &scalars.CompZ, &scalars.SDCompW, &scalars.SDCompL,
                          &scalars.SDCompZ, &scalars.SDXOffset, &scalars.SDYOffset})
      *length /= 10.0F;
    scalars.UnitScale *= 10.0F;
  }
}

}  // namespace

HeaderLine TakeHeaderLine(const Tokens& tokens, PackageScalars& scalars) {
  struct Number {
    std::string_view keyword;
    float PackageScalars::*scalar;
  };
  static constexpr Number kNumbers[] = {
      {"SD_ROTATION", &PackageScalars::SDRotation}, {"SD_XOFFSET", &PackageScalars::SDXOffset},
      {"SD_YOFFSET", &PackageScalars::SDYOffset},   {"COMPL", &PackageScalars::CompL},
      {"SD_COMPL", &PackageScalars::SDCompL},       {"COMPW", &PackageScalars::CompW},
      {"SD_COMPW", &PackageScalars::SDCompW},       {"SD_COMPZ", &PackageScalars::SDCompZ},
  };
  const std::string_view keyword = tokens[0];
  for (const auto& [name, word] : {std::pair("TECHNOLOGY", &PackageScalars::Technology),
                                   std::pair("SD_TECHNOLOGY", &PackageScalars::SDTechnology)}) {
    if (!EqualsUpper(keyword, name)) continue;
    scalars.*word = UpperCase(tokens[1]);
    return HeaderLine::Word;
  }
  for (const Number& number : kNumbers) {
    if (!EqualsUpper(keyword, number.keyword)) continue;
    scalars.*number.scalar = ToNumber(tokens[1]);
    return HeaderLine::Number;
  }
  if (!EqualsUpper(keyword, "COMPZ")) return HeaderLine::Unknown;
  const float height = ToNumber(tokens[1]);
  scalars.CompZ = height == 0.0F ? 1.0F : height;
  Rescale(scalars);
  return HeaderLine::End;
}

}  // namespace model::reader
