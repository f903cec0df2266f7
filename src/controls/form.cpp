#include "controls/form.h"

#include "controls/list_view.h"
#include "controls/menu.h"

namespace tavix {
namespace {

NamedText Named(TextView name, Property<Text>& text) {
  return {Text(name), [&text] { return text.Get(); }, [&text](TextView words) { text = Text(words); }};
}

}  // namespace

void Form::LoadOnce() {
  if (Loaded) return;
  Loaded = true;
  Load();
}

void Form::Say(TextView name, Property<Text>& text, TextView words) {
  text = Text(words);
  texts_.push_back(Named(name, text));
}

void Form::SayToolTip(TextView name, Control& control, TextView words) {
  Say(Concat(name, u".ToolTipText"), control.ToolTipText, words);
}

void Form::SaySentence(TextView name, Text& sentence, TextView words) {
  sentence = words;
  texts_.push_back(
      {Text(name), [&sentence] { return sentence; }, [&sentence](TextView other) { sentence = other; }});
}

void Form::SayAccessibleName(TextView name, Control& control, TextView words) {
  Say(Concat(name, u".AccessibleName"), control.AccessibleName, words);
}

void Form::SayColumns(TextView name, ListView& list, std::initializer_list<Column> columns) {
  size_t number = 0;
  for (const Column& column : columns) {
    ListView::ColumnHeader& header = list.ColumnHeaders[number++];
    header = {Text(column.title), column.width};
    texts_.push_back({Member(Concat(name, u".ColumnHeaders"), number), [&header] { return header.Caption; },
                      [&header, &list](TextView title) {
                        if (header.Caption == title) return;
                        header.Caption = title;
                        list.PropertyChanged();
                      }});
  }
}

void Form::SayMenu(TextView name, MenuItem& entry, TextView caption) {
  entry.Caption = Text(caption);
  menus_.push_back(Named(name, entry.Caption));
}

Text Form::Member(TextView name, size_t index) {
  return Concat(name, u"(", ToText(static_cast<long long>(index)), u")");
}

}  // namespace tavix
