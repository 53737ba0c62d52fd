// The boot-time cleaner: works off the files that were handed over to it.
#pragma once

namespace kelvish {

// Removes the files that were handed over as locked (core/HandOver.h), and empties those that were as index
// files, which it overwrites first if the setting "Erase Index Dat Files on boot" says so. What stands in the
// texts "Temp\Locked Files.txt" and "Temp\Index Files.txt" is shown to the reader alone: both are made anew
// from what is left, whatever they said.
//
// A file that is still held, or may not be removed, stays in its list for the next start; one that isn't
// there any more counts as done. Never acted upon, and taken out of the list, is a file that isn't the one
// that was handed over: with another number or another time of its making, and if it is to be removed also
// one that has been written since. So is a line that isn't the full path of a plain file, whose way leads
// through a link, or that names a folder, a link or a file with several names (to be emptied) by now.
//
// The start entry is set while there is work, so that an end at any moment is followed by another start, and
// goes with the last line. With the setting "Log actions" on, what was done with each line is written to
// "Reports\Kelvish Log.txt" below the installation folder and to the user's desktop.
//
// Does nothing while another one is at it. False if a list couldn't be had or put back; raises RuntimeError
// where the settings can't be read.
bool WorkOff();

}  // namespace kelvish
