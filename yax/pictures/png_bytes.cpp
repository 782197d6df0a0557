#include "yax/pictures/png_bytes.h"

#include <png.h>

#include <algorithm>
#include <cstddef>
#include <new>
#include <vector>

namespace yax {

namespace {

// Pictures are large plain areas with few colours: the fastest level finds their runs as well as any, and a
// filter would only cost time.
constexpr int kCompression = 1;

/// The bytes being written. libpng reports errors by longjmp, so routines that call it must not have local
/// variables with destructors.
struct Target {
  std::string Bytes;
  bool Complete = true;
};

void Append(png_structp png, png_bytep data, std::size_t length) noexcept {
  auto* const target = static_cast<Target*>(png_get_io_ptr(png));
  try {
    if (target->Complete) target->Bytes.append(reinterpret_cast<const char*>(data), length);
  } catch (const std::bad_alloc&) {
    target->Complete = false;
  }
}

void Flush(png_structp) noexcept {}

constexpr int kBand = 64;

bool Write(png_structp png, png_infop info, const render::PixelSize& size, const RowReader& read,
           std::vector<std::uint8_t>& band, Target& target) {
  if (setjmp(png_jmpbuf(png)) != 0) return false;
  png_set_write_fn(png, &target, Append, Flush);
  png_set_compression_level(png, kCompression);
  png_set_filter(png, PNG_FILTER_TYPE_BASE, PNG_FILTER_NONE);
  png_set_user_limits(png, 0x7FFFFFFF, 0x7FFFFFFF);
  png_set_IHDR(png, info, static_cast<png_uint_32>(size.Width), static_cast<png_uint_32>(size.Height), 8,
               PNG_COLOR_TYPE_RGB, PNG_INTERLACE_NONE, PNG_COMPRESSION_TYPE_DEFAULT, PNG_FILTER_TYPE_DEFAULT);
  png_write_info(png, info);
  const std::size_t row = static_cast<std::size_t>(size.Width) * 3;
  for (int first = 0; first < size.Height; first += kBand) {
    const int count = std::min(kBand, size.Height - first);
    read(first, count, band.data());
    for (int y = 0; y < count; ++y) png_write_row(png, &band[static_cast<std::size_t>(y) * row]);
  }
  png_write_end(png, nullptr);
  return true;
}

}  // namespace

std::string PngBytes(const render::PixelSize& size, const RowReader& read) {
  std::vector<std::uint8_t> band(static_cast<std::size_t>(size.Width) * 3 * kBand);
  png_structp png = png_create_write_struct(PNG_LIBPNG_VER_STRING, nullptr, nullptr, nullptr);
  png_infop info = png == nullptr ? nullptr : png_create_info_struct(png);
  Target target;
  const bool written = info != nullptr && Write(png, info, size, read, band, target);
  png_destroy_write_struct(&png, &info);
  if (!written || !target.Complete) throw std::bad_alloc();
  return target.Bytes;
}

}  // namespace yax
