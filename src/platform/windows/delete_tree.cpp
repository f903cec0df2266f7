#include "platform/windows/delete_tree.h"

#include <utility>
#include <vector>

#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

struct Level {
  OpenedItem folder;
  std::vector<ListedItem> rest;
};

bool EnterFolder(OpenedItem folder, std::vector<Level>& levels) {
  Level& level = levels.emplace_back(Level{std::move(folder), {}});
  return ListItems(level.folder.handle.Get(), level.rest);
}

// Deletes a tree without recursion. `shouldDelete` chooses among its files and links. `share` is the share
// mode of what is being deleted. True when all of it was deleted.
template <class Rule>
bool DeleteTree(OpenedItem top, bool force, DWORD share, const Rule& shouldDelete) {
  std::vector<Level> levels;
  bool complete = EnterFolder(std::move(top), levels);
  while (!levels.empty()) {
    Level& level = levels.back();
    if (level.rest.empty()) {
      complete = DeleteItem(level.folder, force) && complete;
      levels.pop_back();
      continue;
    }
    const ListedItem listed = std::move(level.rest.back());
    level.rest.pop_back();
    std::optional<OpenedItem> opened = OpenItemIn(level.folder.handle.Get(), listed, share);
    if (!opened) {
      complete = false;
    } else if (opened->IsRealFolder()) {
      // Try without listing: this deletes an empty folder, and the system refuses any other.
      if (!DeleteItem(*opened, force)) complete = EnterFolder(*std::move(opened), levels) && complete;
    } else {
      complete = shouldDelete(*opened) && DeleteItem(*opened, force) && complete;
    }
  }
  return complete;
}

bool IsEmptyFile(const OpenedItem& item) {
  FILE_STANDARD_INFO facts;
  return !item.link &&
         handleCalls.getInformation(item.handle.Get(), FileStandardInfo, &facts, sizeof(facts)) &&
         facts.EndOfFile.QuadPart == 0;
}

}  // namespace

bool DeleteOneFile(TextView path, bool force) {
  const std::optional<OpenedItem> file = OpenItem(path);
  return file && !file->IsFolder() && DeleteItem(*file, force);
}

bool DeleteTree(TextView path, bool force) {
  if (IsRoot(path)) return false;
  std::optional<OpenedItem> top = OpenItem(path);
  if (!top || !top->IsFolder()) return false;
  if (top->link) return DeleteItem(*top, force);
  return DeleteTree(*std::move(top), force, kShareAll, [](const OpenedItem&) { return true; });
}

bool DeleteEmptyTree(OpenedItem top) {
  // Nobody may write to a file between the check of its size and its deletion.
  return DeleteTree(std::move(top), true, FILE_SHARE_READ | FILE_SHARE_DELETE, IsEmptyFile);
}

}  // namespace tavix::windows
