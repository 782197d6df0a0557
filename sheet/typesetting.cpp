#include "sheet/typesetting.h"

#include <dlfcn.h>

#include <filesystem>
#include <system_error>

namespace sheet {

namespace {

const Typesetting& Load() {
  std::error_code ignored;
  const std::filesystem::path program = std::filesystem::read_symlink("/proc/self/exe", ignored);
  const std::string path = (program.parent_path().parent_path() / "lib/yax/typesetting.so").string();
  // The module stays loaded until the program ends.
  void* const module = dlopen(path.c_str(), RTLD_NOW | RTLD_LOCAL);
  void* const entry = module == nullptr ? nullptr : dlsym(module, kTypesettingEntry);
  if (entry == nullptr) throw TypesettingFault(dlerror());
  return *reinterpret_cast<const Typesetting* (*)()>(entry)();
}

const Typesetting& Module() {
  static const Typesetting& module = Load();
  return module;
}

}  // namespace

double TextWidth(std::string_view words, double size, bool bold) {
  return Module().TextWidth(words, size, bold);
}

std::vector<std::string> TextsWithoutGlyphs(const Drawing& drawing) {
  return Module().TextsWithoutGlyphs(drawing);
}

std::string PdfOf(const Drawing& drawing) { return Module().PdfOf(drawing); }

}  // namespace sheet
