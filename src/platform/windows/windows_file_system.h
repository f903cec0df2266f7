#pragma once

#include "platform/file_system.h"
#include "platform/read_ahead.h"
#include "platform/windows/windows_api.h"

namespace tavix::windows {

// The files of the running system. While it lives, the system shows no dialogs on its thread about an empty
// drive or a file that can't be opened. Programs started from the thread aren't affected.
class WindowsFileSystem : public platform::FileSystem {
 public:
  WindowsFileSystem();
  ~WindowsFileSystem() override;
  WindowsFileSystem(const WindowsFileSystem&) = delete;
  WindowsFileSystem& operator=(const WindowsFileSystem&) = delete;

  std::optional<platform::FileFacts> Look(TextView path) override;
  std::optional<bool> IsLink(TextView path) override;
  platform::Existence FileExists(TextView path) override;
  platform::Existence FolderExists(TextView path) override;
  std::unique_ptr<platform::OpenFolder> Open(TextView folder) override;
  std::optional<Text> FolderIdentity(TextView path) override;
  std::vector<Text> Lineage(TextView path) override;
  std::optional<Text> ResolveLink(TextView path) override;
  std::unique_ptr<platform::FoundFolder> OpenFound(TextView start, TextView below) override;
  bool CreateFolder(TextView path) override;
  bool CreateTextFile(TextView path, bool overwrite) override;
  std::optional<std::string> ReadFile(TextView path) override;
  bool WriteFile(TextView path, std::string_view content) override;
  bool AppendToFile(TextView path, std::string_view content) override;
  bool DeleteFile(TextView path, bool force) override;
  bool DeleteFolder(TextView path, bool force) override;
  bool MoveFile(TextView source, TextView destination) override;
  bool SetAttributes(TextView path, uint32_t attributes) override;
  void RemoveTemporaries(TextView folder) override;
  std::vector<platform::Drive> Drives() override;
  std::optional<int> DriveType(char16_t letter) override;
  bool IsDriveReady(char16_t letter) override;

 private:
  DWORD errorMode_ = 0;
  platform::ReadAhead ahead_;
};

// The calls that ask about drives. Tests replace them to imitate drives that they don't have.
struct DriveCalls {
  decltype(&GetLogicalDrives) getLogicalDrives = GetLogicalDrives;
  decltype(&GetDriveTypeW) getDriveType = GetDriveTypeW;
  decltype(&GetVolumeInformationW) getVolumeInformation = GetVolumeInformationW;
};
inline DriveCalls driveCalls;

// Converts a drive type of GetDriveType to one of platform::Drive.
int DriveTypeOf(UINT systemType);

}  // namespace tavix::windows
