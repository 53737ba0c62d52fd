// What the programs hand to the boot-time cleaner, and where.
#pragma once

#include <chrono>

namespace core::handover {

// Text files below the installation folder, one full path a line: what a cleaning could not remove, and
// index.dat files to be emptied.
inline constexpr char kLockedFiles[] = "Temp\\Locked Files.txt";
inline constexpr char kIndexFiles[] = "Temp\\Index Files.txt";

// The start entry, a value of the machine's key RunOnce, and the program below the installation folder.
inline constexpr char kEntry[] = "Kelvish";
inline constexpr char kProgram[] = "Kelvish.exe";

// Whoever writes or takes away one of the lists, or the entry, holds this claim meanwhile, which is a moment.
inline constexpr char kClaim[] = "Kelvish lists";
inline constexpr std::chrono::milliseconds kPatience{10'000};

}  // namespace core::handover
