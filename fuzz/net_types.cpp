// Side files; compares the result with that of a second, simple reader.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "fuzz/expect.h"
#include "model/reader/read_package.h"

namespace {

// Two packages: tiers from 0, which the reader renumbers, and tiers from 1. Names appear twice, in a stitch,
// without a wire, or nowhere.
constexpr char kPackage[] =
    "COMPZ 1\nCBP A\nCBP B\nCBP C\nCBP N\nSD_CBP S\nSD_CBP A\n"
    "SBP A 1 2 0 3 4 5 ROUND 0 2\nSBP B 1 2 0 3 4 5 ROUND 0 1\nSBP S 1 2 0 3 4 5 ROUND 0 3\n"
    "WB A\nWB B\nWB A\nWB S\nSTCH C 0 0 A\nSTCH X 0 0 A\n";
constexpr char kTierZero[] = "SBP C 1 2 0 3 4 5 ROUND 0 0\n";

std::vector<std::string> FieldsOf(std::string_view line) {
  std::vector<std::string> fields(1);
  for (const char c : line) {
    if (c != ' ' && c != '\t')
      fields.back() += c;
    else if (!fields.back().empty())
      fields.emplace_back();
  }
  if (fields.back().empty()) fields.pop_back();
  return fields;
}

/// The last type that the file gives to each name.
std::map<std::string, std::string> TypesOf(const std::string& text) {
  std::map<std::string, std::string> types;
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t feed = std::min(text.find('\n', start), text.size());
    std::string line = text.substr(start, feed - start);
    if (!line.empty() && line.back() == '\r') line.pop_back();
    const std::vector<std::string> fields = FieldsOf(line);
    if (fields.size() == 2) types[fields[0]] = fields[1];
    start = feed + 1;
  }
  return types;
}

/// Counts the lines of the side file that hold fields.
class Listener final : public model::reader::ReadObserver {
 public:
  void OnPackageLine(const model::reader::LineNote&) override {}
  void OnSideFileLine(const model::reader::LineNote& note) override {
    Expect((note.Fields.Found() != 2) == (note.Fate == model::reader::LineFate::NotTwoFields),
           "entries have two fields");
    ++Lines;
  }

  std::size_t Lines = 0;
};

void Check(const std::string& package, const std::string& text) {
  Listener listener;
  const model::Package read = model::reader::ParsePackage({}, {package, text}, &listener);
  Expect(listener.Lines <= text.size() / 2 + 1, "a line has at least a letter and a line end");
  Expect(read.HaveVuFile, "a side file was read");
  std::map<std::string, std::string> types = TypesOf(text);
  for (const model::WireNameRec& entry : read.WireNames) {
    Expect(entry.NetType == types[entry.Name],
           "the first entry of a name has its type, later ones have none");
    types[entry.Name] = "";
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  Check(kPackage, text);
  Check(std::string(kPackage) + kTierZero, text);
  return 0;
}
