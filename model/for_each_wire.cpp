#include "model/for_each_wire.h"

#include "model/arithmetic.h"

namespace model {

namespace {

/// The shape of a loop, in scene units.
struct Loop {
  float Height;
  float Extension;
};

class WireWalk {
 public:
  WireWalk(const WireInputs& inputs, const WireVisit& visit, const WireFault& onFault)
      : in_(inputs), visit_(visit), onFault_(onFault) {}

  void BaseWires() const;
  void StackedWires() const;
  void Stitches() const;

 private:
  void Count(std::size_t records, RecordTable table) const;
  float InSceneUnits(float setting) const { return Single(double(setting) / double(in_.Package.UnitScale)); }
  Loop OwnLoop(const std::string& name, Loop loop) const;
  WirePath PathOf(const BondRec& bond, const Loop& loop) const;
  template <class MakePath>
  void Visit(const RecordPlace& place, const std::string& name, MakePath&& makePath) const;

  const WireInputs& in_;
  const WireVisit& visit_;
  const WireFault& onFault_;
};

void WireWalk::Count(std::size_t records, RecordTable table) const {
  try {
    CountIn16Bits(records, table);
  } catch (const Fault& fault) {
    if (!onFault_) throw;
    onFault_(fault);
  }
}

Loop WireWalk::OwnLoop(const std::string& name, Loop loop) const {
  if (in_.Shapes == nullptr) return loop;
  const auto own = in_.Shapes->find(name);
  if (own == in_.Shapes->end()) return loop;
  if (own->second.Height) loop.Height = InSceneUnits(*own->second.Height);
  if (own->second.Extension) loop.Extension = InSceneUnits(*own->second.Extension);
  return loop;
}

WirePath WireWalk::PathOf(const BondRec& bond, const Loop& loop) const {
  const Loop own = OwnLoop(bond.Name, loop);
  return SevenPoints(WireStart(bond), WireEnd(bond), own.Height, own.Extension);
}

template <class MakePath>
void WireWalk::Visit(const RecordPlace& place, const std::string& name, MakePath&& makePath) const {
  if (!in_.Selection.Draws(name)) return;
  WirePath path{};
  try {
    AtRecord(in_.Package, place, [&] { path = makePath(); });
  } catch (const Fault& fault) {
    if (!onFault_) throw;
    return onFault_(fault);
  }
  visit_({place, name, path});
}

void WireWalk::BaseWires() const {
  const Table<BondRec>& bonds = in_.Package.Bonds;
  Count(bonds.Count(), RecordTable::Bonds);
  const Loop loop{InSceneUnits(in_.Settings.BaseLoopHeight), InSceneUnits(in_.Settings.BaseExtension)};
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    const BondRec& bond = bonds[i];
    if (!HasWire(bond)) continue;
    Visit({RecordTable::Bonds, i, BondPart::Wire}, bond.Name, [&] { return PathOf(bond, loop); });
  }
}

void WireWalk::StackedWires() const {
  const Table<BondRec>& bonds = in_.Package.SDBonds;
  Count(bonds.Count(), RecordTable::SDBonds);
  const bool toEdge = in_.Settings.StackExtension == kEdgeOfBaseDie;
  Loop loop{InSceneUnits(in_.Settings.StackLoopHeight),
            // Deliberate: the distance starts at 0 and is carried from wire to wire.
            toEdge ? 0.0F : InSceneUnits(in_.Settings.StackExtension)};
  const DiePlan baseDie{in_.Package.CompW, in_.Package.CompL};
  for (std::size_t i = 0; i < bonds.Count(); ++i) {
    const BondRec& bond = bonds[i];
    if (!HasWire(bond)) continue;
    Visit({RecordTable::SDBonds, i, BondPart::Wire}, bond.Name, [&] {
      if (toEdge)
        loop.Extension = EdgeDistance(SideOf(bond.DieSide), WireStart(bond), bond.SubX, bond.SubY, baseDie,
                                      loop.Extension);
      return PathOf(bond, loop);
    });
  }
}

void WireWalk::Stitches() const {
  const Table<StitchRec>& stitches = in_.Package.Stitches;
  Count(stitches.Count(), RecordTable::Stitches);
  // Deliberate: stitches have no loop height setting; they take the stacked die's.
  const Loop loop{InSceneUnits(in_.Settings.StackLoopHeight), InSceneUnits(in_.Settings.StitchExtension)};
  for (std::size_t i = 0; i < stitches.Count(); ++i) {
    const StitchRec& stitch = stitches[i];
    Visit({RecordTable::Stitches, i}, stitch.Name, [&] {
      const Loop own = OwnLoop(stitch.Name, loop);
      return SevenPoints({stitch.X1, stitch.Y1, stitch.Z1}, {stitch.X2, stitch.Y2, stitch.Z2}, own.Height,
                         own.Extension);
    });
  }
}

}  // namespace

void ForEachWire(const WireInputs& inputs, const WireVisit& visit, const WireFault& onFault) {
  const WireWalk walk(inputs, visit, onFault);
  walk.BaseWires();
  walk.StackedWires();
  walk.Stitches();
}

}  // namespace model
