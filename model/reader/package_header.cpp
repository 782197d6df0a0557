#include "model/reader/package_header.h"

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

void TakeHeaderLine(Keyword keyword, const Tokens& tokens, PackageScalars& scalars) {
  switch (keyword) {
    case Keyword::Technology:
      scalars.Technology = UpperCase(tokens[1]);
      break;
    case Keyword::SdTechnology:
      scalars.SDTechnology = UpperCase(tokens[1]);
      break;
    case Keyword::CompL:
      scalars.CompL = ToNumber(tokens[1]);
      break;
    case Keyword::CompW:
      scalars.CompW = ToNumber(tokens[1]);
      break;
    case Keyword::CompZ:
      scalars.CompZ = ToNumber(tokens[1]);
      if (scalars.CompZ == 0.0F) scalars.CompZ = 1.0F;
      Rescale(scalars);
      break;
    case Keyword::SdCompL:
      scalars.SDCompL = ToNumber(tokens[1]);
      break;
    case Keyword::SdCompW:
      scalars.SDCompW = ToNumber(tokens[1]);
      break;
    case Keyword::SdCompZ:
      scalars.SDCompZ = ToNumber(tokens[1]);
      break;
    case Keyword::SdRotation:
      scalars.SDRotation = ToNumber(tokens[1]);
      break;
    case Keyword::SdXOffset:
      scalars.SDXOffset = ToNumber(tokens[1]);
      break;
    case Keyword::SdYOffset:
      scalars.SDYOffset = ToNumber(tokens[1]);
      break;
    default:
      break;
  }
}

}  // namespace model::reader
