#include "advanced/folder_reader.h"

#include "advanced/path_text.h"
#include "frame/support/file_system_object.h"
#include "text/letter_case.h"
#include "text/plain_name.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr size_t kStepsBetweenPauses = 64;

}  // namespace

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

FolderReader::Visit FolderReader::Read(FolderChain& chain, bool testEmpty, const platform::GoesOn& goesOn) {
  Visit visit;
  if (auto known = known_.extract(chain.Path())) {
    chain.Hold(std::move(known.mapped().folder));
    visit.empty = known.mapped().empty;
    visit.content = std::move(known.mapped().content);
    return visit;
  }
  visit.content =
      FolderContent([&](const platform::EntryVisitor& see) { return chain.List(see, {}, goesOn); });
  visit.empty = testEmpty && IsTreeEmpty(chain, visit.content, goesOn);
  return visit;
}

FolderReader::Level FolderReader::ReadNextSubFolder(std::vector<Level>& levels, OpenFolders& open,
                                                    const platform::GoesOn& goesOn) {
  Level& parent = levels.back();
  const Text& name = parent.content.SubFolders()[parent.next++].name;
  Level child;
  child.path = PathBelow(parent.path, name);
  platform::OpenFolder* folder = open.Open(levels.size(), child.path, name);
  child.content = FolderContent([&](const platform::EntryVisitor& visit) {
    return folder != nullptr && folder->List(visit, {}, goesOn);
  });
  return child;
}

bool FolderReader::IsTreeEmpty(FolderChain& chain, FolderContent& content, const platform::GoesOn& goesOn) {
  std::vector<Level> levels;
  OpenFolders open(chain.Opened());
  levels.push_back({chain.Path(), std::move(content)});
  bool empty = levels.back().content.IsEmptyByItself();
  for (size_t step = 1; empty; ++step) {
    Level& level = levels.back();
    const auto& subFolders = level.content.SubFolders();
    if (level.next == subFolders.size()) {
      if (levels.size() == 1) break;
      levels.pop_back();
      open.Close(levels.size());
      continue;
    }
    if (step % kStepsBetweenPauses == 0 && goesOn && !goesOn()) {
      empty = false;
      break;
    }
    levels.push_back(ReadNextSubFolder(levels, open, goesOn));
    empty = levels.back().content.IsEmptyByItself();
  }
  if (!empty) Remember(levels, open);
  content = std::move(levels.front().content);
  return empty;
}

// The search ended in the last level: none of the levels is empty. The subfolders before each are.
void FolderReader::Remember(std::vector<Level>& levels, OpenFolders& open) {
  for (const Level& level : levels) {
    for (size_t i = 0; i + 1 < level.next; ++i) {
      known_[PathBelow(level.path, level.content.SubFolders()[i].name)].empty = true;
    }
  }
  for (size_t i = levels.size() - 1; i > 0; --i) {
    known_[std::move(levels[i].path)] = {std::move(levels[i].content), false, open.Take(i)};
  }
}

}  // namespace tavix::mdlPubSelf
