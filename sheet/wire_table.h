/// The sheets that list every wire.
#pragma once

#include <vector>

#include "sheet/bonding_diagram.h"
#include "sheet/pencil.h"

namespace sheet {

/// The rows of the table laid out in columns as many pages as they need.
class WireTable {
 public:
  /// Faults  DoesNotFit where the paper is narrower than a row
  WireTable(const DiagramInputs& inputs, const Box& room);

  std::size_t Pages() const;
  void Draw(std::size_t page, const Box& room, Pencil& pencil) const;

 private:
  struct Column {
    const char* Caption;
    bool AtRight;
    std::vector<std::string> Cells;
    double Width = 0.0;  ///< of the widest cell at size 1
  };
  /// Chooses the size of the text and how many rows stand in a block.
  void LayOut(const glm::dvec2& room);
  std::size_t BlocksIn(const glm::dvec2& room) const;
  std::size_t Capacity(const glm::dvec2& room) const;
  double WidthOfRow(double size) const;
  void DrawBlock(std::size_t first, const glm::dvec2& corner, Pencil& pencil) const;

  std::vector<Column> columns_;
  std::size_t rows_ = 0, rowsPerBlock_ = 1, blocks_ = 1;
  double size_ = 2.3;
  std::string unit_;
};

}  // namespace sheet
