#include "import/source_file.h"

#include <zlib.h>

#include <array>
#include <charconv>
#include <cmath>
#include <memory>

#include "model/faults.h"
#include "model/files.h"
#include "model/input_error.h"

namespace importer {

namespace {

constexpr std::size_t kMostBytes = std::size_t{256} << 20;

/// zlib's state, freed in the end.
class Inflater {
 public:
  Inflater() {
    // Adding 16 to the window size selects the gzip format.
    ready_ = inflateInit2(&stream_, MAX_WBITS + 16) == Z_OK;
  }
  Inflater(const Inflater&) = delete;
  Inflater& operator=(const Inflater&) = delete;
  ~Inflater() { inflateEnd(&stream_); }

  bool Ready() const { return ready_; }
  z_stream& Stream() { return stream_; }

 private:
  z_stream stream_{};
  bool ready_ = false;
};

}  // namespace

std::string Unzipped(std::string_view bytes, const std::string& path) {
  const auto damaged = [&path](const char* what) {
    return model::InputError({path}, what, "fetch or pack the file again");
  };
  Inflater inflater;
  if (!inflater.Ready()) throw std::bad_alloc();
  z_stream& stream = inflater.Stream();
  stream.next_in = reinterpret_cast<Bytef*>(const_cast<char*>(bytes.data()));
  stream.avail_in = static_cast<uInt>(bytes.size());
  const auto block = std::make_unique<std::array<char, 65536>>();
  std::string text;
  int state = Z_OK;
  while (state != Z_STREAM_END) {
    stream.next_out = reinterpret_cast<Bytef*>(block->data());
    stream.avail_out = static_cast<uInt>(block->size());
    state = inflate(&stream, Z_NO_FLUSH);
    text.append(block->data(), block->size() - stream.avail_out);
    if (text.size() > kMostBytes) throw damaged("it unpacks to more than 256 megabytes");
    if (state == Z_BUF_ERROR || (state == Z_OK && stream.avail_in == 0 && stream.avail_out != 0))
      throw damaged("the gzip file ends too early");
    if (state != Z_OK && state != Z_STREAM_END) throw damaged("the gzip file is damaged");
    // A gzip file may hold several members, one behind the other.
    if (state == Z_STREAM_END && stream.avail_in > 1 && stream.next_in[0] == 0x1f &&
        stream.next_in[1] == 0x8b && inflateReset(&stream) == Z_OK)
      state = Z_OK;
  }
  return text;
}

std::string ReadSource(const std::string& path) {
  if (!model::FileExists(path)) throw model::InputError({path}, "no such file", "correct its path");
  std::string bytes;
  try {
    bytes = model::ReadWholeFile(path);
  } catch (const model::FileFault& fault) {
    throw model::InputError({path}, fault.Kind(), "give a file that can be read");
  }
  return bytes.starts_with("\x1f\x8b") ? Unzipped(bytes, path) : bytes;
}

std::optional<double> NumberIn(std::string_view text) {
  constexpr double kMost = 1e12;
  if (text.starts_with('+')) {
    text.remove_prefix(1);
    if (text.starts_with('-')) return std::nullopt;
  }
  double value = 0.0;
  const char* const end = text.data() + text.size();
  const auto [stop, error] = std::from_chars(text.data(), end, value);
  // The library reads "inf" and "nan" too, which this comparison refuses.
  if (error != std::errc() || stop != end || !(std::fabs(value) <= kMost)) return std::nullopt;
  return value;
}

}  // namespace importer
