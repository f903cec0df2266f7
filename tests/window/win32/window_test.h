#pragma once

#include <gtest/gtest.h>

#include <memory>

#include "forms/main_form.h"
#include "frame/start_up.h"
#include "platform/windows/com.h"
#include "scan/scan_driver.h"
#include "window/layout.h"
#include "window/win32/control_ids.h"
#include "window/win32/main_window.h"

#include <commctrl.h>

namespace tavix::win32 {

// The real window over the models, laid out and open. Only the handlers that a test sets are there.
class WindowTest : public testing::Test {
 protected:
  void SetUp() override {
    // The models are process-wide, and the window shows what they hold: reset them.
    frmPubMain.lsvResult.Sorted = false;
    frmPubMain.lsvResult.SortKey = 0;
    frmPubMain.lsvResult.SortOrder = 0;
    frmPubMain.lsvResult.Clear();
    frmPubMain.lst.Clear();
    frmPubMain.trvPrivacy.Clear();
    mdlPubSelf::CancelRequested = false;
    LayOutMainForm();
    window = std::make_unique<MainWindow>();
    ASSERT_TRUE(window->Create());
    mdlPubSelf::frameSteps.MakeControls();
    queue = std::make_unique<EventQueueWin32>(*window);
    window->Open();
    window->HandleWaiting();
    mainWindow = FindWindowW(kMainWindowClass, nullptr);
    ASSERT_NE(mainWindow, nullptr);
  }
  void TearDown() override {
    MainForm& f = frmPubMain;
    f.KeyDown = nullptr;
    f.sbtScan.Click = f.sbtCancel.Click = f.cbxAll.Click = f.lst.Click = f.timLoader.Tick = nullptr;
    f.trvPrivacy.NodeCheck = f.trvPrivacy.NodeClick = nullptr;
    f.lsvResult.ColumnClick = f.lst.ItemCheck = nullptr;
    f.picPrivacy.MouseUp = nullptr;
    f.lsvResult.PaintingSuspended = false;
    f.timLoader.Interval = 0;
    queue.reset();
    window.reset();
    // The window posts WM_QUIT when it closes; the next test must not find it.
    MSG message;
    while (PeekMessageW(&message, nullptr, 0, 0, PM_REMOVE) != FALSE) {
    }
  }
  HWND Control(int id) const { return GetDlgItem(mainWindow, id); }
  static LRESULT Send(HWND control, UINT message, WPARAM wParam = 0, LPARAM lParam = 0) {
    return SendMessageW(control, message, wParam, lParam);
  }
  std::wstring TextOf(int id) const {
    wchar_t text[256]{};
    GetWindowTextW(Control(id), text, 256);
    return text;
  }
  // A press and release of the left button at a point of the control.
  static void Click(HWND control, int x, int y, UINT press = WM_LBUTTONDOWN) {
    const LPARAM point = MAKELPARAM(x, y);
    // Post the release first: pressing on text runs a loop that waits for it.
    PostMessageW(control, WM_LBUTTONUP, 0, point);
    Send(control, press, MK_LBUTTON, point);
  }
  void Press(HWND control, WPARAM key) {
    PostMessageW(control, WM_KEYDOWN, key, 1);
    PostMessageW(control, WM_KEYUP, key, 1);
    window->HandleWaiting();
  }
  static void Flush() { frmPubMain.Refresh(); }

  const windows::ComApartment apartment;
  std::unique_ptr<MainWindow> window;
  std::unique_ptr<EventQueueWin32> queue;
  HWND mainWindow = nullptr;
};

}  // namespace tavix::win32
