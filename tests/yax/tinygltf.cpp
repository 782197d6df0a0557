// The header-only library's implementation, compiled once for the tests.
#define TINYGLTF_IMPLEMENTATION
#include <tiny_gltf.h>
