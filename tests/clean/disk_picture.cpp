#include "clean/disk_picture.h"

#include "text/utf8.h"

namespace tavix::lost {
namespace {

constexpr int kMostLinks = 40;

Text Join(const std::vector<Text>& names) {
  Text key;
  for (const Text& name : names) key.append(key.empty() ? u"" : u"\\").append(name);
  return key;
}

std::string Told(const DiskItem& item) {
  switch (item.kind) {
    case EntryKind::Folder:
      return "folder";
    case EntryKind::Link:
      return "link to " + ToUtf8(item.link);
    case EntryKind::File:
      break;
  }
  return item.content.empty() ? "empty file" : "'" + item.content.substr(0, 24) + "'";
}

}  // namespace

std::optional<std::vector<Text>> NamesOfPath(TextView path) {
  if (path.size() < 2 || path[1] != u':') return std::nullopt;
  std::vector<Text> names{u"drives", Text(1, ToUpper(path[0]))};
  for (size_t start = 2; start < path.size();) {
    const size_t end = std::min(path.find_first_of(u"\\/", start), path.size());
    const TextView name = path.substr(start, end - start);
    if (name == u"..") {
      if (names.size() > 2) names.pop_back();
    } else if (!name.empty() && name != u".") {
      names.emplace_back(name);
    }
    start = end + 1;
  }
  return names;
}

Text PathOfKey(TextView key) {
  const TextView below = key.substr(8);  // "drives\C"
  return Concat(key.substr(7, 1), u":", below.empty() ? u"\\" : below);
}

Text ParentOf(TextView key) { return Text(key.substr(0, key.find_last_of(u'\\'))); }
TextView NameOf(TextView key) { return key.substr(key.find_last_of(u'\\') + 1); }
bool IsRoot(TextView key) { return key.size() == 8; }

std::vector<Text> WithParents(TextView key) {
  std::vector<Text> keys;
  for (Text at(key); at.size() >= 8; at = ParentOf(at)) keys.push_back(at);
  return keys;
}

std::optional<Text> DiskPicture::Resolve(TextView path, bool followLast) const {
  const auto asked = NamesOfPath(path);
  if (!asked || notReady.contains((*asked)[1][0])) return std::nullopt;
  struct Step {
    Text name;
    bool asked;
  };
  std::vector<Step> pending;
  for (auto name = asked->rbegin(); name != asked->rend(); ++name) pending.push_back({*name, true});
  std::vector<Text> real;
  int links = 0;
  while (!pending.empty()) {
    const Step step = pending.back();
    pending.pop_back();
    if (step.name == u"..") {
      if (real.empty()) return std::nullopt;
      real.pop_back();
      continue;
    }
    real.push_back(step.name);
    const auto found = items.find(Join(real));
    if (found == items.end()) return std::nullopt;
    if (found->second.kind == EntryKind::File && !pending.empty()) return std::nullopt;
    if (found->second.kind == EntryKind::Link && (!pending.empty() || !step.asked || followLast)) {
      const Text& link = found->second.link;
      if (++links > kMostLinks || link == u"?") return std::nullopt;
      real.pop_back();
      if (link.starts_with(u'\\')) real.clear();
      const auto names = Split(link, u"\\");
      for (auto name = names.rbegin(); name != names.rend(); ++name) {
        if (!name->empty() && *name != u".") pending.push_back({Text(*name), false});
      }
    }
  }
  if (real.size() < 2 || !EqualIgnoringCase(real[0], u"drives") || real[1].size() != 1 ||
      notReady.contains(ToUpper(real[1][0]))) {
    return std::nullopt;
  }
  return items.find(Join(real))->first;
}

const DiskItem* DiskPicture::Find(TextView key) const& {
  const auto found = items.find(Text(key));
  return found != items.end() ? &found->second : nullptr;
}

bool DiskPicture::IsFolder(TextView path) const {
  const auto key = Resolve(path, true);
  return key && Find(*key)->kind == EntryKind::Folder;
}

bool DiskPicture::IsFile(TextView path) const {
  const auto key = Resolve(path, true);
  return key && Find(*key)->kind == EntryKind::File;
}

std::vector<Text> DiskPicture::Children(TextView key) const {
  const Text prefix = Concat(key, u"\\");
  std::vector<Text> children;
  for (auto at = items.lower_bound(prefix); at != items.end(); ++at) {
    if (!EqualIgnoringCase(TextView(at->first).substr(0, prefix.size()), prefix)) break;
    if (at->first.find(u'\\', prefix.size()) == Text::npos) children.push_back(at->first);
  }
  return children;
}

void DiskPicture::Remove(const Text& key) {
  const Text own = key;
  for (const Text& child : Children(own)) Remove(child);
  items.erase(own);
}

void DiskPicture::AddTree(Keys& keys, const Text& key) const {
  keys.insert(key);
  for (const Text& child : Children(key)) AddTree(keys, child);
}

void DiskPicture::Move(const Text& key, const Text& newKey) {
  for (const Text& child : Children(key)) Move(child, Concat(newKey, child.substr(key.size())));
  auto node = items.extract(key);
  node.key() = newKey;
  items.insert(std::move(node));
}

std::string Difference(const DiskPicture& expected, const DiskPicture& found) {
  std::string lines;
  for (const auto& [key, item] : expected.items) {
    const DiskItem* other = found.Find(key);
    if (other == nullptr) {
      lines += "  gone: " + ToUtf8(key) + " (" + Told(item) + ")\n";
    } else if (*other != item) {
      lines += "  changed: " + ToUtf8(key) + " from " + Told(item) + " to " + Told(*other) + "\n";
    }
  }
  for (const auto& [key, item] : found.items) {
    if (expected.Find(key) == nullptr) lines += "  new: " + ToUtf8(key) + " (" + Told(item) + ")\n";
  }
  return lines;
}

}  // namespace tavix::lost
