#include "import/terminals.h"

#include <algorithm>
#include <unordered_map>
#include <utility>

#include "model/text.h"

namespace importer {

namespace {

/// A pad found so far.
struct Found {
  DiePad Pad;
  Box Place;
  bool Named = false, Wanted = false;
};

class PadSearch {
 public:
  PadSearch(const std::vector<Terminal>& terminals, const PadRule& rule)
      : terminals_(terminals), rule_(rule) {}

  std::vector<DiePad> Run() {
    ChooseLayer();
    for (const Terminal& terminal : terminals_)
      if (terminal.IsCell()) AddPads(terminal);
    cells_ = pads_.size();
    IndexCells();
    for (const Terminal& terminal : terminals_)
      if (!terminal.IsCell() && IsWanted(terminal)) AddPin(terminal);
    std::vector<DiePad> wanted;
    for (Found& found : pads_)
      if (found.Wanted) wanted.push_back(std::move(found.Pad));
    return wanted;
  }

 private:
  bool IsWanted(const Terminal& terminal) const {
    return !rule_.Names || Matches(terminal.Name, *rule_.Names) ||
           (terminal.IsCell() && Matches(terminal.Macro, *rule_.Names));
  }

  bool IsPad(const Box& box) const {
    // A pad exactly at the rule's limits passes despite rounding.
    constexpr double kSlack = 1e-9;
    const glm::dvec2 size = box.Size();
    const double shorter = std::min(size.x, size.y);
    const double longer = std::max(size.x, size.y);
    return shorter > 0.0 && shorter >= rule_.Least - kSlack && longer <= rule_.Aspect * shorter + kSlack;
  }

  void ChooseLayer();
  std::vector<Box> PadsOn(const Terminal& terminal) const;
  void AddPads(const Terminal& terminal);
  void IndexCells();
  void AddPin(const Terminal& pin);
  Found* CellUnder(const Box& box, bool whole);

  const std::vector<Terminal>& terminals_;
  const PadRule& rule_;
  std::string layer_;
  std::vector<Found> pads_;
  std::size_t cells_ = 0;            ///< the first so many are pads of cells
  std::vector<std::size_t> byLeft_;  ///< numbers of the cells' pads by their left sides
  double widest_ = 0.0;              ///< width of the widest pad of a cell
};

/// The layer with most pads; of layers with equally many, the one with larger pads, then the first one.
void PadSearch::ChooseLayer() {
  struct Votes {
    std::size_t Wanted = 0, Count = 0;
    double Area = 0.0;
    std::size_t First = 0;
  };
  std::unordered_map<std::string, Votes> layers;
  for (const Terminal& terminal : terminals_) {
    const bool wanted = IsWanted(terminal);
    for (const PinShape& shape : terminal.Shapes) {
      if (!IsPad(shape.Place)) continue;
      Votes& votes = layers.try_emplace(shape.Layer, Votes{.First = layers.size()}).first->second;
      votes.Wanted += wanted ? 1 : 0;
      ++votes.Count;
      votes.Area += shape.Place.Area();
    }
  }
  const auto better = [](const Votes& a, const Votes& b) {
    if (a.Wanted != b.Wanted) return a.Wanted > b.Wanted;
    if (a.Count != b.Count) return a.Count > b.Count;
    return a.Area != b.Area ? a.Area > b.Area : a.First < b.First;
  };
  const Votes* best = nullptr;
  for (const auto& [layer, votes] : layers) {
    if (best != nullptr && !better(votes, *best)) continue;
    best = &votes;
    layer_ = layer;
  }
}

/// The pads of one terminal, in the order of its shapes. Of overlapping shapes the largest counts.
std::vector<Box> PadSearch::PadsOn(const Terminal& terminal) const {
  std::vector<Box> boxes;
  for (const PinShape& shape : terminal.Shapes) {
    if (shape.Layer != layer_ || !IsPad(shape.Place)) continue;
    const auto same =
        std::find_if(boxes.begin(), boxes.end(), [&](const Box& box) { return Overlap(box, shape.Place); });
    if (same == boxes.end()) {
      boxes.push_back(shape.Place);
      // More pads than a package can have are refused anyway; finding the rest only takes time.
      if (boxes.size() > kMostPads) break;
    } else if (shape.Place.Area() > same->Area()) {
      *same = shape.Place;
    }
  }
  return boxes;
}

void PadSearch::AddPads(const Terminal& terminal) {
  for (const Box& box : PadsOn(terminal))
    pads_.push_back(
        {{.Name = terminal.Name, .Middle = box.Middle(), .Size = box.Size(), .Type = terminal.Type},
         box,
         false,
         IsWanted(terminal)});
}

void PadSearch::IndexCells() {
  byLeft_.resize(cells_);
  for (std::size_t i = 0; i < cells_; ++i) {
    byLeft_[i] = i;
    widest_ = std::max(widest_, pads_[i].Place.Size().x);
  }
  std::sort(byLeft_.begin(), byLeft_.end(), [this](std::size_t a, std::size_t b) {
    return std::pair(pads_[a].Place.Low.x, a) < std::pair(pads_[b].Place.Low.x, b);
  });
}

/// The cell's pad that a pin's shape lies on: as a `whole`, or in part.
Found* PadSearch::CellUnder(const Box& box, bool whole) {
  auto at = std::lower_bound(byLeft_.begin(), byLeft_.end(), box.Low.x - widest_,
                             [this](std::size_t i, double x) { return pads_[i].Place.Low.x < x; });
  for (; at != byLeft_.end() && pads_[*at].Place.Low.x < box.High.x; ++at) {
    Found& found = pads_[*at];
    if (whole ? Contains(found.Place, box) : Overlap(found.Place, box)) return &found;
  }
  return nullptr;
}

void PadSearch::AddPin(const Terminal& pin) {
  const auto name = [&pin](Found& cell) {
    cell.Wanted = true;
    // The first pin that lies there names it.
    if (std::exchange(cell.Named, true)) return;
    cell.Pad.Name = pin.Name;
    if (pin.Type != NetType::Unknown) cell.Pad.Type = pin.Type;
  };
  // A pin that only marks a cell's pad has shapes that are not pads themselves.
  for (const PinShape& shape : pin.Shapes)
    if (shape.Layer == layer_ && !IsPad(shape.Place))
      if (Found* cell = CellUnder(shape.Place, true)) name(*cell);
  for (const Box& box : PadsOn(pin)) {
    if (Found* cell = CellUnder(box, false)) {
      name(*cell);
    } else {
      pads_.push_back({{.Name = pin.Name, .Middle = box.Middle(), .Size = box.Size(), .Type = pin.Type},
                       box,
                       true,
                       true});
    }
  }
}

}  // namespace

std::vector<DiePad> PadsOf(const std::vector<Terminal>& terminals, const PadRule& rule) {
  return PadSearch(terminals, rule).Run();
}

bool Matches(const std::string& name, const std::regex& pattern) {
  const std::size_t length = std::min(name.size(), model::kMostForRegex);
  return std::regex_search(name.begin(), name.begin() + static_cast<std::ptrdiff_t>(length), pattern);
}

std::size_t ShapeCount(const std::vector<Terminal>& terminals) {
  std::size_t count = 0;
  for (const Terminal& terminal : terminals) count += terminal.Shapes.size();
  return count;
}

NetType NetTypeOf(std::string_view word) {
  if (model::EqualsUpper(word, "POWER")) return NetType::Power;
  if (model::EqualsUpper(word, "GROUND")) return NetType::Ground;
  if (model::EqualsUpper(word, "SIGNAL")) return NetType::Signal;
  return NetType::Unknown;
}

}  // namespace importer
