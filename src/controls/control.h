#pragma once

#include "controls/property.h"
#include "text/text.h"

namespace tavix {

// The real control behind a model, if there is one. It is told that something of the model has changed
// and looks up by itself what.
class ControlPeer {
 public:
  virtual ~ControlPeer() = default;
  virtual void ModelChanged() = 0;
};

// Lengths are in twips, 15 to a pixel at 96 DPI, from the window's upper left corner.
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

  ControlPeer* peer = nullptr;  // not owned
  intptr_t hWnd = 0;            // the real control's window, 0 without one

  void PropertyChanged() override {
    if (peer != nullptr) peer->ModelChanged();
  }
};

// Buttons and shift keys as the mouse events pass them.
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
  // Runs the handler whether or not the button is enabled; the real button raises it only when it is.
  Event<> Click;
};

class CheckBox : public Control {
 public:
  Property<Text> Caption{this};
  Event<> Click;

  int GetValue() const { return value_; }
  // 0 unticked, 1 ticked. Another value than before runs the click handler, the same value does nothing.
  void SetValue(int value);

  // Reads and assigns like a number, as the other properties do.
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

// A picture by the key of its bitmap among the program's resources; an empty key shows nothing.
class PictureBox : public Control {
 public:
  Property<Text> Picture{this};
  Property<int> BorderStyle{this, 0};
  Property<Text> AccessibleName{this};
  Event<> Click;         // by the left button, behind MouseUp
  Event<int> MouseUp;    // the button released
  Event<int> MouseMove;  // the buttons held down
};

// Raises its event every `Interval` milliseconds; 0 is idle.
class Timer : public Control {
 public:
  Property<int> Interval{this, 0};
  Event<> Tick;
};

// The embedded page. It is never busy where no engine is there.
class WebBrowser : public Control {
 public:
  Property<bool> Busy{this, false};
  Property<Text> Address{this};  // what it was sent to
  Event<> DocumentComplete;      // the page has been read whole
  void Navigate(TextView address) { Address = Text(address); }
};

// The document of the embedded page.
class WebDocument : public Control {
 public:
  Property<Text> Scroll{this};  // attribute of the body
  Event<bool&> oncontextmenu;   // set to false to keep the page's menu away
};

// The hidden list of the files of a folder that fit a pattern.
class FileListBox : public Control {
 public:
  Property<Text> Path{this};
  Property<Text> Pattern{this, u"*.*"};
};

// Fetches a text from a web address.
class InternetTransfer : public Control {
 public:
  Property<Text> URL{this};
  Property<int> RequestTimeout{this, 60};  // seconds
};

}  // namespace tavix
