#include "clean/item_operations.h"

#include "clean/row_description.h"
#include "forms/main_form.h"
#include "forms/type_form.h"
#include "frame/support/pub_common.h"
#include "frame/support/pub_registry.h"
#include "frame/support/pub_system.h"
#include "scan/action_string.h"
#include "scan/result_items.h"
#include "text/plain_name.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr int kExecute = 0;
constexpr int kOpen = 1;
constexpr int kProperties = 2;
constexpr int kInvertCheck = 3;

constexpr int kMostOpened = 10;

// A row's fields, read before anything is started: starting may run the user interface and change the list.
struct SelectedRow {
  Text tag;
  Text location;
  Text path;  // location and name
};

SelectedRow ReadRow(const ListView::Item& item) {
  const TextView location = item.SubItems(kLocationColumn);
  return {Text(item.Tag()), Text(location), Concat(location, u"\\", item.SubItems(kNameColumn))};
}

bool IsKind(TextView tag, std::initializer_list<Variant> kinds) {
  bool found = false;
  pubCommon.InArray(ReadAction(tag).kind, kinds, found);
  return found;
}

bool IsFileOrFolder(TextView tag) {
  return IsKind(tag, {action::kFile, action::kFileAtRestart, action::kFolder});
}
bool IsInRegistry(TextView tag) {
  return IsKind(tag, {action::kRegistryKey, action::kRegistryValue, action::kRegistryValues});
}

// Hive and key of a value's payload, joined by a backslash.
Text KeyOfValue(TextView payload) {
  const auto fields = Split(Trim(payload), u", ");
  return fields.size() < 2 ? Text() : Concat(fields[0], u"\\", fields[1]);
}

Text JoinFields(TextView payload) {
  Text path;
  for (const TextView field : Split(payload, u", ")) path.append(field).append(u"\\");
  if (!path.empty()) path.pop_back();
  return path;
}

// The path of a row's key as the registry editor writes it, hive first. The payload of a key keeps its
// blanks.
Text KeyPath(TextView tag) {
  const auto parts = Split(tag, u": ");
  if (parts.size() < 2) return {};
  if (parts[0] == action::kRegistryKey) return JoinFields(parts[1]);
  if (parts[0] == action::kRegistryValue) return KeyOfValue(parts[1]);
  const auto values = SplitRegistryTargets(Trim(parts[1]));
  return values.empty() ? Text() : KeyOfValue(values[0]);
}

// The registry editor opens at the key in LastKey. End a running one first: it writes its own key there when
// it closes.
void OpenRegistryEditor(TextView keyPath) {
  platform::shell->RunHidden(u"ntsd -c q -pn regedit.exe cmd.exe");
  int status = 0;
  pubRegistry.WriteValue(1, platform::Hive::CurrentUser,
                         u"Software\\Microsoft\\Windows\\CurrentVersion\\Applets\\Regedit", u"LastKey",
                         keyPath, status);
  pubSystem.RunTarget(u"regedit.exe", platform::kMaximized);
}

void InvertChecks() {
  for (int row = 1; row <= ResultCount(); ++row) {
    ListView::Item item = frmPubMain.lsvResult.Row(row);
    item.SetChecked(!item.Checked());
  }
}

// False if the row's name keeps the command from working: the system would read it as another one.
bool Serve(int index, const SelectedRow& row) {
  if (!HasPlainNames(row.path)) return false;
  if (index == kExecute) {
    pubSystem.OpenPath(row.path, platform::kMaximized);
  } else if (index == kOpen) {
    pubSystem.OpenPath(row.location, platform::kMaximized);
  } else if (index == kProperties) {
    pubSystem.ShowFileProperties(frmPubMain.hWnd, row.path);
  }
  return true;
}

// What a command has met among the highlighted rows.
struct Met {
  int highlighted = 0;
  int opened = 0;  // rows of a kind that the command works on; each counts towards the most
  int otherKinds = 0;
  Text oddName;  // what is said of a row whose name kept the command from working
};

Text WhatDidNotWork(int index, const Met& met) {
  const ToolbarSentences& say = frmPubMain.sayToolbar;
  if (met.highlighted == 0) return say.NoneHighlighted;
  if (met.opened == 0) return say.NoneFit[static_cast<size_t>(index)];
  if (!met.oddName.empty()) return met.oddName;
  return met.otherKinds > 0 ? say.SomeLeftOut : Text();
}

// A running job keeps the status line.
void Say(const Text& words) {
  if (!words.empty() && !frmPubMain.IsJobRunning()) frmPubMain.lblProgS.Caption = words;
}

}  // namespace

void sbtToolbar_Click(int index) {
  if (index == kInvertCheck) return InvertChecks();
  Met met;
  for (int position = 1; position <= ResultCount(); ++position) {
    const ListView::Item item = frmPubMain.lsvResult.Row(position);
    if (!item.Selected()) continue;
    ++met.highlighted;
    const SelectedRow row = ReadRow(item);
    if (index == kOpen && IsInRegistry(row.tag)) return OpenRegistryEditor(KeyPath(row.tag));
    if (!IsFileOrFolder(row.tag)) {
      ++met.otherKinds;
      continue;
    }
    if (met.opened >= kMostOpened) break;
    ++met.opened;
    if (!Serve(index, row)) met.oddName = DescribeRow(item);
  }
  Say(WhatDidNotWork(index, met));
}

void lsvResult_MouseUp(int button) {
  if (button != kRightButton) return;
  frmPubType.LoadOnce();
  frmPubType.menr.Popup();
}

}  // namespace tavix::mdlPubSelf
