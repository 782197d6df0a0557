#include "analysis/nets.h"

#include "model/text.h"

namespace analysis {

std::string NetOf(const NetRule& rule, const std::string& name) {
  std::smatch match;
  if (rule.Pattern && name.size() <= model::kMostForRegex && std::regex_search(name, match, *rule.Pattern) &&
      match[1].matched)
    return match[1];
  return name;
}

}  // namespace analysis
