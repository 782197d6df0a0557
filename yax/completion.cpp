#include "yax/completion.h"

#include <CLI/CLI.hpp>
#include <vector>

#include "yax/help_format.h"

namespace yax {

namespace {

/// The value of an option, or a positional argument.
struct OptionValue {
  std::string Name;  ///< empty for a flag
  std::vector<std::string> Choices;
  bool IsFile() const { return Choices.empty() && Name == "FILE"; }
};

struct Word {
  std::vector<std::string> Names;  ///< with their dashes; empty for a positional argument
  std::string Description;
  OptionValue Value;
};

std::vector<Word> WordsOf(const CLI::App& level) {
  std::vector<Word> words;
  for (const CLI::Option* option : level.get_options()) {
    Word word{{}, option->get_description(), {ValueNameOf(*option), ChoicesOf(*option)}};
    for (const std::string& name : option->get_snames()) word.Names.push_back("-" + name);
    for (const std::string& name : option->get_lnames()) word.Names.push_back("--" + name);
    words.push_back(word);
  }
  return words;
}

std::string Joined(const std::vector<std::string>& words, const std::string& between) {
  return CLI::detail::join(words, between);
}

/// The text in single quotes, with `special` characters also escaped with a backslash.
std::string ShellQuoted(const std::string& text, const std::string& special = {}) {
  std::string quoted = "'";
  for (const char letter : text) {
    if (special.find(letter) != std::string::npos) quoted += '\\';
    quoted += letter == '\'' ? "'\\''" : std::string(1, letter);
  }
  return quoted + "'";
}

std::string BashReply(const OptionValue& value) {
  if (!value.Choices.empty()) return "_yax_words " + ShellQuoted(Joined(value.Choices, " "));
  return value.IsFile() ? "_yax_files" : ":";
}

/// The cases of one command: the values of its options, its options, and its positional arguments.
std::string BashCases(const std::string& level, const std::vector<Word>& words) {
  std::string cases;
  std::vector<std::string> names;
  std::string place = ":";
  for (const Word& word : words) {
    if (word.Names.empty()) place = BashReply(word.Value);
    names.insert(names.end(), word.Names.begin(), word.Names.end());
    if (word.Names.empty() || word.Value.Name.empty()) continue;
    std::vector<std::string> patterns;
    for (const std::string& name : word.Names) patterns.push_back(level + "," + name + ",*");
    cases += "    " + Joined(patterns, "|") + ") " + BashReply(word.Value) + " ;;\n";
  }
  cases += "    " + level + ",*,-*) _yax_words " + ShellQuoted(Joined(names, " ")) + " ;;\n";
  return cases + "    " + level + ",*) " + place + " ;;\n";
}

std::string ZshAction(const OptionValue& value) {
  if (!value.Choices.empty()) return "(" + Joined(value.Choices, " ") + ")";
  return value.IsFile() ? "_files" : " ";
}

std::string ZshArgument(const Word& word) {
  const OptionValue& value = word.Value;
  const std::string action = ZshAction(value);
  if (word.Names.empty()) return ShellQuoted("*:" + value.Name + ":" + action);
  std::string tail = "[";
  for (const char letter : word.Description) {
    if (letter == '[' || letter == ']' || letter == ':') tail += '\\';
    tail += letter;
  }
  tail += "]";
  if (!value.Name.empty()) tail += ":" + value.Name + ":" + action;
  std::vector<std::string> arguments;
  for (const std::string& name : word.Names)
    arguments.push_back(ShellQuoted("(" + Joined(word.Names, " ") + ")" + name + tail));
  return Joined(arguments, " ");
}

std::string FishOption(const std::string& condition, const Word& word) {
  std::string line = "complete -c yax -n " + ShellQuoted(condition);
  for (const std::string& name : word.Names)
    line += name.starts_with("--") ? " -l " + name.substr(2) : " -s " + name.substr(1);
  if (word.Value.IsFile()) {
    line += word.Names.empty() ? " -F" : " -r -F";
  } else if (!word.Value.Choices.empty()) {
    line += (word.Names.empty() ? " -a " : " -x -a ") + ShellQuoted(Joined(word.Value.Choices, " "));
  } else if (!word.Value.Name.empty()) {
    line += " -x";
  }
  return line + " -d " + ShellQuoted(word.Description, "\\") + "\n";
}

}  // namespace

std::string BashCompletion(const CLI::App& program) {
  std::vector<std::string> commands;
  std::string cases;
  for (const CLI::App* command : program.get_subcommands({})) {
    commands.push_back(command->get_name());
    cases += BashCases(command->get_name(), WordsOf(*command));
  }
  std::vector<std::string> top = commands;
  for (const Word& word : WordsOf(program)) top.insert(top.end(), word.Names.begin(), word.Names.end());
  return "_yax_words() { mapfile -t COMPREPLY < <(compgen -W \"$1\" -- \"$current\"); }\n"
         "_yax_files() { mapfile -t COMPREPLY < <(compgen -f -- \"$current\"); }\n"
         "_yax() {\n"
         "  local current=${COMP_WORDS[COMP_CWORD]} before=${COMP_WORDS[COMP_CWORD-1]} command= word\n"
         "  COMPREPLY=()\n"
         "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
         "    case $word in " +
         Joined(commands, "|") +
         ") command=$word; break ;; esac\n"
         "  done\n"
         "  case $command,$before,$current in\n"
         "    ,*) _yax_words " +
         ShellQuoted(Joined(top, " ")) + " ;;\n" + cases +
         "  esac\n"
         "}\n"
         "complete -o filenames -F _yax yax\n";
}

std::string ZshCompletion(const CLI::App& program) {
  std::string commands;
  std::string cases;
  for (const CLI::App* command : program.get_subcommands({})) {
    commands += "    " + ShellQuoted(command->get_name() + ":" + command->get_description()) + "\n";
    cases += "    " + command->get_name() + ")\n      _arguments -S";
    for (const Word& word : WordsOf(*command)) cases += " \\\n        " + ZshArgument(word);
    cases += "\n      ;;\n";
  }
  std::string top;
  for (const Word& word : WordsOf(program)) top += " \\\n      " + ZshArgument(word);
  return "#compdef yax\n"
         "_yax() {\n"
         "  local -a commands\n"
         "  commands=(\n" +
         commands +
         "  )\n"
         "  if (( CURRENT == 2 )); then\n"
         "    _describe command commands\n"
         "    _arguments -S" +
         top +
         "\n"
         "    return\n"
         "  fi\n"
         "  shift words\n"
         "  (( CURRENT-- ))\n"
         "  case $words[1] in\n" +
         cases +
         "  esac\n"
         "}\n"
         "_yax \"$@\"\n";
}

std::string FishCompletion(const CLI::App& program) {
  std::string text = "complete -c yax -f\n";
  for (const Word& word : WordsOf(program)) text += FishOption("__fish_use_subcommand", word);
  for (const CLI::App* command : program.get_subcommands({})) {
    const std::string& name = command->get_name();
    text += "complete -c yax -n __fish_use_subcommand -a " + ShellQuoted(name) + " -d " +
            ShellQuoted(command->get_description(), "\\") + "\n";
    for (const Word& word : WordsOf(*command))
      text += FishOption("__fish_seen_subcommand_from " + name, word);
  }
  return text;
}

}  // namespace yax
