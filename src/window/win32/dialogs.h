#pragma once

#include "window/win32/dialog_window.h"

// The real windows of the forms that are shown over the main window. One of each at a time.
namespace tavix::win32 {

// Shows frmPubAbout.
class AboutWindow : public DialogWindow {
 public:
  AboutWindow();

 private:
  void AddControls(BindingList& controls) override;
  void OnPaint(HDC canvas, const RECT& area) override;
};

// Shows frmPubOptions.
class OptionsWindow : public DialogWindow {
 public:
  OptionsWindow();

 private:
  void AddControls(BindingList& controls) override;
};

// Shows frmPubType, which asks for a junk file type.
class TypeWindow : public DialogWindow {
 public:
  TypeWindow();

 private:
  void AddControls(BindingList& controls) override;
};

}  // namespace tavix::win32
