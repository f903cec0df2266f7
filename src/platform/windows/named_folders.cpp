#include "platform/windows/named_folders.h"

#include <optional>
#include <set>

#include "platform/windows/com.h"
#include "platform/windows/environment.h"
#include "platform/windows/shell_folders.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_path.h"
#include "platform/windows/windows_registry.h"
#include "text/letter_case.h"

#include <shlobj.h>

namespace tavix::windows {
namespace {

constexpr TextView kProfiles = u"SOFTWARE\\Microsoft\\Windows NT\\CurrentVersion\\ProfileList";

using Folders = std::set<Text, LessIgnoringCase>;

void Add(Folders& folders, std::optional<Text> path) {
  const std::optional<Text> normal = path.and_then([](const Text& text) { return NormalPath(text); });
  if (normal) folders.insert(*normal);
}

// The path of a known folder, whether or not the folder exists. Nothing for virtual folders (the control
// panel).
std::optional<Text> PathOf(IKnownFolderManager* manager, const KNOWNFOLDERID& id) {
  ComPointer<IKnownFolder> folder;
  TaskMemory<wchar_t> path;
  if (FAILED(manager->GetFolder(id, folder.Receive())) ||
      FAILED(folder.Get()->GetPath(KF_FLAG_DONT_VERIFY, path.Receive())))
    return std::nullopt;
  return FromWide(path.Get());
}

bool AddKnownFolders(Folders& folders) {
  ComPointer<IKnownFolderManager> manager;
  if (FAILED(CoCreateInstance(CLSID_KnownFolderManager, nullptr, CLSCTX_INPROC_SERVER,
                              IID_IKnownFolderManager, reinterpret_cast<void**>(manager.Receive()))))
    return false;
  TaskMemory<KNOWNFOLDERID> ids;
  UINT count = 0;
  if (FAILED(manager.Get()->GetFolderIds(ids.Receive(), &count))) return false;
  for (UINT i = 0; i < count; ++i) Add(folders, PathOf(manager.Get(), ids.Get()[i]));
  return true;
}

// Adds the folders of all profiles, of new profiles' templates and of common data. Returns the paths of the
// profiles, those of services included; nothing when they can't be read. The registry holds the paths with
// variables.
std::optional<std::vector<Text>> Profiles(Folders& folders) {
  WindowsRegistry registry;
  constexpr platform::Hive kMachine = platform::Hive::LocalMachine;
  const auto read = [&registry](TextView key, TextView name) {
    return registry.ReadValue(kMachine, key, name)
        .transform([](const Text& text) { return ExpandVariables(text); })
        .and_then([](const Text& path) { return NormalPath(path); });
  };
  for (const TextView name : {u"ProfilesDirectory", u"Default", u"Public", u"ProgramData"})
    Add(folders, read(kProfiles, name));
  std::vector<Text> keys;
  if (!registry.VisitSubKeys(kMachine, kProfiles, [&keys](TextView name) { keys.emplace_back(name); }))
    return std::nullopt;
  std::vector<Text> profiles;
  for (const Text& key : keys) {
    if (auto profile = read(Concat(kProfiles, u"\\", key), u"ProfileImagePath"))
      profiles.push_back(std::move(*profile));
  }
  return profiles;
}

// The rest of a path below a folder, with its leading backslash. Nothing when the path isn't below it.
std::optional<TextView> Below(TextView path, TextView folder) {
  if (path.size() <= folder.size() || path[folder.size()] != u'\\' ||
      !EqualIgnoringCase(path.substr(0, folder.size()), folder))
    return std::nullopt;
  return path.substr(folder.size());
}

// Adds each profile, and in it the same folders that the current user's profile has.
void AddProfiles(Folders& folders, const std::vector<Text>& profiles) {
  const std::optional<Text> own = FolderByNumber(CSIDL_PROFILE);
  std::vector<Text> inProfile;
  for (const Text& folder : folders) {
    if (const auto rest = own ? Below(folder, *own) : std::nullopt) inProfile.emplace_back(*rest);
  }
  for (const Text& profile : profiles) {
    folders.insert(profile);
    for (const Text& rest : inProfile) folders.insert(Concat(profile, rest));
  }
}

}  // namespace

std::optional<std::vector<Text>> AllNamedFolders() {
  constexpr int kSystemFolder = 9966;
  Folders folders;
  Add(folders, FolderByNumber(CSIDL_WINDOWS));
  Add(folders, FolderByNumber(kSystemFolder));
  Add(folders, UserTemp());
  Add(folders, SystemTemp());
  if (!AddKnownFolders(folders)) return std::nullopt;
  const std::optional<std::vector<Text>> profiles = Profiles(folders);
  if (!profiles) return std::nullopt;
  AddProfiles(folders, *profiles);
  return std::vector<Text>(folders.begin(), folders.end());
}

}  // namespace tavix::windows
