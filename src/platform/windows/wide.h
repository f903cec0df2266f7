#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

// The edge between text of the system and the wide characters of the Windows API, which have the same size
// and code units but are another type to the language.
namespace tavix::windows {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// A text as an argument of the API, without copying; it ends at its first NUL.
inline const wchar_t* Wide(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// Room of ours for the API to write into, without copying.
inline wchar_t* WideBuffer(char16_t* buffer) { return reinterpret_cast<wchar_t*>(buffer); }

// Text that the API handed out, copied.
inline Text FromWide(std::wstring_view wide) { return Text(wide.begin(), wide.end()); }
// Up to the terminator; empty for null.
inline Text FromWide(const wchar_t* wide) {
  return wide == nullptr ? Text() : FromWide(std::wstring_view(wide));
}

// A copy in the type of the API, for what is kept there or compared there.
inline std::wstring ToWide(TextView text) { return std::wstring(text.begin(), text.end()); }

}  // namespace tavix::windows
