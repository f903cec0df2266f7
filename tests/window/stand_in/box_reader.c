/* Prints what the window of a class shows, its title and then the texts in it, each on a line of its own behind its
   place on the screen, with line ends as \n and \r. Ends with 1 where there is none. */
#include <stdio.h>
#include <windows.h>

enum { kRoom = 2 << 20 };
static WCHAR text[kRoom];
static char bytes[kRoom * 3];

static void Print(HWND window) {
  RECT place;
  GetWindowRect(window, &place);
  printf("%ld %ld %ld %ld|", place.left, place.top, place.right, place.bottom);
  SendMessageW(window, WM_GETTEXT, kRoom, (LPARAM)text);
  WideCharToMultiByte(CP_UTF8, 0, text, -1, bytes, sizeof bytes, NULL, NULL);
  for (const char* c = bytes; *c != '\0'; ++c) {
    if (*c == '\n' || *c == '\r') {
      fputs(*c == '\n' ? "\\n" : "\\r", stdout);
    } else {
      putchar(*c);
    }
  }
  putchar('\n');
}

static BOOL CALLBACK PrintChild(HWND window, LPARAM unused) {
  (void)unused;
  Print(window);
  return TRUE;
}

int main(int count, char** values) {
  HWND box = count == 2 ? FindWindowA(values[1], NULL) : NULL;
  if (box == NULL || !IsWindowVisible(box)) return 1;
  Print(box);
  EnumChildWindows(box, PrintChild, 0);
  return 0;
}
