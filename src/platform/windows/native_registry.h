#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/registry.h"
#include "platform/windows/handle.h"
#include "text/text.h"

// The system's own calls on registry keys. They take counted names, so they reach keys and values whose
// names hold NULs, which the calls of the Windows API above them can neither show nor open.
namespace tavix::windows::native {

enum class LastPart { kFollowLink, kOpenLink };

struct Opened {
  RegistryKeyHandle key;
  NTSTATUS status;
};

// Whether a failure says that there is no such key.
bool IsMissing(NTSTATUS status);

// Whether this is a hive of the system. HKEY_CLASSES_ROOT is a view on two others and none of its own.
bool IsHive(platform::Hive hive);
// What every hive has as its handle; none for what is no hive, and where it can't be opened.
RegistryKeyHandle OpenHive(platform::Hive hive);

// Opens a key below another, which is the other itself for an empty path. Links on the way are followed;
// the last part's, if it is one, as said.
Opened Open(HKEY base, TextView path, ACCESS_MASK access, LastPart last = LastPart::kFollowLink);

struct Created {
  Opened opened;
  bool isNew;
};

// Opens a direct subkey, making it where it is missing.
Created Create(HKEY base, TextView name, ACCESS_MASK access);

// A key or value as the system hands it out; what it views is valid until the next call on the buffer.
using Buffer = std::vector<char>;
struct Value {
  TextView name;
  uint32_t type;
  std::string_view data;
};

// The subkey or value at a position, counted from 0. Nothing after the last one, and nothing when the key
// can't be read; only after the last one does `atEnd` become true.
std::optional<TextView> SubKeyAt(HKEY key, uint32_t position, Buffer& buffer, bool& atEnd);
std::optional<Value> ValueAt(HKEY key, uint32_t position, Buffer& buffer, bool& atEnd);
// One value by its name, which is left out of the result.
std::optional<Value> Query(HKEY key, TextView name, Buffer& buffer);

bool SetValue(HKEY key, TextView name, uint32_t type, std::string_view data);
bool DeleteValue(HKEY key, TextView name);
// Deletes the key of a handle, which must have been opened with the right to; one with subkeys stays.
bool Delete(HKEY key);

}  // namespace tavix::windows::native
