#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "analysis/package_check.h"
#include "formats/diagnostic_text.h"
#include "model/text.h"
#include "tests/samples.h"
#include "tests/temporary_folder.h"
#include "yax/options/opened_package.h"

namespace analysis {
namespace {

Diagnostics CheckFile(const std::string& path) {
  LineCheck lines(path);
  const model::Package package = yax::LoadPackage(path, &lines);
  return CheckPackage(package, lines);
}

Diagnostics Check(const std::string& text, const std::string& netTypes = {}) {
  const TemporaryFolder folder;
  const std::string path = folder / "board.yax";
  PutFile(path, text);
  if (!netTypes.empty()) PutFile(path + ".vu", netTypes);
  return CheckFile(path);
}

/// "LINE KIND" of every remark of a level, those of the side file with "vu " before them.
std::vector<std::string> Remarks(const Diagnostics& report, Severity level) {
  std::vector<std::string> texts;
  for (const Diagnostic& remark : report.List) {
    if (remark.Severity != level) continue;
    texts.push_back((remark.Place.File.ends_with(".vu") ? "vu " : "") + std::to_string(remark.Place.Line) +
                    " " + remark.Kind);
  }
  return texts;
}

using Texts = std::vector<std::string>;

TEST(Check, ReportsEachBadLineOnceWithItsPlace) {
  // A line and what is wrong with it.
  const struct {
    const char* line;
    std::string kind = {};
  } lines[] = {
      {"TECHNOLOGY WIRE_BOND"},
      {"COMPL 8"},
      {"compl 8", "duplicate"},
      {"COMPW 6"},
      {"CBP A 2 1 0 .2 .2 0 R RECTANGLE", "before-compz"},
      {"SD_COMPL wide", "unreadable-number"},
      {"SD_ROTATION", "missing-number"},
      {"COMPZ 1"},
      {"COMPZ 2", "after-compz"},
      {"SBP A 4 1 0 1 1 0 RECTANGLE 0 1", "too-early"},
      {"  "},
      {"CBP A 2 1 0 .2 .2 0 r rectangle"},
      {"SBP A 4 1 0 1 1 0 OBLONG 0 1"},
      {"WB A 2 1 0 4 1 1 0"},
      {"WIRE A 2 1 0 4 1 1 0 and so on and on", "unknown-keyword"},
      {"WB a 2 1 0 4 1 1 0", "names-nothing"},
      {"SRSEG NO B -1 1", "names-nothing"},
      {"RING X STRAIGHT -4 4 4 -4 1 0 9 10 11", "extra-fields"},
      {"CBP A -2 1 0 .2 .2 0 L RECTANGLE", "duplicate"},
      {"SBP A 4.5 1 0 1 1 0 RECTANGLE 0 1", "duplicate"},
      {"WB A 2 1 0 4.5 1 1 0", "duplicate"},
      {"DAP PADDLE -1 0 1 0 2"},
      {"dap PADDLE  -1.0 -0 1 0,0 2", "duplicate"},
      {"CBP B 2 2 0 .2 .2 0 R ROUND"},
      {"SBP B 4 2 0 1 1 x9 ROUND 0 1", "unreadable-number"},
      {"WB B 2 2 0 2 2 1 0", "wire-fault"},
      {"STCH A 1 1 B 1 1 0 5", "wire-fault"},
      {"CBP C 2 3 0 .2 .2 0 R round", "draws-nothing"},
      {"CBP D 2 -1 0 .2 .2 0 R RECTANGLE"},
      {"SBP D 0 0 0 1 1 0 RECTANGLE 0 1", "draws-nothing"},
      {"WB D 0 0 0 4 -1 1 0", "draws-nothing"},
      {"CBP E 2 -2 0 0 .2 0 R RECTANGLE", "draws-nothing"},
      {"SBP E 4 -2 0 0 1 0 RECTANGLE 0 1", "draws-nothing"},
      {"WB E 2 -2 0 4 -2 1", "missing-number"},
      {"CBP F 2 -3 0 .2 .2 0 X RECTANGLE", "draws-nothing"},
      {"RING X arc -4 4 4 -4 1", "ring-fault"},
      {"RING X STRAIGHT -5 5 5 -5 0", "draws-nothing"},
      {"SRING V STRAIGHT -5 5 5 -5 1"},
      {"SRSEG V b -1 1", "draws-nothing"},
      {"SRSEG V B 0 2"},
      {"SRSEG V B 0 2", "duplicate"},
      {"SRING V STRAIGHT -6 6 6 -6 1", "duplicate"},
      {"SRING W STRAIGHT -5 5 5 -5 1", "draws-nothing"},
      {"SRING Z ARC -5 5 5 -5 1 0", "ring-fault"},
      {"SRSEG Z T 0 2"},
      {"DAP BAND -1 0 1 0 0", "draws-nothing"},
      {"DAP BAND -1 0 1 0 wide", "unreadable-number"},
  };
  std::string text;
  Texts errors, findings;
  std::size_t count = 0;
  for (const auto& [line, kind] : lines) {
    text.append(line) += '\n';
    ++count;
    if (!kind.empty())
      (kind.ends_with("-fault") ? errors : findings).push_back(std::to_string(count) + " " + kind);
    // The second ring of a name cannot have pieces either.
    if (count == 42) findings.push_back("42 draws-nothing");
  }
  findings.insert(findings.end(), {"vu 2 not-two-fields", "vu 4 duplicate"});

  const Diagnostics report = Check(text, "A SIGNAL\nA SIGNAL POWER\n\nA GROUND\nA GROUND\nQ POWER\n");
  EXPECT_EQ(Remarks(report, Severity::Error), errors);
  EXPECT_EQ(Remarks(report, Severity::Finding), findings);
  EXPECT_EQ(report.Lines, count);
  EXPECT_EQ(report.Ignored, 6U) << "two at COMPZ, one early, one unknown, two that name nothing";
  // C and F have neither wire nor substrate pad; E has both, D at least the lines of both.
  EXPECT_EQ(Remarks(report, Severity::Note),
            (Texts{"28 pads-without-wire", "28 pads-without-substrate-pad", "35 pads-without-wire",
                   "35 pads-without-substrate-pad", "vu 6 net-types-without-wire"}));
  for (const Diagnostic& remark : report.List) {
    EXPECT_NE(remark.What, "");
    EXPECT_TRUE(remark.Severity == Severity::Note || !remark.Advice.empty()) << remark.What;
  }
}

TEST(Check, ReportsWhatTheHeaderHides) {
  const std::string wireBond = "TECHNOLOGY WIRE_BOND\n";
  const std::string stackedPad = "SD_CBP A 2 1 0 .2 .2 0 R ";
  const std::string pad = "COMPZ 1\nCBP V 2 1 0 .2 .2 0 R ROUND\n";
  const std::pair<std::string, Texts> cases[] = {
      {wireBond + "COMPL 0\nCOMPW 6\nCOMPZ 1\n", {"2 draws-nothing"}},
      {wireBond + "COMPL 8\nCOMPW 0.0\nCOMPZ 0\n", {"3 draws-nothing", "4 zero-height"}},
      {wireBond + "COMPL long\nCOMPW\nCOMPZ high\n",
       {"2 unreadable-number", "3 missing-number", "4 unreadable-number"}},
      {wireBond + "SD_COMPW 3\nCOMPZ 1\n", {"2 draws-nothing"}},
      {wireBond + "SD_COMPW 3\nSD_COMPL 0\nCOMPZ 1\n", {"3 draws-nothing"}},
      {wireBond + "SD_COMPL 3\nCOMPZ 1\n", {"2 draws-nothing"}},
      // Writers that support stacked dies may always write all of it.
      {wireBond + "SD_COMPL 0\nSD_COMPW 0\nSD_COMPZ 0\nCOMPZ 1\n", {}},
      {wireBond + "COMPZ 1\n" + stackedPad + "ROUND\n" + stackedPad + "RECTANGLE\n",
       {"4 duplicate", "4 draws-nothing"}},
      {wireBond + "COMPZ 1\n" + stackedPad + "ROUND\n", {"3 draws-nothing"}},
      // A missing technology is reported where it hides something, a wrong one always.
      {pad, {}},
      {pad + "SBP V 4 1 0 1 1 0 ROUND 0 1\n", {"0 draws-nothing"}},
      {pad + "WB V 2 1 0 4 1 1 0\n", {"0 draws-nothing"}},
      {pad + "STCH V 2 1 V 3 1 1 1\n", {"0 draws-nothing"}},
      {pad + "RING X STRAIGHT -4 4 4 -4 1\n", {"0 draws-nothing"}},
      {pad + "DAP D 0 0 1 0 1\n", {"0 draws-nothing"}},
      {"TECHNOLOGY WIREBOND\n" + pad, {"1 draws-nothing"}},
      {"\xEF\xBB\xBFTECHNOLOGY FLIP_CHIP\nCOMPZ 1\n", {"1 unknown-keyword"}},
  };
  for (const auto& [text, findings] : cases)
    EXPECT_EQ(Remarks(Check(text), Severity::Finding), findings) << text;
  EXPECT_EQ(Check("\xEF\xBB\xBFTECHNOLOGY FLIP_CHIP\nCOMPZ 1\n").List.at(0).What,
            "a byte order mark hides 'TECHNOLOGY', the line is ignored");
}

constexpr char kHeader[] = "TECHNOLOGY WIRE_BOND\nCOMPL 8\nCOMPW 6\nCOMPZ 1\n";

TEST(Check, AcceptsWhatIsIntended) {
  const char* const bodies[] = {
      // Net names on both dies, with a stitch between them.
      "CBP V 2 1 0 .2 .2 0 R RECTANGLE\nSBP V 4 1 0 1 1 0 ROUND 0 1\nWB V 2 1 0 4 1 1 0\n"
      "SD_CBP V 1 1 0 .2 .2 0 R ROUND\nSTCH V 1 1 V 2 1 1 1\nSTCH V 1 1.1 V 2 1.1 1 1\n",
      // Numbers with units, commas and zeros of all kinds; missing fields that nothing reads.
      "CBP A 2mm 1,5 0 .2e0 +.2 0 R RECTANGLE\nWB A 2 -0.0 0 4 0,0 1 0mm\nRING X STRAIGHT -4 4 4 -4 1\n",
      // Pieces and bands may share a name.
      "SRING R STRAIGHT -4 4 4 -4 1\nSRSEG R B -1 0\nSRSEG R B 1 2\nDAP D 0 0 1 0 1\nDAP D 0 1 1 1 1\n",
      // Empty lines.
      "\n \t \n\r\n",
  };
  for (const char* body : bodies) {
    const Diagnostics report = Check(std::string("SD_COMPW 3\nSD_COMPL 3\n") + kHeader + body);
    EXPECT_EQ(Remarks(report, Severity::Error), Texts{}) << body;
    EXPECT_EQ(Remarks(report, Severity::Finding), Texts{}) << body;
  }
}

TEST(Check, FlipChipsHaveNoWiresToMiss) {
  // Bumps of one net share its name; bumps lie anywhere.
  const std::string bumps = "COMPZ 1\nCBP V 2 1 0 .2 .2 0 C ROUND\nCBP V 2 2 0 .2 .2 0 C ROUND\n";
  EXPECT_EQ(Check("TECHNOLOGY FLIP_CHIP\n" + bumps, "Q POWER\n").List.size(), 0U);
}

TEST(Check, FindsTablesBeyondTheirLimit) {
  std::string text = kHeader;
  for (int ring = 0; ring < 32767; ++ring)
    text += "RING X STRAIGHT -4 4 4 -4 " + std::to_string(ring + 1) + "\n";
  EXPECT_EQ(Remarks(Check(text), Severity::Error), Texts{});
  text += "RING X STRAIGHT -4 4 4 -4 40000\n";
  const Diagnostics report = Check(text);
  EXPECT_EQ(Remarks(report, Severity::Error), Texts{"32772 too-many"});
  EXPECT_NE(report.List.at(0).What.find("32768 rings, at most 32767"), std::string::npos);
}

std::string Wire(const std::string& name, const std::string& substratePad) {
  return "CBP " + name + " 2 1 0 .2 .2 0 R ROUND\n" + substratePad + "WB " + name + " 2 1 0 4 1 1 0\n";
}

std::string WireOfTier(const std::string& name, const std::string& tier) {
  return Wire(name, "SBP " + name + " 4 1 0 1 1 0 ROUND 0 " + tier + "\n");
}

TEST(Check, FindsWhatEndsTheViewer) {
  const std::string header = kHeader, stacked = "TECHNOLOGY WIRE_BOND\nSD_COMPW 3\nCOMPL 8\nCOMPW 6\nCOMPZ ";
  const std::string toEdge =
      "\nSD_CBP S 1 1 0 .2 .2 0 R ROUND\nSBP S 1 4 0 1 1 0 ROUND 0 1\nWB S 1 1 0 1 4 1 0\n";
  const std::pair<std::string, Texts> cases[] = {
      {header + WireOfTier("A", "0") + WireOfTier("B", "3") + WireOfTier("C", ""), {}},
      {header + WireOfTier("A", "12") + WireOfTier("B", "1") + WireOfTier("C", "12") + WireOfTier("D", "-1"),
       {"6 tier-fault", "15 tier-fault"}},
      // Where tiers count from 0, 9 is shown as 10.
      {header + WireOfTier("A", "0") + WireOfTier("B", "9"), {"9 tier-fault"}},
      // A wire without a tier counts as the lowest, so the others are not renumbered from 1.
      {header + Wire("A", "") + WireOfTier("B", "0") + WireOfTier("C", "0"), {"8 tier-fault"}},
      // After a load every extension is the die's height; a height of -1 thus means the base die's edge.
      {stacked + "1" + toEdge, {}},
      {stacked + "-1" + toEdge, {"8 wire-fault"}},
      // The corners of the largest die that can be written leave the range of a single.
      {"TECHNOLOGY WIRE_BOND\nSD_COMPW 3e38\nSD_XOFFSET 3e38\nCOMPZ 1\n", {"0 fault"}},
      // In units of a die that is 431 wide, the greatest height is more than a single holds.
      {"COMPW 431\nCOMPZ 3.4028235e38\n", {"2 fault"}},
  };
  for (const auto& [text, errors] : cases) EXPECT_EQ(Remarks(Check(text), Severity::Error), errors) << text;
}

TEST(Check, FindsNoErrorInTheSamples) {
  for (const std::string name : kSamples) {
    const Diagnostics report = CheckFile(SamplePath(name));
    EXPECT_EQ(report.Count(Severity::Error) + report.Count(Severity::Finding) + report.Ignored, 0U) << name;
    // The six round probe points of AAAc, and the pad of cob32 that is bonded down to the paddle.
    EXPECT_EQ(report.Count(Severity::Note), name == "AAAc" ? 12U : name == "cob32" ? 1U : 0U) << name;
  }
}

TEST(CheckReport, ShowsWordsShortAndSafe) {
  EXPECT_EQ(model::Quoted("a\x1b[b"), "'a?[b'");
  EXPECT_EQ(model::Quoted(std::string(61, 'x')), "'" + std::string(60, 'x') + "...'");
}

TEST(CheckReport, IsJsonWhateverTheNamesHold) {
  const Diagnostics report = Check(std::string(kHeader) + "\"\xff\\ 1\nCBP A 2 1 0 .2 .2 0 R ROUND\n");
  const std::string json = formats::JsonOf(report, false);
  EXPECT_NE(json.find("\"lines\": 6,"), std::string::npos) << json;
  EXPECT_NE(json.find("\"line\": 5,\n      \"kind\": \"unknown-keyword\""), std::string::npos) << json;
  EXPECT_NE(json.find("unknown keyword '\\\"\xEF\xBF\xBD\\\\'"), std::string::npos) << json;
  EXPECT_NE(json.find("\"pads-without-wire\": 1"), std::string::npos) << json;
  EXPECT_EQ(json.find("\"notes\""), std::string::npos);
  EXPECT_NE(formats::JsonOf(report, true).find("\"notes\""), std::string::npos);
}

}  // namespace
}  // namespace analysis
