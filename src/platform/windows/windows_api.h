#pragma once

// The Windows API. Macros that would rename our routines are undefined, so an API call names the wide form
// itself: DeleteFileW, MessageBoxW.

// clang-format off
#include <windows.h>
#include <winternl.h>
// clang-format on

#undef AppendMenu
#undef CopyFile
#undef CreateDirectory
#undef CreateFile
#undef CreateFont
#undef CreateProcess
#undef CreateWindow
#undef DefWindowProc
#undef DeleteFile
#undef DispatchMessage
#undef DrawText
#undef ExpandEnvironmentStrings
#undef FindFirstFile
#undef FindNextFile
#undef FindResource
#undef FindWindow
#undef GetClassInfo
#undef GetClassName
#undef GetCommandLine
#undef GetComputerName
#undef GetCurrentDirectory
#undef GetDriveType
#undef GetFileAttributes
#undef GetFullPathName
#undef GetLogicalDriveStrings
#undef GetLongPathName
#undef GetMessage
#undef GetModuleFileName
#undef GetModuleHandle
#undef GetObject
#undef GetShortPathName
#undef GetSystemDirectory
#undef GetTempFileName
#undef GetTempPath
#undef GetUserName
#undef GetVolumeInformation
#undef GetWindowsDirectory
#undef GetWindowText
#undef InsertMenu
#undef LoadBitmap
#undef LoadCursor
#undef LoadIcon
#undef LoadImage
#undef LoadLibrary
#undef LoadMenu
#undef LoadString
#undef MessageBox
#undef MoveFile
#undef OpenEventLog
#undef PeekMessage
#undef PlaySound
#undef PostMessage
#undef RegisterClass
#undef RemoveDirectory
#undef ReplaceFile
#undef SearchPath
#undef SendMessage
#undef SetCurrentDirectory
#undef SetFileAttributes
#undef SetWindowText
#undef ShellExecute
#undef Yield
#undef far
#undef interface
#undef near
#undef small
