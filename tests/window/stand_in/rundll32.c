/* Replaces the system's rundll32.exe. Each call adds a line to rundll32-calls.txt: its arguments. */
#include <windows.h>

int WINAPI wWinMain(HINSTANCE instance, HINSTANCE previous, PWSTR arguments, int show) {
  char line[1024];
  int length = WideCharToMultiByte(CP_UTF8, 0, arguments, -1, line, sizeof line - 1, NULL, NULL);
  HANDLE file = CreateFileW(L"C:\\rundll32-calls.txt", FILE_APPEND_DATA, FILE_SHARE_READ | FILE_SHARE_WRITE,
                            NULL, OPEN_ALWAYS, FILE_ATTRIBUTE_NORMAL, NULL);
  DWORD written = 0;
  (void)instance, (void)previous, (void)show;
  if (file == INVALID_HANDLE_VALUE || length < 1) return 1;
  line[length - 1] = '\n';
  WriteFile(file, line, length, &written, NULL);
  CloseHandle(file);
  return 0;
}
