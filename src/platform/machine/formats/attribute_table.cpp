#include "platform/machine/formats/attribute_table.h"

#include <charconv>
#include <vector>

#include "platform/machine/formats/machine_path.h"
#include "platform/machine/formats/text_decoding.h"
#include "text/utf8.h"

namespace tavix::machine {
namespace {

constexpr TextView kFile = u"attributes.ini";

// Reads a line `path=number`. A path may contain `=`, so the last one separates.
std::optional<std::pair<Text, uint32_t>> ReadLine(TextView line) {
  const size_t equals = line.rfind(u'=');
  if (equals == TextView::npos) return std::nullopt;
  const std::optional<MachinePath> path = ReadMachinePath(Trim(line.substr(0, equals)));
  TextView number = line.substr(equals + 1);
  if (number.ends_with(u'\r')) number.remove_suffix(1);
  const std::string digits = ToUtf8(Trim(number));
  uint32_t attributes = 0;
  const auto [end, failure] = std::from_chars(digits.data(), digits.data() + digits.size(), attributes);
  if (!path || failure != std::errc() || end != digits.data() + digits.size()) return std::nullopt;
  return std::pair(path->ToText(), attributes);
}

}  // namespace

// Ignores section headers, comments and lines of any other form.
AttributeTable::AttributeTable(FileStore* store) : store_(store) {
  const auto root = store != nullptr ? store->Root() : nullptr;
  const std::optional<std::string> bytes = root != nullptr ? root->ReadFile(kFile) : std::nullopt;
  TextError error;
  const std::optional<Text> text = bytes ? DecodeText(*bytes, error) : std::nullopt;
  readable_ = text || root == nullptr || !root->Find(kFile);
  if (!text) return;
  for (const TextView line : Split(*text, u"\n")) {
    const auto read = ReadLine(line);
    if (read && read->second != 0) attributes_.insert(*read);
  }
}

uint32_t AttributeTable::Get(TextView path) const {
  if (attributes_.empty()) return 0;
  const auto found = attributes_.find(path);
  return found == attributes_.end() ? 0 : found->second;
}

AttributeTable::InFolder::InFolder(const AttributeTable& table, TextView folder)
    : table_(table), path_(folder) {
  if (!path_.ends_with(u'\\')) path_ += u'\\';
  length_ = path_.size();
  GoTo({});
}

uint32_t AttributeTable::InFolder::Get(TextView name) {
  if (!next_) return 0;
  int order = CompareIgnoringCase(next_->first, name);
  if (order < 0) {
    GoTo(name);
    order = next_ ? CompareIgnoringCase(next_->first, name) : 1;
  }
  return order == 0 ? next_->second : 0;
}

void AttributeTable::InFolder::GoTo(TextView name) {
  path_.resize(length_);
  path_ += name;
  const auto at = table_.attributes_.lower_bound(path_);
  const bool inside =
      at != table_.attributes_.end() && StartsAt(at->first, TextView(path_).substr(0, length_));
  if (!inside) return next_.reset();
  next_.emplace(at->first.substr(length_), at->second);
}

void AttributeTable::Set(TextView path, uint32_t attributes) {
  if (Get(path) == attributes) return;
  changed_ = true;
  if (attributes == 0) {
    attributes_.erase(attributes_.find(path));
  } else {
    attributes_[Text(path)] = attributes;
  }
}

void AttributeTable::Erase(TextView path) {
  auto at = attributes_.lower_bound(path);
  while (at != attributes_.end() && StartsAt(at->first, path)) {
    if (IsBelow(at->first, path)) {
      at = attributes_.erase(at);
      changed_ = true;
    } else {
      ++at;
    }
  }
}

void AttributeTable::Move(TextView from, TextView to) {
  if (attributes_.empty()) return;
  std::vector<std::pair<Text, uint32_t>> moved;
  VisitTree(from, [&](const Text& path, uint32_t attributes) {
    moved.emplace_back(Concat(to, TextView(path).substr(from.size())), attributes);
    return true;
  });
  Erase(from);
  Erase(to);
  for (const auto& [path, attributes] : moved) Set(path, attributes);
}

bool AttributeTable::Save() {
  if (!changed_) return true;
  if (store_ == nullptr || !readable_) return false;
  std::string content = "[Attributes]\n";
  for (const auto& [path, attributes] : attributes_) {
    content += ToUtf8(path) + "=" + std::to_string(attributes) + "\n";
  }
  const auto root = store_->Root();
  if (root == nullptr || !root->WriteFile(kFile, content)) return false;
  changed_ = false;
  return true;
}

bool AttributeTable::StartsAt(TextView path, TextView start) {
  return EqualIgnoringCase(path.substr(0, start.size()), start);
}

bool AttributeTable::IsBelow(TextView path, TextView folder) {
  return StartsAt(path, folder) &&
         (path.size() == folder.size() || folder.ends_with(u'\\') || path[folder.size()] == u'\\');
}

}  // namespace tavix::machine
