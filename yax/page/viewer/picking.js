// Finds the wire at a place of the canvas by geometry: reading back the drawn pixels would stall the graphics card,
// and browsers warn about that in their console.

// Projects points; each result has three numbers: x and y in pixels of the canvas, and the depth w. Behind the eye x
// and y are meaningless.
function projected(points, matrix, { width, height }) {
  const seen = new Float64Array(points.length);
  for (let k = 0; k < points.length; k += 3) {
    const [x, y, z] = [points[k], points[k + 1], points[k + 2]];
    const w = matrix[3] * x + matrix[7] * y + matrix[11] * z + matrix[15];
    seen[k] = ((matrix[0] * x + matrix[4] * y + matrix[8] * z + matrix[12]) / w + 1) * (width / 2);
    seen[k + 1] = (1 - (matrix[1] * x + matrix[5] * y + matrix[9] * z + matrix[13]) / w) * (height / 2);
    seen[k + 2] = w;
  }
  return seen;
}

// The distance at which the line from `eye` along `ray` meets the triangle, in lengths of `ray`; else Infinity.
// Source: T. Moeller, B. Trumbore, "Fast, minimum storage ray-triangle intersection" (1997).
function hit(eye, ray, [a, b, c]) {
  const minus = (p, q) => [p[0] - q[0], p[1] - q[1], p[2] - q[2]];
  const cross = (p, q) => [p[1] * q[2] - p[2] * q[1], p[2] * q[0] - p[0] * q[2], p[0] * q[1] - p[1] * q[0]];
  const dot = (p, q) => p[0] * q[0] + p[1] * q[1] + p[2] * q[2];
  const [u, v, to] = [minus(b, a), minus(c, a), minus(eye, a)];
  const across = cross(ray, v);
  const scale = dot(u, across);
  const onU = dot(to, across) / scale;
  const onV = dot(ray, cross(to, u)) / scale;
  const isInside = onU >= 0 && onV >= 0 && onU + onV <= 1;
  return isInside ? dot(v, cross(to, u)) / scale : Infinity;
}

const pointAt = (points, k) => [points[3 * k], points[3 * k + 1], points[3 * k + 2]];
const between = (a, b, part) => a.map((c, axis) => c + part * (b[axis] - c));

export class Picker {
  // `sides` is the number of vertices in a ring of a wire's tube.
  constructor(shape, sides) {
    this.shape = shape;
    this.lines = shape.wireTriangles.map((triangles) => this.middleLine(triangles, sides));
    const ring = this.lines.length === 0 ? 0 : shape.wireTriangles[0][0];
    this.radius = this.lines.length === 0 ? 0
      : Math.hypot(...pointAt(shape.positions, ring).map((c, axis) => c - this.lines[0][axis]));
  }

  // The middle points of a tube's rings. Its vertices are rings, one after the other from its start to its end.
  middleLine(triangles, sides) {
    const first = triangles.reduce((least, vertex) => Math.min(least, vertex), Infinity);
    const last = triangles.reduce((most, vertex) => Math.max(most, vertex), -1);
    const line = new Float64Array((3 * (last + 1 - first)) / sides);
    for (let vertex = first; vertex <= last; ++vertex)
      for (let axis = 0; axis < 3; ++axis)
        line[3 * Math.floor((vertex - first) / sides) + axis] += this.shape.positions[3 * vertex + axis] / sides;
    return line;
  }

  // The index of the wire in `shown` that is nearest to `place`, at most `reach` pixels away and not hidden by a body;
  // -1 for none. `look` describes the camera: its place `eye`, `matrix` from the package to the screen, `near`, the
  // canvas's `size`, and `scale`, the pixels of a length of 1 at a depth of 1.
  wireAt(shown, place, reach, look) {
    this.project(look);
    const found = [];
    for (const index of shown) {
      const candidate = this.nearestOf(this.lines[index], this.seenLines[index], place, look);
      if (candidate.away <= reach) found.push({ index, ...candidate });
    }
    if (found.length === 0) return -1;
    found.sort((a, b) => a.away - b.away || a.depth - b.depth);
    const bodies = this.bodiesNear(place, reach, look.near);
    const visible = found.find(({ at }) => {
      const ray = at.map((c, axis) => c - look.eye[axis]);
      const surface = 1 - (1.5 * this.radius) / Math.hypot(...ray);
      return !bodies.some((triangle) => {
        const along = hit(look.eye, ray, triangle);
        return along > 0 && along < surface;
      });
    });
    return visible ? visible.index : -1;
  }

  // Projects all points again only when the camera or the size has changed.
  project({ matrix, size }) {
    const key = `${matrix.join()} ${size.width} ${size.height}`;
    if (key === this.key) return;
    this.key = key;
    this.seen = projected(this.shape.positions, matrix, size);
    this.seenLines = this.lines.map((line) => projected(line, matrix, size));
  }

  // The distance to a wire's surface in pixels, and the depth and the point of its middle line there.
  nearestOf(line, seen, place, look) {
    const [x, y] = place;
    const { near } = look;
    let best = { away: Infinity };
    const isBetter = (away, depth) => away < best.away || (away === best.away && depth < best.depth);
    for (let k = 3; k < seen.length; k += 3) {
      const depthA = seen[k - 1];
      const depthB = seen[k + 2];
      if (depthA < near && depthB < near) continue;
      if (depthA < near || depthB < near) {
        const [a, b] = [pointAt(line, k / 3 - 1), pointAt(line, k / 3)];
        const cut = between(a, b, (1.001 * near - depthA) / (depthB - depthA));
        const part = depthA < near ? [...cut, ...b] : [...a, ...cut];
        const candidate = this.nearestOf(part, projected(part, look.matrix, look.size), place, look);
        if (isBetter(candidate.away, candidate.depth)) best = candidate;
        continue;
      }
      const toX = x - seen[k - 3];
      const toY = y - seen[k - 2];
      const alongX = seen[k] - seen[k - 3];
      const alongY = seen[k + 1] - seen[k - 2];
      const squared = alongX * alongX + alongY * alongY;
      const part = squared === 0 ? 0 : Math.min(Math.max((toX * alongX + toY * alongY) / squared, 0), 1);
      const depth = 1 / ((1 - part) / depthA + part / depthB);
      const toAxis = Math.hypot(toX - part * alongX, toY - part * alongY);
      const away = Math.max(toAxis - (this.radius * look.scale) / depth, 0);
      if (!isBetter(away, depth)) continue;
      // Halfway on the screen is not halfway in space.
      const at = between(pointAt(line, k / 3 - 1), pointAt(line, k / 3), (part * depth) / depthB);
      best = { away, depth, at };
    }
    return best;
  }

  // The triangles of bodies that may hide a wire here: those whose box on the screen contains the place.
  bodiesNear([x, y], reach, near) {
    const { positions, bodyTriangles } = this.shape;
    const { seen } = this;
    const found = [];
    for (let k = 0; k < bodyTriangles.length; k += 3) {
      const a = 3 * bodyTriangles[k];
      const b = 3 * bodyTriangles[k + 1];
      const c = 3 * bodyTriangles[k + 2];
      const isBehind = seen[a + 2] < near || seen[b + 2] < near || seen[c + 2] < near;
      const isAway = Math.min(seen[a], seen[b], seen[c]) > x + reach || Math.max(seen[a], seen[b], seen[c]) < x - reach ||
        Math.min(seen[a + 1], seen[b + 1], seen[c + 1]) > y + reach ||
        Math.max(seen[a + 1], seen[b + 1], seen[c + 1]) < y - reach;
      if (isBehind || !isAway) found.push([a, b, c].map((at) => pointAt(positions, at / 3)));
    }
    return found;
  }
}
