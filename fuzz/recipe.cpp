// Recipes: keys and values.
#include <cstddef>
#include <cstdint>
#include <set>
#include <string>

#include "fuzz/expect.h"
#include "yax/messages.h"
#include "yax/options/recipe.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  try {
    std::set<std::string> keys;
    for (const yax::RecipeItem& item : yax::ReadRecipe({reinterpret_cast<const char*>(data), size}, "recipe"))
      Expect(keys.insert(item.Key).second, "a key comes once");
  } catch (const yax::Unusable& unusable) {
    Expect(!std::string(unusable.what()).empty(), "a refusal has a reason");
  }
  return 0;
}
