#pragma once

#include "platform/shell.h"

namespace tavix::mdlPubSelf {

// A variable of the environment; empty where it isn't set.
inline Text EnvironmentText(TextView name) {
  return platform::shell->EnvironmentVariable(name).value_or(Text());
}

// The folder of Windows, with no backslash at the end; empty when it isn't known.
inline Text WindowsFolder() {
  Text folder = EnvironmentText(u"WinDir");
  while (folder.ends_with(u'\\')) folder.pop_back();
  return folder;
}

}  // namespace tavix::mdlPubSelf
