/// Reads rich text (RTF) into paragraphs of runs.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "shell/help/rich_text.h"

namespace shell::help {

/// Limits on bytes of the file, nested groups and fonts; the rest is ignored.
inline constexpr std::size_t kMaxRtfBytes = std::size_t{1} << 20;
inline constexpr std::size_t kMaxRtfDepth = 256;
inline constexpr std::size_t kMaxRtfFonts = 256;

/// The text in `bytes`, or nothing when they are not RTF (do not start with "{\rtf").
/// Reads bytes and \'hh as code page 1252. Returns the readable part of damaged RTF. Takes linear time.
std::optional<RichText> ReadRtf(std::string_view bytes);

}  // namespace shell::help
