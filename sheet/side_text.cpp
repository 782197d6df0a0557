#include "sheet/side_text.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "sheet/title_block.h"

namespace sheet {

namespace {

constexpr double kSize = 2.3;
constexpr double kLine = 3.7;
constexpr double kHeadingLine = 5.2;
constexpr double kBeforeHeading = 3.0;
constexpr double kSignWidth = 11.0;
/// Start of the values in the measured data, as a share of the column's width.
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
                    {.Width = width, .Colour = line.Colour, .Pattern = line.Pattern}});
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

/// The first characters of a word that fit into a line; at least one.
std::string_view FittingStart(std::string_view word, double width) {
  const auto next = [&](std::size_t at) {
    for (++at; at < word.size() && (static_cast<unsigned char>(word[at]) & 0xC0U) == 0x80U;) ++at;
    return at;
  };
  if (word.size() < 40 && TextWidth(word, kSize) <= width) return word;
  std::size_t end = next(0);
  while (end < word.size() && TextWidth(word.substr(0, next(end)), kSize) <= width) end = next(end);
  return word.substr(0, end);
}

/// Text in lines no wider than `width`. Lines end between words; a longer word is broken.
std::vector<std::string> Wrapped(std::string_view text, double width) {
  std::vector<std::string> lines;
  std::string line;
  for (std::size_t at = 0; at <= text.size();) {
    const std::size_t end = std::min(text.find(' ', at), text.size());
    std::string_view word = text.substr(at, end - at);
    at = end + 1;
    std::string_view start = word.empty() ? word : FittingStart(word, width);
    const std::string longer = line + " " + std::string(word);
    if (!line.empty() && start == word && TextWidth(longer, kSize) <= width) {
      line = longer;
      continue;
    }
    if (!line.empty()) lines.push_back(line);
    for (; start != word; start = FittingStart(word, width)) {
      lines.emplace_back(start);
      word.remove_prefix(start.size());
    }
    line = word;
  }
  lines.push_back(line);
  return lines;
}

}  // namespace

void AddFact(const Fact& fact, double width, std::vector<SideLine>& lines) {
  std::string label = CleanText(fact.Label);
  for (std::string& value : Wrapped(CleanText(fact.Value), (1.0 - kValueShare) * width))
    lines.push_back({.Words = std::exchange(label, ""), .Value = std::move(value)});
}

void AddParagraphs(const char* heading, const std::vector<std::string>& texts, double width,
                   std::vector<SideLine>& lines) {
  if (texts.empty()) return;
  lines.push_back({.Heading = true, .Words = heading});
  for (const std::string& text : texts)
    for (std::string& line : Wrapped(CleanText(text), width)) lines.push_back({.Words = std::move(line)});
}

std::size_t DrawSideText(const std::vector<SideLine>& lines, std::size_t first, const Box& box,
                         Pencil& pencil) {
  double y = box.High.y;
  for (std::size_t k = first; k < lines.size(); ++k) {
    const bool heading = lines[k].Heading;
    const double before = heading && k != first ? kBeforeHeading : 0.0;
    const double height = heading ? kHeadingLine : kLine;
    // Keep a heading together with the line after it.
    if (y - before - height - (heading ? kLine : 0.0) < box.Low.y) return k;
    y -= before + height;
    DrawLine(lines[k], {box.Low.x, y + (heading ? kHeadingLine - kLine : 0.0) + 1.0}, box.Size().x, pencil);
  }
  return lines.size();
}

}  // namespace sheet
