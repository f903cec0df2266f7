#include "platform/folder_listing.h"

#include <algorithm>

#include "text/letter_case.h"

namespace tavix::platform {

void NameList::Add(TextView name) {
  text_ += name;
  ends_.push_back(text_.size());
}

TextView NameList::At(size_t index) const {
  const size_t begin = index == 0 ? 0 : ends_[index - 1];
  return TextView(text_).substr(begin, ends_[index] - begin);
}

void FolderListing::Add(const DirectoryEntry& entry) {
  entries_.push_back({entry.size, entry.modified, entry.accessed, names_.size(),
                      static_cast<uint16_t>(entry.name.size()), static_cast<uint8_t>(entry.attributes),
                      entry.folder, entry.link, entry.known});
  names_ += entry.name;
}

// Many systems list a folder in this order, in order of creation or in its reverse, so these orders are
// checked first.
void FolderListing::Finish() {
  goesOn_ = {};
  const auto before = [this](const Entry& left, const Entry& right) {
    const int capitals = CompareIgnoringCase(NameOf(left), NameOf(right));
    return capitals != 0 ? capitals < 0 : NameOf(left) < NameOf(right);
  };
  if (std::is_sorted(entries_.rbegin(), entries_.rend(), before)) {
    std::reverse(entries_.begin(), entries_.end());
  }
  if (!std::is_sorted(entries_.begin(), entries_.end(), before)) {
    std::sort(entries_.begin(), entries_.end(), before);
  }
}

DirectoryEntry FolderListing::At(size_t index) const {
  const Entry& entry = entries_[index];
  return {NameOf(entry),    entry.size,   entry.modified, entry.accessed,
          entry.attributes, entry.folder, entry.link,     entry.known};
}

NameList FolderListing::Folders() const {
  NameList folders;
  for (const Entry& entry : entries_) {
    if (entry.folder && !entry.link) folders.Add(NameOf(entry));
  }
  return folders;
}

size_t FolderListing::Bytes() const {
  return names_.capacity() * sizeof(char16_t) + entries_.capacity() * sizeof(Entry);
}

}  // namespace tavix::platform
