#pragma once

#include <string>
#include <string_view>

#include "text/text.h"

// Conversions between Text (char16_t) and the wide characters of the Windows API (wchar_t). Both have the
// same size and code units but are different types.
namespace tavix::windows {

static_assert(sizeof(wchar_t) == sizeof(char16_t));

// A text as an argument of the API, not copied. The API sees it up to its first NUL.
inline const wchar_t* Wide(const Text& text) { return reinterpret_cast<const wchar_t*>(text.c_str()); }

// A buffer for the API to write into, not copied.
inline wchar_t* WideBuffer(char16_t* buffer) { return reinterpret_cast<wchar_t*>(buffer); }

// A copy of text from the API.
inline Text FromWide(std::wstring_view wide) { return Text(wide.begin(), wide.end()); }
// A copy up to the terminator. Empty for null.
inline Text FromWide(const wchar_t* wide) {
  return wide == nullptr ? Text() : FromWide(std::wstring_view(wide));
}

// A copy in the API's type, for what is stored or compared as such.
inline std::wstring ToWide(TextView text) { return std::wstring(text.begin(), text.end()); }

}  // namespace tavix::windows
