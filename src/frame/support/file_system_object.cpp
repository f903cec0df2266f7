#include "frame/support/file_system_object.h"

namespace tavix {
namespace {

platform::FileSystem* Disk() { return platform::fileSystem; }

// A member of the facts. Nothing without facts.
template <class Member>
auto Of(const std::optional<platform::FileFacts>& facts, Member member) {
  return facts.transform([member](const platform::FileFacts& known) { return known.*member; });
}

std::optional<platform::DateTime> Known(std::optional<platform::DateTime> time) {
  return time == platform::kUnknownTime ? std::nullopt : time;
}

std::optional<Folder> Parent(const std::optional<platform::FileFacts>& facts) {
  if (!facts) return std::nullopt;
  const size_t cut = facts->path.find_last_of(u'\\');
  if (cut == Text::npos || cut + 1 == facts->path.size()) return std::nullopt;
  // The root of a drive keeps its backslash.
  const Text parent = facts->path.substr(0, facts->path[cut - 1] == u':' ? cut + 1 : cut);
  auto found = Disk()->Look(parent);
  if (!found || !found->folder) return std::nullopt;
  return Folder(std::move(found));
}

platform::FileFacts Facts(TextView folder, const platform::DirectoryEntry& entry) {
  return {Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", entry.name),
          Text(entry.name),
          entry.size,
          entry.modified,
          entry.accessed,
          entry.attributes,
          entry.folder,
          entry.link,
          entry.known};
}

template <class Object>
std::optional<std::vector<Object>> List(const std::optional<platform::FileFacts>& facts, bool folders) {
  if (!facts) return std::nullopt;
  std::vector<Object> found;
  const bool read = Disk()->List(facts->path, [&](const platform::DirectoryEntry& entry) {
    if (entry.folder == folders) found.emplace_back(Facts(facts->path, entry));
  });
  if (!read) return std::nullopt;
  return found;
}

}  // namespace

std::optional<Text> File::Path() const { return Of(facts_, &platform::FileFacts::path); }
std::optional<Text> File::Name() const { return Of(facts_, &platform::FileFacts::name); }
std::optional<double> File::Size() const {
  if (facts_ && !facts_->known) return std::nullopt;
  return Of(facts_, &platform::FileFacts::size).transform([](uint64_t size) {
    return static_cast<double>(size);
  });
}
std::optional<platform::DateTime> File::DateLastModified() const {
  return Known(Of(facts_, &platform::FileFacts::modified));
}
std::optional<platform::DateTime> File::DateLastAccessed() const {
  return Known(Of(facts_, &platform::FileFacts::accessed));
}
std::optional<Folder> File::ParentFolder() const { return Parent(facts_); }

std::optional<Text> Folder::Path() const { return Of(facts_, &platform::FileFacts::path); }
std::optional<Text> Folder::Name() const { return Of(facts_, &platform::FileFacts::name); }
std::optional<Folder> Folder::ParentFolder() const { return Parent(facts_); }

std::optional<double> Folder::Size() const {
  if (!facts_) return std::nullopt;
  double size = 0;
  std::vector<Text> pending{facts_->path};
  bool known = true;
  while (!pending.empty() && known) {
    const Text path = std::move(pending.back());
    pending.pop_back();
    const bool read = Disk()->List(path, [&](const platform::DirectoryEntry& entry) {
      known = known && (entry.known || entry.folder);
      size += static_cast<double>(entry.size);
      if (entry.folder && !entry.link) pending.push_back(Facts(path, entry).path);
    });
    if (!read || !known) return std::nullopt;
  }
  return size;
}

std::optional<std::vector<File>> Folder::Files() const { return List<File>(facts_, false); }
std::optional<std::vector<Folder>> Folder::SubFolders() const { return List<Folder>(facts_, true); }

platform::Existence FileSystemObject::FileExists(TextView path) const { return files_->FileExists(path); }

platform::Existence FileSystemObject::FolderExists(TextView path) const { return files_->FolderExists(path); }

std::optional<File> FileSystemObject::GetFile(TextView path) const {
  auto facts = files_->Look(path);
  if (!facts || facts->folder) return std::nullopt;
  return File(std::move(facts));
}

std::optional<Folder> FileSystemObject::GetFolder(TextView path) const {
  auto facts = files_->Look(path);
  if (!facts || !facts->folder) return std::nullopt;
  return Folder(std::move(facts));
}

bool FileSystemObject::List(TextView path, const platform::FileSystem::EntryVisitor& visit,
                            const platform::FileSystem::NameFilter& wanted) const {
  return files_->List(path, visit, wanted);
}

std::unique_ptr<platform::OpenFolder> FileSystemObject::Open(TextView path) const {
  return files_->Open(path);
}

std::optional<Text> FileSystemObject::FolderIdentity(TextView path) const {
  return files_->FolderIdentity(path);
}

std::vector<Text> FileSystemObject::Lineage(TextView path) const { return files_->Lineage(path); }

std::unique_ptr<platform::FoundFolder> FileSystemObject::OpenFound(TextView start, TextView below) const {
  return files_->OpenFound(start, below);
}

void FileSystemObject::CreateFolder(TextView path) const { files_->CreateFolder(path); }

void FileSystemObject::CreateTextFile(TextView path, bool overwrite) const {
  files_->CreateTextFile(path, overwrite);
}

void FileSystemObject::DeleteFile(TextView path, bool force) const { files_->DeleteFile(path, force); }

void FileSystemObject::DeleteFolder(TextView path, bool force) const { files_->DeleteFolder(path, force); }

void FileSystemObject::MoveFile(TextView source, TextView destination) const {
  files_->MoveFile(source, destination);
}

void FileSystemObject::SetAttributes(TextView path, uint32_t attributes) const {
  files_->SetAttributes(path, attributes);
}

void FileSystemObject::RemoveTemporaries(TextView folder) const { files_->RemoveTemporaries(folder); }

std::vector<platform::Drive> FileSystemObject::Drives() const { return files_->Drives(); }

}  // namespace tavix
