// The library is a header; this is its one copy in the program. It stays free of what reads and writes
// images.
#define TINYGLTF_IMPLEMENTATION
#include <tiny_gltf.h>
