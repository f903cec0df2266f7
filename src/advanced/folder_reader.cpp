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

FolderReader::Visit FolderReader::Read(const Text& path, const FolderContent::Lister& list, bool judge) {
  Visit visit;
  if (const auto known = ahead_.extract(path)) {
    visit.empty = !known.mapped();
    if (known.mapped()) visit.content = *std::move(known.mapped());
    return visit;
  }
  visit.content = FolderContent(list);
  visit.empty = judge && AddsUpToNothing(path, visit.content);
  return visit;
}

FolderReader::Level FolderReader::ReadNextBelow(std::vector<Level>& levels, OpenFolders& open) {
  Level& above = levels.back();
  const Text& name = above.content.SubFolders()[above.next++].name;
  Level below;
  below.path = PathBelow(above.path, name);
  platform::OpenFolder* folder = open.Open(levels.size(), below.path, name);
  below.content = FolderContent(
      [folder](const platform::EntryVisitor& visit) { return folder != nullptr && folder->List(visit, {}); });
  return below;
}

bool FolderReader::AddsUpToNothing(const Text& path, FolderContent& content) {
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
    levels.push_back(ReadNextBelow(levels, open));
    empty = levels.back().content.IsEmptyByItself();
  }
  if (!empty) KeepAnswers(levels);
  content = std::move(levels.front().content);
  return empty;
}

// The last level has the file that decided it; it and those above aren't empty.
void FolderReader::KeepAnswers(std::vector<Level>& levels) {
  for (const Level& level : levels) {
    for (size_t i = 0; i + 1 < level.next; ++i) {
      ahead_.emplace(PathBelow(level.path, level.content.SubFolders()[i].name), std::nullopt);
    }
  }
  for (size_t i = 1; i < levels.size(); ++i) {
    ahead_.emplace(std::move(levels[i].path), std::move(levels[i].content));
  }
}

}  // namespace tavix::mdlPubSelf
