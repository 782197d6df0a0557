// Reads the subset of glTF that the export writes: indexed triangles in plain colours, one buffer in base 64.

export function bytesOf(uri) {
  const text = atob(uri.slice(uri.indexOf(",") + 1));
  const bytes = new Uint8Array(text.length);
  for (let k = 0; k < text.length; ++k) bytes[k] = text.charCodeAt(k);
  return bytes;
}

// glTF's colours are linear, a screen's are sRGB. A material without a colour is white.
function screenColour(material) {
  const { baseColorFactor = [1, 1, 1] } = material.pbrMetallicRoughness || {};
  return baseColorFactor.slice(0, 3).map((c) =>
    Math.round(255 * (c <= 0.0031308 ? 12.92 * c : 1.055 * Math.pow(c, 1 / 2.4) - 0.055)));
}

// The primitives in the order of the file, each with its points (x, y, z), its triangles (indexes of three points)
// and its colour (three values from 0 to 255).
export function primitivesOf(file) {
  const meshes = file.meshes || [];
  if (meshes.length === 0) return [];
  const { buffer } = bytesOf(file.buffers[0].uri);
  const arrayOf = (number, Type, size) => {
    const accessor = file.accessors[number];
    const start = (file.bufferViews[accessor.bufferView].byteOffset || 0) + (accessor.byteOffset || 0);
    return new Type(buffer, start, accessor.count * size);
  };
  return meshes.flatMap((mesh) => mesh.primitives).map((primitive) => ({
    points: arrayOf(primitive.attributes.POSITION, Float32Array, 3),
    triangles: arrayOf(primitive.indices, Uint32Array, 1),
    colour: screenColour(file.materials[primitive.material]),
  }));
}
