#include "export/drive_writer.h"

#include <algorithm>

#include "platform/application.h"
#include "text/utf8.h"

namespace tavix::exporting {
namespace {

using machine::HostDirectory;
using machine::MachinePath;

// How many folders of a path are held open, of the machine and of the machine folder each.
constexpr size_t kMaxOpen = 32;
constexpr int kMaxLinks = 40;
constexpr const char* kDrives = "drives";
constexpr const char* kApplication = "app";

Text Below(TextView folder, TextView name) {
  return Concat(folder, folder.ends_with(u'\\') ? u"" : u"\\", name);
}

// A path on a drive. Nothing for a path on another computer or of the application folder.
std::optional<MachinePath> OnDrive(TextView path) {
  std::optional<MachinePath> read = machine::ReadMachinePath(path);
  return read && read->drive != 0 ? std::move(read) : std::nullopt;
}

}  // namespace

struct DriveWriter::Item {
  Text name;
  uint64_t size = 0;
  platform::DateTime modified = platform::kUnknownTime;
  platform::DateTime accessed = platform::kUnknownTime;
  uint32_t attributes = 0;
  bool folder = false;
  bool link = false;
  bool known = true;

  template <class Facts>
  static Item Of(const Facts& facts) {
    return {Text(facts.name), facts.size,   facts.modified, facts.accessed,
            facts.attributes, facts.folder, facts.link,     facts.known};
  }
};

DriveWriter::DriveWriter(Job job) : job_(std::move(job)), trees_(job_.record.trees) {}

bool DriveWriter::Write() {
  root_ = HostDirectory::Open(job_.folder);
  if (root_ == nullptr || !root_->MakeFolder(kDrives)) return false;
  drives_ = root_->OpenFolder(kDrives);
  attributes_.open(job_.folder / "attributes.ini", std::ios::binary);
  if (drives_ == nullptr || !attributes_) return false;
  for (const Text& path : job_.record.read) {
    if (const auto facts = job_.source.Look(path)) contents_.insert(facts->path);
  }
  // Links can add trees.
  for (size_t i = 0; i < trees_.size(); ++i) {
    if (!WriteTree(Text(trees_[i]))) return false;
  }
  const auto all = [this](const Texts& paths, bool (DriveWriter::*write)(const Text&)) {
    return std::ranges::all_of(paths, [this, write](const Text& path) { return (this->*write)(path); });
  };
  const bool written = all(job_.record.listed, &DriveWriter::WriteListed) &&
                       all(job_.record.looked, &DriveWriter::WriteLooked) &&
                       all(job_.record.read, &DriveWriter::WriteLooked) &&
                       all(job_.record.unknown, &DriveWriter::WriteUnknown) &&
                       all(job_.record.read, &DriveWriter::WriteApplicationFile);
  attributes_.close();
  return written && !attributes_.fail();
}

// A walk down a tree, with the folders on the way open on both sides: the innermost ones, and others again
// when the walk comes back to them.
class DriveWriter::Descent {
 public:
  explicit Descent(DriveWriter& writer) : writer_(writer) {}

  bool Ended() const { return levels_.empty(); }
  // Goes into a folder: of the machine at `path`, of the machine folder at `host`.
  void Enter(Text path, std::unique_ptr<platform::OpenFolder> source, std::unique_ptr<HostDirectory> target) {
    levels_.push_back({std::move(path), std::move(source), std::move(target), {}});
    if (levels_.size() <= kMaxOpen) return;
    Level& outer = levels_[levels_.size() - 1 - kMaxOpen];
    outer.source.reset();
    outer.target.reset();
  }
  void Leave() { levels_.pop_back(); }

  const Text& Path() const { return levels_.back().path; }
  std::vector<Item>& SubFolders() { return levels_.back().subFolders; }
  platform::OpenFolder* Source() {
    Level& level = levels_.back();
    if (level.source == nullptr) level.source = writer_.job_.source.Open(level.path);
    return level.source.get();
  }
  HostDirectory* Target() {
    Level& level = levels_.back();
    if (level.target == nullptr) level.target = writer_.MakeFolder(level.path);
    return level.target.get();
  }

 private:
  struct Level {
    Text path;
    std::unique_ptr<platform::OpenFolder> source;
    std::unique_ptr<HostDirectory> target;
    std::vector<Item> subFolders;  // still to be entered; the next one is the last
  };
  DriveWriter& writer_;
  std::vector<Level> levels_;
};

bool DriveWriter::WriteTree(const Text& path) {
  auto target = MakeFolder(path);
  if (target == nullptr) return true;
  Descent descent(*this);
  std::optional<Item> entered = Item{};
  descent.Enter(path, job_.source.Open(path), std::move(target));
  while (!descent.Ended()) {
    const Text folder = descent.Path();
    HostDirectory* host = descent.Target();
    if (host == nullptr) return LeaveOut(folder);
    if (entered) {
      auto items = ReadItems(descent.Source());
      if (!items) MarkUnreadable(*host, folder);
      for (const Item& item : items.value_or(std::vector<Item>())) {
        const Text place = Below(folder, item.name);
        if (item.folder && job_.own && HostName(item.name) == job_.folder.filename() &&
            job_.source.FolderIdentity(place) == job_.own) {
          continue;
        }
        if (!WriteItem(*host, place, item)) return false;
        if (item.folder && !item.link) descent.SubFolders().push_back(item);
      }
      std::ranges::reverse(descent.SubFolders());
      entered.reset();
    }
    if (descent.SubFolders().empty()) {
      descent.Leave();
      // Writing into a folder changes its time.
      if (!descent.Ended()) {
        SetTimes(*descent.Target(), folder, descent.SubFolders().back());
        descent.SubFolders().pop_back();
      }
      continue;
    }
    const Item& next = descent.SubFolders().back();
    auto inner = host->OpenFolder(HostName(next.name));
    if (inner == nullptr) {
      descent.SubFolders().pop_back();
      continue;
    }
    platform::OpenFolder* source = descent.Source();
    auto innerSource = source != nullptr ? source->Open(next.name) : nullptr;
    entered = next;
    descent.Enter(Below(folder, next.name), std::move(innerSource), std::move(inner));
  }
  return true;
}

std::optional<std::vector<DriveWriter::Item>> DriveWriter::ReadItems(platform::OpenFolder* folder) const {
  std::vector<Item> items;
  const auto note = [&items](const platform::DirectoryEntry& entry) { items.push_back(Item::Of(entry)); };
  if (folder == nullptr || !folder->List(note, {}, {})) return std::nullopt;
  return items;
}

bool DriveWriter::WriteItem(HostDirectory& folder, const Text& path, const Item& item) {
  if (job_.goesOn && !job_.goesOn(path, files_)) {
    stopped_ = true;
    return false;
  }
  if (!machine::IsFileName(item.name)) return LeaveOut(path);
  if (item.attributes != 0) {
    attributes_ << ToUtf8(Masked(path)) << '=' << item.attributes << '\n';
    if (!attributes_) return false;
  }
  if (item.link) return WriteLink(folder, path, item);
  if (!item.folder) return item.known ? WriteFile(folder, path, item) : WriteCircle(folder, path);
  return folder.MakeFolder(HostName(item.name)) || LeaveOut(path);
}

bool DriveWriter::WriteFile(HostDirectory& folder, const Text& path, const Item& item) {
  const auto name = HostName(item.name);
  std::optional<std::string> content = contents_.contains(path) ? job_.source.ReadFile(path) : std::nullopt;
  if (content && job_.maskContent) content = job_.maskContent(*content);
  if (!(content ? folder.WriteNewFile(name, *content) : folder.MakeSparseFile(name, item.size)))
    return LeaveOut(path);
  ++files_;
  SetTimes(folder, path, item);
  return true;
}

bool DriveWriter::WriteCircle(HostDirectory& folder, const Text& path) {
  const auto name = HostName(MachinePath(*OnDrive(path)).names.back());
  return folder.MakeLink(name, name, false) || LeaveOut(path);
}

void DriveWriter::MarkUnreadable(HostDirectory& folder, const Text& path) {
  if (!folder.MakeLink("unreadable", ".", true)) LeaveOut(path);
}

bool DriveWriter::WriteLink(HostDirectory& folder, const Text& path, const Item& item) {
  const auto link = OnDrive(path);
  const std::optional<Text> target = job_.source.ResolveLink(path);
  const auto place = target ? OnDrive(*target) : std::nullopt;
  const auto name = HostName(item.name);
  if (!place) {
    if (item.folder || job_.source.FileExists(path) != false) return WriteCircle(folder, path);
    return folder.MakeLink(name, HostName(item.name) += "~missing", false) || LeaveOut(path);
  }
  std::filesystem::path up;
  for (size_t level = 0; level < link->names.size(); ++level) up /= "..";
  up /= std::filesystem::path(Text(1, place->drive));
  for (const Text& next : place->names) up /= HostName(next);
  if (item.folder && std::ranges::none_of(trees_, [&](const Text& tree) { return LiesIn(*target, tree); }))
    trees_.push_back(*target);
  return folder.MakeLink(name, up, item.folder) || LeaveOut(path);
}

void DriveWriter::SetTimes(HostDirectory& folder, const Text& path, const Item& item) {
  const auto accessed = item.accessed != platform::kUnknownTime ? item.accessed : job_.now;
  if (!folder.SetTimes(HostName(item.name), item.modified, accessed)) LeaveOut(path);
}

std::unique_ptr<HostDirectory> DriveWriter::OpenFolder(const MachinePath& path) const {
  auto folder = drives_->OpenFolder(std::filesystem::path(Text(1, path.drive)));
  for (size_t i = 0; folder != nullptr && i < path.names.size(); ++i)
    folder = folder->OpenFolder(HostName(path.names[i]));
  return folder;
}

std::unique_ptr<HostDirectory> DriveWriter::MakeFolder(const Text& path) {
  std::optional<MachinePath> asked = OnDrive(path);
  for (int links = 0; asked && links < kMaxLinks; ++links) {
    const auto drive = std::filesystem::path(Text(1, asked->drive));
    if (!drives_->Exists(drive) && !drives_->MakeFolder(drive)) return nullptr;
    MachinePath at{asked->drive, {}};
    auto folder = OpenFolder(at);
    size_t next = 0;
    std::optional<Text> target;
    for (; folder != nullptr && next < asked->names.size() && !target; ++next) {
      at.names.push_back(asked->names[next]);
      const auto facts = job_.source.Look(at.ToText());
      if (!facts) return nullptr;
      at.names.back() = facts->name;
      const Item item = Item::Of(*facts);
      if (!folder->Exists(HostName(facts->name)) && !WriteItem(*folder, facts->path, item)) return nullptr;
      if (facts->link) {
        target = job_.source.ResolveLink(facts->path);
        if (!target) return nullptr;
      } else {
        folder = folder->OpenFolder(HostName(facts->name));
      }
    }
    if (!target) return folder;
    // What is behind the link is written where it is.
    std::optional<MachinePath> real = OnDrive(*target);
    if (real) real->names.insert(real->names.end(), asked->names.begin() + next, asked->names.end());
    asked = std::move(real);
  }
  return nullptr;
}

bool DriveWriter::WriteListed(const Text& path) {
  if (job_.source.FolderExists(path) != true) return true;
  const auto host = MakeFolder(path);
  if (host == nullptr) return !stopped_;
  const auto source = job_.source.Open(path);
  const auto items = ReadItems(source.get());
  if (!items) MarkUnreadable(*host, path);
  return std::ranges::all_of(items.value_or(std::vector<Item>()), [&](const Item& item) {
    return host->Exists(HostName(item.name)) || WriteItem(*host, Below(path, item.name), item);
  });
}

bool DriveWriter::WriteLooked(const Text& path) {
  const auto facts = job_.source.Look(path);
  if (!facts || !OnDrive(facts->path)) return true;
  if (facts->name.empty() || (facts->folder && !facts->link)) {
    MakeFolder(facts->path);
    return !stopped_;
  }
  const Text above = facts->path.substr(0, facts->path.size() - facts->name.size());
  const auto host = MakeFolder(above);
  if (host == nullptr) return !stopped_;
  return host->Exists(HostName(facts->name)) || WriteItem(*host, facts->path, Item::Of(*facts));
}

bool DriveWriter::WriteUnknown(const Text& path) {
  const auto asked = OnDrive(path);
  if (!asked || asked->names.empty()) return true;
  MachinePath above = *asked;
  above.names.pop_back();
  const auto host = MakeFolder(above.ToText());
  if (host == nullptr) return !stopped_;
  return host->Exists(HostName(asked->names.back())) || WriteCircle(*host, asked->ToText());
}

bool DriveWriter::WriteApplicationFile(const Text& path) {
  const TextView folder = platform::applicationFolder;
  if (folder.empty() || !LiesIn(path, folder)) return true;
  const std::optional<std::string> content = job_.source.ReadFile(path);
  if (!content) return true;
  const std::vector<TextView> names = Split(TextView(path).substr(folder.size() + 1), u"\\");
  if (!root_->Exists(kApplication) && !root_->MakeFolder(kApplication)) return false;
  auto host = root_->OpenFolder(kApplication);
  for (size_t i = 0; host != nullptr && i + 1 < names.size(); ++i) {
    const std::filesystem::path name = Text(names[i]);
    if (!host->Exists(name)) host->MakeFolder(name);
    host = host->OpenFolder(name);
  }
  const std::filesystem::path name = Text(names.back());
  return host != nullptr && (host->Exists(name) || host->WriteNewFile(name, *content));
}

bool DriveWriter::LeaveOut(const Text& path) {
  if (leftOut_++ == 0) firstLeftOut_ = path;
  // A folder that takes a small file only lacks the means for this item.
  constexpr const char* kProbe = "~writable";
  const bool writable = root_->WriteNewFile(kProbe, "probe");
  return root_->Remove(kProbe) && writable;
}

}  // namespace tavix::exporting
