#pragma once

#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "platform/machine/formats/file_store.h"

namespace tavix::machine {

// A recorded call: its name and its named arguments, in order.
struct JournalEntry {
  using Argument = std::pair<Text, std::variant<Text, int>>;

  Text op;
  std::vector<Argument> arguments;

  // The value of an argument as text; a number in decimal digits. Empty when there is none of the name.
  Text Get(TextView name) const;
  // The entry as one JSON object: {"op":"RunTarget","target":"regedit.exe","style":3}
  std::string Json() const;

  bool operator==(const JournalEntry&) const = default;
};

// Records calls on the shell, in order. With a store, each is also appended to journal.jsonl at once.
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
