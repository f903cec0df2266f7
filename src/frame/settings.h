#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// What the user can set, one text for each key of the settings file. Values stay text: a reader that wants
// a number converts at the place of use, and meets an empty text where the key is missing. Flags are "Y"
// and "N".

inline Text DuplicateSize;      // duplicates must have the same size
inline Text DuplicateModified;  // duplicates must have the same modification time
inline Text OnlyCommon;         // consider only the file types of CommonTypes
inline Text LeastSize;          // kilobytes; smaller files are passed over
inline Text NeedLeast;          // LeastSize is in force
inline Text CommonTypes;        // wildcard patterns joined by ";"
// The functions of a one-click run: their keys in scan order, with "|" before each and behind the last.
inline Text Functions;
inline Text CleaningMethod;        // "D" delete, "R" to the recycle bin, "S" to the backup folder
inline Text BackupFolder;          // no backslash at the end
inline Text InterfaceSize;         // "Auto", "Big" or "Small"
inline Text LastAccessedFile;      // days
inline Text LastAccessedPrefetch;  // days
inline Text ExceptFolders;         // `path/description`, joined by "|"

// Empties all of them.
void ClearSettings();

// Reads every key of the settings file. A file or key that is missing gives the empty text; there are no
// defaults here.
void LoadSettings();

// Writes all defaults into the file, over what stands there; what else stands in it stays. The folders
// among them are asked of the system anew. A file that can't be written stays as it was.
void WriteDefaultSettings();

// Whether the file has a setting of exactly this section and key.
bool IsSetting(TextView section, TextView key);

// Writes one key.
void WriteSetting(TextView section, TextView key, TextView value);

}  // namespace tavix::mdlPubSelf
