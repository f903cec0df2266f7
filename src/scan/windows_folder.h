#pragma once

#include "platform/shell.h"

namespace tavix::mdlPubSelf {

// An environment variable; empty if it isn't set.
inline Text EnvironmentText(TextView name) {
  return platform::shell->EnvironmentVariable(name).value_or(Text());
}

// The Windows folder without a backslash at its end; empty if it isn't known.
inline Text WindowsFolder() {
  Text folder = EnvironmentText(u"WinDir");
  while (folder.ends_with(u'\\')) folder.pop_back();
  return folder;
}

}  // namespace tavix::mdlPubSelf
