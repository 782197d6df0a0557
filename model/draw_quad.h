/// The one routine that emits lit faces, with the vector arithmetic it needs.
#pragma once

#include <string_view>

#include "model/pen.h"
#include "model/wire_path.h"

namespace model {

/// A corner of a face in package coordinates, each rounded to single precision.
/// Faults  Overflow
PackagePoint Corner(double x, double y, double z);

/// Draws the flat face through four corners in a named colour.
/// Units   package coordinates (x, y, z), which become the scene's (x, z, y)
/// Needs   no open primitive
/// The normal points to the side from which the corners run clockwise in the scene; a face whose first
/// three corners lie on a line has a zero normal and is drawn all the same.
void DrawQuad(Pen& pen, const PackagePoint& corner1, const PackagePoint& corner2, const PackagePoint& corner3,
              const PackagePoint& corner4, std::string_view colour);

/// Sets n to the unit vector along u x v.
void CrossProduct(const SceneVector& u, const SceneVector& v, SceneVector& n);

/// Scales a vector to length 1; a zero vector stays zero.
void Normalize(SceneVector& vector);

}  // namespace model
