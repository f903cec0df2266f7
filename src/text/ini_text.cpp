#include "text/ini_text.h"

#include <algorithm>

#include "text/letter_case.h"

namespace tavix {
namespace {

constexpr TextView kBlanks = u" \t\r";

TextView TrimBlanks(TextView text) {
  const size_t first = text.find_first_not_of(kBlanks);
  if (first == TextView::npos) return text.substr(text.size());
  return text.substr(first, text.find_last_not_of(kBlanks) + 1 - first);
}

bool IsQuoted(TextView value) {
  const bool pair = value.size() >= 2 && value.front() == value.back();
  return pair && (value.front() == u'"' || value.front() == u'\'');
}

// Reads a text line by line. Names and values point into it, without the blanks around them.
class IniLines {
 public:
  explicit IniLines(TextView content) : content_(content) {}

  // False after the last line.
  bool Next() {
    if (end_ == content_.size()) return false;
    const size_t begin = end_;
    end_ = std::min(content_.find(u'\n', begin), content_.size() - 1) + 1;
    line_ = TrimBlanks(Line(begin));
    isKey_ = false;
    isHeader_ = line_.starts_with(u'[');
    if (isHeader_) {
      const size_t close = line_.find(u']');
      // A header that isn't closed names no section.
      section_ = close == TextView::npos ? TextView() : TrimBlanks(line_.substr(1, close - 1));
    } else if (!line_.empty() && line_.front() != u';') {
      const size_t equals = line_.find(u'=');
      isKey_ = equals != TextView::npos;
      if (isKey_) {
        key_ = TrimBlanks(line_.substr(0, equals));
        value_ = TrimBlanks(line_.substr(equals + 1));
      }
    }
    return true;
  }

  bool InSection(TextView name) const { return !section_.empty() && EqualIgnoringCase(section_, name); }
  bool IsKey() const { return isKey_; }
  bool IsKey(TextView name) const { return isKey_ && EqualIgnoringCase(key_, name); }
  bool IsBlank() const { return line_.empty(); }
  TextView Key() const { return key_; }
  TextView Value() const { return IsQuoted(value_) ? value_.substr(1, value_.size() - 2) : value_; }

  // The range of the value in the text, quotes included.
  size_t ValueBegin() const { return static_cast<size_t>(value_.data() - content_.data()); }
  size_t ValueEnd() const { return ValueBegin() + value_.size(); }
  // Where the next line begins.
  size_t End() const { return end_; }

 private:
  TextView Line(size_t begin) const {
    const TextView line = content_.substr(begin, end_ - begin);
    return line.ends_with(u'\n') ? line.substr(0, line.size() - 1) : line;
  }

  TextView content_;
  size_t end_ = 0;
  TextView line_, section_, key_, value_;
  bool isHeader_ = false;
  bool isKey_ = false;
};

bool CanBeName(TextView name) {
  return !name.empty() && TrimBlanks(name).size() == name.size() && name.find(u'\n') == TextView::npos;
}
bool CanBeSection(TextView name) { return CanBeName(name) && name.find(u']') == TextView::npos; }
bool CanBeKey(TextView name) {
  return CanBeName(name) && name.find(u'=') == TextView::npos && name.front() != u'[' && name.front() != u';';
}

// The form in which a value is written, so that reading returns the same value.
Text Stored(TextView value) {
  Text line;
  for (size_t i = 0; i < value.size(); ++i) {
    if (value[i] == u'\r' && i + 1 < value.size() && value[i + 1] == u'\n') ++i;
    line += value[i] == u'\r' || value[i] == u'\n' ? u' ' : value[i];
  }
  const bool quotes = TrimBlanks(line).size() != line.size() || IsQuoted(line);
  return quotes ? Concat(u"\"", line, u"\"") : line;
}

TextView LineEnd(TextView content) {
  const size_t end = content.find(u'\n');
  return end == TextView::npos || (end > 0 && content[end - 1] == u'\r') ? u"\r\n" : u"\n";
}

// Inserts lines at the start of a line or at the end of the text. `lines` has no line end at its start or
// end.
Text InsertLines(TextView content, size_t at, TextView lines) {
  const TextView lineEnd = LineEnd(content);
  const TextView before = content.substr(0, at);
  const bool open = !before.empty() && before.back() != u'\n';
  return Concat(before, open ? lineEnd : TextView(), lines, lineEnd, content.substr(at));
}

}  // namespace

std::optional<Text> ReadIniValue(TextView content, TextView section, TextView key) {
  for (IniLines lines(content); lines.Next();) {
    if (lines.IsKey(key) && lines.InSection(section)) return Text(lines.Value());
  }
  return std::nullopt;
}

void VisitIniSection(TextView content, TextView section,
                     const std::function<void(TextView key, TextView value)>& visit) {
  for (IniLines lines(content); lines.Next();) {
    if (lines.IsKey() && lines.InSection(section)) visit(lines.Key(), lines.Value());
  }
}

Text WriteIniValue(TextView content, TextView section, TextView key, TextView value) {
  if (!CanBeSection(section) || !CanBeKey(key)) return Text(content);
  const Text stored = Stored(value);
  // After the last line of the section. If the section appears several times, its first part counts.
  std::optional<size_t> sectionEnd;
  bool leftFirstPart = false;
  for (IniLines lines(content); lines.Next();) {
    if (!lines.InSection(section)) {
      leftFirstPart = sectionEnd.has_value();
    } else if (lines.IsKey(key)) {
      return Concat(content.substr(0, lines.ValueBegin()), stored, content.substr(lines.ValueEnd()));
    } else if (!lines.IsBlank() && !leftFirstPart) {
      sectionEnd = lines.End();
    }
  }
  const Text entry = Concat(key, u"=", stored);
  if (sectionEnd) return InsertLines(content, *sectionEnd, entry);
  return InsertLines(content, content.size(), Concat(u"[", section, u"]", LineEnd(content), entry));
}

}  // namespace tavix
