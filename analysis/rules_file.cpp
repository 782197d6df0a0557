#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <numeric>

#include "analysis/rules.h"
#include "model/input_error.h"
#include "model/text.h"

namespace analysis {

namespace {

constexpr std::array<RuleKind, 15> kKinds{
    {{RuleName::MaxLength, "max-length", Quantity::Length, true},
     {RuleName::MinLength, "min-length", Quantity::Length, true},
     {RuleName::MaxAngle, "max-angle", Quantity::Angle, false},
     {RuleName::NoCrossing, "no-crossing", Quantity::None, false},
     {RuleName::WireGap, "wire-gap", Quantity::Length, false},
     {RuleName::MaxLoopHeight, "max-loop-height", Quantity::Length, false},
     {RuleName::DieToLead, "die-to-lead", Quantity::Length, false},
     {RuleName::LeadWidth, "lead-width", Quantity::Length, false},
     {RuleName::LeadLength, "lead-length", Quantity::Length, false},
     {RuleName::LeadGap, "lead-gap", Quantity::Length, false},
     {RuleName::PadSize, "pad-size", Quantity::Length, false},
     {RuleName::PadGap, "pad-gap", Quantity::Length, false},
     {RuleName::PadPitch, "pad-pitch", Quantity::Length, false},
     {RuleName::PadToEdge, "pad-to-edge", Quantity::Length, false},
     {RuleName::MaxWires, "max-wires", Quantity::Count, false}}};

constexpr std::string_view kDieHeight = "die-height", kDegree = "deg";

/// Begins the line that names the set.
constexpr std::string_view kSetWord = "rules";
constexpr std::array<std::string_view, 3> kNetTypes{"POWER", "GROUND", "SIGNAL"};
constexpr std::array<std::string_view, 3> kLevels{"note", "finding", "error"};

/// The edit distance of two words: how many letters to change, add or drop.
std::size_t Distance(std::string_view a, std::string_view b) {
  std::vector<std::size_t> row(b.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (std::size_t i = 0; i < a.size(); ++i) {
    std::size_t corner = row[0]++;
    for (std::size_t k = 0; k < b.size(); ++k) {
      const std::size_t changed = corner + (a[i] == b[k] ? 0 : 1);
      corner = row[k + 1];
      row[k + 1] = std::min({changed, row[k] + 1, row[k + 1] + 1});
    }
  }
  return row.back();
}

template <class Words>
std::string_view Nearest(std::string_view word, const Words& words) {
  // No name is longer, and the distance of long words is slow to compute.
  const std::string start = model::UpperCase(word.substr(0, 40));
  return *std::min_element(words.begin(), words.end(), [&](std::string_view a, std::string_view b) {
    return Distance(start, model::UpperCase(a)) < Distance(start, model::UpperCase(b));
  });
}

/// The words of one line, taken one after the other.
class Words {
 public:
  Words(std::string_view line, const model::FilePlace& place) : place_(place) {
    constexpr std::string_view kBlanks = " \t\r";
    std::size_t end = 0;
    for (std::size_t at = line.find_first_not_of(kBlanks); at != std::string_view::npos && line[at] != '#';
         at = line.find_first_not_of(kBlanks, end)) {
      end = std::min(line.find_first_of(kBlanks, at), line.size());
      words_.push_back(line.substr(at, end - at));
    }
  }

  bool Done() const { return next_ == words_.size(); }
  std::string_view Peek() const { return Done() ? std::string_view() : words_[next_]; }
  std::string_view Take() { return words_[next_++]; }
  bool TakeIf(std::string_view word) {
    if (Done() || words_[next_] != word) return false;
    ++next_;
    return true;
  }
  /// The next word, of which there must be one.
  std::string_view Need(const std::string& what, const std::string& advice) {
    if (Done()) Fail(what, advice);
    return Take();
  }

  [[noreturn]] void Fail(const std::string& what, const std::string& advice) const {
    throw model::InputError(place_, what, advice);
  }

 private:
  model::FilePlace place_;
  std::vector<std::string_view> words_;
  std::size_t next_ = 0;
};

std::optional<double> NumberOf(std::string_view word) {
  double value = 0.0;
  const char* const end = word.data() + word.size();
  const std::from_chars_result result = std::from_chars(word.data(), end, value);
  if (result.ec != std::errc() || result.ptr != end || !std::isfinite(value)) return std::nullopt;
  return value;
}

const RuleKind& TakeKind(Words& words) {
  const std::string_view word = words.Take();
  std::vector<std::string_view> names{kSetWord};
  for (const RuleKind& kind : kKinds) {
    if (kind.Word == word) return kind;
    names.push_back(kind.Word);
  }
  words.Fail("unknown rule " + model::Quoted(word), "write " + std::string(Nearest(word, names)));
}

void TakeUnit(const RuleKind& kind, Words& words, Rule& rule) {
  if (kind.Limit == Quantity::Angle) {
    const std::string_view word = words.Need("the limit has no unit", "write deg");
    if (word != kDegree) words.Fail("unknown unit " + model::Quoted(word), "write deg");
    rule.Unit = LimitUnit::Degree;
    return;
  }
  const std::string_view word = words.Need("the limit has no unit", "write mm, um, mil or die-height");
  rule.Length = UnitNamed(word);
  rule.Unit = rule.Length ? LimitUnit::Length : LimitUnit::DieHeight;
  if (rule.Length || word == kDieHeight) return;
  std::vector<std::string_view> names;
  for (const LengthUnit& unit : kLengthUnits) names.emplace_back(unit.Name);
  names.push_back(kDieHeight);
  words.Fail("unknown unit " + model::Quoted(word), "write " + std::string(Nearest(word, names)));
}

void TakeLimit(const RuleKind& kind, Words& words, Rule& rule) {
  if (kind.Limit == Quantity::None) return;
  const std::string_view word =
      words.Need(std::string(kind.Word) + " has no limit", "write a number after it");
  const std::optional<double> value = NumberOf(word);
  if (!value)
    words.Fail("the limit " + model::Quoted(word) + " is not a number", "write a number such as 0.5");
  if (*value < 0.0) words.Fail("the limit " + model::Quoted(word) + " is negative", "write 0 or more");
  rule.Limit = *value;
  if (kind.Limit != Quantity::Count) return TakeUnit(kind, words, rule);
  if (*value < 1.0 || *value != std::floor(*value) || *value > 1e9)
    words.Fail("the limit " + model::Quoted(word) + " is not a whole number of at least 1",
               "write a number such as 2");
}

/// Tiers are compared as texts, so only one spelling of a number is valid.
void TakeTier(Words& words, Rule& rule) {
  const std::string_view tier = words.Need("tier has no number", "write a number such as tier 2");
  if (tier.find_first_not_of("0123456789") != std::string_view::npos)
    words.Fail("the tier " + model::Quoted(tier) + " is not a number", "write a number such as tier 2");
  const std::size_t zeros = std::min(tier.find_first_not_of('0'), tier.size() - 1);
  if (tier.size() - zeros > 9)
    words.Fail("the tier " + model::Quoted(tier) + " is too large", "write a number such as tier 2");
  if (zeros > 0)
    words.Fail("the tier " + model::Quoted(tier) + " begins with 0",
               "write tier " + std::string(tier.substr(zeros)));
  rule.Tier = tier;
}

void TakeFilter(Words& words, Rule& rule) {
  if (words.TakeIf("tier")) {
    TakeTier(words, rule);
  } else if (words.TakeIf("net")) {
    const std::string_view type = words.Need("net has no type", "write POWER, GROUND or SIGNAL");
    if (std::find(kNetTypes.begin(), kNetTypes.end(), type) == kNetTypes.end())
      words.Fail("unknown net type " + model::Quoted(type), "write " + std::string(Nearest(type, kNetTypes)));
    rule.NetType = type;
  }
}

void TakeLevel(Words& words, Rule& rule) {
  const auto level = std::find(kLevels.begin(), kLevels.end(), words.Peek());
  if (level == kLevels.end()) return;
  rule.Level = static_cast<RuleLevel>(level - kLevels.begin());
  words.Take();
}

/// Reports the next word, which is in the wrong place or unknown.
[[noreturn]] void FailAtRest(const RuleKind& kind, Words& words) {
  constexpr std::array<std::string_view, 6> kWords{"plan", "tier", "net", "note", "finding", "error"};
  const std::string_view word = words.Take();
  if (kind.Limit == Quantity::None && NumberOf(word))
    words.Fail(std::string(kind.Word) + " takes no limit", "remove " + model::Quoted(word));
  if (word == kDegree || word == kDieHeight || UnitNamed(word))
    words.Fail(std::string(kind.Word) + (kind.Limit == Quantity::None || kind.Limit == Quantity::Count
                                             ? " takes no unit"
                                             : " takes only one unit"),
               "remove " + model::Quoted(word));
  if (word == "plan" && !kind.HasPlan)
    words.Fail(std::string(kind.Word) + " does not take 'plan'", "leave it out");
  if (std::find(kWords.begin(), kWords.end(), word) != kWords.end())
    words.Fail(model::Quoted(word) + " is in the wrong place",
               "write [plan] [tier N | net TYPE] [note|finding|error]");
  words.Fail("unknown word " + model::Quoted(word),
             "write " + std::string(Nearest(word, kWords)) + ", or leave it out");
}

Rule RuleOf(Words& words, std::size_t line) {
  const RuleKind& kind = TakeKind(words);
  Rule rule{.Name = kind.Name, .Tier = {}, .NetType = {}, .Line = line};
  TakeLimit(kind, words, rule);
  rule.Plan = kind.HasPlan && words.TakeIf("plan");
  TakeFilter(words, rule);
  TakeLevel(words, rule);
  if (!words.Done()) FailAtRest(kind, words);
  return rule;
}

bool AreSame(const Rule& a, const Rule& b) {
  return a.Name == b.Name && a.Plan == b.Plan && a.Tier == b.Tier && a.NetType == b.NetType &&
         (a.Unit == LimitUnit::DieHeight) == (b.Unit == LimitUnit::DieHeight);
}

/// The text after the word that was taken, up to a comment.
std::string RestOf(std::string_view line) {
  const std::string_view start = line.substr(line.find(kSetWord) + kSetWord.size());
  const std::size_t first = start.find_first_not_of(" \t\r");
  if (first == std::string_view::npos) return {};
  std::size_t end = start.find(" #", first);
  if (end == std::string_view::npos) end = start.size();
  return std::string(start.substr(first, start.find_last_not_of(" \t\r", end - 1) + 1 - first));
}

}  // namespace

const RuleKind& KindOf(RuleName name) { return kKinds[static_cast<std::size_t>(name)]; }

RuleSet ReadRules(const std::string& file, std::string_view text) {
  RuleSet set;
  std::size_t number = 0;
  bool first = true;
  model::Lines lines(text);
  for (std::string_view line; lines.Next(line);) {
    Words words(line, {file, ++number});
    if (words.Done()) continue;
    if (words.Peek() == kSetWord) {
      if (!first)
        words.Fail("'rules TEXT' is allowed in the first line only", "remove this line or move it there");
      set.Name = RestOf(line);
      if (set.Name.empty()) words.Fail("the set has no name", "write rules TEXT");
    } else {
      const Rule rule = RuleOf(words, number);
      std::erase_if(set.Rules, [&](const Rule& before) { return AreSame(before, rule); });
      set.Rules.push_back(rule);
    }
    first = false;
  }
  return set;
}

std::string RuleText(const Rule& rule) {
  const RuleKind& kind = KindOf(rule.Name);
  std::string text(kind.Word);
  if (kind.Limit != Quantity::None) {
    std::array<char, 32> digits{};
    text += ' ';
    text.append(digits.data(), std::to_chars(digits.data(), digits.data() + digits.size(), rule.Limit).ptr);
  }
  if (rule.Unit == LimitUnit::Degree) text.append(" ").append(kDegree);
  if (rule.Unit == LimitUnit::DieHeight) text.append(" ").append(kDieHeight);
  if (rule.Length) text.append(" ").append(rule.Length->Name);
  if (rule.Plan) text += " plan";
  if (!rule.Tier.empty()) text += " tier " + rule.Tier;
  if (!rule.NetType.empty()) text += " net " + rule.NetType;
  return text;
}

}  // namespace analysis
