#include "platform/windows/native_registry.h"

#include <algorithm>

extern "C" {
NTSTATUS NTAPI NtOpenKey(PHANDLE key, ACCESS_MASK access, POBJECT_ATTRIBUTES attributes);
NTSTATUS NTAPI NtCreateKey(PHANDLE key, ACCESS_MASK access, POBJECT_ATTRIBUTES attributes, ULONG titleIndex,
                           PUNICODE_STRING className, ULONG options, PULONG disposition);
NTSTATUS NTAPI NtDeleteKey(HANDLE key);
NTSTATUS NTAPI NtEnumerateKey(HANDLE key, ULONG index, ULONG informationClass, PVOID buffer, ULONG size,
                              PULONG needed);
NTSTATUS NTAPI NtEnumerateValueKey(HANDLE key, ULONG index, ULONG informationClass, PVOID buffer, ULONG size,
                                   PULONG needed);
NTSTATUS NTAPI NtQueryValueKey(HANDLE key, PUNICODE_STRING name, ULONG informationClass, PVOID buffer,
                               ULONG size, PULONG needed);
NTSTATUS NTAPI NtSetValueKey(HANDLE key, PUNICODE_STRING name, ULONG titleIndex, ULONG type, PVOID data,
                             ULONG size);
NTSTATUS NTAPI NtDeleteValueKey(HANDLE key, PUNICODE_STRING name);
NTSTATUS NTAPI RtlOpenCurrentUser(ACCESS_MASK access, PHANDLE key);
}

namespace tavix::windows::native {
namespace {

// The system's structures for names and data.
struct KeyBasicInformation {
  LARGE_INTEGER lastWriteTime;
  ULONG titleIndex;
  ULONG nameBytes;
  char16_t name[1];
};
struct KeyValueFullInformation {
  ULONG titleIndex;
  ULONG type;
  ULONG dataOffset;
  ULONG dataBytes;
  ULONG nameBytes;
  char16_t name[1];
};
struct KeyValuePartialInformation {
  ULONG titleIndex;
  ULONG type;
  ULONG dataBytes;
  char data[1];
};
constexpr ULONG kKeyBasicInformation = 0;
constexpr ULONG kKeyValueFullInformation = 1;
constexpr ULONG kKeyValuePartialInformation = 2;

constexpr auto kBufferOverflow = static_cast<NTSTATUS>(0x80000005);
constexpr auto kBufferTooSmall = static_cast<NTSTATUS>(0xC0000023);
constexpr auto kNoMoreEntries = static_cast<NTSTATUS>(0x8000001A);
constexpr auto kNameNotFound = static_cast<NTSTATUS>(0xC0000034);
constexpr auto kPathNotFound = static_cast<NTSTATUS>(0xC000003A);
constexpr auto kKeyDeleted = static_cast<NTSTATUS>(0xC000017C);
constexpr auto kNoMemory = static_cast<NTSTATUS>(0xC0000017);

constexpr ULONG kCaseInsensitive = 0x40;
constexpr ULONG kOpenLinkItself = 0x100;

// Longer paths are opened in pieces of at most this length, because a counted string holds at most 32767
// characters.
constexpr size_t kMaxCharacters = 32'000;
constexpr size_t kFirstBuffer = 1024;
constexpr size_t kLargestBuffer = size_t{1} << 30;

// A counted view of the text, which must be at most kMaxCharacters long.
UNICODE_STRING Counted(TextView text) {
  UNICODE_STRING counted;
  counted.Length = counted.MaximumLength = static_cast<USHORT>(text.size() * sizeof(char16_t));
  counted.Buffer = reinterpret_cast<wchar_t*>(const_cast<char16_t*>(text.data()));
  return counted;
}

struct Attributes : OBJECT_ATTRIBUTES {
  Attributes(HKEY base, UNICODE_STRING& path, LastPart last) : OBJECT_ATTRIBUTES{} {
    Length = sizeof(OBJECT_ATTRIBUTES);
    RootDirectory = base;
    ObjectName = &path;
    OBJECT_ATTRIBUTES::Attributes = kCaseInsensitive | (last == LastPart::kOpenLink ? kOpenLinkItself : 0);
  }
};

// The native path of a hive that all users share. Empty for any other.
TextView HivePath(platform::Hive hive) {
  switch (hive) {
    case platform::Hive::LocalMachine:
      return u"\\Registry\\Machine";
    case platform::Hive::Users:
      return u"\\Registry\\User";
    case platform::Hive::CurrentConfig:
      return u"\\Registry\\Machine\\System\\CurrentControlSet\\Hardware Profiles\\Current";
    default:
      return {};
  }
}

PHANDLE Out(RegistryKeyHandle& key) { return reinterpret_cast<PHANDLE>(key.Receive()); }

Opened OpenPiece(HKEY base, TextView path, ACCESS_MASK access, LastPart last) {
  Opened result;
  UNICODE_STRING name = Counted(path);
  Attributes attributes(base, name, last);
  result.status = NtOpenKey(Out(result.key), access, &attributes);
  if (!NT_SUCCESS(result.status)) (void)result.key.Release();
  return result;
}

// Repeats a query with a larger buffer until the result fits.
template <class Query>
NTSTATUS Fetch(Buffer& buffer, Query query) {
  if (buffer.empty()) buffer.resize(kFirstBuffer);
  for (;;) {
    ULONG needed = 0;
    const NTSTATUS status = query(buffer.data(), static_cast<ULONG>(buffer.size()), &needed);
    if (status != kBufferOverflow && status != kBufferTooSmall) return status;
    const size_t size = std::max<size_t>(needed, buffer.size() * 2);
    if (size > kLargestBuffer) return kNoMemory;
    buffer.resize(size);
  }
}

}  // namespace

bool IsMissing(NTSTATUS status) {
  return status == kNameNotFound || status == kPathNotFound || status == kKeyDeleted;
}

bool IsHive(platform::Hive hive) { return hive == platform::Hive::CurrentUser || !HivePath(hive).empty(); }

RegistryKeyHandle OpenHive(platform::Hive hive) {
  constexpr ACCESS_MASK kAccess = KEY_READ;
  if (hive == platform::Hive::CurrentUser) {
    RegistryKeyHandle key;
    if (!NT_SUCCESS(RtlOpenCurrentUser(kAccess, Out(key)))) (void)key.Release();
    return key;
  }
  const TextView path = HivePath(hive);
  return path.empty() ? RegistryKeyHandle() : OpenPiece(nullptr, path, kAccess, LastPart::kFollowLink).key;
}

Opened Open(HKEY base, TextView path, ACCESS_MASK access, LastPart last) {
  RegistryKeyHandle reached;
  while (path.size() > kMaxCharacters) {
    const size_t cut = path.substr(0, kMaxCharacters).rfind(u'\\');
    if (cut == TextView::npos) return {{}, kNameNotFound};
    Opened next = OpenPiece(base, path.substr(0, cut), KEY_READ, LastPart::kFollowLink);
    if (!next.key) return next;
    reached = std::move(next.key);
    base = reached.Get();
    path.remove_prefix(cut + 1);
  }
  return OpenPiece(base, path, access, last);
}

Created Create(HKEY base, TextView name, ACCESS_MASK access) {
  Created result{};
  if (name.size() > kMaxCharacters) return {{{}, kNameNotFound}, false};
  UNICODE_STRING counted = Counted(name);
  Attributes attributes(base, counted, LastPart::kFollowLink);
  ULONG disposition = 0;
  result.opened.status =
      NtCreateKey(Out(result.opened.key), access, &attributes, 0, nullptr, 0, &disposition);
  if (!NT_SUCCESS(result.opened.status)) (void)result.opened.key.Release();
  result.isNew = result.opened.key && disposition == REG_CREATED_NEW_KEY;
  return result;
}

std::optional<TextView> SubKeyAt(HKEY key, uint32_t position, Buffer& buffer, bool& atEnd) {
  const NTSTATUS status = Fetch(buffer, [&](void* output, ULONG size, ULONG* needed) {
    return NtEnumerateKey(key, position, kKeyBasicInformation, output, size, needed);
  });
  atEnd = status == kNoMoreEntries;
  if (!NT_SUCCESS(status)) return std::nullopt;
  const auto* found = reinterpret_cast<const KeyBasicInformation*>(buffer.data());
  return TextView(found->name, found->nameBytes / sizeof(char16_t));
}

std::optional<Value> ValueAt(HKEY key, uint32_t position, Buffer& buffer, bool& atEnd) {
  const NTSTATUS status = Fetch(buffer, [&](void* output, ULONG size, ULONG* needed) {
    return NtEnumerateValueKey(key, position, kKeyValueFullInformation, output, size, needed);
  });
  atEnd = status == kNoMoreEntries;
  if (!NT_SUCCESS(status)) return std::nullopt;
  const auto* found = reinterpret_cast<const KeyValueFullInformation*>(buffer.data());
  const std::string_view data(buffer.data() + found->dataOffset, found->dataBytes);
  return Value{TextView(found->name, found->nameBytes / sizeof(char16_t)), found->type, data};
}

std::optional<Value> Query(HKEY key, TextView name, Buffer& buffer) {
  if (name.size() > kMaxCharacters) return std::nullopt;
  UNICODE_STRING counted = Counted(name);
  const NTSTATUS status = Fetch(buffer, [&](void* output, ULONG size, ULONG* needed) {
    return NtQueryValueKey(key, &counted, kKeyValuePartialInformation, output, size, needed);
  });
  if (!NT_SUCCESS(status)) return std::nullopt;
  const auto* found = reinterpret_cast<const KeyValuePartialInformation*>(buffer.data());
  return Value{{}, found->type, std::string_view(found->data, found->dataBytes)};
}

bool SetValue(HKEY key, TextView name, uint32_t type, std::string_view data) {
  if (name.size() > kMaxCharacters || data.size() > kLargestBuffer) return false;
  UNICODE_STRING counted = Counted(name);
  return NT_SUCCESS(
      NtSetValueKey(key, &counted, 0, type, const_cast<char*>(data.data()), static_cast<ULONG>(data.size())));
}

bool DeleteValue(HKEY key, TextView name) {
  if (name.size() > kMaxCharacters) return false;
  UNICODE_STRING counted = Counted(name);
  return NT_SUCCESS(NtDeleteValueKey(key, &counted));
}

bool Delete(HKEY key) { return NT_SUCCESS(NtDeleteKey(key)); }

}  // namespace tavix::windows::native
