#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "platform/registry.h"
#include "platform/windows/handle.h"
#include "text/text.h"

// Registry keys through the native API. It takes counted names, so it reaches keys and values with NULs in
// their names. The Win32 calls can neither show nor open those.
namespace tavix::windows::native {

enum class LastPart { kFollowLink, kOpenLink };

struct Opened {
  RegistryKeyHandle key;
  NTSTATUS status;
};

// Whether a failure means that the key doesn't exist.
bool IsMissing(NTSTATUS status);

// Whether the system has this hive. False for HKEY_CLASSES_ROOT, which is a merged view of two others.
bool IsHive(platform::Hive hive);
// Opens the root key of a hive. Null when it is no hive or can't be opened.
RegistryKeyHandle OpenHive(platform::Hive hive);

// Opens the key at `path` below `base`; an empty path is `base` itself. Links on the path are followed.
// `last` says whether the last name is followed if it is a link.
Opened Open(HKEY base, TextView path, ACCESS_MASK access, LastPart last = LastPart::kFollowLink);

struct Created {
  Opened opened;
  bool isNew;
};

// Opens a direct subkey. Makes it if it is missing.
Created Create(HKEY base, TextView name, ACCESS_MASK access);

// Holds a key or value as the system returns it. Views into it are valid until the next call with it.
using Buffer = std::vector<char>;
struct Value {
  TextView name;
  uint32_t type;
  std::string_view data;
};

// The subkey or value at a position, counted from 0. Nothing after the last one and when the key can't be
// read. `atEnd` is true only after the last one.
std::optional<TextView> SubKeyAt(HKEY key, uint32_t position, Buffer& buffer, bool& atEnd);
std::optional<Value> ValueAt(HKEY key, uint32_t position, Buffer& buffer, bool& atEnd);
// One value by its name. The result has no name. Nothing when it is missing or can't be read.
std::optional<Value> Query(HKEY key, TextView name, Buffer& buffer);

bool SetValue(HKEY key, TextView name, uint32_t type, std::string_view data);
bool DeleteValue(HKEY key, TextView name);
// Deletes an open key. The handle needs the right DELETE. False for a key with subkeys; it stays.
bool Delete(HKEY key);

}  // namespace tavix::windows::native
