#include "command/CommandLine.h"

#include <map>

namespace command {

namespace {

class Describer {
 public:
  Describer(Wishes& wishes, Chosen& chosen) : wishes_(wishes), chosen_(chosen) {}

  void All(CLI::App& app) {
    app.description(
        "Finds and removes garbage files, clears known places, and brings back what was removed.");
    app.footer(
        "Exit codes: 0 all done, 1 something stayed, 2 used wrongly, 3 nothing done, 130 interrupted.\n"
        "Paths and drives are those of the computer that is cleaned (C:\\Temp\\a.tmp).");
    app.require_subcommand(1);
    app.fallthrough();
    Forms(app);
    Brasmir(app);
    Lumaro(app);
    Backups(app);
    PlugIns(app);
    Schedule(app);
    Settings(app);
    Add(app, "disk", "Shows the drives and their room", command::Disk);
    Texts(app);
  }

 private:
  CLI::App* Group(CLI::App& app, const char* name, const char* what) {
    CLI::App* group = app.add_subcommand(name, what);
    group->require_subcommand(1);
    group->fallthrough();
    return group;
  }

  CLI::App* Add(CLI::App& app, const char* name, const char* what, int (*command)(Context&)) {
    CLI::App* added = app.add_subcommand(name, what);
    added->fallthrough();
    added->callback([this, command] { chosen_.command = command; });
    return added;
  }

  void Forms(CLI::App& app) {
    auto form = [&](const char* name, const char* what, Form value) {
      return app.add_flag_callback(
          name, [this, value] { wishes_.form = value; }, what);
    };
    CLI::Option* json =
        form("--json", "One JSON object a line, as docs/tidorra.schema.json says", Form::Json);
    CLI::Option* null = form("--null,-0", "Bare paths, a zero byte behind each, for xargs -0", Form::Null);
    CLI::Option* quiet = form("--quiet,-q", "Nothing but errors", Form::Quiet);
    json->excludes(null)->excludes(quiet);
    null->excludes(quiet);
  }

  void Yes(CLI::App* app) {
    app->add_flag("--yes,-y", wishes_.yes,
                  "Answers every question with Yes; needed where there is no terminal");
  }

  void Kinds(CLI::App* app) {
    app->add_option("--drive,-d", wishes_.drives, "A drive to look at instead of those of the settings")
        ->allow_extra_args(false);
    app->add_option("--filter,-f", wishes_.filters,
                    "A file filter such as .tmp; only what the line names is then looked for")
        ->allow_extra_args(false);
    app->add_flag("--zero-byte,-z", wishes_.zeroByte, "Looks for files without content");
    app->add_flag("--shortcuts,-s", wishes_.shortcuts, "Looks for shortcuts whose target is gone");
    app->add_option("--exclude,-x", wishes_.excludes,
                    "Leaves alone what has this text in its path, beside the "
                    "exclusions of the settings")
        ->allow_extra_args(false);
  }

  void Removing(CLI::App* app) {
    app->add_option("--method,-m", wishes_.method,
                    "How files go: deleted, to the recycle bin, or overwritten first")
        ->check(CLI::IsMember({"delete", "bin", "erase"}));
    app->add_option("--passes", wishes_.passes, "How often a file is overwritten")->check(CLI::Range(1, 35));
    CLI::Option* backup = app->add_flag("--backup,-b", wishes_.backup, "Stores the files in a backup first");
    app->add_flag("--no-backup", wishes_.noBackup, "Stores nothing")->excludes(backup);
    app->add_flag("--dry-run,-n", wishes_.dryRun, "Shows what would go, and removes nothing");
    Yes(app);
  }

  void Brasmir(CLI::App& app) {
    Kinds(Add(app, "scan", "Lists the garbage files, zero-byte files and broken shortcuts; removes nothing",
              command::Scan));
    CLI::App* clean = Add(app, "clean", "Removes what a scan finds, or the files of a list", command::Clean);
    Kinds(clean);
    clean->add_option(
        "--from", wishes_.from,
        "Removes the files of this list instead, a path a line or a zero byte behind each; - for the "
        "standard input");
    Removing(clean);
  }

  void Places(CLI::App* app) {
    app->add_option("--place,-p", wishes_.places,
                    "A place of the list, instead of those that the settings switch on")
        ->allow_extra_args(false);
  }

  void Lumaro(CLI::App& app) {
    CLI::App* group = Group(app, "lumaro", "The places that fill up by themselves");
    Add(*group, "list", "Shows the places, whether they are on, and where they lie", LumaroList);
    Places(Add(*group, "scan", "Measures the places; removes nothing", LumaroScan));
    CLI::App* clean = Add(*group, "clean", "Clears the places", LumaroClean);
    Places(clean);
    clean
        ->add_option("--keep-cookie", wishes_.keptHosts,
                     "Keeps the cookies that have this host in their name")
        ->allow_extra_args(false);
    Removing(clean);
  }

  void Archive(CLI::App* app) {
    app->add_option("archive", wishes_.archive,
                    "A backup as tidorra backup list names it; the newest by default");
  }

  void Files(CLI::App* app) {
    app->add_option("--file", wishes_.files, "A file of the backup, by its whole path; all by default")
        ->allow_extra_args(false);
  }

  void Backups(CLI::App& app) {
    CLI::App* group = Group(app, "backup", "What was stored before it was removed");
    Add(*group, "list", "Shows the backups", BackupList);
    Archive(Add(*group, "verify", "Unpacks every file to nowhere and compares its checksum", BackupVerify));
    Archive(Add(*group, "show", "Shows the files in a backup", BackupShow));
    CLI::App* restore = Add(*group, "restore", "Puts files back to where they came from", BackupRestore);
    Archive(restore);
    Files(restore);
    Yes(restore);
    CLI::App* extract = Add(*group, "extract", "Unpacks files into a folder", BackupExtract);
    extract->add_option("--to", wishes_.folder, "The folder")->required();
    Archive(extract);
    Files(extract);
    CLI::App* remove = Add(*group, "delete", "Deletes a backup", BackupDelete);
    remove->add_option("archive", wishes_.archive, "The backup")->required();
    Yes(remove);
  }

  void PlugIns(CLI::App& app) {
    CLI::App* group = Group(app, "plugin", "Rule files");
    auto names = [this](CLI::App* app, const char* what) {
      return app->add_option("plug-in", wishes_.plugIns, what);
    };
    const char* any = "By name, or by category\\name; all by default";
    Add(*group, "list", "Shows the plug-ins", PlugInList);
    names(Add(*group, "check", "Says whether plug-ins can be carried out", PlugInCheck), any);
    names(Add(*group, "show", "Shows what plug-ins would remove now", PlugInShow), any);
    CLI::App* run = Add(*group, "run", "Carries plug-ins out", PlugInRun);
    names(run, "By name, or by category\\name")->required();
    run->add_flag("--dry-run,-n", wishes_.dryRun, "Shows what would go, and removes nothing");
    Yes(run);
  }

  void Schedule(CLI::App& app) {
    CLI::App* group = Group(app, "schedule", "The weekly run that asks nobody");
    Add(*group, "show", "Shows the schedule and what became of it", ScheduleShow);
    CLI::App* set = Add(*group, "set", "Starts a schedule", ScheduleSet);
    set->add_option("--day", wishes_.day, "Monday to Sunday");
    set->add_option("--time", wishes_.time, "The time of day: 14:30");
    set->add_option("--week", wishes_.week, "Every how many weeks: 1 to 4");
    set->add_flag("--brasmir", wishes_.onlyBrasmir,
                  "Scans and cleans the drives (with --lumaro both, else only this)");
    set->add_flag("--lumaro", wishes_.onlyLumaro, "Clears the places (with --brasmir both, else only this)");
    Yes(set);
    Add(*group, "off", "Ends the schedule", ScheduleOff);
  }

  void Settings(CLI::App& app) {
    CLI::App* group = Group(app, "settings", "The settings");
    Add(*group, "get", "Shows a setting, or all of them", SettingsGet)
        ->add_option("name", wishes_.name, "A setting; all by default");
    CLI::App* set = Add(*group, "set", "Changes a setting", SettingsSet);
    set->add_option("name", wishes_.name, "The setting")->required();
    set->add_option("value", wishes_.value, "What it is to be")->required();
    Add(*group, "export", "Writes all settings and lists to a file", SettingsExport)
        ->add_option("file", wishes_.file, "The file; the standard output by default");
    CLI::App* import = Add(*group, "import", "Takes settings and lists from such a file", SettingsImport);
    import->add_option("file", wishes_.file, "The file; - for the standard input")->required();
    Yes(import);
    Yes(Add(*group, "reset", "Makes the settings and lists what they were at first", SettingsReset));
  }

  void Texts(CLI::App& app) {
    auto text = [&](const char* name, const char* what, std::function<std::string()> make) {
      CLI::App* added = app.add_subcommand(name, what);
      added->callback([this, make] { chosen_.text = make; });
      return added;
    };
    text("help", "Tells about a command", [this, &app] {
      return HelpText(app, topic_);
    })->add_option("command", topic_, "The command");
    text("manual", "Writes the page for man", [&app] { return ManualPage(app); });
    text("completion", "Writes what completes commands in a shell",
         [this, &app] { return Completion(app, shell_); })
        ->add_option("shell", shell_, "The shell")
        ->required()
        ->check(CLI::IsMember({"bash", "zsh", "fish", "powershell"}));
  }

  Wishes& wishes_;
  Chosen& chosen_;
  std::vector<std::string> topic_;
  std::string shell_;
};

}  // namespace

void Describe(CLI::App& app, Wishes& wishes, Chosen& chosen) {
  // Lives as long as the callbacks that know it.
  auto describer = std::make_shared<Describer>(wishes, chosen);
  describer->All(app);
  app.parse_complete_callback([describer] {});
}

}  // namespace command
