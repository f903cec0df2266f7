#include "advanced/folder_reader.h"

#include "advanced/path_text.h"
#include "frame/support/file_system_object.h"
#include "text/letter_case.h"
#include "text/plain_name.h"

namespace tavix::mdlPubSelf {

FolderContent::FolderContent(const Lister& list) {
  read_ = list([this](const platform::DirectoryEntry& entry) {
    const bool plain = IsPlainName(entry.name);
    if (entry.link || !plain) isEmpty_ = false;
    if (!plain) return;
    if (entry.folder) {
      subFolders_.push_back({Text(entry.name), entry.link});
      return;
    }
    names_ += entry.name;
    files_.push_back(
        {names_.size(), static_cast<double>(entry.size), entry.accessed, entry.known, entry.link});
    if (!entry.known || entry.size != 0) isEmpty_ = false;
  });
  capitals_ = ToUpper(names_);
}

FolderContent::File FolderContent::FileAt(size_t index) const {
  const Stored& file = files_[index];
  const size_t begin = index == 0 ? 0 : files_[index - 1].nameEnd;
  const size_t length = file.nameEnd - begin;
  return {TextView(names_).substr(begin, length),
          TextView(capitals_).substr(begin, length),
          file.size,
          file.accessed,
          file.known,
          file.link};
}

FolderReader::Visit FolderReader::Read(const Text& path, const FolderContent::Lister& list, bool testEmpty) {
  Visit visit;
  if (const auto known = readAhead_.extract(path)) {
    visit.empty = !known.mapped();
    if (known.mapped()) visit.content = *std::move(known.mapped());
    return visit;
  }
  visit.content = FolderContent(list);
  visit.empty = testEmpty && IsTreeEmpty(path, visit.content);
  return visit;
}

FolderReader::Level FolderReader::ReadNextSubFolder(std::vector<Level>& levels, OpenFolders& open) {
  Level& parent = levels.back();
  const Text& name = parent.content.SubFolders()[parent.next++].name;
  Level child;
  child.path = PathBelow(parent.path, name);
  platform::OpenFolder* folder = open.Open(levels.size(), child.path, name);
  child.content = FolderContent(
      [folder](const platform::EntryVisitor& visit) { return folder != nullptr && folder->List(visit, {}); });
  return child;
}

bool FolderReader::IsTreeEmpty(const Text& path, FolderContent& content) {
  std::vector<Level> levels;
  OpenFolders open;
  levels.push_back({path, std::move(content)});
  bool empty = levels.back().content.IsEmptyByItself();
  while (empty) {
    Level& level = levels.back();
    const auto& subFolders = level.content.SubFolders();
    if (level.next == subFolders.size()) {
      if (levels.size() == 1) break;
      levels.pop_back();
      open.Close(levels.size());
      continue;
    }
    levels.push_back(ReadNextSubFolder(levels, open));
    empty = levels.back().content.IsEmptyByItself();
  }
  if (!empty) Remember(levels);
  content = std::move(levels.front().content);
  return empty;
}

// The search ended in the last level: none of the levels is empty. The subfolders before each are.
void FolderReader::Remember(std::vector<Level>& levels) {
  for (const Level& level : levels) {
    for (size_t i = 0; i + 1 < level.next; ++i) {
      readAhead_.emplace(PathBelow(level.path, level.content.SubFolders()[i].name), std::nullopt);
    }
  }
  for (size_t i = 1; i < levels.size(); ++i) {
    readAhead_.emplace(std::move(levels[i].path), std::move(levels[i].content));
  }
}

}  // namespace tavix::mdlPubSelf
