#include "platform/windows/windows_file_system.h"

#include "platform/windows/delete_tree.h"
#include "platform/windows/file_content.h"
#include "platform/windows/file_facts.h"
#include "platform/windows/file_handle.h"
#include "platform/windows/file_move.h"
#include "platform/windows/found_item.h"
#include "platform/windows/temporary_files.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"

namespace tavix::windows {
namespace {

constexpr DWORD kNoDialogs = SEM_FAILCRITICALERRORS | SEM_NOOPENFILEERRORBOX;
constexpr DWORD kChangeable =
    platform::kReadOnly | platform::kHidden | platform::kSystem | platform::kArchive;

// Whether a folder (`folder`) or a file exists at the path. A link counts as its target.
platform::Existence Exists(TextView path, bool folder) {
  const std::optional<Text> normal = NormalPath(path);
  if (!normal) return false;
  bool sure = true;
  const std::optional<DWORD> attributes = FollowedAttributes(*normal, sure);
  if (!sure) return std::nullopt;
  return attributes && ((*attributes & FILE_ATTRIBUTE_DIRECTORY) != 0) == folder;
}

// Finds the folder by its path at each call. Names below it come from listings.
class Source : public platform::FolderSource {
 public:
  explicit Source(Text normal) : normal_(std::move(normal)) {}
  std::shared_ptr<const FolderSource> Open(TextView name) const override {
    return std::make_shared<Source>(PathIn(normal_, name));
  }
  bool Read(platform::FolderListing& listing, const platform::NameFilter& wanted) const override {
    return ReadFolder(normal_, listing, wanted);
  }

 private:
  const Text normal_;
};

// Whether a folder, links followed, is on a disk that stays in the machine. Asks its device, not the disk.
bool IsOnFixedDisk(TextView normal) {
  constexpr ULONG kDisk = 7;
  constexpr ULONG kRemovable = 0x01, kFloppy = 0x04, kRemote = 0x10;
  struct {
    ULONG type;
    ULONG characteristics;
  } device;
  const Text extended = ExtendedPath(normal);
  const FileHandle folder(CreateFileW(Wide(extended), FILE_READ_ATTRIBUTES | SYNCHRONIZE, kShareAll, nullptr,
                                      OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS, nullptr));
  IO_STATUS_BLOCK status;
  return folder &&
         NT_SUCCESS(NtQueryVolumeInformationFile(folder.Get(), &status, &device, sizeof(device),
                                                 FileFsDeviceInformation)) &&
         device.type == kDisk && (device.characteristics & (kRemovable | kFloppy | kRemote)) == 0;
}

class Opened : public platform::OpenFolder {
 public:
  Opened(platform::ReadAhead& ahead, const Text& normal)
      : folder_(&ahead, std::make_shared<Source>(normal), [normal] { return IsOnFixedDisk(normal); }) {}
  explicit Opened(platform::ReadAhead::Folder folder) : folder_(std::move(folder)) {}

  bool List(const platform::EntryVisitor& visit, const platform::NameFilter& wanted,
            const platform::GoesOn& goesOn) override {
    const auto listing = folder_.List(wanted, goesOn);
    return listing && listing->Visit(visit, goesOn);
  }
  std::unique_ptr<platform::OpenFolder> Open(TextView name) override {
    auto folder = folder_.Open(name);
    return folder ? std::make_unique<Opened>(*std::move(folder)) : nullptr;
  }

 private:
  platform::ReadAhead::Folder folder_;
};

// Makes online files visible as such to this process. By default the system may show them as ordinary files,
// if it assumes that a program can't handle them.
void ExposeOnlineFiles() {
  constexpr char kShown = 2;
  using Setter = char(NTAPI*)(char mode);
  const auto set = reinterpret_cast<Setter>(reinterpret_cast<void*>(
      GetProcAddress(GetModuleHandleW(L"ntdll.dll"), "RtlSetProcessPlaceholderCompatibilityMode")));
  if (set != nullptr) set(kShown);
}

Text RootOf(char16_t letter) { return {letter, u':', u'\\'}; }

// The name of a drive's volume; asks the drive. Nothing when it isn't ready.
std::optional<Text> VolumeName(char16_t letter) {
  wchar_t name[MAX_PATH + 1] = L"";
  if (!driveCalls.getVolumeInformation(Wide(RootOf(letter)), name, MAX_PATH + 1, nullptr, nullptr, nullptr,
                                       nullptr, 0)) {
    return std::nullopt;
  }
  return FromWide(name);
}

platform::Drive ReadDrive(char16_t letter) {
  platform::Drive drive;
  drive.path = {letter, u':'};
  drive.type = DriveTypeOf(driveCalls.getDriveType(Wide(RootOf(letter))));
  if (drive.type == platform::kNetworkDrive) return drive;
  std::optional<Text> name = VolumeName(letter);
  drive.ready = name.has_value();
  if (name) drive.volumeName = *std::move(name);
  return drive;
}

}  // namespace

WindowsFileSystem::WindowsFileSystem()
    : ahead_(platform::ReadAhead::kMostFolders, [] { SetThreadErrorMode(kNoDialogs, nullptr); }) {
  SetThreadErrorMode(kNoDialogs, &errorMode_);
  ExposeOnlineFiles();
}

WindowsFileSystem::~WindowsFileSystem() { SetThreadErrorMode(errorMode_, nullptr); }

std::optional<platform::FileFacts> WindowsFileSystem::Look(TextView path) {
  return NormalPath(path).and_then([](const Text& normal) { return ReadFacts(normal); });
}

std::optional<bool> WindowsFileSystem::IsLink(TextView path) {
  return NormalPath(path).and_then([](const Text& normal) { return IsLinkAt(normal); });
}

platform::Existence WindowsFileSystem::FileExists(TextView path) { return Exists(path, false); }

platform::Existence WindowsFileSystem::FolderExists(TextView path) { return Exists(path, true); }

std::unique_ptr<platform::OpenFolder> WindowsFileSystem::Open(TextView folder) {
  const std::optional<Text> normal = NormalPath(folder);
  return normal ? std::make_unique<Opened>(ahead_, *normal) : nullptr;
}

std::optional<Text> WindowsFileSystem::FolderIdentity(TextView path) {
  return NormalPath(path).and_then([](const Text& normal) { return ReadFolderIdentity(normal); });
}

std::vector<Text> WindowsFileSystem::Lineage(TextView path) {
  const std::optional<Text> normal = NormalPath(path);
  return normal ? ReadLineage(*normal) : std::vector<Text>();
}

std::optional<Text> WindowsFileSystem::ResolveLink(TextView path) {
  return NormalPath(path).and_then(ReadResolvedLink);
}

std::unique_ptr<platform::FoundFolder> WindowsFileSystem::OpenFound(TextView start, TextView below) {
  const std::optional<Text> normal = NormalPath(start);
  return normal ? OpenFoundFolder(*normal, below) : nullptr;
}

bool WindowsFileSystem::CreateFolder(TextView path) {
  const std::optional<Text> normal = NormalPath(path);
  return normal && CreateDirectoryW(Wide(ExtendedPath(*normal)), nullptr);
}

bool WindowsFileSystem::CreateTextFile(TextView path, bool overwrite) {
  const std::optional<Text> normal = NormalPath(path);
  return normal && CreateEmptyFile(*normal, overwrite);
}

std::optional<std::string> WindowsFileSystem::ReadFile(TextView path) {
  return NormalPath(path).and_then([](const Text& normal) { return ReadContent(normal); });
}

bool WindowsFileSystem::WriteFile(TextView path, std::string_view content) {
  const std::optional<Text> normal = NormalPath(path);
  return normal && ReplaceContent(*normal, content);
}

bool WindowsFileSystem::AppendToFile(TextView path, std::string_view content) {
  const std::optional<Text> normal = NormalPath(path);
  return normal && AppendContent(*normal, content);
}

bool WindowsFileSystem::DeleteFile(TextView path, bool force) {
  const std::optional<Text> normal = NormalPath(path);
  return normal && DeleteOneFile(*normal, force);
}

bool WindowsFileSystem::DeleteFolder(TextView path, bool force) {
  const std::optional<Text> normal = NormalPath(path);
  return normal && DeleteTree(*normal, force);
}

bool WindowsFileSystem::MoveFile(TextView source, TextView destination) {
  const std::optional<Text> from = NormalPath(source), to = NormalPath(destination);
  return from && to && MoveOneFile(*from, *to);
}

bool WindowsFileSystem::SetAttributes(TextView path, uint32_t attributes) {
  const std::optional<Text> normal = NormalPath(path);
  if (!normal) return false;
  const Text extended = ExtendedPath(*normal);
  const DWORD current = GetFileAttributesW(Wide(extended));
  if (current == INVALID_FILE_ATTRIBUTES) return false;
  const DWORD wanted = (current & ~(kChangeable | FILE_ATTRIBUTE_NORMAL)) | (attributes & kChangeable);
  if (wanted == current) return true;
  return SetFileAttributesW(Wide(extended), wanted == 0 ? FILE_ATTRIBUTE_NORMAL : wanted) != 0;
}

void WindowsFileSystem::RemoveTemporaries(TextView folder) {
  if (const std::optional<Text> normal = NormalPath(folder)) RemoveTemporaryFiles(*normal);
}

std::vector<platform::Drive> WindowsFileSystem::Drives() {
  std::vector<platform::Drive> drives;
  const DWORD letters = driveCalls.getLogicalDrives();
  for (int i = 0; i < 26; ++i) {
    if ((letters >> i & 1) != 0) drives.push_back(ReadDrive(static_cast<char16_t>(u'A' + i)));
  }
  return drives;
}

std::optional<int> WindowsFileSystem::DriveType(char16_t letter) {
  const UINT type = driveCalls.getDriveType(Wide(RootOf(letter)));
  return type == DRIVE_NO_ROOT_DIR ? std::nullopt : std::optional(DriveTypeOf(type));
}

bool WindowsFileSystem::IsDriveReady(char16_t letter) { return VolumeName(letter).has_value(); }

int DriveTypeOf(UINT systemType) {
  switch (systemType) {
    case DRIVE_REMOVABLE:
      return platform::kRemovableDrive;
    case DRIVE_FIXED:
      return platform::kFixedDrive;
    case DRIVE_REMOTE:
      return platform::kNetworkDrive;
    case DRIVE_CDROM:
      return platform::kCdDrive;
    case DRIVE_RAMDISK:
      return platform::kMemoryDrive;
    default:
      return platform::kUnknownDrive;
  }
}

}  // namespace tavix::windows
