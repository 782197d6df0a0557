#include "yax/options/zu_file.h"

#include "model/text.h"
#include "yax/messages.h"

namespace yax {

LoopValues ReadParameterText(const std::string& name, std::string_view text) {
  return setup::ReadParameterValues(text, name, [&name](const setup::ParameterLine& line) {
    Complain({.File = name, .Line = line.Number},
             model::Quoted(line.Text) + " has none of the nine keys and is ignored", "correct or remove it");
  });
}

}  // namespace yax
