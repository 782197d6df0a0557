/// Shared by the writers: the order of painting, dashes, and numbers as text.
#pragma once

#include <string>
#include <vector>

#include "sheet/drawing.h"

namespace sheet {

/// The items layer by layer; within a layer in the order of insertion.
std::vector<const Item*> InPaintOrder(const Drawing& drawing, const std::vector<Item>& items);

/// Alternating lengths of strokes and gaps; empty for a solid line.
std::vector<double> DashLengths(Dash pattern);

/// At most `decimals` decimals without trailing zeros; a point in every locale; never "-0".
std::string Decimal(double value, int decimals);

/// The number of decimals for a resolution of about a ten-thousandth of a millimetre.
int DecimalsOf(const std::string& unit);

}  // namespace sheet
