#pragma once

#include "controls/property.h"
#include "text/text.h"

namespace tavix {

// The real control that shows a model. Tests and the console have none.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  // Something in the model has changed. The peer reads from the model what to show.
  virtual void ModelChanged() = 0;
};

// The model of a control, or of a window. Positions are from the window's upper left corner. Lengths are in
// twips: 15 twips are a pixel at 96 DPI.
class Control : public PropertyOwner {
 public:
  Control() = default;
  Control(const Control&) = delete;
  Control& operator=(const Control&) = delete;

  Property<bool> Visible{this, true};
  Property<bool> Enabled{this, true};
  Property<int> Left{this, 0};
  Property<int> Top{this, 0};
  Property<int> Width{this, 0};
  Property<int> Height{this, 0};
  Property<Text> ToolTipText{this};
  // What screen readers call a control that has neither a caption nor a tool tip.
  Property<Text> AccessibleName{this};

  ControlPeer* peer = nullptr;  // not owned; null without a real control
  intptr_t hWnd = 0;            // the real control's window; 0 without one

  void PropertyChanged() override {
    if (peer != nullptr) peer->ModelChanged();
  }
};

// Mouse buttons and shift keys in the arguments of events. Their sums mean several held at once.
constexpr int kLeftButton = 1;
constexpr int kRightButton = 2;
constexpr int kShift = 1;
constexpr int kCtrl = 2;
constexpr int kAlt = 4;

class Label : public Control {
 public:
  Property<Text> Caption{this};
  Property<int> BorderStyle{this, 0};
  Event<> Click;
  Event<int> MouseUp;    // the button released
  Event<int> MouseMove;  // the buttons held down
};

class Button : public Control {
 public:
  Property<Text> Caption{this};
  // A call runs the handler even if the button is disabled. The real button calls only while enabled.
  Event<> Click;
};

class CheckBox : public Control {
 public:
  Property<Text> Caption{this};
  Event<> Click;

  int GetValue() const { return value_; }
  // 0 unticked, 1 ticked. A change runs the click handler.
  void SetValue(int value);

  // Lets the value be read and assigned like the other properties.
  struct ValueProperty {
    CheckBox* box;
    operator int() const { return box->GetValue(); }
    ValueProperty& operator=(int value) {
      box->SetValue(value);
      return *this;
    }
  };
  ValueProperty Value{this};

 private:
  int value_ = 0;
};

// A bitmap of the program's resources, named by its key. An empty key shows nothing.
class PictureBox : public Control {
 public:
  Property<Text> Picture{this};
  Property<int> BorderStyle{this, 0};
  Event<> Click;         // by the left button, after MouseUp
  Event<int> MouseUp;    // the button released
  Event<int> MouseMove;  // the buttons held down
};

// Raises Tick every `Interval` milliseconds. 0 stops it.
class Timer : public Control {
 public:
  Property<int> Interval{this, 0};
  Event<> Tick;
};

// The embedded web page. Without a web engine it stays blank and is never busy.
class WebBrowser : public Control {
 public:
  Property<bool> Busy{this, false};
  Property<Text> Address{this};  // where Navigate has sent it
  Event<> DocumentComplete;      // the page is loaded
  void Navigate(TextView address) { Address = Text(address); }
};

// The document of the embedded web page.
class WebDocument : public Control {
 public:
  Property<Text> Scroll{this};  // the attribute of the body element
  Event<bool&> oncontextmenu;   // false keeps the page's menu from opening
};

// A hidden control: the files of a folder that match a pattern. The walkers list them.
class FileListBox : public Control {
 public:
  Property<Text> Path{this};
  Property<Text> Pattern{this, u"*.*"};
};

// A hidden control: the address and time limit of a download.
class InternetTransfer : public Control {
 public:
  Property<Text> URL{this};
  Property<int> RequestTimeout{this, 60};  // seconds
};

}  // namespace tavix
