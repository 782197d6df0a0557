#include "import/package_generator.h"

#include <algorithm>
#include <cmath>

#include "import/argument_error.h"
#include "import/source_file.h"
#include "model/text.h"

namespace importer {

namespace {

[[noreturn]] void Refuse(const std::string& what, const std::string& advice) {
  throw ArgumentError("package", what, advice);
}

constexpr char kForm[] =
    "write qfn:64,body=9x9,pitch=0.5,lead=0.4x0.25,paddle=7x7, or qfp: with lead=0.2,tip=3";

struct LeadOutline {
  std::size_t Count = 0;
  glm::dvec2 Body{0.0}, DiePaddle{0.0};
  double Pitch = 0.0, Length = 0.0, Width = 0.0, Tip = 0.0;
};

double LengthIn(std::string_view key, std::string_view text) {
  const std::optional<double> number = NumberIn(text);
  if (!number || !(*number > 0.0))
    Refuse(std::string(key) + "=" + std::string(text) + " is not a length above 0", kForm);
  return *number;
}

void TakePart(std::string_view key, std::string_view text, LeadOutline& outline) {
  const std::optional<glm::dvec2> size = SizeIn(text);
  const auto sized = [&] {
    if (!size)
      Refuse(std::string(key) + "=" + std::string(text) + " is not two lengths above 0 with an x between",
             kForm);
    return *size;
  };
  if (key == "body") {
    outline.Body = sized();
  } else if (key == "paddle") {
    outline.DiePaddle = sized();
  } else if (key == "pitch") {
    outline.Pitch = LengthIn(key, text);
  } else if (key == "tip") {
    outline.Tip = LengthIn(key, text);
  } else if (key == "lead" && text.find('x') == std::string_view::npos) {
    outline.Width = LengthIn(key, text);
  } else if (key == "lead") {
    outline.Length = sized().x;
    outline.Width = sized().y;
  } else {
    Refuse("there is no part " + model::Quoted(key), kForm);
  }
}

LeadOutline Parsed(std::string_view text) {
  LeadOutline outline;
  text.remove_prefix(text.find(':') + 1);
  for (bool first = true; !text.empty() || first; first = false) {
    const std::size_t end = std::min(text.find(','), text.size());
    const std::string_view part = text.substr(0, end);
    text.remove_prefix(std::min(end + 1, text.size()));
    const std::size_t equals = part.find('=');
    if (equals != std::string_view::npos) {
      TakePart(part.substr(0, equals), part.substr(equals + 1), outline);
      continue;
    }
    const std::optional<double> count = first ? NumberIn(part) : std::nullopt;
    if (!count || !(*count >= 4.0 && *count <= 4000.0 && *count == std::floor(*count)))
      Refuse(model::Quoted(part) + " is not a number of leads from 4 to 4000", kForm);
    outline.Count = static_cast<std::size_t>(*count);
  }
  return outline;
}

void Check(const LeadOutline& outline) {
  if (outline.Count % 4 != 0) Refuse("the leads do not divide among four sides", "give a multiple of 4");
  if (outline.Body.x == 0.0) Refuse("body= is missing", kForm);
  if (outline.Pitch == 0.0 && outline.Count > 4) Refuse("pitch= is missing", kForm);
  if (outline.Width == 0.0) Refuse("lead= is missing", kForm);
  if (outline.Length == 0.0 && outline.Tip == 0.0) Refuse("the leads have no length", kForm);
  const double shorter = std::min(outline.Body.x, outline.Body.y);
  const double row = static_cast<double>(outline.Count / 4 - 1) * outline.Pitch + outline.Width;
  if (row > shorter + 1e-9)
    Refuse("a side of the body is too short for its leads", "correct body=, pitch= or the number");
  if (outline.Count > 4 && outline.Width >= outline.Pitch)
    Refuse("the leads are as wide as their pitch", "correct lead=");
  if (outline.Tip >= shorter / 2.0 || (outline.Tip == 0.0 && outline.Length >= shorter / 2.0))
    Refuse("the leads reach the middle, or begin outside the body", "correct lead= or tip=");
  if (outline.DiePaddle.x > outline.Body.x || outline.DiePaddle.y > outline.Body.y)
    Refuse("the paddle is larger than the body", "correct paddle=");
}

/// The ends of the k-th lead of the left side, whose body reaches `half` to the left.
void LayOnLeft(Lead& lead, const LeadOutline& outline, std::size_t k, double half) {
  const double last = static_cast<double>(outline.Count / 4 - 1);
  const double y = (last / 2.0 - static_cast<double>(k)) * outline.Pitch;
  lead.Outer = {-half, y};
  // With a tip the lead points to the centre.
  lead.Inner = outline.Tip > 0.0 ? lead.Outer * (outline.Tip / half) : glm::dvec2(-half + outline.Length, y);
}

}  // namespace

bool IsOutline(std::string_view text) {
  return model::EqualsUpper(text.substr(0, 4), "QFN:") || model::EqualsUpper(text.substr(0, 4), "QFP:");
}

std::optional<glm::dvec2> SizeIn(std::string_view text) {
  const std::size_t cross = text.find_first_of("xX");
  if (cross == std::string_view::npos) return std::nullopt;
  const std::optional<double> first = NumberIn(text.substr(0, cross));
  const std::optional<double> second = NumberIn(text.substr(cross + 1));
  if (!first || !second || !(*first > 0.0) || !(*second > 0.0)) return std::nullopt;
  return glm::dvec2(*first, *second);
}

LeadFrame Outlined(const std::string& text, double unit) {
  LeadOutline outline = Parsed(text);
  Check(outline);
  for (double* const length : {&outline.Body.x, &outline.Body.y, &outline.DiePaddle.x, &outline.DiePaddle.y,
                               &outline.Pitch, &outline.Length, &outline.Width, &outline.Tip})
    *length *= unit;
  LeadFrame frame{.File = text, .Leads = {}, .DiePaddle = {}};
  for (std::size_t i = 0; i < outline.Count; ++i) {
    Lead lead{.Number = std::to_string(i + 1), .Width = outline.Width};
    const std::size_t side = i / (outline.Count / 4);
    LayOnLeft(lead, outline, i % (outline.Count / 4),
              (side % 2 == 0 ? outline.Body.x : outline.Body.y) / 2.0);
    const double turn = 90.0 * static_cast<double>(side);
    lead.Inner = Turned(lead.Inner, turn);
    lead.Outer = Turned(lead.Outer, turn);
    frame.Leads.push_back(std::move(lead));
  }
  if (outline.DiePaddle.x > 0.0) frame.DiePaddle = Paddle{.Size = outline.DiePaddle};
  return frame;
}

}  // namespace importer
