#include "export/record.h"

#include <algorithm>

namespace tavix::exporting {

bool LiesIn(TextView path, TextView folder) {
  if (folder.ends_with(u'\\')) folder.remove_suffix(1);
  if (!EqualIgnoringCase(path.substr(0, folder.size()), folder)) return false;
  return path.size() == folder.size() || path[folder.size()] == u'\\';
}

bool Record::IsInTree(TextView path) const {
  return std::ranges::any_of(trees, [path](const Text& tree) { return LiesIn(path, tree); });
}

}  // namespace tavix::exporting
