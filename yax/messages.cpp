#include "yax/messages.h"

#include <cstdio>

namespace yax {

Place CommandLine() { return {.File = "yax"}; }

void Complain(const Place& place, std::string_view what, std::string_view advice) {
  std::fprintf(stderr, "%s\n", model::MessageText(place, what, advice).c_str());
}

}  // namespace yax
