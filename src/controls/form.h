#pragma once

#include <array>
#include <functional>
#include <initializer_list>
#include <vector>

#include "controls/control.h"

namespace tavix {

class ListView;
class MenuItem;

// A text of a form that a catalogue may replace, under its name in the catalogue:
//   Caption                       the title of the window
//   sbtScan                       the caption of a control
//   sbtToolbar(0)                 the caption of a member of an array, counted from 0
//   picClose.ToolTipText          a tool tip
//   lsvResult.AccessibleName      a name for screen readers
//   lsvResult.ColumnHeaders(1)    the title of a column, counted from 1
//   Row.DeletesFile               a sentence that the program says in a label; words in braces are filled in
struct NamedText {
  Text Name;
  std::function<Text()> Get;
  std::function<void(TextView)> Set;
};

// A window. Its controls are members of the form; the form's constructor gives them their texts.
// An event tells the program what has happened. One marked "command" goes the other way: the program tells
// the real window what to do.
class Form : public Control {
 public:
  Property<Text> Caption{this};
  // The control with the focus; setting it moves the focus. Null for none.
  Property<Control*> ActiveControl{this, nullptr};

  Event<int, int> KeyDown;  // virtual key code, shift state (kShift, kCtrl, kAlt); before the control gets it
  Event<> Load;             // before the form is shown for the first time, and again after each Unload
  Event<> Resize;           // the form has its size; after Load, before it is seen
  Event<> ShowModal;        // command: shows the form over the window in front, returns when it is closed
  Event<> Unload;           // command: closes the window

  bool Loaded = false;  // from Load until the window is closed
  // Raises Load if the form isn't loaded. Called before the form is shown or used from outside.
  void LoadOnce();

  // The section of the catalogues that holds the form's texts.
  TextView Name() const { return name_; }
  // What a catalogue of texts may replace, and what a catalogue of menus may.
  const std::vector<NamedText>& Texts() const { return texts_; }
  const std::vector<NamedText>& Menus() const { return menus_; }

 protected:
  struct Column {
    TextView title;
    int width;  // twips
  };

  explicit Form(TextView name) : name_(name) {}

  // Each gives texts of the form their built-in words and lists them for the catalogues, in the order of
  // the calls.
  void Say(TextView name, Property<Text>& text, TextView words);
  void SayToolTip(TextView name, Control& control, TextView words);
  void SaySentence(TextView name, Text& sentence, TextView words);
  void SayAccessibleName(TextView name, Control& control, TextView words);
  template <class C, size_t N>
  void SayAll(TextView name, std::array<C, N>& members, const TextView (&captions)[N]) {
    for (size_t i = 0; i < N; ++i) Say(Member(name, i), members[i].Caption, captions[i]);
  }
  // The first columns of a list. The others have no title and no width.
  void SayColumns(TextView name, ListView& list, std::initializer_list<Column> columns);
  void SayMenu(TextView name, MenuItem& entry, TextView caption);
  // The name of a member of an array.
  static Text Member(TextView name, size_t index);

 private:
  TextView name_;
  std::vector<NamedText> texts_, menus_;
};

}  // namespace tavix
