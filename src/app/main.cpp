// clang-format off
#include "platform/windows/windows_api.h"
#include <commctrl.h>
// clang-format on

#include "frame/start_up.h"
#include "platform/windows/library_search.h"
#include "platform/windows/windows_host.h"
#include "window/win32/dialogs.h"
#include "window/win32/main_window.h"
#include "window/wiring.h"

int WINAPI wWinMain(HINSTANCE, HINSTANCE, PWSTR, int) {
  tavix::windows::SearchSystemFolderOnly();
  const INITCOMMONCONTROLSEX controls{
      sizeof controls, ICC_STANDARD_CLASSES | ICC_LISTVIEW_CLASSES | ICC_TREEVIEW_CLASSES | ICC_BAR_CLASSES};
  InitCommonControlsEx(&controls);
  const tavix::windows::WindowsHost host;
  if (!tavix::mdlPubSelf::Form_Initialize()) return 0;
  tavix::WireForms();
  tavix::win32::MainWindow window;
  if (!window.Create()) return 1;
  const tavix::win32::AboutWindow about;
  const tavix::win32::OptionsWindow options;
  const tavix::win32::TypeWindow typeEditor;
  const tavix::win32::EventQueueWin32 eventQueue(window);
  if (!tavix::mdlPubSelf::Form_Load()) return 0;
  window.Open();
  return window.Run();
}
