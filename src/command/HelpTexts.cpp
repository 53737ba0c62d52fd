// What is told of the command line: help, manual, completions. All of it comes from the description.
#include <algorithm>
#include <sstream>

#include "command/CommandLine.h"

namespace command {

namespace {

std::vector<CLI::App*> CommandsOf(CLI::App& app) {
  return app.get_subcommands([](CLI::App* sub) { return !sub->get_name().empty(); });
}

// Each command with all words that lead to it, those that only lead on included.
void ForEach(CLI::App& app, const std::string& way,
             const std::function<void(CLI::App&, const std::string&)>& act) {
  for (CLI::App* sub : CommandsOf(app)) {
    std::string words = way.empty() ? sub->get_name() : way + " " + sub->get_name();
    act(*sub, words);
    ForEach(*sub, words, act);
  }
}

// "--drive", "-d"; nothing for what stands without a name.
std::vector<std::string> Spellings(const CLI::Option& option) {
  std::vector<std::string> all;
  for (const std::string& name : option.get_lnames()) all.push_back("--" + name);
  for (const std::string& name : option.get_snames()) all.push_back("-" + name);
  return all;
}

// The words that may follow a command: commands and options.
std::vector<std::string> Following(CLI::App& app, CLI::App& command) {
  std::vector<std::string> words;
  for (CLI::App* sub : CommandsOf(command)) words.push_back(sub->get_name());
  for (CLI::App* described : {&command, &app})
    for (const CLI::Option* option : std::as_const(*described).get_options())
      for (const std::string& spelling : Spellings(*option))
        if (std::ranges::find(words, spelling) == words.end()) words.push_back(spelling);
  return words;
}

std::string Joined(const std::vector<std::string>& words, const char* between) {
  std::string text;
  for (const std::string& word : words) text.append(text.empty() ? "" : between).append(word);
  return text;
}

// A line of a page for man: a backslash and a line's first dot mean something there.
std::string Roff(const std::string& text) {
  std::string escaped;
  for (char c : text) {
    if (c == '\\')
      escaped += "\\e";
    else if (c == '-')
      escaped += "\\-";
    else
      escaped += c;
  }
  return escaped.starts_with('.') || escaped.starts_with('\'') ? "\\&" + escaped : escaped;
}

void WriteOptions(std::ostringstream& page, const CLI::App& app) {
  for (const CLI::Option* option : app.get_options()) {
    std::vector<std::string> names = Spellings(*option);
    page << ".TP\n";
    if (names.empty())
      page << ".I " << Roff(option->get_name()) << "\n";
    else
      page << ".B " << Roff(Joined(names, ", ")) << "\n";
    page << Roff(option->get_description()) << ".\n";
  }
}

std::string BashCompletion(CLI::App& app) {
  std::ostringstream text;
  text << "# What completes the commands of tidorra in bash.\n_tidorra() {\n"
          "  local way= word words\n"
          "  for word in \"${COMP_WORDS[@]:1:COMP_CWORD-1}\"; do\n"
          "    case $word in -*) ;; *) way=\"${way:+$way }$word\" ;; esac\n"
          "  done\n"
          "  case $way in\n";
  text << "    '') words='" << Joined(Following(app, app), " ") << "' ;;\n";
  std::vector<std::string> cases;
  ForEach(app, "", [&](CLI::App& command, const std::string& way) {
    // Words of an option may stand behind the command; a longer way comes first.
    cases.insert(cases.begin(), "    '" + way + "' | '" + way + " '*) words='" +
                                    Joined(Following(app, command), " ") + "' ;;\n");
  });
  for (const std::string& one : cases) text << one;
  text << "    *) words= ;;\n  esac\n"
          "  COMPREPLY=($(compgen -W \"$words\" -- \"${COMP_WORDS[COMP_CWORD]}\"))\n"
          "}\ncomplete -o default -F _tidorra tidorra\n";
  return text.str();
}

std::string ZshCompletion(CLI::App& app) {
  std::ostringstream text;
  text << "#compdef tidorra\n# What completes the commands of tidorra in zsh.\n_tidorra() {\n"
          "  local way= word\n  local -a possible\n"
          "  for word in ${words[2,CURRENT-1]}; do\n    [[ $word == -* ]] || way=\"${way:+$way }$word\"\n  "
          "done\n"
          "  case $way in\n    '') possible=("
       << Joined(Following(app, app), " ") << ") ;;\n";
  std::vector<std::string> cases;
  ForEach(app, "", [&](CLI::App& command, const std::string& way) {
    cases.insert(cases.begin(), "    '" + way + "'|'" + way + " '*) possible=(" +
                                    Joined(Following(app, command), " ") + ") ;;\n");
  });
  for (const std::string& one : cases) text << one;
  text << "  esac\n  compadd -a possible\n  _files\n}\n_tidorra \"$@\"\n";
  return text.str();
}

std::string FishQuoted(const std::string& text) {
  std::string quoted = "'";
  for (char c : text) {
    if (c == '\'' || c == '\\') quoted += '\\';
    quoted += c;
  }
  return quoted + "'";
}

std::string FishCompletion(CLI::App& app) {
  std::ostringstream text;
  text << "# What completes the commands of tidorra in fish.\ncomplete -c tidorra -f\n";
  for (CLI::App* sub : CommandsOf(app))
    text << "complete -c tidorra -n __fish_use_subcommand -a " << sub->get_name() << " -d "
         << FishQuoted(sub->get_description()) << "\n";
  ForEach(app, "", [&](CLI::App& command, const std::string& way) {
    std::string seen = "__fish_seen_subcommand_from " + way.substr(0, way.find(' '));
    if (way.find(' ') != way.npos)
      seen += "; and __fish_seen_subcommand_from " + way.substr(way.find(' ') + 1);
    for (CLI::App* sub : CommandsOf(command))
      text << "complete -c tidorra -n '" << seen << "' -a " << sub->get_name() << " -d "
           << FishQuoted(sub->get_description()) << "\n";
    for (const CLI::Option* option : std::as_const(command).get_options()) {
      if (option->get_lnames().empty()) continue;
      text << "complete -c tidorra -n '" << seen << "'";
      for (const std::string& name : option->get_lnames()) text << " -l " << name;
      for (const std::string& name : option->get_snames()) text << " -s " << name;
      text << (option->get_items_expected_max() > 0 ? " -r" : "") << " -d "
           << FishQuoted(option->get_description()) << "\n";
    }
  });
  return text.str();
}

std::string PowerShellCompletion(CLI::App& app) {
  std::ostringstream text;
  text << "# What completes the commands of tidorra in PowerShell.\n"
          "Register-ArgumentCompleter -Native -CommandName tidorra -ScriptBlock {\n"
          "  param($word, $line, $position)\n"
          "  $following = @{\n    '' = '"
       << Joined(Following(app, app), " ") << "'\n";
  ForEach(app, "", [&](CLI::App& command, const std::string& way) {
    text << "    '" << way << "' = '" << Joined(Following(app, command), " ") << "'\n";
  });
  text << "  }\n"
          "  $way = @($line.CommandElements | Select-Object -Skip 1 | ForEach-Object { \"$_\" } |\n"
          "           Where-Object { $_ -notlike '-*' -and $_ -ne $word })\n"
          "  while ($way.Count -gt 0 -and -not $following.ContainsKey($way -join ' ')) {\n"
          "    $way = @($way | Select-Object -First ($way.Count - 1))\n  }\n"
          "  $following[$way -join ' '] -split ' ' | Where-Object { $_ -like \"$word*\" } |\n"
          "    ForEach-Object { [System.Management.Automation.CompletionResult]::new($_) }\n}\n";
  return text.str();
}

}  // namespace

std::string HelpText(CLI::App& app, const std::vector<std::string>& command) {
  CLI::App* at = &app;
  std::string way = "tidorra";
  for (const std::string& word : command) {
    auto subs = CommandsOf(*at);
    auto found = std::ranges::find_if(subs, [&](CLI::App* sub) { return sub->get_name() == word; });
    if (found == subs.end()) return {};
    at = *found;
    way += " " + word;
  }
  return at == &app ? app.help() : at->help(way.substr(0, way.rfind(' ')));
}

std::string ManualPage(CLI::App& app) {
  std::ostringstream page;
  page << ".TH TIDORRA 1\n.SH NAME\ntidorra \\- the command line of Brasmir\n.SH SYNOPSIS\n.B tidorra\n"
          ".I command\n.RI [ options ]\n.SH DESCRIPTION\n"
       << Roff(app.get_description())
       << "\nWithout options a command goes by the settings that the program's window shows; an option "
          "changes them for "
          "the one run.\n.SH OPTIONS OF ALL COMMANDS\n";
  WriteOptions(page, app);
  page << ".SH COMMANDS\n";
  ForEach(app, "", [&](CLI::App& command, const std::string& way) {
    page << ".SS tidorra " << Roff(way) << "\n" << Roff(command.get_description()) << ".\n";
    std::vector<CLI::App*> subs = CommandsOf(command);
    if (subs.empty()) WriteOptions(page, command);
  });
  page << ".SH EXIT STATUS\n";
  std::istringstream footer(app.get_footer());
  for (std::string line; std::getline(footer, line);) page << Roff(line) << "\n.br\n";
  page << ".SH EXAMPLES\n.nf\ntidorra scan \\-\\-filter .tmp\ntidorra scan \\-\\-null | tidorra clean "
          "\\-\\-from \\- "
          "\\-\\-backup \\-\\-yes\ntidorra backup restore\n.fi\n";
  return page.str();
}

std::string Completion(CLI::App& app, const std::string& shell) {
  if (shell == "bash") return BashCompletion(app);
  if (shell == "zsh") return ZshCompletion(app);
  if (shell == "fish") return FishCompletion(app);
  return shell == "powershell" ? PowerShellCompletion(app) : std::string();
}

}  // namespace command
