#include "platform/windows/windows_trust.h"

#include <algorithm>
#include <vector>

#include "platform/windows/access_list.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/shell_folders.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

constexpr int kWindows = 0x24;  // CSIDL numbers
constexpr int kPrograms = 0x26;
constexpr int kPrograms32 = 0x2A;

// Opens the item at the path; a link as itself.
FileHandle OpenItself(TextView normal, DWORD access) {
  return FileHandle(CreateFileW(Wide(ExtendedPath(normal)), access, kShareAll, nullptr, OPEN_EXISTING,
                                FILE_FLAG_OPEN_REPARSE_POINT | FILE_FLAG_BACKUP_SEMANTICS, nullptr));
}

bool IsMissing(DWORD error) { return error == ERROR_FILE_NOT_FOUND || error == ERROR_PATH_NOT_FOUND; }

// Whether the volume of an open file keeps owners and access lists. True when that can't be told.
bool KeepsOwners(HANDLE file) {
  DWORD flags = 0;
  return !GetVolumeInformationByHandleW(file, nullptr, 0, nullptr, nullptr, &flags, nullptr, 0) ||
         (flags & FILE_PERSISTENT_ACLS) != 0;
}

bool IsElevated() {
  FileHandle token;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive())) return true;
  TOKEN_ELEVATION elevation = {};
  DWORD length = 0;
  if (!GetTokenInformation(token.Get(), TokenElevation, &elevation, sizeof(elevation), &length)) return true;
  if (elevation.TokenIsElevated != 0) return true;
  // With UAC off, nobody is asked, and an administrator has full rights all the time.
  const std::optional<Identity> administrators = Identity::WellKnown(WinBuiltinAdministratorsSid);
  BOOL member = FALSE;
  return !administrators || !CheckTokenMembership(nullptr, administrators->Get(), &member) || member != FALSE;
}

std::vector<Text> ProgramFolderIdentities() {
  std::vector<Text> identities;
  for (const int number : {kWindows, kPrograms, kPrograms32}) {
    const std::optional<Text> path = FolderByNumber(number);
    const std::optional<Text> normal = path ? NormalPath(*path) : std::nullopt;
    if (const auto identity = normal ? ReadFolderIdentity(*normal) : std::nullopt) {
      identities.push_back(*identity);
    }
  }
  return identities;
}

}  // namespace

bool WindowsTrust::Elevated() {
  if (!elevated_) elevated_ = IsElevated();
  return *elevated_;
}

bool WindowsTrust::VolumeKeepsOwners(HANDLE file) {
  BY_HANDLE_FILE_INFORMATION facts;
  if (!GetFileInformationByHandle(file, &facts)) return false;
  const DWORD volume = facts.dwVolumeSerialNumber;
  const auto known = keepOwners_.find(volume);
  return known != keepOwners_.end() ? known->second
                                    : keepOwners_.emplace(volume, KeepsOwners(file)).first->second;
}

const std::vector<Identity>& WindowsTrust::TrustedOwners() {
  if (!owners_.empty()) return owners_;
  for (const auto& each : {Identity::ThisUser(), Identity::WellKnown(WinBuiltinAdministratorsSid),
                           Identity::WellKnown(WinLocalSystemSid)}) {
    if (each && std::ranges::find(owners_, *each) == owners_.end()) owners_.push_back(*each);
  }
  return owners_;
}

bool WindowsTrust::OwnedByOthers(TextView path) {
  const std::optional<Text> normal = NormalPath(path);
  if (!normal) return false;
  const FileHandle file = OpenItself(*normal, READ_CONTROL);
  if (!file) return !IsMissing(GetLastError());
  const std::optional<Security> security = Security::Read(file.Get());
  const std::vector<Identity>& trusted = TrustedOwners();
  const bool isTrusted =
      security && security->owner && std::ranges::find(trusted, *security->owner) != trusted.end();
  return !isTrusted && KeepsOwners(file.Get());
}

platform::Protection WindowsTrust::Protect(TextView path) {
  using platform::Protection;
  const std::optional<Text> normal = NormalPath(path);
  const std::optional<bool> link = normal.and_then([](const Text& existing) { return IsLinkAt(existing); });
  if (link != false) return Protection::Failed;
  const FileHandle file = OpenItself(*normal, READ_CONTROL | WRITE_DAC | FILE_READ_ATTRIBUTES);
  const std::optional<DWORD> attributes = file ? AttributesOf(file.Get()) : std::nullopt;
  // A link that was swapped in after the check above.
  if (!attributes || (*attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0) return Protection::Failed;
  const std::optional<Security> security = Security::Read(file.Get());
  if (!security || !security->owner) return Protection::Failed;
  std::vector<Identity> full = TrustedOwners();
  if (std::ranges::find(full, *security->owner) == full.end()) full.push_back(*security->owner);
  if (!security->OthersMayChange(full)) return Protection::Unchanged;
  // Where no lists are kept, everybody may change everything. So the volume isn't asked before.
  if (!VolumeKeepsOwners(file.Get())) return Protection::Failed;
  const bool folder = (*attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  return SetAccessList(file.Get(), folder, full) ? Protection::Set : Protection::Failed;
}

// Compares the identities of all folders on the resolved path, so short names, letter case, links and other
// paths to the same disk make no difference.
bool WindowsTrust::LiesAmongPrograms(TextView folder) {
  std::optional<Text> normal = NormalPath(folder);
  if (!normal) return false;
  for (Text place = *std::move(normal);; place = FolderOf(place)) {
    bool sure = true;
    const std::optional<DWORD> attributes = FollowedAttributes(place, sure);
    if (!sure) return true;
    if (attributes && (*attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) {
      const std::vector<Text> lineage = ReadLineage(place);
      const std::vector<Text> programs = ProgramFolderIdentities();
      return lineage.empty() || programs.empty() ||
             std::ranges::find_first_of(lineage, programs) != lineage.end();
    }
    if (IsRoot(place)) return false;
  }
}

bool WindowsTrust::Rename(TextView path, TextView name) {
  const std::optional<Text> from = NormalPath(path);
  if (!from || IsRoot(*from)) return false;
  const Text to = PathIn(FolderOf(*from), name);
  const std::optional<Entry> entry = LookUp(*from);
  if (!entry || NormalPath(to) != to) return false;
  const FileHandle file = OpenItself(*from, DELETE | FILE_READ_ATTRIBUTES | SYNCHRONIZE);
  BY_HANDLE_FILE_INFORMATION facts;
  if (!file || !GetFileInformationByHandle(file.Get(), &facts)) return false;
  // Wine opens a link's target even with FILE_FLAG_OPEN_REPARSE_POINT.
  if (entry->link && (facts.dwFileAttributes & FILE_ATTRIBUTE_REPARSE_POINT) == 0) return false;
  const Text target = ExtendedPath(to);
  std::vector<char> buffer(sizeof(FILE_RENAME_INFO) + target.size() * sizeof(char16_t));
  const auto info = reinterpret_cast<FILE_RENAME_INFO*>(buffer.data());
  info->ReplaceIfExists = FALSE;
  info->FileNameLength = static_cast<DWORD>(target.size() * sizeof(char16_t));
  std::copy(target.begin(), target.end(), reinterpret_cast<char16_t*>(info->FileName));
  return SetFileInformationByHandle(file.Get(), FileRenameInfo, info, static_cast<DWORD>(buffer.size())) != 0;
}

}  // namespace tavix::windows
