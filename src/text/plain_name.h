#pragma once

#include <algorithm>

#include "text/text.h"

namespace tavix {

// Whether Windows takes a name unchanged. From other names it drops the blanks and dots at the end, so they
// would mean another item, or the folder itself.
inline bool IsPlainName(TextView name) {
  return name.empty() || (name.back() != u' ' && name.back() != u'.');
}

// The same for every name in a path.
inline bool HasPlainNames(TextView path) {
  for (size_t start = 0; start < path.size();) {
    const size_t end = std::min(path.find_first_of(u"\\/", start), path.size());
    if (!IsPlainName(path.substr(start, end - start))) return false;
    start = end + 1;
  }
  return true;
}

}  // namespace tavix
