#include "sheet/side_text.h"

#include "sheet/title_block.h"

namespace sheet {

namespace {

constexpr double kSize = 2.3;
constexpr double kLine = 3.7;
constexpr double kHeadingLine = 5.2;
constexpr double kBeforeHeading = 3.0;
constexpr double kSignWidth = 11.0;
/// Where the values of the measured data begin, of the column's width.
constexpr double kValueShare = 0.42;

void DrawSign(const SideLine& line, const glm::dvec2& at, Pencil& pencil) {
  const glm::dvec2 middle = at + glm::dvec2(4.0, 0.36 * kSize);
  const auto fill = [&](std::vector<glm::dvec2> outline) {
    for (glm::dvec2& point : outline) point += middle;
    pencil.Add(layer::kFrame, Area{.Outlines = {std::move(outline)}, .Fill = kBlack});
  };
  const auto stroke = [&](double width) {
    pencil.Add(line.Before == Sign::Offender ? layer::kFindings : layer::kFrame,
               Line{middle - glm::dvec2(4.0, 0.0),
                    middle + glm::dvec2(4.0, 0.0),
                    {.Width = width, .Colour = line.Colour}});
  };
  switch (line.Before) {
    case Sign::None:
      break;
    case Sign::Lead1:
      fill({{-1.2, 0.0}, {1.2, 1.05}, {1.2, -1.05}});
      break;
    case Sign::DieCorner:
      fill({{-1.2, -1.2}, {1.2, -1.2}, {-1.2, 1.2}});
      break;
    case Sign::Wire:
      stroke(0.35);
      break;
    case Sign::Offender:
      stroke(0.5);
      break;
    case Sign::OtherWire:
      stroke(0.18);
      break;
  }
}

void DrawLine(const SideLine& line, const glm::dvec2& at, double width, Pencil& pencil) {
  if (line.Heading) {
    pencil.Add(layer::kFrame, Text{.At = at, .Words = line.Words, .Size = kSize, .Bold = true});
    pencil.Add(layer::kFrame, Line{at - glm::dvec2(0.0, 1.3), at + glm::dvec2(width, -1.3), {.Width = 0.18}});
    return;
  }
  DrawSign(line, at, pencil);
  const double indent = line.Before == Sign::None ? 0.0 : kSignWidth;
  const double valueAt = kValueShare * width;
  pencil.Add(layer::kFrame,
             Text{.At = at + glm::dvec2(indent, 0.0),
                  .Words = Fitted(line.Words, kSize, (line.Value.empty() ? width : valueAt) - indent),
                  .Size = kSize,
                  .Colour = line.Value.empty() ? kBlack : Grey(0.25)});
  if (line.Value.empty()) return;
  pencil.Add(layer::kFrame, Text{.At = at + glm::dvec2(valueAt, 0.0),
                                 .Words = Fitted(line.Value, kSize, width - valueAt),
                                 .Size = kSize});
}

/// Words into lines; a word that is wider than a line alone is cut.
void Wrap(const std::string& text, double width, std::vector<SideLine>& lines) {
  std::string line;
  std::size_t at = 0;
  while (at <= text.size()) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    const std::string word = text.substr(at, end - at);
    const std::string longer = line.empty() ? word : line + " " + word;
    if (!line.empty() && TextWidth(longer, kSize) > width) {
      lines.push_back({.Words = line});
      line = word;
    } else {
      line = longer;
    }
    at = end + 1;
  }
  lines.push_back({.Words = line});
}

}  // namespace

void AddParagraphs(const char* heading, const std::vector<std::string>& texts, double width,
                   std::vector<SideLine>& lines) {
  if (texts.empty()) return;
  lines.push_back({.Heading = true, .Words = heading});
  for (const std::string& text : texts) Wrap(CleanText(text), width, lines);
}

std::size_t DrawSideText(const std::vector<SideLine>& lines, std::size_t first, const Box& box,
                         Pencil& pencil) {
  double y = box.High.y;
  for (std::size_t k = first; k < lines.size(); ++k) {
    const bool heading = lines[k].Heading;
    const double before = heading && k != first ? kBeforeHeading : 0.0;
    const double height = heading ? kHeadingLine : kLine;
    // A heading takes a line that follows it along.
    if (y - before - height - (heading ? kLine : 0.0) < box.Low.y) return k;
    y -= before + height;
    DrawLine(lines[k], {box.Low.x, y + (heading ? kHeadingLine - kLine : 0.0) + 1.0}, box.Size().x, pencil);
  }
  return lines.size();
}

}  // namespace sheet
