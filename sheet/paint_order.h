/// What the writers share: the order of painting, dashes, and numbers as text.
#pragma once

#include <string>
#include <vector>

#include "sheet/drawing.h"

namespace sheet {

/// The items layer by layer, in each as they were added.
std::vector<const Item*> InPaintOrder(const Drawing& drawing, const std::vector<Item>& items);

/// Lengths of strokes and gaps in turn; none for a solid line.
std::vector<double> DashLengths(Dash pattern);

/// At most `decimals` decimals, without zeros at the end, a point in every locale, and no "-0".
std::string Decimal(double value, int decimals);

}  // namespace sheet
