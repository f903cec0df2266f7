#pragma once

#include "text/text.h"

namespace tavix::mdlPubSelf {

// The path with a backslash at its end.
inline Text WithSeparator(TextView path) { return Concat(path, path.ends_with(u'\\') ? u"" : u"\\"); }

// The path of an item in a folder.
inline Text PathBelow(TextView folder, TextView name) {
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", name);
}

// The parent folder of a path. The root of a drive keeps its backslash.
inline Text FolderOf(TextView path) {
  const TextView folder = path.substr(0, path.find_last_of(u'\\'));
  return folder.ends_with(u':') ? WithSeparator(folder) : Text(folder);
}

}  // namespace tavix::mdlPubSelf
