#include "bench/bare_pass.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <charconv>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string_view>

namespace bench {

namespace {

/// A file's bytes, read into memory that is not zeroed first.
struct Bytes {
  std::unique_ptr<char[]> data;
  std::size_t size = 0;
  std::string_view View() const { return {data.get(), size}; }
};

Bytes Load(const std::string& path) {
  const int file = open(path.c_str(), O_RDONLY | O_CLOEXEC);
  struct stat status {};
  if (file < 0 || fstat(file, &status) != 0) std::abort();
  Bytes bytes{std::make_unique_for_overwrite<char[]>(static_cast<std::size_t>(status.st_size)), 0};
  bytes.size =
      static_cast<std::size_t>(read(file, bytes.data.get(), static_cast<std::size_t>(status.st_size)));
  close(file);
  return bytes;
}

using Fields = std::array<std::string_view, 11>;

std::size_t Split(std::string_view line, Fields& fields) {
  std::size_t count = 0;
  const char* at = line.data();
  const char* const end = at + line.size();
  while (at != end && count < fields.size()) {
    while (at != end && (*at == ' ' || *at == '\t')) ++at;
    if (at == end) break;
    const char* const start = at;
    while (at != end && *at != ' ' && *at != '\t') ++at;
    fields[count++] = {start, static_cast<std::size_t>(at - start)};
  }
  return count;
}

template <class EachLine>
void Lines(std::string_view text, EachLine&& eachLine) {
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end) {
    const auto* feed = static_cast<const char*>(std::memchr(at, '\n', static_cast<std::size_t>(end - at)));
    if (feed == nullptr) feed = end;
    eachLine(std::string_view(at, static_cast<std::size_t>(feed - at)));
    at = feed == end ? end : feed + 1;
  }
}

/// The fields of a record that hold numbers.
std::string_view NumberFields(std::string_view keyword) {
  if (keyword == "CBP" || keyword == "SD_CBP") return "\2\3\5\6";
  if (keyword == "SBP") return "\2\3\5\6\7";
  if (keyword == "WB" || keyword == "STCH") return "\2\3\5\6\7\10";
  if (keyword == "RING" || keyword == "SRING") return "\3\4\5\6\7\10";
  if (keyword == "SRSEG") return "\3\4";
  if (keyword == "DAP") return "\2\3\4\5\6";
  return "\1";
}

}  // namespace

double BarePass(const std::string& path) {
  double sum = 0.0;
  Fields fields;
  const Bytes package = Load(path);
  Lines(package.View(), [&](std::string_view line) {
    const std::size_t count = Split(line, fields);
    if (count == 0) return;
    for (const char field : NumberFields(fields[0])) {
      const auto number = static_cast<std::size_t>(field);
      if (number >= count) break;
      double value = 0.0;
      std::from_chars(fields[number].data(), fields[number].data() + fields[number].size(), value);
      sum += value;
    }
  });
  const Bytes netTypes = Load(path + ".vu");
  Lines(netTypes.View(), [&](std::string_view line) {
    if (Split(line, fields) == 2) sum += double(fields[1].size());
  });
  return sum;
}

}  // namespace bench
