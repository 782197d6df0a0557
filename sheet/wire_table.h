/// The sheets that list every wire.
#pragma once

#include <optional>
#include <string>
#include <vector>

#include "sheet/diagram_inputs.h"
#include "sheet/pencil.h"

namespace sheet {

/// The rows of the table in blocks beside each other, on as many pages as they need.
class WireTable {
 public:
  explicit WireTable(const DiagramInputs& inputs);

  /// Whether the heading and one row fit.
  bool FitsIn(const Box& room) const { return LayoutIn(room).has_value(); }
  /// The number of sheets when each has this room.
  std::size_t Pages(const Box& room) const;
  /// Needs  FitsIn(room)
  void Draw(std::size_t page, const Box& room, Pencil& pencil) const;

 private:
  struct Column {
    const char* Caption;
    bool AtRight;
    std::vector<std::string> Cells;
    double Width = 0.0;  ///< of the widest cell at size 1
  };
  struct Layout {
    double Size = 2.3;  ///< of the text
    std::size_t RowsPerBlock = 1, Blocks = 1;

    std::size_t RowsPerPage() const { return RowsPerBlock * Blocks; }
  };
  std::optional<Layout> LayoutIn(const Box& room) const;
  std::size_t BlocksIn(const glm::dvec2& room, double size) const;
  std::size_t Capacity(const glm::dvec2& room, double size) const;
  double WidthOfRow(double size) const;
  void DrawBlock(std::size_t first, const Layout& layout, const glm::dvec2& corner, Pencil& pencil) const;

  std::vector<Column> columns_;
  std::size_t rows_ = 0;
  std::string unit_;
};

}  // namespace sheet
