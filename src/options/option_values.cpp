#include "options/option_values.h"

#include <algorithm>
#include <array>
#include <optional>
#include <vector>

#include "forms/options_form.h"
#include "frame/settings.h"
#include "options/one_click_tree.h"
#include "options/options_page_tree.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

constexpr TextView kDuplicateFiles = u"Duplicate Files";
constexpr TextView kOneClick = u"One-click Clean/Repair";
constexpr TextView kCleaningMethod = u"Cleaning Method";
constexpr TextView kOtherOptions = u"Other Options";

using Binding = OptionBinding;

Binding Ticks(TreeView& tree) { return {&tree, TickOneClickFunctions, TickedOneClickFunctions}; }

Binding Flag(CheckBox& box) {
  return {&box, [&box](TextView value) { box.Value = value == u"Y" ? 1 : 0; },
          [&box] { return Text(box.Value != 0 ? u"Y" : u"N"); }};
}

// Values of a group of buttons in their order. Any other value selects the button `otherShown`, or none;
// while none is selected the value of `otherSaved` is saved, or none.
struct Choice {
  std::vector<TextView> values;
  std::optional<size_t> otherShown;
  std::optional<size_t> otherSaved;
};

template <size_t count>
Binding Buttons(std::array<OptionButton, count>& buttons, const Choice& choice) {
  const auto show = [&buttons, choice](TextView value) {
    const auto found = std::ranges::find(choice.values, value);
    std::optional<size_t> button = choice.otherShown;
    if (found != choice.values.end()) button = static_cast<size_t>(found - choice.values.begin());
    if (button) buttons[*button].Value = true;
  };
  const auto saved = [&buttons, choice]() -> std::optional<Text> {
    std::optional<size_t> button = choice.otherSaved;
    for (size_t i = 0; i < count; ++i) {
      if (buttons[i].Value) button = i;
    }
    return button.transform([&choice](size_t i) { return Text(choice.values[i]); });
  };
  return {&buttons[0], show, saved};
}

// What is no whole number of 16 bits isn't saved.
std::optional<Text> WholeNumber(const TextBox& box) {
  return ToInteger16(box.Text.Get()).transform([](int16_t number) { return ToText(number); });
}

Binding Days(TextBox& box) {
  return {&box, [&box](TextView value) { box.Text = Text(value); }, [&box] { return WholeNumber(box); }};
}

Binding Size(TextBox& box) {
  const auto show = [&box](TextView value) {
    const TextView trimmed = Trim(value);
    box.Text = Text(trimmed.empty() ? u"0" : trimmed);
  };
  return {&box, show, [&box] { return WholeNumber(box); }};
}

// Saved while its button is selected.
Binding FolderOf(OptionButton& button, TextBox& box) {
  const auto saved = [&button, &box]() -> std::optional<Text> {
    if (!button.Value) return std::nullopt;
    return Text(Trim(box.Text.Get()));
  };
  return {&box, [&box](TextView value) { box.Text = Text(value); }, saved};
}

Binding Lines(ListBox& list) {
  const auto show = [&list](TextView value) {
    list.Clear();
    for (const TextView line : Split(value, u";")) list.AddItem(line);
    list.SetSelected(0, true);
  };
  const auto saved = [&list] {
    Text joined;
    for (int row = 0; row < list.ListCount(); ++row) {
      if (row > 0) joined += u';';
      joined += list.List(row);
    }
    return joined;
  };
  return {&list, show, saved};
}

void ShowFolders(ListView& list, TextView value) {
  list.Clear();
  for (const TextView entry : Split(value, u"|")) {
    const std::vector<TextView> fields = Split(entry, u"/");
    if (fields.empty()) continue;  // nothing between two bars
    ListView::Item row = list.Add(fields[0]);
    if (fields.size() > 1) row.SetSubItems(1, fields[1]);
  }
}

Text JoinedFolders(ListView& list) {
  Text joined;
  for (int i = 1; i <= list.Count(); ++i) {
    const ListView::Item row = list.Row(i);
    joined += Concat(row.Text(), u"/", row.SubItems(1), u"|");
  }
  if (!joined.empty()) joined.pop_back();
  return joined;
}

Binding Folders(ListView& list) {
  return {&list, [&list](TextView value) { ShowFolders(list, value); },
          [&list] { return JoinedFolders(list); }};
}

std::vector<BoundOption> MakeOptions() {
  OptionsForm& form = frmPubOptions;
  const Choice scope{{u"N", u"Y"}, 0, 0};
  const Choice method{{u"D", u"R", u"S"}, {}, 2};
  const Choice size{{u"Auto", u"Big", u"Small"}, {}, {}};
  return {
      {kOneClickPage, kOneClick, u"Functions", &Functions, Ticks(form.trvOC)},
      {kCleaningMethodPage, kCleaningMethod, u"Method", &CleaningMethod, Buttons(form.optCM, method)},
      {kCleaningMethodPage, kCleaningMethod, u"Backup Folder", &BackupFolder,
       FolderOf(form.optCM[2], form.txtDF)},
      {kDuplicateFilesPage, kDuplicateFiles, u"Size", &DuplicateSize, Flag(form.cbxDF[1])},
      {kDuplicateFilesPage, kDuplicateFiles, u"Modified", &DuplicateModified, Flag(form.cbxDF[2])},
      {kDuplicateFilesPage, kDuplicateFiles, u"Only Common", &OnlyCommon, Buttons(form.optDF, scope)},
      {kDuplicateFilesPage, kDuplicateFiles, u"Need Least", &NeedLeast, Flag(form.cbxDF[3])},
      {kDuplicateFilesPage, kDuplicateFiles, u"Least Size", &LeastSize, Size(form.txtDFSS)},
      {kDuplicateFilesPage, kDuplicateFiles, u"Common Types", &CommonTypes, Lines(form.lstDF)},
      {kOtherOptionsPage, kOtherOptions, u"Interface Size", &InterfaceSize, Buttons(form.optOO, size)},
      {kOtherOptionsPage, kOtherOptions, u"Last Accessed File", &LastAccessedFile, Days(form.txtOO[0])},
      {kOtherOptionsPage, kOtherOptions, u"Last Accessed Prefetch", &LastAccessedPrefetch,
       Days(form.txtOO[1])},
      {kOtherOptionsPage, kOtherOptions, u"Except Folders", &ExceptFolders, Folders(form.lsvOO)},
  };
}

}  // namespace

std::span<const BoundOption> BoundOptions() {
  static const std::vector<BoundOption> options = MakeOptions();
  return options;
}

void ShowOptions(int16_t page) {
  for (const BoundOption& option : BoundOptions()) {
    if (option.page == page) option.binding.show(*option.setting);
  }
}

void SaveOptions(int16_t page) {
  for (const BoundOption& option : BoundOptions()) {
    if (option.page != page) continue;
    if (const auto value = option.binding.saved()) WriteSetting(option.section, option.key, *value);
  }
}

}  // namespace tavix::mdlPubSelf
