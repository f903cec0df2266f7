#include "frame/left_temporaries.h"

#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"

namespace tavix::mdlPubSelf {

void RemoveLeftTemporaries() {
  for (const TextView folder : {kDataFolder, kDefaultBackupFolder, TextView(BackupFolder)}) {
    fileSystemObject.RemoveTemporaries(folder);
  }
}

}  // namespace tavix::mdlPubSelf
