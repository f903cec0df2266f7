#include <algorithm>

#include "platform/windows/file_facts.h"
#include "platform/windows/opened_item.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

// FILE_ID_INFO, which older systems don't know.
struct IdInformation {
  uint64_t volume;
  uint64_t id[2];
};
constexpr auto kIdInformation = static_cast<FILE_INFO_BY_HANDLE_CLASS>(18);

FileHandle OpenToAsk(TextView path) {
  return FileHandle(CreateFileW(Wide(ExtendedPath(path)), FILE_READ_ATTRIBUTES, kShareAll, nullptr,
                                OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

// Uses 128-bit ids where the file system has them: on ReFS, several folders may share one 64-bit id.
Text IdentityOf(HANDLE folder, const BY_HANDLE_FILE_INFORMATION& facts) {
  uint64_t id[2] = {static_cast<uint64_t>(facts.nFileIndexHigh) << 32 | facts.nFileIndexLow, 0};
  IdInformation information;
  if (handleCalls.getInformation(folder, kIdInformation, &information, sizeof(information)))
    std::copy_n(information.id, 2, id);
  return Concat(ToText(facts.dwVolumeSerialNumber), u":", ToText(static_cast<long long>(id[0])), u":",
                ToText(static_cast<long long>(id[1])));
}

// Some drives (RAM disks, drives made by a program) can't report a final path. The path asked for serves
// then, if none of its names is a link.
std::optional<Text> PathOfFolder(TextView asked, HANDLE folder) {
  if (std::optional<Text> found = FinalPath(folder)) return found;
  for (TextView path = asked; !IsRoot(path); path = FolderOf(path)) {
    const std::optional<Entry> entry = LookUp(path);
    if (!entry || entry->link) return std::nullopt;
  }
  return Text(asked);
}

}  // namespace

std::optional<Text> ReadFolderIdentity(TextView path) {
  const FileHandle folder = OpenToAsk(path);
  BY_HANDLE_FILE_INFORMATION facts;
  if (!folder || !GetFileInformationByHandle(folder.Get(), &facts)) return std::nullopt;
  if ((facts.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) == 0) return std::nullopt;
  return IdentityOf(folder.Get(), facts);
}

std::vector<Text> ReadLineage(TextView path) {
  const FileHandle folder = OpenToAsk(path);
  const std::optional<Text> realPath = folder ? PathOfFolder(path, folder.Get()) : std::nullopt;
  if (!realPath) return {};
  std::vector<Text> lineage;
  for (TextView rest = *realPath;; rest = FolderOf(rest)) {
    std::optional<Text> identity = ReadFolderIdentity(rest);
    if (!identity) return {};
    lineage.push_back(*std::move(identity));
    if (IsRoot(rest)) return lineage;
  }
}

std::optional<Text> ReadResolvedLink(TextView path) {
  const std::optional<Entry> link = LookUp(path);
  // A stand-in can't be opened.
  if (!link || !link->link || link->standIn) return std::nullopt;
  const FileHandle target = OpenToAsk(path);
  return target ? FinalPath(target.Get()) : std::nullopt;
}

std::optional<Text> FinalPath(HANDLE file) {
  for (const DWORD form : {FILE_NAME_NORMALIZED, FILE_NAME_OPENED}) {
    const DWORD needed = handleCalls.getFinalPath(file, nullptr, 0, form);
    Text found(needed, u'\0');
    const DWORD length = handleCalls.getFinalPath(file, WideBuffer(found.data()), needed, form);
    if (length == 0 || length >= needed) continue;
    found.resize(length);
    return NormalPath(found);
  }
  return std::nullopt;
}

}  // namespace tavix::windows
