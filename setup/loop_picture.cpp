#include "setup/loop_picture.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "setup/side_wires.h"

namespace setup {

namespace {

// Pixels.
constexpr double kMargin = 10.0;
constexpr double kTopMargin = 32.0;     ///< the dimension line and the label of the highest loop go here
constexpr double kBottomMargin = 26.0;  ///< the labels "Die" and "SBP" go here
constexpr double kPadThickness = 3.0;
constexpr float kDimensionGap = 8.0F;     ///< between a loop and its dimension lines
constexpr float kDimensionTick = 3.0F;    ///< half of the stroke at each of their ends
constexpr float kLeastDimension = 12.0F;  ///< a shorter line would vanish between its strokes
constexpr float kLabelWidth = 40.0F, kLabelHeight = 14.0F;

/// Converts side-view coordinates to pixels, with one scale for both axes.
class Scale {
 public:
  /// Extends the visible area to a point.
  void Include(const SidePoint& point) {
    left_ = std::min(left_, point.Out);
    right_ = std::max(right_, point.Out);
    low_ = std::min(low_, point.Up);
    high_ = std::max(high_, point.Up);
  }

  /// Leaves room for the rest of the die at the left, and a small margin at the right.
  void WidenSides() {
    const double room = right_ > left_ ? 0.08 * (right_ - left_) : 1.0;
    left_ -= 2.0 * room;
    right_ += room;
  }

  /// Keeps `topMargin` pixels free above the highest point.
  void Fit(float width, float height, double topMargin) {
    const double across = std::max(double(width) - 2.0 * kMargin, 1.0);
    const double up = std::max(double(height) - topMargin - kBottomMargin, 1.0);
    perUnit_ = across / (right_ - left_);
    if (high_ > low_) perUnit_ = std::min(perUnit_, up / (high_ - low_));
    originX_ = kMargin + (across - perUnit_ * (right_ - left_)) / 2.0 - perUnit_ * left_;
    // The substrate stays at the bottom however high the loops are.
    originY_ = topMargin + up + perUnit_ * low_;
  }

  PicturePoint At(double out, double up) const {
    return {static_cast<float>(originX_ + perUnit_ * out), static_cast<float>(originY_ - perUnit_ * up)};
  }
  double Left() const { return left_; }
  double Right() const { return right_; }

 private:
  double left_ = 0.0, right_ = 0.0, low_ = 0.0, high_ = 0.0;  // the foot of the die's edge is always visible
  double perUnit_ = 1.0, originX_ = 0.0, originY_ = 0.0;
};

class Drawing {
 public:
  Drawing(const model::Package& package, const model::WireBondSettings& settings)
      : dieHeight_(double(package.CompZ)),
        stackHeight_(double(package.SDCompZ)),
        stacked_(!package.SDBonds.Empty()),
        wires_(SideWiresOf(package, settings)) {
    if (!stacked_) wires_.Stack = {};
  }

  LoopPicture Draw(float width, float height) {
    Fit(width, height);
    Bodies();
    for (const SideWire* wire : {&wires_.Base, &wires_.Stack}) PadsOf(*wire);
    Wire(PicturePart::BaseWire, wires_.Base);
    Wire(PicturePart::StackWire, wires_.Stack);
    Wire(PicturePart::StitchWire, wires_.Stitch);
    for (const SideWire* wire : {&wires_.Base, &wires_.Stack, &wires_.Stitch}) Dimensions(*wire);
    Labels();
    return std::move(picture_);
  }

 private:
  void Fit(float width, float height) {
    double topMargin = kTopMargin - double(kLabelHeight);
    for (const SideWire* wire : {&wires_.Base, &wires_.Stack, &wires_.Stitch}) {
      for (const SidePoint& point : wire->Points) scale_.Include(point);
      // Labels of loops of the same height are stacked.
      if (!wire->Points.empty()) topMargin += double(kLabelHeight);
    }
    scale_.Include({0.0, dieHeight_});
    if (stacked_) scale_.Include({0.0, dieHeight_ + stackHeight_});
    scale_.WidenSides();
    scale_.Fit(width, height, topMargin);
  }

  void Bodies() {
    Area(PicturePart::Die, scale_.Left(), 0.0, 0.0, dieHeight_);
    if (stacked_)
      Area(PicturePart::StackedDie, scale_.Left(), StackEdge(), dieHeight_, dieHeight_ + stackHeight_);
    picture_.Shapes.push_back(
        {PicturePart::Substrate, {scale_.At(scale_.Left(), 0.0), scale_.At(scale_.Right(), 0.0)}, false});
  }

  /// The stacked die ends at the outer edge of its wire's pad, since pads lie along the die's edges.
  double StackEdge() const {
    if (wires_.Stack.Points.empty()) return scale_.Left() / 2.0;
    return std::max(wires_.Stack.Points.front().Out + wires_.Stack.StartSize / 2.0, scale_.Left());
  }

  void Area(PicturePart part, double left, double right, double low, double high) {
    picture_.Shapes.push_back(
        {part,
         {scale_.At(left, low), scale_.At(left, high), scale_.At(right, high), scale_.At(right, low)},
         true});
  }

  /// Pads have no thickness in the package; here they have a fixed one in pixels, below the wire's ends.
  void PadsOf(const SideWire& wire) {
    if (wire.Points.empty()) return;
    Pad(wire.Points.front(), wire.StartSize);
    Pad(wire.Points.back(), wire.EndSize);
  }

  void Pad(const SidePoint& at, double size) {
    const PicturePoint left = scale_.At(at.Out - size / 2.0, at.Up);
    const PicturePoint right = scale_.At(at.Out + size / 2.0, at.Up);
    const float x1 = std::min(left.X, right.X - 4.0F);
    const float x2 = std::max(right.X, left.X + 4.0F);
    const float y2 = left.Y + static_cast<float>(kPadThickness);
    picture_.Shapes.push_back({PicturePart::Pad, {{x1, left.Y}, {x2, left.Y}, {x2, y2}, {x1, y2}}, true});
  }

  void Wire(PicturePart part, const SideWire& wire) {
    if (wire.Points.empty()) return;
    PictureShape shape{part, {}, false};
    for (const SidePoint& point : wire.Points) shape.Points.push_back(scale_.At(point.Out, point.Up));
    picture_.Shapes.push_back(std::move(shape));
  }

  PicturePoint At(const SidePoint& point) const { return scale_.At(point.Out, point.Up); }

  /// Adds two dimension lines: the extension above the loop, from its start to the end of the level run, and
  /// the height behind the start.
  void Dimensions(const SideWire& wire) {
    if (wire.Points.empty()) return;
    const PicturePoint start = At(wire.Points[0]), end = At(wire.Points[5]);
    if (std::fabs(end.X - start.X) >= kLeastDimension) {
      const float y = end.Y - kDimensionGap;
      Line({start.X, y}, {end.X, y});
      for (const float x : {start.X, end.X}) Line({x, y - kDimensionTick}, {x, y + kDimensionTick});
    }
    if (std::fabs(end.Y - start.Y) >= kLeastDimension) {
      const float x = start.X - std::copysign(kDimensionGap, end.X - start.X);
      Line({x, start.Y}, {x, end.Y});
      for (const float y : {start.Y, end.Y}) Line({x - kDimensionTick, y}, {x + kDimensionTick, y});
    }
  }

  void Line(const PicturePoint& from, const PicturePoint& to) {
    picture_.Shapes.push_back({PicturePart::Dimension, {from, to}, false});
  }

  void Labels() {
    const float below = scale_.At(0.0, 0.0).Y + static_cast<float>(kBottomMargin) * 0.55F;
    Label("Die", (scale_.At(scale_.Left(), 0.0).X + scale_.At(0.0, 0.0).X) / 2.0F, below);
    if (!wires_.Base.Points.empty()) {
      Label("SBP", scale_.At(wires_.Base.Points.back().Out, 0.0).X, below);
      LabelLoop("Base", wires_.Base);
    }
    if (!wires_.Stack.Points.empty()) LabelLoop("Stack", wires_.Stack);
    if (!wires_.Stitch.Points.empty()) LabelLoop("Stitch", wires_.Stitch);
  }

  /// Above the dimension line of a loop's extension.
  void LabelLoop(const char* text, const SideWire& wire) {
    const PicturePoint start = At(wire.Points[0]), end = At(wire.Points[5]);
    Label(text, (start.X + end.X) / 2.0F, end.Y - kDimensionGap - 11.0F);
  }

  /// When loops are small and close together, stack their labels.
  void Label(const char* text, float x, float y) {
    const auto taken = [&](const PictureLabel& other) {
      return std::fabs(other.Centre.X - x) < kLabelWidth && std::fabs(other.Centre.Y - y) < kLabelHeight;
    };
    for (std::size_t step = 0; step < picture_.Labels.size(); ++step)
      if (std::any_of(picture_.Labels.begin(), picture_.Labels.end(), taken)) y -= kLabelHeight;
    picture_.Labels.push_back({text, {x, y}});
  }

  double dieHeight_, stackHeight_;
  bool stacked_;
  SideWires wires_;
  Scale scale_;
  LoopPicture picture_;
};

}  // namespace

LoopPicture DrawLoops(const model::Package& package, const model::WireBondSettings& settings, float width,
                      float height) {
  return Drawing(package, settings).Draw(width, height);
}

}  // namespace setup
