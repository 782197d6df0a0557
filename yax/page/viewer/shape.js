// All triangles of the package on one set of vertices, so that one call draws thousands of wires.

import { BufferAttribute, BufferGeometry } from "three";

// Joins all primitives into one set of vertices with colours. `lightColours` has the colour of each primitive on a
// light background.
export class Shape {
  constructor(primitives, wires, lightColours) {
    this.primitives = primitives;
    this.lightColours = lightColours;
    const total = primitives.reduce((sum, primitive) => sum + primitive.points.length, 0);
    this.positions = new Float32Array(total);
    this.colours = new Uint8Array(total);
    this.low = [Infinity, Infinity, Infinity];
    this.high = [-Infinity, -Infinity, -Infinity];
    this.triangles = [];
    this.addAll(primitives);
    this.wireTriangles = wires.map(({ primitive, first, count }) =>
      this.triangles[primitive].subarray(3 * first, 3 * (first + count)));
    this.bodyTriangles = this.restOf(wires);
  }

  addAll(primitives) {
    let at = 0;
    for (const { points, triangles } of primitives) {
      const first = at / 3;
      this.positions.set(points, at);
      at += points.length;
      for (let k = 0; k < points.length; ++k) {
        this.low[k % 3] = Math.min(this.low[k % 3], points[k]);
        this.high[k % 3] = Math.max(this.high[k % 3], points[k]);
      }
      this.triangles.push(triangles.map((point) => point + first));
    }
  }

  // Sets all colours for a dark or a light background.
  paint(isDark) {
    let at = 0;
    this.primitives.forEach(({ points, colour }, number) => {
      const shown = (!isDark && this.lightColours[number]) || colour;
      for (let k = 0; k < points.length; ++k, ++at) this.colours[at] = shown[k % 3];
    });
    if (this.colour) this.colour.needsUpdate = true;
  }

  // All triangles except those of the wires.
  restOf(wires) {
    const isWire = this.triangles.map((triangles) => new Uint8Array(triangles.length / 3));
    for (const { primitive, first, count } of wires) isWire[primitive].fill(1, first, first + count);
    return joined(this.triangles.map((triangles, primitive) =>
      triangles.filter((_, k) => isWire[primitive][Math.floor(k / 3)] === 0)));
  }

  // A geometry of these triangles that shares the one set of vertices.
  geometry(triangles) {
    const geometry = new BufferGeometry();
    geometry.setAttribute("position", (this.position = this.position || new BufferAttribute(this.positions, 3)));
    geometry.setAttribute("color", (this.colour = this.colour || new BufferAttribute(this.colours, 3, true)));
    geometry.setIndex(new BufferAttribute(triangles, 1));
    return geometry;
  }

  geometryOfWires(indices) {
    return this.geometry(joined(indices.map((index) => this.wireTriangles[index])));
  }
}

function joined(arrays) {
  const all = new Uint32Array(arrays.reduce((sum, array) => sum + array.length, 0));
  let at = 0;
  for (const array of arrays) {
    all.set(array, at);
    at += array.length;
  }
  return all;
}
