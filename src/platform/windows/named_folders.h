#pragma once

#include <optional>
#include <vector>

#include "text/text.h"

namespace tavix::windows {

// As platform::Shell::NamedFolders. Uses COM: the thread needs a ComApartment.
//
// Other users' folders are computed: their profile, plus the place of each of the current user's folders in
// the current profile. A folder that another user has moved elsewhere is left out.
std::optional<std::vector<Text>> AllNamedFolders();

}  // namespace tavix::windows
