#include "render/bitmap.h"

#include <cstddef>
#include <cstdint>

namespace render {

namespace {

constexpr std::size_t kHeaderBytes = 14 + 40;
constexpr std::uint32_t kPixelsPerMetre = 3780;  // 96 to the inch, the size at which it is printed too

void Append16(std::string& bytes, std::uint32_t value) {
  bytes += static_cast<char>(value & 0xFF);
  bytes += static_cast<char>(value >> 8 & 0xFF);
}

void Append32(std::string& bytes, std::uint32_t value) {
  Append16(bytes, value & 0xFFFF);
  Append16(bytes, value >> 16);
}

void AppendHeaders(std::string& bytes, const Picture& picture, std::size_t imageBytes) {
  bytes += "BM";
  Append32(bytes, static_cast<std::uint32_t>(kHeaderBytes + imageBytes));
  Append32(bytes, 0);
  Append32(bytes, kHeaderBytes);  // where the rows begin

  Append32(bytes, 40);  // length of this second header
  Append32(bytes, static_cast<std::uint32_t>(picture.Width));
  Append32(bytes, static_cast<std::uint32_t>(picture.Height));  // positive: the bottom row comes first
  Append16(bytes, 1);                                           // planes
  Append16(bytes, 24);
  Append32(bytes, 0);  // not compressed
  Append32(bytes, static_cast<std::uint32_t>(imageBytes));
  Append32(bytes, kPixelsPerMetre);
  Append32(bytes, kPixelsPerMetre);
  Append32(bytes, 0);  // no colour table
  Append32(bytes, 0);
}

}  // namespace

std::string BitmapBytes(const Picture& picture) {
  const std::size_t rowBytes = 3 * static_cast<std::size_t>(picture.Width);
  const std::size_t padding = (4 - rowBytes % 4) % 4;
  const std::size_t imageBytes = (rowBytes + padding) * static_cast<std::size_t>(picture.Height);

  std::string bytes;
  bytes.reserve(kHeaderBytes + imageBytes);
  AppendHeaders(bytes, picture, imageBytes);
  for (int row = picture.Height; row-- > 0;) {
    const std::uint8_t* pixel = picture.Rgb.data() + rowBytes * static_cast<std::size_t>(row);
    const std::uint8_t* const end = pixel + rowBytes;
    for (; pixel != end; pixel += 3) {  // the file keeps blue, green, red
      bytes += static_cast<char>(pixel[2]);
      bytes += static_cast<char>(pixel[1]);
      bytes += static_cast<char>(pixel[0]);
    }
    bytes.append(padding, '\0');
  }
  return bytes;
}

}  // namespace render
