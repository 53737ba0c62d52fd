// Keeping what is the user's own from the other users of the machine.
#pragma once

#include <string>
#include <sys/stat.h>

namespace platform {

// What this process makes from now on is its user's alone: files 0600, folders 0700. The first thing that a
// program does.
void MakeNewFilesPrivate();

// Whether something may be believed that decides what is removed: it belongs to the user of this process or
// to the superuser, and nobody else may write to it.
bool IsTrusted(const struct stat& info);

// Takes the rights of others off an open file or folder (O_PATH will do) that belongs to the user of this
// process, and brings `info` up to date. Where the file system knows no rights nothing changes.
void TakeRightsOfOthers(int file, struct stat& info);
// The same for the folder of a native path, whose links are followed. Nothing where there is none.
void MakeFolderPrivate(const std::string& folder);

// The native path of an SQLite file without links on the way to it; empty where its folder can't be had.
// `trusted` tells whether the folder, the file and what SQLite keeps beside it may be
// believed (see IsTrusted), after the rights of others have been taken off what is the user's own.
std::string PlaceOfDatabase(const std::string& file, bool& trusted);

}  // namespace platform
