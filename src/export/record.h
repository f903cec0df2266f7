#pragma once

#include <set>
#include <vector>

#include "platform/machine/formats/registry_store.h"
#include "text/letter_case.h"
#include "text/text.h"

namespace tavix::exporting {

using Texts = std::set<Text, LessIgnoringCase>;

// What the program has read from the machine it runs on. The recording interfaces of this room note it, and
// the export writes it to a machine folder. Paths are as the program gave them.
struct Record {
  // Folders that the export writes whole. Looks and listings below them aren't noted.
  std::vector<Text> trees;

  machine::RegistryStore registry;  // all data are strings, as the program sees them
  Texts looked;                     // files and folders that exist
  Texts listed;                     // folders
  Texts read;                       // files whose content was read
  Texts unknown;                    // files and folders whose existence couldn't be told
  Texts variables;                  // names of environment variables

  // Whether a path is one of the trees or lies in one.
  bool IsInTree(TextView path) const;
};

// Whether a path is `folder` or lies below it, letter case aside. `folder` may end in a backslash.
bool LiesIn(TextView path, TextView folder);

}  // namespace tavix::exporting
