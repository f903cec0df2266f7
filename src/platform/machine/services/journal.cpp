#include "platform/machine/services/journal.h"

#include "text/json.h"

namespace tavix::machine {

Text JournalEntry::Get(TextView name) const {
  for (const Argument& argument : arguments) {
    if (argument.first != name) continue;
    const int* number = std::get_if<int>(&argument.second);
    return number != nullptr ? ToText(*number) : std::get<Text>(argument.second);
  }
  return {};
}

std::string JournalEntry::Json() const {
  std::string out = "{\"op\":";
  AppendJson(out, op);
  for (const Argument& argument : arguments) {
    out += ',';
    AppendJson(out, argument.first);
    out += ':';
    if (const int* number = std::get_if<int>(&argument.second)) {
      out += std::to_string(*number);
    } else {
      AppendJson(out, std::get<Text>(argument.second));
    }
  }
  out += '}';
  return out;
}

void Journal::Note(TextView op, std::vector<JournalEntry::Argument> arguments) {
  entries_.push_back({Text(op), std::move(arguments)});
  if (store_ == nullptr) return;
  if (const auto root = store_->Root()) root->Append(u"journal.jsonl", entries_.back().Json() + "\n");
}

}  // namespace tavix::machine
