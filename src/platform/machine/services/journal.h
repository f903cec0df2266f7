#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

// A call on the shell: its name and its arguments by name, in order.
struct JournalEntry {
  using Argument = std::pair<Text, std::variant<Text, int>>;

  Text op;
  std::vector<Argument> arguments;

  // The text of an argument, a number in decimal digits; empty when there is none of the name.
  Text Get(TextView name) const;
  // {"op":"RunTarget","target":"regedit.exe","style":3}
  std::string Json() const;

  bool operator==(const JournalEntry&) const = default;
};

// The calls on the shell in their order. Over a store each is written as a line of journal.jsonl at once.
class Journal {
 public:
  explicit Journal(FileStore* store = nullptr) : store_(store) {}

  void Note(TextView op, std::vector<JournalEntry::Argument> arguments = {});
  const std::vector<JournalEntry>& Entries() const { return entries_; }
  void Clear() { entries_.clear(); }

 private:
  FileStore* store_;
  std::vector<JournalEntry> entries_;
};

}  // namespace tavix::machine
