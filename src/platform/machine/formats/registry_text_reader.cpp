#include <algorithm>
#include <array>
#include <vector>

#include "platform/hive_name.h"
#include "platform/machine/formats/registry_text.h"
#include "platform/registry_data.h"
#include "text/letter_case.h"

namespace tavix::machine {
namespace {

using platform::DataType;
using platform::Hive;

constexpr TextView kHeader = u"Windows Registry Editor Version 5.00";
constexpr TextView kClasses = u"Software\\Classes";
constexpr unsigned char kNoDigit = 255;

constexpr std::array<unsigned char, 128> MakeDigits() {
  std::array<unsigned char, 128> digits{};
  for (unsigned c = 0; c < digits.size(); ++c) {
    digits[c] = static_cast<unsigned char>(c >= '0' && c <= '9'   ? c - '0'
                                           : c >= 'a' && c <= 'f' ? c - 'a' + 10
                                           : c >= 'A' && c <= 'F' ? c - 'A' + 10
                                                                  : kNoDigit);
  }
  return digits;
}

constexpr std::array<unsigned char, 128> kDigits = MakeDigits();

unsigned char HexDigit(char16_t c) { return c < kDigits.size() ? kDigits[c] : kNoDigit; }

class Reader {
 public:
  Reader(TextView text, RegistryStore& store) : text_(text), store_(store) {}

  // False on the first thing that can't be read.
  bool Run();
  TextError Error() const { return {LineAt(text_, errorAt_), error_}; }

 private:
  // A key on the path of the last key line. `end` is where its name ends in that path.
  struct Level {
    size_t end;
    size_t depth;
    RegistryKey* key;
  };

  bool Fail(size_t at, std::string reason);
  char16_t Peek() const { return at_ < text_.size() ? text_[at_] : u'\n'; }
  void SkipBlanks();
  void SkipLine();
  bool AtLineEnd() const;
  bool EndLine(const char* what);

  bool ReadHeader();
  bool ReadLine();
  bool ReadKeyLine();
  bool OpenKey(TextView path, size_t pathAt);
  bool DeleteKey(TextView path, size_t pathAt);
  bool ReadRoot(TextView path, size_t pathAt, Hive& hive);
  bool ReadValueLine();
  bool ReadQuoted(Text& text);
  bool ReadData();
  bool ReadHexNumber(size_t maxDigits, uint32_t& number);
  bool ReadBytes();
  bool SkipContinuation();

  TextView text_;
  RegistryStore& store_;
  size_t at_ = 0;
  size_t errorAt_ = 0;
  std::string error_;

  RegistryKey* key_ = nullptr;
  TextView path_;  // of the last key line, root included
  std::vector<Level> levels_;

  Text name_;
  Text string_;
  uint32_t type_ = 0;
  std::string data_;
};

bool Reader::Fail(size_t at, std::string reason) {
  errorAt_ = at;
  error_ = std::move(reason);
  return false;
}

void Reader::SkipBlanks() {
  while (at_ < text_.size() && (text_[at_] == u' ' || text_[at_] == u'\t')) ++at_;
}

void Reader::SkipLine() {
  const size_t end = text_.find(u'\n', at_);
  at_ = end == TextView::npos ? text_.size() : end + 1;
}

bool Reader::AtLineEnd() const {
  if (Peek() == u'\n') return true;
  return text_[at_] == u'\r' && (at_ + 1 == text_.size() || text_[at_ + 1] == u'\n');
}

// Skips the rest of a line, which may hold only blanks and a comment.
bool Reader::EndLine(const char* what) {
  SkipBlanks();
  if (!AtLineEnd() && Peek() != u';') return Fail(at_, std::string("text behind the ") + what);
  SkipLine();
  return true;
}

bool Reader::Run() {
  if (!ReadHeader()) return false;
  while (at_ < text_.size()) {
    if (!ReadLine()) return false;
  }
  return true;
}

bool Reader::ReadHeader() {
  for (SkipBlanks(); at_ < text_.size() && (AtLineEnd() || Peek() == u';'); SkipBlanks()) SkipLine();
  if (!text_.substr(at_).starts_with(kHeader)) {
    return Fail(at_, "the header is not 'Windows Registry Editor Version 5.00'");
  }
  at_ += kHeader.size();
  return EndLine("header");
}

bool Reader::ReadLine() {
  SkipBlanks();
  if (Peek() == u'[') return ReadKeyLine();
  if (Peek() == u'"' || Peek() == u'@') return ReadValueLine();
  if (!AtLineEnd() && Peek() != u';') return Fail(at_, "neither a key nor a value");
  SkipLine();
  return true;
}

bool Reader::ReadKeyLine() {
  const size_t start = at_ + 1;
  const TextView line = text_.substr(start, std::min(text_.find(u'\n', start), text_.size()) - start);
  const size_t close = line.rfind(u']');
  if (close == TextView::npos) return Fail(at_, "a key without its closing bracket");
  at_ = start + close + 1;
  const TextView path = line.substr(0, close);
  const size_t keyAt = start;
  if (!EndLine("key")) return false;
  return path.starts_with(u'-') ? DeleteKey(path.substr(1), keyAt) : OpenKey(path, keyAt);
}

bool Reader::ReadRoot(TextView path, size_t pathAt, Hive& hive) {
  const TextView root = path.substr(0, path.find(u'\\'));
  for (const auto& [known, name] : platform::kHiveNames) {
    if (!EqualIgnoringCase(root, name)) continue;
    hive = known;
    return true;
  }
  return Fail(pathAt, "unknown root " + Quoted(root));
}

bool Reader::OpenKey(TextView path, size_t pathAt) {
  // The keys that this path shares with the last one are open already.
  const auto differ = std::mismatch(path.begin(), path.end(), path_.begin(), path_.end()).first;
  const auto common = static_cast<size_t>(differ - path.begin());
  const auto stays = [&](const Level& level) {
    return level.end <= common && (level.end == path.size() || path[level.end] == u'\\');
  };
  while (!levels_.empty() && !stays(levels_.back())) levels_.pop_back();
  path_ = path;
  bool made = false;
  if (levels_.empty()) {
    Hive hive{};
    if (!ReadRoot(path, pathAt, hive)) return false;
    const bool classes = hive == Hive::ClassesRoot;
    RegistryKey* root = classes ? store_.Make(Hive::LocalMachine, kClasses, made) : store_.Root(hive);
    levels_.push_back({platform::HiveName(hive).size(), classes ? size_t{2} : size_t{0}, root});
  }
  while (levels_.back().end < path.size()) {
    const Level above = levels_.back();
    const size_t start = above.end + 1;
    const size_t end = std::min(path.find(u'\\', start), path.size());
    const TextView name = path.substr(start, end - start);
    const std::string_view reason = RegistryStore::WhyNoKey(name, above.depth + 1);
    if (!reason.empty()) return Fail(pathAt, std::string(reason));
    levels_.push_back({end, above.depth + 1, &above.key->MakeKey(name, made)});
  }
  key_ = levels_.back().key;
  return true;
}

bool Reader::DeleteKey(TextView path, size_t pathAt) {
  Hive hive{};
  if (!ReadRoot(path, pathAt, hive)) return false;
  const size_t rootSize = platform::HiveName(hive).size();
  if (path.size() == rootSize) return Fail(pathAt, "a root can't be deleted");
  Text below(path.substr(rootSize + 1));
  const std::string_view reason = RegistryStore::WhyNoPath(below);
  if (below.empty() || !reason.empty()) {
    return Fail(pathAt, std::string(below.empty() ? RegistryStore::WhyNoKey({}, 1) : reason));
  }
  if (hive == Hive::ClassesRoot) {
    hive = Hive::LocalMachine;
    below = Concat(kClasses, u"\\", below);
  }
  const size_t cut = below.rfind(u'\\');
  const bool top = cut == Text::npos;
  RegistryKey* parent = store_.Find(hive, top ? TextView() : TextView(below).substr(0, cut));
  if (parent != nullptr) parent->DeleteKey(TextView(below).substr(top ? 0 : cut + 1));
  key_ = nullptr;
  path_ = {};
  levels_.clear();
  return true;
}

bool Reader::ReadValueLine() {
  const size_t start = at_;
  if (key_ == nullptr) return Fail(start, "a value outside a key");
  name_.clear();
  if (Peek() == u'@') {
    ++at_;
  } else if (!ReadQuoted(name_)) {
    return false;
  }
  if (name_.size() > RegistryStore::kMaxValueName) {
    return Fail(start, "the name of a value is longer than 16383 characters");
  }
  SkipBlanks();
  if (Peek() != u'=') return Fail(at_, "no '=' behind the name of a value");
  ++at_;
  SkipBlanks();
  if (Peek() == u'-') {
    ++at_;
    if (!EndLine("value")) return false;
    key_->DeleteValue(name_);
    return true;
  }
  if (!ReadData() || !EndLine("value")) return false;
  key_->SetValue(name_, type_, data_);
  return true;
}

// Text in quotes may contain line ends.
bool Reader::ReadQuoted(Text& text) {
  const size_t open = at_++;
  text.clear();
  for (;;) {
    const size_t start = at_;
    while (at_ < text_.size() && text_[at_] != u'"' && text_[at_] != u'\\') ++at_;
    text.append(text_.substr(start, at_ - start));
    if (at_ == text_.size()) return Fail(open, "a quote that isn't closed");
    if (text_[at_++] == u'"') return true;
    const char16_t c = at_ < text_.size() ? text_[at_++] : u'\0';
    if (c == u'\\' || c == u'"') {
      text.push_back(c);
    } else if (c == u'n' || c == u'r') {
      text.push_back(c == u'n' ? u'\n' : u'\r');
    } else {
      return Fail(at_ - 1, "a backslash in quotes that is not doubled");
    }
  }
}

bool Reader::ReadData() {
  data_.clear();
  if (Peek() == u'"') {
    if (!ReadQuoted(string_)) return false;
    type_ = static_cast<uint32_t>(DataType::String);
    data_ = platform::StringData(string_);
    return true;
  }
  const auto take = [this](TextView word) {
    if (!EqualIgnoringCase(text_.substr(at_, word.size()), word)) return false;
    at_ += word.size();
    return true;
  };
  if (take(u"dword:")) {
    SkipBlanks();
    uint32_t number = 0;
    if (!ReadHexNumber(8, number)) return false;
    type_ = static_cast<uint32_t>(DataType::Number32);
    for (unsigned shift = 0; shift < 32; shift += 8) data_.push_back(static_cast<char>(number >> shift));
    return true;
  }
  if (take(u"hex:")) {
    type_ = static_cast<uint32_t>(DataType::Binary);
    return ReadBytes();
  }
  if (take(u"hex(")) {
    if (!ReadHexNumber(8, type_)) return false;
    if (!take(u"):")) return Fail(at_, "no '):' behind the type of a value");
    return ReadBytes();
  }
  return Fail(at_, "unknown kind of data");
}

bool Reader::ReadHexNumber(size_t maxDigits, uint32_t& number) {
  const size_t start = at_;
  number = 0;
  for (; HexDigit(Peek()) != kNoDigit; ++at_) {
    if (at_ - start == maxDigits) return Fail(start, "a number of more than 8 digits");
    number = number << 4U | HexDigit(Peek());
  }
  if (at_ > start) return true;
  if (AtLineEnd()) return Fail(at_, "a number is missing");
  return Fail(at_, Quoted(text_.substr(at_, 1)) + " is no hex digit");
}

// Skips blanks. Where a backslash ends the line, with or without a comment after it, also skips the line end,
// the comment lines that follow and the blanks of the next line.
bool Reader::SkipContinuation() {
  SkipBlanks();
  while (Peek() == u'\\') {
    ++at_;
    if (!EndLine("backslash")) return false;
    SkipBlanks();
    while (Peek() == u';') {
      SkipLine();
      SkipBlanks();
    }
  }
  return true;
}

bool Reader::ReadBytes() {
  bool more = false;  // a comma came before
  for (;;) {
    for (; at_ + 2 < text_.size() && text_[at_ + 2] == u','; at_ += 3) {
      const unsigned high = HexDigit(text_[at_]);
      const unsigned low = HexDigit(text_[at_ + 1]);
      if (high == kNoDigit || low == kNoDigit) break;
      data_.push_back(static_cast<char>(high << 4U | low));
      more = true;
    }
    if (!SkipContinuation()) return false;
    if (AtLineEnd() || Peek() == u';') {
      return !more || Fail(at_, "a byte is missing behind the comma");
    }
    unsigned byte = HexDigit(Peek());
    if (byte == kNoDigit) return Fail(at_, Quoted(text_.substr(at_, 1)) + " is no hex digit");
    ++at_;
    if (HexDigit(Peek()) != kNoDigit) byte = byte << 4U | HexDigit(text_[at_++]);
    if (HexDigit(Peek()) != kNoDigit) return Fail(at_, "a byte of more than two digits");
    data_.push_back(static_cast<char>(byte));
    if (!SkipContinuation()) return false;
    if (Peek() != u',') {
      if (AtLineEnd() || Peek() == u';') return true;
      if (HexDigit(Peek()) != kNoDigit) return Fail(at_, "a comma is missing between two bytes");
      return Fail(at_, Quoted(text_.substr(at_, 1)) + " is no hex digit");
    }
    ++at_;
    more = true;
  }
}

}  // namespace

std::optional<TextError> ReadRegistryText(std::string_view bytes, RegistryStore& store) {
  TextError error;
  const std::optional<Text> text = DecodeText(bytes, error);
  if (!text) return error;
  Reader reader(*text, store);
  if (reader.Run()) return std::nullopt;
  return reader.Error();
}

}  // namespace tavix::machine
