#include "yax/program.h"

int main(int argc, char** argv) { return static_cast<int>(yax::RunProgram({argv + 1, argv + argc})); }
