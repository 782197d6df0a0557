// The directions of the named views, and the distance from which the whole package is visible. In the scene y is
// up, and the package's y axis is -z.

export const kFieldOfView = 60;
const kMargin = 1.05;
// At the poles an orbit has no direction, so views from above and below keep this distance from them.
const kOffPole = 1e-4;

export const kViews = {
  Top: [0, 1, kOffPole],
  Bottom: [0, -1, -kOffPole],
  Front: [0, 0, 1],
  Back: [0, 0, -1],
  Left: [-1, 0, 0],
  Right: [1, 0, 0],
  Iso: [1, 1, 1],
};

const dot = (a, b) => a[0] * b[0] + a[1] * b[1] + a[2] * b[2];
const cross = (a, b) => [a[1] * b[2] - a[2] * b[1], a[2] * b[0] - a[0] * b[2], a[0] * b[1] - a[1] * b[0]];
const unit = (a) => a.map((c) => c / Math.sqrt(dot(a, a)));

function cornersOf(low, high) {
  const corners = [];
  for (const x of [low[0], high[0]])
    for (const y of [low[1], high[1]]) for (const z of [low[2], high[2]]) corners.push([x, y, z]);
  return corners;
}

// The place along an axis from which an eye at this distance has equal margins on both sides. The outermost points
// depend on the place, so a few steps approach it.
function middleFor(points, axis, distance) {
  let middle = points[0][axis];
  for (let step = 0; step < 8; ++step) {
    const slopes = points.map((point) => (point[axis] - middle) / (distance - point[2]));
    const low = points[slopes.indexOf(Math.min(...slopes))];
    const high = points[slopes.indexOf(Math.max(...slopes))];
    const toLow = distance - low[2];
    const toHigh = distance - high[2];
    middle = (low[axis] * toHigh + high[axis] * toLow) / (toLow + toHigh);
  }
  return middle;
}

// The nearest eye in this direction that sees the whole box, and the point in the middle that it looks at.
export function fit(direction, low, high, aspect) {
  const out = unit(direction);
  const right = unit(cross([0, 1, 0], out));
  const up = cross(out, right);
  const seen = cornersOf(low, high).map((corner) => [dot(corner, right), dot(corner, up), dot(corner, out)]);
  const upSlope = Math.tan((kFieldOfView / 2) * (Math.PI / 180)) / kMargin;
  // An eye at e across and d out sees the point (a, z) when |a - e| <= slope * (d - z).
  const distanceFor = (slope, axis) =>
    (Math.max(...seen.map((point) => slope * point[2] + point[axis])) +
      Math.max(...seen.map((point) => slope * point[2] - point[axis]))) / (2 * slope);
  const nearest = Math.max(...seen.map((point) => point[2]));
  const distance = Math.max(distanceFor(upSlope * aspect, 0), distanceFor(upSlope, 1), nearest + 1e-3);
  const across = [0, 1].map((axis) => middleFor(seen, axis, distance));
  const middle = dot(low.map((c, axis) => (c + high[axis]) / 2), out);
  const at = (along) =>
    [0, 1, 2].map((axis) => across[0] * right[axis] + across[1] * up[axis] + along * out[axis]);
  return { position: at(distance), target: at(middle) };
}
