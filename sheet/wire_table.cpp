#include "sheet/wire_table.h"

#include <algorithm>
#include <cmath>

#include "sheet/paint_order.h"

namespace sheet {

namespace {

constexpr double kInset = 6.0;      ///< between the frame and the table
constexpr double kColumnGap = 1.4;  ///< em between columns
constexpr double kBlockGap = 10.0;
constexpr double kSmallest = 1.5, kUsual = 2.3, kLargest = 3.0;
constexpr double kHeading = 9.0;  ///< height of the heading over the table

double RowHeight(double size) { return 1.55 * size; }

std::string Fixed(double value, int decimals) {
  std::string text = Decimal(value, decimals);
  if (decimals == 0) return text;
  std::size_t point = text.find('.');
  if (point == std::string::npos) point = text.size(), text += '.';
  text.append(static_cast<std::size_t>(decimals) + 1 - (text.size() - point), '0');
  return text;
}

}  // namespace

WireTable::WireTable(const DiagramInputs& inputs) : rows_(inputs.Wires.size()), unit_(inputs.Unit) {
  const int decimals = DecimalsOf(inputs.Unit);
  const auto add = [&](const char* caption, bool atRight, auto&& text) {
    Column column{caption, atRight, {}, TextWidth(caption, 1.0, true)};
    column.Cells.reserve(rows_);
    for (const DiagramWire& wire : inputs.Wires) {
      column.Cells.push_back(text(wire));
      column.Width = std::max(column.Width, TextWidth(column.Cells.back(), 1.0));
    }
    columns_.push_back(std::move(column));
  };
  const auto length = [&](auto&& value) {
    return [&inputs, decimals, value](const DiagramWire& wire) {
      return Fixed(value(wire) * inputs.NumberScale, decimals);
    };
  };
  add("No.", true, [](const DiagramWire& wire) { return std::to_string(wire.Number); });
  add("Name", false, [](const DiagramWire& wire) { return CleanText(wire.Name); });
  add("Net type", false, [](const DiagramWire& wire) { return CleanText(wire.NetType); });
  add("Lead", false, [](const DiagramWire& wire) { return CleanText(wire.Lead); });
  add("Tier", false, [](const DiagramWire& wire) { return CleanText(wire.Tier); });
  add("Start x", true, length([](const DiagramWire& wire) { return wire.From.x; }));
  add("Start y", true, length([](const DiagramWire& wire) { return wire.From.y; }));
  add("End x", true, length([](const DiagramWire& wire) { return wire.To.x; }));
  add("End y", true, length([](const DiagramWire& wire) { return wire.To.y; }));
  add("Plan", true, length([](const DiagramWire& wire) { return wire.PlanLength; }));
  add("Loop", true, length([](const DiagramWire& wire) { return wire.Length; }));
  add("Angle", true, [](const DiagramWire& wire) { return Fixed(wire.Angle, 1); });
}

std::optional<WireTable::Layout> WireTable::LayoutIn(const Box& whole) const {
  const glm::dvec2 room = whole.Inset(kInset).Size() - glm::dvec2(0.0, kHeading);
  Layout layout;
  // The largest text size at which all rows fit on one page, else the default.
  for (layout.Size = kLargest; layout.Size > kUsual && Capacity(room, layout.Size) < rows_;)
    layout.Size -= 0.1;
  while (layout.Size > kSmallest && WidthOfRow(layout.Size) > room.x) layout.Size -= 0.1;
  const std::size_t capacity = Capacity(room, layout.Size);
  if (capacity == 0) return std::nullopt;
  layout.Blocks = BlocksIn(room, layout.Size);
  layout.RowsPerBlock = capacity / layout.Blocks;
  // All blocks of a page have the same height.
  if (rows_ <= capacity) {
    layout.Blocks = (rows_ + layout.RowsPerBlock - 1) / layout.RowsPerBlock;
    layout.RowsPerBlock = (rows_ + layout.Blocks - 1) / layout.Blocks;
  }
  return layout;
}

std::size_t WireTable::BlocksIn(const glm::dvec2& room, double size) const {
  const double blocks = (room.x + kBlockGap) / (WidthOfRow(size) + kBlockGap);
  return blocks < 1.0 ? 0 : static_cast<std::size_t>(blocks);
}

std::size_t WireTable::Capacity(const glm::dvec2& room, double size) const {
  const double lines = room.y / RowHeight(size) - 3.0;
  return lines < 1.0 ? 0 : static_cast<std::size_t>(lines) * BlocksIn(room, size);
}

double WireTable::WidthOfRow(double size) const {
  double width = 0.0;
  for (const Column& column : columns_) width += column.Width + kColumnGap;
  return size * (width - kColumnGap);
}

std::size_t WireTable::Pages(const Box& room) const {
  const std::optional<Layout> layout = LayoutIn(room);
  return layout ? (rows_ + layout->RowsPerPage() - 1) / layout->RowsPerPage() : 0;
}

void WireTable::Draw(std::size_t page, const Box& room, Pencil& pencil) const {
  const Layout layout = LayoutIn(room).value();
  const Box inside = room.Inset(kInset);
  glm::dvec2 corner(inside.Low.x, inside.High.y - kHeading);
  pencil.Add(layer::kTable,
             Text{.At = {corner.x, inside.High.y - 3.0}, .Words = "Wires", .Size = 3.5, .Bold = true});
  pencil.Add(layer::kTable,
             Text{.At = {corner.x + 16.0, inside.High.y - 3.0},
                  .Words = "Places and lengths in " + unit_ +
                           ", from the middle of the base die; angles in degrees, from the normal of "
                           "the pad's edge",
                  .Size = 2.3,
                  .Colour = Grey(0.25)});
  for (std::size_t block = 0; block < layout.Blocks; ++block) {
    const std::size_t first = (page * layout.Blocks + block) * layout.RowsPerBlock;
    if (first >= rows_) break;
    DrawBlock(first, layout, corner, pencil);
    corner.x += WidthOfRow(layout.Size) + kBlockGap;
  }
}

void WireTable::DrawBlock(std::size_t first, const Layout& layout, const glm::dvec2& corner,
                          Pencil& pencil) const {
  const std::size_t last = std::min(first + layout.RowsPerBlock, rows_);
  const double height = RowHeight(layout.Size);
  const double width = WidthOfRow(layout.Size);
  const auto rule = [&](double y, double stroke, double lightness = 0.0) {
    pencil.Add(layer::kTable,
               Line{{corner.x, y}, {corner.x + width, y}, {.Width = stroke, .Colour = Grey(lightness)}});
  };
  // A thin line under every fifth row guides the eye from the name to the lengths.
  const double captionLine = corner.y - 1.5 * height;
  rule(captionLine, 0.35);
  for (std::size_t row = first; row < last; ++row)
    if ((row + 1) % 5 == 0 && row + 1 < last)
      rule(captionLine - static_cast<double>(row + 1 - first) * height - 0.22 * height, 0.1, 0.6);
  rule(captionLine - (static_cast<double>(last - first) + 0.3) * height, 0.35);
  double left = corner.x;
  for (const Column& column : columns_) {
    const double at = column.AtRight ? left + column.Width * layout.Size : left;
    const Align align = column.AtRight ? Align::End : Align::Start;
    const auto write = [&](double y, const std::string& words, bool bold) {
      if (!words.empty())
        pencil.Add(
            layer::kTable,
            Text{.At = {at, y}, .Words = words, .Size = layout.Size, .Alignment = align, .Bold = bold});
    };
    write(corner.y - height, column.Caption, true);
    for (std::size_t row = first; row < last; ++row)
      write(captionLine - (static_cast<double>(row - first) + 0.95) * height, column.Cells[row], false);
    left += (column.Width + kColumnGap) * layout.Size;
  }
}

}  // namespace sheet
