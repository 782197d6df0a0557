#include "analysis/line_check.h"

#include <algorithm>
#include <utility>

#include "model/numbers.h"
#include "model/text.h"

namespace analysis {

namespace {

using model::reader::BodyKeyword;
using model::reader::LineFate;
using model::reader::LineNote;

/// True when a text is read as 0 without saying so.
bool IsUnreadable(std::string_view text) {
  if (model::ToNumber(text) != 0.0F) return false;
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::string_view digits = text.substr(0, text.find_first_not_of(".,0123456789"));
  // "0", "0.00" and "0mil" mean 0; digits other than 0 were beyond the range.
  return digits.find('0') == std::string_view::npos ||
         digits.find_first_of("123456789") != std::string_view::npos;
}

std::string Word(std::string_view text) { return std::string(text); }

std::string Keyword(const LineNote& note) { return model::UpperCase(note.Fields[0]); }

std::string OnLine(std::size_t line) { return "line " + std::to_string(line); }

/// A missing bulge is told where it ends the viewer; no other ring needs one.
bool MayBeMissing(const LineNote& note, std::size_t field) {
  return (note.Keyword == BodyKeyword::Ring || note.Keyword == BodyKeyword::SRing) && field == 8;
}

/// What editors put at the start of a file, where nobody sees it.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

}  // namespace

std::size_t PackageLines::HeaderOf(const std::string& keyword) const {
  const auto found = Headers.find(keyword);
  return found == Headers.end() ? 0 : found->second;
}

bool PackageLines::Tells(std::size_t line) const {
  return Incomplete.contains(line) || Unreadable.contains(line);
}

bool PackageLines::HasMoreThanDies() const {
  const auto has = [](const BondLines& bond) { return bond.SubstratePad != 0 || bond.Wire != 0; };
  return !Stitches.empty() || !Rings.empty() || !SRings.empty() || !Daps.empty() ||
         std::any_of(Bonds.begin(), Bonds.end(), has) || std::any_of(SDBonds.begin(), SDBonds.end(), has);
}

void LineCheck::Add(formats::Level level, const char* kind, std::size_t line, std::string what,
                    std::string advice) {
  report_.Remarks.push_back({level, kind, {report_.File, line}, std::move(what), std::move(advice)});
}

void LineCheck::OnPackageLine(const LineNote& note) {
  if (note.Fate != LineFate::Taken) return Ignored(note);
  if (note.Fields.Found() > model::Tokens::kCount)
    Add(formats::Level::Finding, "extra-fields", note.Line,
        "the line has " + std::to_string(note.Fields.Found()) +
            " fields, those beyond the eleventh are ignored",
        "remove them");
  CheckNumbers(note);
  if (note.Keyword == BodyKeyword::None) return TakeHeaderLine(note);
  TakeRecord(note);
}

void LineCheck::Ignored(const LineNote& note) {
  ++report_.Ignored;
  const std::string word = formats::Shown(note.Fields[0]);
  switch (note.Fate) {
    case LineFate::BeforeCompz:
      return Add(formats::Level::Finding, "before-compz", note.Line,
                 word + " comes before the COMPZ line and is ignored", "move it after COMPZ");
    case LineFate::AfterCompz:
      return Add(formats::Level::Finding, "after-compz", note.Line,
                 word + " comes after the COMPZ line and is ignored", "remove it, or move it before COMPZ");
    case LineFate::NamesNothing:
      return nameless_.push_back(
          {note.Line, Keyword(note), Word(note.Fields[1]), note.Keyword == BodyKeyword::SrSeg});
    default:
      if (note.Fields[0].starts_with(kByteOrderMark))
        return Add(formats::Level::Finding, "unknown-keyword", note.Line,
                   "a byte order mark hides " + formats::Shown(note.Fields[0].substr(kByteOrderMark.size())) +
                       ", the line is ignored",
                   "save the file as UTF-8 without a mark");
      return Add(formats::Level::Finding, "unknown-keyword", note.Line,
                 word + " is no keyword, the line is ignored", "correct or remove it");
  }
}

void LineCheck::CheckNumbers(const LineNote& note) {
  // A height of 0 becomes 1, however it came about.
  const std::string readAs = model::EqualsUpper(note.Fields[0], "COMPZ") ? "1" : "0";
  std::string missing;
  for (std::size_t field = 1; field < model::Tokens::kCount; ++field) {
    const std::string_view text = note.Fields[field];
    if (!note.ReadAsNumber(field)) continue;
    if (text.empty()) {
      if (!MayBeMissing(note, field)) missing += (missing.empty() ? "" : ", ") + std::to_string(field);
    } else if (IsUnreadable(text)) {
      lines_.Unreadable.insert(note.Line);
      Add(formats::Level::Finding, "unreadable-number", note.Line,
          "field " + std::to_string(field) + ", " + formats::Shown(text) +
              ", cannot be read as a number and is " + readAs,
          "write a number such as 12.5");
    }
  }
  if (missing.empty()) return;
  lines_.Incomplete.insert(note.Line);
  Add(formats::Level::Finding, "missing-number", note.Line,
      "the line ends too early: numbers are missing and read as " + readAs + " (field " + missing + ")",
      "complete it");
}

/// The line that had `key` before this one, or 0 when this is the first.
std::size_t LineCheck::Before(FirstLines& lines, std::string key, std::size_t line) {
  const auto [place, isNew] = lines.try_emplace(std::move(key), line);
  return isNew ? 0 : place->second;
}

void LineCheck::TakeHeaderLine(const LineNote& note) {
  const std::string keyword = Keyword(note);
  if (const std::size_t before = std::exchange(lines_.Headers[keyword], note.Line))
    Add(formats::Level::Finding, "duplicate", note.Line,
        keyword + " again: it takes the place of " + OnLine(before), "keep one of them");
  if (keyword == "COMPZ" && model::ToNumber(note.Fields[1]) == 0.0F && !lines_.Tells(note.Line))
    Add(formats::Level::Finding, "zero-height", note.Line, "a COMPZ of 0 is read as 1",
        "give the base die's height");
}

void LineCheck::TakeRecord(const LineNote& note) {
  switch (note.Keyword) {
    case BodyKeyword::Cbp:
      return TakePad(note, lines_.Bonds, pads_);
    case BodyKeyword::SdCbp:
      return TakePad(note, lines_.SDBonds, stackedPads_);
    case BodyKeyword::Sbp:
      return TakeOfBond(note, &BondLines::SubstratePad);
    case BodyKeyword::Wb:
      return TakeOfBond(note, &BondLines::Wire);
    case BodyKeyword::Stch:
      lines_.Stitches.push_back(note.Line);
      lines_.StitchedPads.emplace(note.Fields[1]);
      lines_.StitchedPads.emplace(note.Fields[4]);
      return FindTwins(note);
    case BodyKeyword::Ring:
      lines_.Rings.push_back(note.Line);
      return FindTwins(note);
    case BodyKeyword::SRing:
      lines_.SRings.push_back(note.Line);
      lines_.Segments.emplace_back();
      if (const std::size_t before = Before(rings_, Word(note.Fields[1]), note.Line))
        Add(formats::Level::Finding, "duplicate", note.Line,
            "SRING " + formats::Shown(note.Fields[1]) + " again: SRSEG lines reach only that of " +
                OnLine(before),
            "give it a name of its own");
      return;
    case BodyKeyword::SrSeg:
      lines_.Segments[note.Record.Number].push_back(note.Line);
      return FindTwins(note);
    case BodyKeyword::Dap:
      lines_.Daps.push_back(note.Line);
      return FindTwins(note);
    case BodyKeyword::None:
      return;
  }
}

void LineCheck::TakePad(const LineNote& note, std::vector<BondLines>& bonds, FirstLines& names) {
  const std::size_t before = Before(names, Word(note.Fields[1]), note.Line);
  bonds.push_back({.Pad = note.Line, .Again = before != 0});
  if (before == 0) return;
  repeatedPads_.push_back({formats::Level::Finding,
                           "duplicate",
                           {report_.File, note.Line},
                           Keyword(note) + " " + formats::Shown(note.Fields[1]) +
                               " again: SBP and WB lines reach only the pad of " + OnLine(before),
                           "give it a name of its own"});
}

void LineCheck::TakeOfBond(const LineNote& note, std::size_t BondLines::*which) {
  BondLines& bond =
      (note.Record.Table == model::RecordTable::Bonds ? lines_.Bonds : lines_.SDBonds)[note.Record.Number];
  if (const std::size_t before = std::exchange(bond.*which, note.Line))
    Add(formats::Level::Finding, "duplicate", note.Line,
        Keyword(note) + " " + formats::Shown(note.Fields[1]) + " again: it takes the place of " +
            OnLine(before),
        "keep one of them, or give its pad a name of its own");
}

/// Records that are all drawn may share a name; only the same record twice is of no use.
void LineCheck::FindTwins(const LineNote& note) {
  // Values that are 0 by mistake make no twins.
  if (lines_.Tells(note.Line)) return;
  std::string key = Keyword(note);
  for (std::size_t field = 1; field < model::Tokens::kCount; ++field) {
    key += ' ';
    if (note.ReadAsNumber(field)) {
      const float value = model::ToNumber(note.Fields[field]) + 0.0F;  // which is never -0
      key.append(reinterpret_cast<const char*>(&value), sizeof value);
    } else {
      key += note.Fields[field];
    }
  }
  if (const std::size_t before = Before(twins_, std::move(key), note.Line))
    Add(formats::Level::Finding, "duplicate", note.Line,
        "the same " + Keyword(note) + " as on " + OnLine(before), "remove one of them");
}

void LineCheck::OnSideFileLine(const LineNote& note) {
  const yax::Place place{report_.File + ".vu", note.Line};
  if (note.Fate == LineFate::NotTwoFields) {
    report_.Remarks.push_back(
        {formats::Level::Finding, "not-two-fields", place,
         "the line has " + std::to_string(note.Fields.Found()) + " fields and is ignored",
         "write a wire's name and its net type"});
    return;
  }
  const std::string name = Word(note.Fields[0]);
  if (note.Fate == LineFate::NamesNothing) {
    unknownNets_.push_back({formats::Level::Note, "net-types-without-wire", place,
                            "no wire is named " + formats::Shown(name), ""});
    return;
  }
  NetType& before = netTypes_[name];
  // The same type once more, say for a wire and a stitch of one name, changes nothing.
  if (before.line != 0 && before.type != note.Fields[1])
    report_.Remarks.push_back(
        {formats::Level::Finding, "duplicate", place,
         formats::Shown(name) + " again: its net type takes the place of that on " + OnLine(before.line),
         "keep one of them"});
  before = {Word(note.Fields[1]), note.Line};
}

void LineCheck::Finish(const model::Package& package) {
  for (const Nameless& line : nameless_) {
    const bool later = line.ring ? rings_.contains(line.name)
                                 : pads_.contains(line.name) || stackedPads_.contains(line.name);
    const std::string what =
        line.keyword + " names " + (line.ring ? "the ring " : "the die pad ") + formats::Shown(line.name);
    if (later) {
      Add(formats::Level::Finding, "too-early", line.line, what + ", which comes later, and is ignored",
          "move it after " + std::string(line.ring ? "its SRING line" : "its CBP or SD_CBP line"));
    } else {
      Add(formats::Level::Finding, "names-nothing", line.line, what + ", which is not there, and is ignored",
          "correct the name");
    }
  }
  if (package.Technology != "WIRE_BOND") return;
  for (std::vector<formats::Remark>* const remarks : {&repeatedPads_, &unknownNets_})
    std::move(remarks->begin(), remarks->end(), std::back_inserter(report_.Remarks));
}

}  // namespace analysis
