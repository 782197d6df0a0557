/// Reads rich text (RTF) into paragraphs of runs.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "shell/help/rich_text.h"

namespace shell::help {

/// What lies beyond these bounds is left out: bytes of the file, nested groups, fonts.
inline constexpr std::size_t kMaxRtfBytes = std::size_t{1} << 20;
inline constexpr std::size_t kMaxRtfDepth = 256;
inline constexpr std::size_t kMaxRtfFonts = 256;

/// The text that `bytes` hold, or nothing when they are not RTF (do not start with "{\rtf").
/// Bytes and \'hh are read as code page 1252. Of damaged RTF the readable part is returned. Takes linear
/// time.
std::optional<RichText> ReadRtf(std::string_view bytes);

}  // namespace shell::help
