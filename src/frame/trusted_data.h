#pragma once

#include <vector>

#include "text/text.h"

namespace tavix::mdlPubSelf {

// Keeps data that other users may have written from steering the program. The data folders belong to the
// program alone, and a clean with an administrator's rights moves no file into a folder of programs.

// The paths of the program's data that are not its own, folders before what lies in them: a folder on the
// data folder's path, a data file or a scratch folder that is a link; and, if the program is elevated, a
// folder or file it reads that belongs to another user. Nothing below such a path is listed. Opens and
// changes nothing.
std::vector<Text> ForeignData();

// Asks in one message box about what ForeignData lists. True if it lists nothing, or if the user agreed and
// everything listed was renamed (of a link, the link itself): the program then starts with new data. False if
// the user cancelled or a renaming failed: the program is to end and leave its data alone.
bool DataIsTrusted();

// Makes the data folders and the default backup folder if they are missing, and takes other ordinary users'
// right to change them and the data files, as far as the program may. Ends early if something foreign stands
// in a data folder's place: others may have put it there after ForeignData looked. So ask again afterwards.
void ProtectData();

// Whether files may be moved into BackupFolder. False if the program is elevated and the folder is the
// Windows folder or a folder of programs, lies in one or leads into one by a link, or if that can't be told:
// somebody may have chosen it to get files among the programs. Looks at the disk each time; a clean calls
// this before each move.
bool BackupFolderIsTrusted();

}  // namespace tavix::mdlPubSelf
