#include "sheet/title_block.h"

#include <algorithm>
#include <vector>

#include "sheet/paint_order.h"

namespace sheet {

namespace {

constexpr double kRow = 8.0;
constexpr double kTitleRow = 12.0;
constexpr double kStrip = 9.0;

struct Field {
  const char* Caption;
  std::string Words;
  double Share;  ///< of the block's width
};
using Row = std::vector<Field>;

std::string ScaleText(double scale) {
  return scale >= 1.0 ? Decimal(scale, 3) + " : 1" : "1 : " + Decimal(1.0 / scale, 3);
}

std::string SheetText(const SheetNumber& sheet) {
  return std::to_string(sheet.This) + " / " + std::to_string(sheet.Of);
}

std::vector<Row> RowsOf(const DiagramInputs& inputs, const Drawing& drawing, const SheetNumber& sheet) {
  const TitleFields& title = inputs.Title;
  return {
      {{"Part", title.Part, 0.5}, {"Package", title.Package, 0.5}},
      {{"Drawn", title.Drawn, 0.34}, {"Checked", title.Checked, 0.33}, {"Approved", title.Approved, 0.33}},
      {{"Date", title.Date, 0.34},
       {"Revision", title.Revision, 0.22},
       {"Scale", ScaleText(drawing.Scale), 0.22},
       {"Unit", inputs.Unit, 0.22}},
      {{"File", inputs.FileName, 0.45}, {"SHA-256", inputs.Digest, 0.35}, {"Sheet", SheetText(sheet), 0.2}}};
}

/// A field with its caption small in the upper corner and its text below.
void DrawField(const Field& field, const Box& box, double size, bool bold, Pencil& pencil) {
  constexpr double kInset = 1.2, kSmallest = 1.6;
  pencil.Add(layer::kFrame, Text{.At = {box.Low.x + kInset, box.High.y - 2.2},
                                 .Words = field.Caption,
                                 .Size = 1.7,
                                 .Colour = Grey(0.35)});
  const double width = box.Size().x - 2.0 * kInset;
  // Shrink longer text, and cut it when it would be too small to read.
  const std::string words = CleanText(field.Words);
  const double fitting = width / std::max(TextWidth(words, 1.0, bold), 1e-9);
  size = std::clamp(0.999 * fitting, std::min(kSmallest, size), size);
  pencil.Add(layer::kFrame, Text{.At = {box.Low.x + kInset, box.Low.y + 1.7},
                                 .Words = Fitted(words, size, width, bold),
                                 .Size = size,
                                 .Bold = bold});
}

void DrawRow(const Row& row, const Box& box, double size, bool bold, Pencil& pencil) {
  double left = box.Low.x;
  for (const Field& field : row) {
    const double right = left + field.Share * box.Size().x;
    DrawField(field, {{left, box.Low.y}, {right, box.High.y}}, size, bold, pencil);
    if (left > box.Low.x)
      pencil.Add(layer::kFrame, Line{{left, box.Low.y}, {left, box.High.y}, {.Width = 0.18}});
    left = right;
  }
}

}  // namespace

std::string Fitted(const std::string& words, double size, double width, bool bold) {
  if (TextWidth(words, size, bold) <= width) return words;
  std::string cut = words;
  while (!cut.empty() && TextWidth(cut + "...", size, bold) > width) {
    // Remove a whole UTF-8 character: its continuation bytes and its first byte.
    while ((static_cast<unsigned char>(cut.back()) & 0xC0U) == 0x80U) cut.pop_back();
    cut.pop_back();
  }
  return cut + "...";
}

Box FrameOf(const Paper& paper) { return Box{{0.0, 0.0}, {paper.Width, paper.Height}}.Inset(10.0); }

Box RoomOverStrip(const Box& frame) { return {{frame.Low.x, frame.Low.y + kStrip}, frame.High}; }

double TitleBlockHeight() { return kTitleRow + 4.0 * kRow; }

void DrawTitleBlock(const DiagramInputs& inputs, const Drawing& drawing, const SheetNumber& sheet,
                    const Box& frame, double width, Pencil& pencil) {
  const Box block{{frame.High.x - width, frame.Low.y}, {frame.High.x, frame.Low.y + TitleBlockHeight()}};
  pencil.Frame(layer::kFrame, block, 0.5);
  double top = block.High.y;
  const auto row = [&](const Row& fields, double height, double size, bool bold) {
    DrawRow(fields, {{block.Low.x, top - height}, {block.High.x, top}}, size, bold, pencil);
    top -= height;
    if (top > block.Low.y + 0.1)
      pencil.Add(layer::kFrame, Line{{block.Low.x, top}, {block.High.x, top}, {.Width = 0.18}});
  };
  row({{"Title", inputs.Title.Title, 1.0}}, kTitleRow, 4.2, true);
  for (const Row& fields : RowsOf(inputs, drawing, sheet)) row(fields, kRow, 2.5, false);
}

Box DrawStrip(const DiagramInputs& inputs, const SheetNumber& sheet, const Box& frame, Pencil& pencil) {
  pencil.Frame(layer::kFrame, frame, 0.7);
  const double top = RoomOverStrip(frame).Low.y;
  pencil.Add(layer::kFrame, Line{{frame.Low.x, top}, {frame.High.x, top}, {.Width = 0.5}});
  DrawRow({{"Title", inputs.Title.Title, 0.3},
           {"Part", inputs.Title.Part, 0.15},
           {"Revision", inputs.Title.Revision, 0.08},
           {"Date", inputs.Title.Date, 0.1},
           {"File", inputs.FileName, 0.17},
           {"SHA-256", inputs.Digest, 0.12},
           {"Sheet", SheetText(sheet), 0.08}},
          {frame.Low, {frame.High.x, top}}, 2.5, false, pencil);
  return RoomOverStrip(frame);
}

}  // namespace sheet
