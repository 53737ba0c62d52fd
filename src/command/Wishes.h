// What a command line asks for.
#pragma once

#include <string>
#include <vector>

namespace command {

enum class Form { Table, Json, Null, Quiet };

struct Wishes {
  Form form = Form::Table;
  bool yes = false, dryRun = false;

  std::vector<std::string> drives, filters, excludes;
  bool zeroByte = false, shortcuts = false;
  std::string from;    // a file with a list of paths, "-" for the standard input
  std::string method;  // "delete", "bin", "erase"; empty for that of the settings
  int passes = 0;      // 0 for those of the settings
  bool backup = false, noBackup = false;

  std::vector<std::string> places, keptHosts;

  std::string archive;
  std::vector<std::string> files;
  std::string folder;

  std::vector<std::string> plugIns;

  std::string day, time, week;
  bool onlyBrasmir = false, onlyLumaro = false;

  std::string name, value, file;
};

}  // namespace command
