#pragma once

#include <functional>
#include <vector>

#include "controls/control.h"
#include "controls/list_view.h"

namespace tavix {

// A text of a form under the name by which a catalogue of texts addresses it: "sbtScan" a control's caption,
// "sbtToolbar(0)" that of a member of an array, "picClose.ToolTipText" a tool tip,
// "lsvResult.ColumnHeaders(1)" a column's title, "Caption" the title of the window.
struct NamedText {
  Text Name;
  std::function<Text()> Get;
  std::function<void(TextView)> Set;
};

// Collects the texts of a form. The controls outlive what is collected.
class FormTexts {
 public:
  FormTexts& Add(TextView name, Property<Text>& text);
  // The captions of all members of an array, numbered from 0.
  template <class Controls>
  FormTexts& AddAll(TextView name, Controls& members) {
    for (size_t i = 0; i < members.size(); ++i) Add(Member(name, i), members[i].Caption);
    return *this;
  }
  // The titles of the first columns of a list, numbered from 1.
  FormTexts& AddHeaders(TextView name, ListView& list, int columns);
  FormTexts& AddToolTip(TextView name, Control& control);
  std::vector<NamedText> Take() { return std::move(texts_); }

 private:
  static Text Member(TextView name, size_t index);

  std::vector<NamedText> texts_;
};

// A window. Events without "the user" in their comment are commands of the program to the real window.
struct Form : Control {
  Property<Text> Caption{this};
  // The control that has the focus; setting it moves the focus there.
  Property<Control*> ActiveControl{this, nullptr};

  Event<int, int> KeyDown;  // virtual key code, shift state, before the control in focus gets it
  Event<> Load;             // the form is about to be shown for the first time, or anew after Unload
  Event<> Resize;           // the form has got its size; behind Load, before it is seen
  // Shows the form over the window in front, and returns when it is closed and no longer loaded.
  Event<> ShowModal;
  Event<> Unload;  // closes the window

  bool Loaded = false;  // between Load and the closing of the window
  // Raises Load where the form isn't loaded: before it is shown, or something of it is used from outside.
  void LoadOnce();

  virtual TextView Name() const = 0;
  // What a catalogue of texts, or of menus, may replace.
  virtual std::vector<NamedText> Texts() = 0;
  virtual std::vector<NamedText> Menus() { return {}; }
};

}  // namespace tavix
