#include "options/option_values.h"

#include <algorithm>
#include <array>
#include <functional>
#include <optional>
#include <vector>

#include "forms/options_form.h"
#include "frame/settings.h"
#include "options/one_click_tree.h"
#include "options/options_page_tree.h"
#include "text/number.h"

namespace tavix::mdlPubSelf {
namespace {

// How a control edits a setting: it shows a value, and gives the value to save. Nothing leaves the file as it
// is.
struct Binding {
  std::function<void(TextView value)> show;
  std::function<std::optional<Text>()> saved;
};

struct Option {
  int16_t page;
  const Setting& setting;
  Binding binding;
};

Binding Flag(CheckBox& box) {
  return {[&box](TextView value) { box.Value = value == u"Y" ? 1 : 0; },
          [&box] { return Text(box.Value != 0 ? u"Y" : u"N"); }};
}

// The values of a group of buttons, in the order of the buttons. An unknown value selects button
// `otherShown`, or none. While no button is selected, the value of button `otherSaved` is saved, or nothing.
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
  return {show, saved};
}

// Nothing if the text is no whole number of 16 bits.
std::optional<Text> WholeNumber(const TextBox& box) {
  return ToInteger16(box.Text.Get()).transform([](int16_t number) { return ToText(number); });
}

Binding Days(TextBox& box) {
  return {[&box](TextView value) { box.Text = Text(value); }, [&box] { return WholeNumber(box); }};
}

Binding Size(TextBox& box) {
  const auto show = [&box](TextView value) {
    const TextView trimmed = Trim(value);
    box.Text = Text(trimmed.empty() ? u"0" : trimmed);
  };
  return {show, [&box] { return WholeNumber(box); }};
}

// The folder is saved only while its button is selected.
Binding FolderOf(OptionButton& button, TextBox& box) {
  const auto saved = [&button, &box]() -> std::optional<Text> {
    if (!button.Value) return std::nullopt;
    return Text(Trim(box.Text.Get()));
  };
  return {[&box](TextView value) { box.Text = Text(value); }, saved};
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
  return {show, saved};
}

void ShowFolders(ListView& list, TextView value) {
  list.Clear();
  for (const TextView entry : Split(value, u"|")) {
    const std::vector<TextView> fields = Split(entry, u"/");
    if (fields.empty()) continue;  // two bars in a row
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
  return {[&list](TextView value) { ShowFolders(list, value); }, [&list] { return JoinedFolders(list); }};
}

// The rows of a page are saved in this order.
const std::vector<Option>& Options() {
  OptionsForm& form = frmPubOptions;
  const Choice scope{{u"N", u"Y"}, 0, 0};
  const Choice method{{u"D", u"R", u"S"}, {}, 2};
  const Choice size{{u"Auto", u"Big", u"Small"}, {}, {}};
  static const std::vector<Option> options{
      {kOneClickPage, Functions, {TickOneClickFunctions, TickedOneClickFunctions}},
      {kCleaningMethodPage, CleaningMethod, Buttons(form.optCM, method)},
      {kCleaningMethodPage, BackupFolder, FolderOf(form.optCM[2], form.txtDF)},
      {kDuplicateFilesPage, DuplicateSize, Flag(form.cbxDF[1])},
      {kDuplicateFilesPage, DuplicateModified, Flag(form.cbxDF[2])},
      {kDuplicateFilesPage, OnlyCommon, Buttons(form.optDF, scope)},
      {kDuplicateFilesPage, NeedLeast, Flag(form.cbxDF[3])},
      {kDuplicateFilesPage, LeastSize, Size(form.txtDFSS)},
      {kDuplicateFilesPage, CommonTypes, Lines(form.lstDF)},
      {kOtherOptionsPage, InterfaceSize, Buttons(form.optOO, size)},
      {kOtherOptionsPage, LastAccessedFile, Days(form.txtOO[0])},
      {kOtherOptionsPage, LastAccessedPrefetch, Days(form.txtOO[1])},
      {kOtherOptionsPage, ExceptFolders, Folders(form.lsvOO)},
  };
  return options;
}

}  // namespace

void ShowOptions(int16_t page) {
  for (const Option& option : Options()) {
    if (option.page == page) option.binding.show(option.setting);
  }
}

void SaveOptions(int16_t page) {
  for (const Option& option : Options()) {
    if (option.page != page) continue;
    if (const auto value = option.binding.saved()) WriteSetting(option.setting, *value);
  }
}

}  // namespace tavix::mdlPubSelf
