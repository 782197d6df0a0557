// Packages of an unlikely kind or length: each is read in full within kMaxSeconds and has the counts given
// here.
#include <algorithm>
#include <ctime>

#include "model/package.h"
#include "setup/parameter_file.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

using namespace std::string_literals;

#if defined(__SANITIZE_ADDRESS__) || !defined(__OPTIMIZE__)
constexpr double kMaxSeconds = 10.0;  // unoptimized code is slow; quadratic time would take hours here too
#else
constexpr double kMaxSeconds = 1.0;
#endif

/// The processor time of `work`: other programs on the machine do not count.
template <class Work>
void ExpectInTime(const std::string& what, Work&& work) {
  const std::clock_t start = std::clock();
  work();
  EXPECT_LT(double(std::clock() - start) / CLOCKS_PER_SEC, kMaxSeconds) << what;
}

std::string Repeated(const std::string& piece, std::size_t times) {
  std::string text;
  text.reserve(piece.size() * times);
  for (std::size_t i = 0; i < times; ++i) text += piece;
  return text;
}

class ReaderSurvival : public PackageText {
 protected:
  Package ReadInTime(const std::string& text, const std::string& netTypes, const std::string& what) {
    Package package;
    ExpectInTime(what, [&] { package = reader::ParsePackage(before, {text, netTypes}); });
    return package;
  }
};

TEST_F(ReaderSurvival, FilesWithoutRecordsGiveAnEmptyPackage) {
  constexpr std::size_t kBytes = 2'000'000;
  const std::pair<const char*, std::string> cases[] = {
      {"empty", ""},
      {"no line end", "CBP A 1 2"},
      {"line ends", std::string(kBytes, '\n')},
      {"returns", std::string(kBytes, '\r')},
      {"blanks", std::string(kBytes, ' ')},
      {"NUL bytes", std::string(kBytes, '\0')},
      {"bytes beyond ASCII", std::string(kBytes, '\xff')},
      {"one word", std::string(kBytes, 'C')},
      {"one line of words", Repeated("CBP ", kBytes / 4)},
      {"ignored lines", Repeated("XYZ A 1 2\n", kBytes / 10)},
      {"a body without a header", Repeated("CBP A 1 2\n", kBytes / 10)},
  };
  for (const auto& [what, text] : cases) {
    const Package package = ReadInTime(text, text, what);
    EXPECT_TRUE(package.Bonds.Empty() && package.WireNames.Empty()) << what;
    EXPECT_EQ(package.CompZ, 0.0F) << what;
  }
}

TEST_F(ReaderSurvival, TheLargestDieIsStillRescaled) {
  // 3.4e38 divided by ten 38 times is 3.4.
  const Package package = ReadInTime("COMPL 3.4e38\nCOMPZ 1\nCBP A 1e38\n", "", "largest die");
  EXPECT_FLOAT_EQ(package.CompL, 3.4F);
  EXPECT_FLOAT_EQ(package.UnitScale, 1e38F);
  EXPECT_FLOAT_EQ(package.Bonds[0].DieX, 1.0F);
}

/// One kind of record in a number of copies. "#" in a line stands for the record's own number.
struct Kind {
  const char* what;
  const char* before;
  const char* line;
  std::size_t (*count)(const Package& package);
};

std::string Numbered(const char* line, std::size_t records, bool backwards = false) {
  std::string text;
  for (std::size_t i = 0; i < records; ++i) {
    const std::string number = std::to_string(backwards ? records - 1 - i : i);
    for (const char* c = line; *c != '\0'; ++c) *c == '#' ? text += number : text += *c;
  }
  return text;
}

TEST_F(ReaderSurvival, TablesHaveNoLimitOf16BitsAndFillInLinearTime) {
  constexpr std::size_t kRecords = 40'000;
  static constexpr Kind kKinds[] = {
      {"die pads", "", "CBP N# 1 2 # 3 4 0 L ROUND\n", [](const Package& p) { return p.Bonds.Count(); }},
      {"die pads of one name", "", "CBP N 1 2 # 3 4 0 L ROUND\n",
       [](const Package& p) { return p.Bonds.Count(); }},
      {"stacked pads", "", "SD_CBP N# 1\n", [](const Package& p) { return p.SDBonds.Count(); }},
      // Each wire has a line in the side file.
      {"wires", "", "CBP N#\nSBP N# 1 2 0 3 4 5 ROUND 0 0\nWB N# 1 2 F 3 4\n",
       [](const Package& p) {
         return std::size_t(std::count_if(p.WireNames.begin(), p.WireNames.end(), [](const auto& entry) {
           return entry.NetType.substr(1) == entry.Name.substr(1);
         }));
       }},
      {"wires of one name", "CBP N\n", "SBP N 1\nWB N 1 2 F 3 4\n",
       [](const Package& p) { return p.WireNames.Count(); }},
      {"stitches", "", "STCH A# 1 2 B# 3 4\n", [](const Package& p) { return p.Stitches.Count(); }},
      {"rings", "", "RING R# ARC 1 2 3 4 5 0\n", [](const Package& p) { return p.Rings.Count(); }},
      {"segmented rings", "", "SRING R# ARC 1 2 3 4 5 0\nSRSEG R# B 1 2\n",
       [](const Package& p) { return p.SRings.Count(); }},
      {"segments", "SRING R ARC\n", "SRSEG R L # 2\n",
       [](const Package& p) { return p.SRings[0].Segs.Count(); }},
      {"attach bands", "", "DAP D 1 2 3 4 5\n", [](const Package& p) { return p.Daps.Count(); }},
  };
  for (const Kind& kind : kKinds) {
    const Package package = ReadInTime("COMPZ 1\n"s + kind.before + Numbered(kind.line, kRecords),
                                       Numbered("N# T#\n", kRecords, true), kind.what);
    EXPECT_EQ(kind.count(package), kRecords) << kind.what;
  }
}

TEST(ParameterFileSurvival, LongFilesTakeLinearTime) {
  ExpectInTime("parameters", [] {
    EXPECT_EQ(setup::ReadParameters(Repeated("Material=Cu\r\n", 100'000)).size(), 100'000U);
    EXPECT_TRUE(setup::ReadParameters(std::string(2'000'000, '=')).empty());
    EXPECT_TRUE(setup::ReadParameters(std::string(2'000'000, '\n')).empty());
  });
}

}  // namespace
}  // namespace model
