#include "frame/left_temporaries.h"

#include "frame/data_paths.h"
#include "frame/settings.h"
#include "frame/support/file_system_object.h"
#include "text/letter_case.h"

namespace tavix::mdlPubSelf {

void RemoveLeftTemporaries() {
  for (const TextView folder : {kDataFolder, kDefaultBackupFolder}) {
    fileSystemObject.RemoveTemporaries(folder);
  }
  if (!EqualIgnoringCase(TextView(BackupFolder), kDefaultBackupFolder)) {
    fileSystemObject.RemoveTemporaries(BackupFolder);
  }
}

}  // namespace tavix::mdlPubSelf
