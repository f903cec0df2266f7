#include "controls/form.h"

namespace tavix {

Text FormTexts::Member(TextView name, size_t index) {
  return Concat(name, u"(", ToText(static_cast<long long>(index)), u")");
}

FormTexts& FormTexts::Add(TextView name, Property<Text>& text) {
  texts_.push_back(
      {Text(name), [&text] { return text.Get(); }, [&text](TextView value) { text = Text(value); }});
  return *this;
}

FormTexts& FormTexts::AddHeaders(TextView name, ListView& list, int columns) {
  for (int column = 1; column <= columns; ++column) {
    Text& caption = list.ColumnHeaders[static_cast<size_t>(column) - 1].Caption;
    texts_.push_back({Member(Concat(name, u".ColumnHeaders"), static_cast<size_t>(column)),
                      [&caption] { return caption; },
                      [&caption, &list](TextView value) {
                        if (caption == value) return;
                        caption = value;
                        list.PropertyChanged();
                      }});
  }
  return *this;
}

void Form::LoadOnce() {
  if (Loaded) return;
  Loaded = true;
  Load();
}

FormTexts& FormTexts::AddToolTip(TextView name, Control& control) {
  return Add(Concat(name, u".ToolTipText"), control.ToolTipText);
}

}  // namespace tavix
