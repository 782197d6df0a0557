// Rich text; the result may contain only text.
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/expect.h"
#include "shell/help/rtf.h"

namespace {

/// True for UTF-8 without control characters other than tab and line end.
bool IsText(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    const auto first = static_cast<unsigned char>(text[at]);
    if (first < ' ' && first != '\t' && first != '\n') return false;
    const std::size_t length = first < 0x80 ? 1 : first >= 0xF0 ? 4 : first >= 0xE0 ? 3 : 2;
    if ((first >= 0x80 && first < 0xC2) || first > 0xF4 || text.size() - at < length) return false;
    for (std::size_t i = 1; i < length; ++i)
      if ((static_cast<unsigned char>(text[at + i]) & 0xC0U) != 0x80U) return false;
    at += length;
  }
  return true;
}

void ExpectText(const shell::help::Paragraph& paragraph) {
  const shell::help::RunFormat* before = nullptr;
  for (const shell::help::Run& run : paragraph.Runs) {
    Expect(!run.Text.empty() && IsText(run.Text), "runs hold text");
    Expect(before == nullptr || *before != run.Format, "neighbours differ in their format");
    before = &run.Format;
  }
  Expect(paragraph.Format.Tabs.size() <= 32, "stops are bounded");
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const auto text = shell::help::ReadRtf({reinterpret_cast<const char*>(data), size});
  if (!text) return 0;
  for (const shell::help::Paragraph& paragraph : text->Paragraphs) ExpectText(paragraph);
  for (const auto& [number, font] : text->Fonts)
    Expect(IsText(font.Name) && font.Name.size() < 64 + 4, "fonts have short names of text");
  Expect(text->Fonts.size() <= shell::help::kMaxRtfFonts, "fonts are bounded");
  return 0;
}
