/* A program named like one of the system's, or with PLANTED_LIBRARY a library. Each run adds a line to planted.txt: the
   path that it was run from. The program loads the library that its argument names. */
#include <windows.h>

static void Note(HMODULE module) {
  char line[MAX_PATH + 2];
  DWORD length = GetModuleFileNameA(module, line, MAX_PATH);
  HANDLE file = CreateFileW(L"C:\\planted.txt", FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE, NULL,
                            OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
  DWORD written = 0;
  if (file == INVALID_HANDLE_VALUE) return;
  line[length] = '\n';
  WriteFile(file, line, length + 1, &written, NULL);
  CloseHandle(file);
}

#ifdef PLANTED_LIBRARY
BOOL WINAPI DllMain(HINSTANCE instance, DWORD reason, LPVOID reserved) {
  (void)reserved;
  if (reason == DLL_PROCESS_ATTACH) Note(instance);
  return TRUE;
}
__declspec(dllexport) HRESULT WINAPI SetWindowTheme(HWND window, LPCWSTR application, LPCWSTR ids) {
  (void)window, (void)application, (void)ids;
  return S_OK;
}
#else
int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, PWSTR arguments, int show) {
  (void)instance, (void)previous, (void)show;
  Note(NULL);
  if (arguments[0] != 0) LoadLibraryW(arguments);
  return 0;
}
#endif
