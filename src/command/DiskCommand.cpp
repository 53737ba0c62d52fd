// The drives and their room.
#include "command/Commands.h"
#include "platform/LibDisk.h"
#include "platform/Machine.h"

namespace command {

namespace {

std::string Number(double bytes) {
  return std::to_string(static_cast<long long>(bytes));
}

}  // namespace

int Disk(Context& context) {
  context.output.Table({{"Drive", 5},
                        {"Kind", 16},
                        {"System", 8},
                        {"Total", 16, true},
                        {"Used", 16, true},
                        {"Free", 16, true},
                        {"Label", 0}});
  for (const platform::Drive& drive : context.machine.GetDrives().List()) {
    const std::string root = std::string(1, drive.letter) + ":\\", kind = platform::LibDisk().DriveType(root);
    Json object = {{"type", "drive"}, {"drive", root}, {"kind", kind}, {"ready", false}};
    auto info = context.machine.GetDrives().Info(root);
    if (!info) {
      context.output.Row({root, kind, "-", "-", "-", "-", ""}, object);
      continue;
    }
    object["ready"] = true;
    object["label"] = info->label;
    object["file_system"] = info->fileSystem;
    object["total"] = Whole(info->total);
    object["used"] = Whole(info->used);
    object["free"] = Whole(info->free);
    context.output.Row({root, kind, info->fileSystem, Number(info->total), Number(info->used),
                        Number(info->free), info->label},
                       object);
  }
  return kAllDone;
}

}  // namespace command
