#include "analysis/line_check.h"

#include <algorithm>
#include <iterator>
#include <string_view>
#include <utility>

#include "model/numbers.h"
#include "model/text.h"

namespace analysis {

namespace {

using model::Quoted;
using model::reader::Keyword;
using model::reader::LineFate;
using model::reader::LineNote;

/// True when a text is read as 0 although it does not say 0.
bool IsUnreadable(std::string_view text) {
  if (model::ToNumber(text) != 0.0F) return false;
  if (text.starts_with('-') || text.starts_with('+')) text.remove_prefix(1);
  const std::string_view digits = text.substr(0, text.find_first_not_of(".,0123456789"));
  // "0", "0.00" and "0mil" mean 0; digits other than 0 were beyond the range.
  return digits.find('0') == std::string_view::npos ||
         digits.find_first_of("123456789") != std::string_view::npos;
}

std::string Word(std::string_view text) { return std::string(text); }

std::string WordOf(const LineNote& note) { return model::UpperCase(note.Fields[0]); }

std::string OnLine(std::size_t line) { return "line " + std::to_string(line); }

/// A missing bulge is reported where it ends the viewer; no other ring needs one.
bool MayBeMissing(const LineNote& note, std::size_t field) {
  return (note.Keyword == Keyword::Ring || note.Keyword == Keyword::SRing) && field == 8;
}

/// Some editors put it at the start of a file, where it is invisible.
constexpr std::string_view kByteOrderMark = "\xEF\xBB\xBF";

/// The line that had `key` before this one, or 0 when this is the first.
std::size_t LineBefore(std::unordered_map<std::string, std::size_t>& lines, std::string key,
                       std::size_t line) {
  const auto [place, isNew] = lines.try_emplace(std::move(key), line);
  return isNew ? 0 : place->second;
}

}  // namespace

void LineCheck::Add(const char* kind, std::size_t line, std::string what, std::string advice) {
  found_.List.push_back({Severity::Finding, kind, {found_.File, line}, std::move(what), std::move(advice)});
}

void LineCheck::OnPackageLine(const LineNote& note) {
  if (note.Fate != LineFate::Taken) return AddIgnored(note);
  if (note.Fields.Found() > model::Tokens::kCount)
    Add("extra-fields", note.Line,
        "the line has " + std::to_string(note.Fields.Found()) +
            " fields, those beyond the eleventh are ignored",
        "remove them");
  CheckNumbers(note);
  if (IsOfHeader(note.Keyword))
    CheckHeaderLine(note);
  else
    CheckRecord(note);
  lines_.OnPackageLine(note);
}

void LineCheck::AddIgnored(const LineNote& note) {
  ++found_.Ignored;
  const std::string_view word = note.Fields[0];
  switch (note.Fate) {
    case LineFate::BeforeCompz:
      return Add("before-compz", note.Line, Quoted(word) + " comes before the COMPZ line and is ignored",
                 "move it after COMPZ");
    case LineFate::AfterCompz:
      return Add("after-compz", note.Line, Quoted(word) + " comes after the COMPZ line and is ignored",
                 "remove it, or move it before COMPZ");
    case LineFate::NamesNothing:
      return unresolved_.push_back(
          {note.Line, WordOf(note), Word(note.Fields[1]), note.Keyword == Keyword::SrSeg});
    default:
      if (word.starts_with(kByteOrderMark))
        return Add(
            "unknown-keyword", note.Line,
            "a byte order mark hides " + Quoted(word.substr(kByteOrderMark.size())) + ", the line is ignored",
            "save the file as UTF-8 without a byte order mark");
      return Add("unknown-keyword", note.Line, "unknown keyword " + Quoted(word) + ", the line is ignored",
                 "correct or remove it");
  }
}

void LineCheck::CheckNumbers(const LineNote& note) {
  // A height of 0 becomes 1, whatever the reason.
  const std::string readAs = model::EqualsUpper(note.Fields[0], "COMPZ") ? "1" : "0";
  std::string missing;
  for (std::size_t field = 1; field < model::Tokens::kCount; ++field) {
    const std::string_view text = note.Fields[field];
    if (!note.ReadAsNumber(field)) continue;
    if (text.empty()) {
      if (!MayBeMissing(note, field)) missing += (missing.empty() ? "" : ", ") + std::to_string(field);
    } else if (IsUnreadable(text)) {
      unreadable_.insert(note.Line);
      Add("unreadable-number", note.Line,
          "field " + std::to_string(field) + ", " + Quoted(text) + ", is not a number and is read as " +
              readAs,
          "write a number such as 12.5");
    }
  }
  if (missing.empty()) return;
  incomplete_.insert(note.Line);
  Add("missing-number", note.Line,
      "the line ends too early: numbers are missing and read as " + readAs + " (field " + missing + ")",
      "complete it");
}

void LineCheck::CheckHeaderLine(const LineNote& note) {
  const std::string keyword = WordOf(note);
  if (const std::size_t before = lines_.OfHeader(keyword))
    Add("duplicate", note.Line, keyword + " replaces the one on " + OnLine(before), "keep one of them");
  if (keyword == "COMPZ" && model::ToNumber(note.Fields[1]) == 0.0F && !ExplainsZeros(note.Line))
    Add("zero-height", note.Line, "a COMPZ of 0 is read as 1", "give the base die's height");
}

void LineCheck::CheckRecord(const LineNote& note) {
  switch (note.Keyword) {
    case Keyword::Cbp:
    case Keyword::SdCbp:
      return CheckPad(note);
    case Keyword::Sbp:
    case Keyword::Wb:
      return CheckPartOfBond(note);
    case Keyword::SRing:
      return CheckSRing(note);
    default:
      return FindDuplicates(note);
  }
}

void LineCheck::CheckPad(const LineNote& note) {
  FirstLines& pads = note.Keyword == Keyword::Cbp ? pads_ : stackedPads_;
  if (const std::size_t before = LineBefore(pads, Word(note.Fields[1]), note.Line))
    repeatedPads_.push_back({Severity::Finding,
                             "duplicate",
                             {found_.File, note.Line},
                             "duplicate " + WordOf(note) + " " + Quoted(note.Fields[1]) +
                                 ": SBP and WB lines apply only to the pad on " + OnLine(before),
                             "give it another name"});
}

void LineCheck::CheckPartOfBond(const LineNote& note) {
  if (const std::size_t before = lines_.Of(note.Record))
    Add("duplicate", note.Line,
        WordOf(note) + " " + Quoted(note.Fields[1]) + " replaces the one on " + OnLine(before),
        "keep one of them, or give its pad another name");
}

void LineCheck::CheckSRing(const LineNote& note) {
  if (const std::size_t before = LineBefore(rings_, Word(note.Fields[1]), note.Line))
    Add("duplicate", note.Line,
        "duplicate SRING " + Quoted(note.Fields[1]) + ": SRSEG lines apply only to the one on " +
            OnLine(before),
        "give it another name");
}

/// Records that are all drawn may share a name; only the same record twice is useless.
void LineCheck::FindDuplicates(const LineNote& note) {
  // Values that are 0 by mistake do not make records equal.
  if (ExplainsZeros(note.Line)) return;
  std::string key = WordOf(note);
  for (std::size_t field = 1; field < model::Tokens::kCount; ++field) {
    key += ' ';
    if (note.ReadAsNumber(field)) {
      const float value = model::ToNumber(note.Fields[field]) + 0.0F;  // which is never -0
      key.append(reinterpret_cast<const char*>(&value), sizeof value);
    } else {
      key += note.Fields[field];
    }
  }
  if (const std::size_t before = LineBefore(records_, std::move(key), note.Line))
    Add("duplicate", note.Line, "the same " + WordOf(note) + " as on " + OnLine(before),
        "remove one of them");
}

void LineCheck::OnSideFileLine(const LineNote& note) {
  const model::FilePlace place{found_.File + ".vu", note.Line};
  const auto add = [&](const char* kind, std::string what, std::string advice) {
    found_.List.push_back({Severity::Finding, kind, place, std::move(what), std::move(advice)});
  };
  if (note.Fate == LineFate::NotTwoFields)
    return add("not-two-fields",
               "the line has " + std::to_string(note.Fields.Found()) + " fields and is ignored",
               "write a wire's name and its net type");
  const std::string name = Word(note.Fields[0]);
  if (note.Fate == LineFate::NamesNothing) {
    unknownNets_.push_back(
        {Severity::Note, "net-types-without-wire", place, "no wire is named " + Quoted(name), ""});
    return;
  }
  NetType& before = netTypes_[name];
  // The same type once more, say for a wire and a stitch of one name, changes nothing.
  if (before.Line != 0 && before.Type != note.Fields[1])
    add("duplicate",
        "duplicate " + Quoted(name) + ": its net type replaces the one on " + OnLine(before.Line),
        "keep one of them");
  before = {Word(note.Fields[1]), note.Line};
}

Diagnostics LineCheck::Finish(const model::Package& package) {
  for (const UnresolvedReference& line : unresolved_) {
    const bool later = line.Ring ? rings_.contains(line.Name)
                                 : pads_.contains(line.Name) || stackedPads_.contains(line.Name);
    const std::string what =
        line.Keyword + " names " + (line.Ring ? "the ring " : "the die pad ") + Quoted(line.Name);
    if (later) {
      Add("too-early", line.Line, what + ", which comes later, and is ignored",
          "move it after " + std::string(line.Ring ? "its SRING line" : "its CBP or SD_CBP line"));
    } else {
      Add("names-nothing", line.Line, what + ", which does not exist, and is ignored", "correct the name");
    }
  }
  if (model::IsWireBonded(package)) {
    for (std::vector<Diagnostic>* const held : {&repeatedPads_, &unknownNets_})
      std::move(held->begin(), held->end(), std::back_inserter(found_.List));
  }
  return std::move(found_);
}

}  // namespace analysis
