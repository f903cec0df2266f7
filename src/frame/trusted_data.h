#pragma once

#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Data that others may have written doesn't steer the program: its folders belong to it alone, and a clean
// with an administrator's rights doesn't move files into folders of programs.

// What stands in the place of the program's own data and isn't its own, from the top down: each name on the
// data folder's path and each file and scratch folder in it that is a link and, where the program is
// elevated, each folder and file it reads that belongs to somebody else. What lies below one of them is left
// out. Nothing is opened for reading and nothing is changed.
std::vector<Text> ForeignData();

// Asks in one message box about what ForeignData finds. True where there is nothing, and where the user
// agreed and each of them bears another name now (of a link, the link itself), so that the program starts
// anew there. False where the user cancelled, or one of them kept its name: the program is to end then, and
// is to leave its data alone.
bool DataIsTrusted();

// Makes the data folders and the default backup folder where they are missing, and takes the right to change
// them and the program's files from all other ordinary users, where we have the right to do so. True when
// one of the data folders or files stood open to others until now: then they may have put something there
// since ForeignData looked.
bool ProtectData();

// Whether files may be moved into the folder of the setting `Backup Folder`. False where the program is
// elevated and the folder is, lies in, or leads by a link into the Windows folder or a folder of programs,
// or that can't be told: then somebody may have chosen it to have files put among the programs. Asks the
// disk anew each time; a clean asks before each removal to the backup folder.
bool BackupFolderIsTrusted();

}  // namespace tavix::mdlPubSelf
