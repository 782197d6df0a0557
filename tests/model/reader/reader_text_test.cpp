#include "model/package.h"
#include "tests/model/package_text.h"

namespace model {
namespace {

using ReaderText = PackageText;
using namespace std::string_view_literals;

TEST_F(ReaderText, FieldsStandBetweenAnyBlanks) {
  for (const char* line : {"CBP A 1 2", "  CBP A 1 2  ", "CBP\tA\t1\t2", "\t CBP \t A  1\t\t2 \t",
                           "cBp A 1 2\r", "C\rBP A 1\r 2\r\r", "\r\n \t\nCBP A 1 2\n\n"}) {
    const Package package = Read("COMPZ 1\r\n" + std::string(line));  // the last line has no end
    ASSERT_EQ(package.Bonds.Count(), 1U) << line;
    const BondRec& bond = package.Bonds[0];
    EXPECT_EQ(Fields(bond.Name, bond.DieX, bond.DieY), "'A' 1 2") << line;
  }
}

TEST_F(ReaderText, ACarriageReturnAloneDoesNotEndALine) {
  EXPECT_TRUE(Read("COMPZ 1\rCBP A 1 2\r").Bonds.Empty()) << "all of it is one line, with the height 1CBP";
}

TEST_F(ReaderText, OrdinaryBytesStayAsTheyAre) {
  // NUL, byte 26, a no-break space and letters beyond ASCII are parts of a name like any other.
  for (const std::string_view name :
       {"A\0B"sv, "\0A"sv, "A\x1a"sv, "A\xa0"sv, "\xc3\xa4"sv, "\xe4\xc4"sv, "A\vB"sv}) {
    const std::string word(name);
    const Package package = ReadBody("CBP " + word + " 1\nSBP " + word + " 5\nWB " + word + " 7\nSBP A 9\n");
    EXPECT_EQ(package.Bonds[0].Name, word);
    EXPECT_EQ(package.Bonds[0].SubX, 5.0F) << word;
    EXPECT_EQ(package.WireNames[0].Name, word);
  }
}

TEST_F(ReaderText, OnlyWholeKeywordsCount) {
  for (const std::string_view keyword : {"\0CBP"sv, "CBP\0"sv, "CB"sv, "CBPP"sv, "XXXXXCBP"sv, "CBP:"sv,
                                         "\xef\xbb\xbf"
                                         "CBP"sv,
                                         "#CBP"sv}) {
    EXPECT_TRUE(ReadBody(std::string(keyword) + " A 1 2\n").Bonds.Empty()) << keyword;
  }
  EXPECT_EQ(Read("\0COMPZ 4\n"sv).CompZ, 0.0F);
}

}  // namespace
}  // namespace model
