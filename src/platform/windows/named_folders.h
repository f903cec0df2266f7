#pragma once

#include <vector>

#include "text/text.h"

namespace tavix::windows {

// The contract is that of platform::Shell's NamedFolders. Objects of the system are used: the thread has a
// ComApartment.
//
// The folders of other users are told by where their profiles lie and where the current user's folders lie in
// theirs; a folder that another user has put elsewhere can't be told.
std::vector<Text> AllNamedFolders();

}  // namespace tavix::windows
