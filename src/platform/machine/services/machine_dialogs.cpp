#include "platform/machine/services/machine_dialogs.h"

namespace tavix::machine {
namespace {

template <class Answer>
std::optional<Answer> TakeFirst(std::deque<Answer>& answers) {
  if (answers.empty()) return std::nullopt;
  std::optional<Answer> first = std::move(answers.front());
  answers.pop_front();
  return first;
}

}  // namespace

int MachineDialogs::MsgBox(TextView text, int style) {
  journal_.Note(u"MsgBox", {{u"text", Text(text)}, {u"style", style}});
  constexpr int kButtons = 15;
  const int buttons = style & kButtons;
  const bool asks = buttons == platform::kYesNo || buttons == platform::kYesNoCancel;
  const bool offers = buttons == platform::kOkCancel;
  return TakeFirst(answers).value_or(asks ? platform::kYes : offers ? platform::kCancel : platform::kOk);
}

std::optional<Text> MachineDialogs::InputBox(TextView prompt, TextView text) {
  journal_.Note(u"InputBox", {{u"prompt", Text(prompt)}});
  offered.emplace_back(text);
  return TakeFirst(inputs).value_or(std::nullopt);
}

std::optional<Text> MachineDialogs::BrowseForFolder(platform::WindowHandle, TextView title) {
  folderTitles.emplace_back(title);
  return TakeFirst(folders).value_or(std::nullopt);
}

}  // namespace tavix::machine
