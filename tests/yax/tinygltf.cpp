// The library is a header; this is its one copy in the tests.
#define TINYGLTF_IMPLEMENTATION
#include <tiny_gltf.h>
