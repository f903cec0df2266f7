#include "platform/windows/access_list.h"

#include <algorithm>

#include "platform/windows/file_handle.h"

namespace tavix::windows {
namespace {

constexpr ACCESS_MASK kChangeRights = FILE_WRITE_DATA | FILE_APPEND_DATA | FILE_WRITE_EA | FILE_DELETE_CHILD |
                                      FILE_WRITE_ATTRIBUTES | DELETE | WRITE_DAC | WRITE_OWNER |
                                      GENERIC_WRITE | GENERIC_ALL;

}  // namespace

std::optional<Identity> Identity::Of(PSID identity) {
  if (identity == nullptr || !IsValidSid(identity)) return std::nullopt;
  Identity copy;
  const auto* const bytes = static_cast<const char*>(identity);
  copy.bytes_.assign(bytes, bytes + GetLengthSid(identity));
  return copy;
}

std::optional<Identity> Identity::ThisUser() {
  FileHandle token;
  if (!OpenProcessToken(GetCurrentProcess(), TOKEN_QUERY, token.Receive())) return std::nullopt;
  alignas(TOKEN_USER) char buffer[sizeof(TOKEN_USER) + SECURITY_MAX_SID_SIZE];
  DWORD length = 0;
  if (!GetTokenInformation(token.Get(), TokenUser, buffer, sizeof(buffer), &length)) return std::nullopt;
  return Of(reinterpret_cast<const TOKEN_USER*>(buffer)->User.Sid);
}

std::optional<Identity> Identity::WellKnown(WELL_KNOWN_SID_TYPE type) {
  alignas(SID) char buffer[SECURITY_MAX_SID_SIZE];
  DWORD length = sizeof(buffer);
  return CreateWellKnownSid(type, nullptr, buffer, &length) ? Of(buffer) : std::nullopt;
}

std::optional<Security> Security::Read(HANDLE file) {
  constexpr SECURITY_INFORMATION kWanted = OWNER_SECURITY_INFORMATION | DACL_SECURITY_INFORMATION;
  constexpr DWORD kMostly = 512;  // bytes
  Security security;
  DWORD needed = 0;
  security.bytes_.resize(kMostly);
  bool read = GetKernelObjectSecurity(file, kWanted, security.bytes_.data(), kMostly, &needed) != 0;
  if (!read && needed > kMostly) {
    security.bytes_.resize(needed);
    read = GetKernelObjectSecurity(file, kWanted, security.bytes_.data(), needed, &needed) != 0;
  }
  if (!read) return std::nullopt;
  char* const bytes = security.bytes_.data();
  PSID owner = nullptr;
  BOOL present = FALSE;
  BOOL byDefault = FALSE;
  if (!GetSecurityDescriptorOwner(bytes, &owner, &byDefault)) return std::nullopt;
  if (!GetSecurityDescriptorDacl(bytes, &present, &security.list_, &byDefault)) return std::nullopt;
  if (!present) security.list_ = nullptr;
  security.owner = Identity::Of(owner);
  return security;
}

bool Security::OthersMayChange(const std::vector<Identity>& except) const {
  if (list_ == nullptr) return true;
  std::vector<Identity> known = except;
  for (const auto& each :
       {owner, Identity::WellKnown(WinCreatorOwnerSid), Identity::WellKnown(WinCreatorOwnerRightsSid)}) {
    if (each) known.push_back(*each);
  }
  for (DWORD i = 0; i < list_->AceCount; ++i) {
    void* entry = nullptr;
    if (!GetAce(list_, i, &entry)) return true;
    const BYTE type = static_cast<const ACE_HEADER*>(entry)->AceType;
    if (type == ACCESS_DENIED_ACE_TYPE) continue;
    if (type != ACCESS_ALLOWED_ACE_TYPE) return true;
    auto* const allowed = static_cast<ACCESS_ALLOWED_ACE*>(entry);
    if ((allowed->Mask & kChangeRights) == 0) continue;
    const std::optional<Identity> grantee = Identity::Of(&allowed->SidStart);
    if (!grantee || std::ranges::find(known, *grantee) == known.end()) return true;
  }
  return false;
}

bool SetAccessList(HANDLE file, bool folder, const std::vector<Identity>& full) {
  const std::optional<Identity> users = Identity::WellKnown(WinBuiltinUsersSid);
  if (!users) return false;
  alignas(ACL) char buffer[1024];
  const auto list = reinterpret_cast<PACL>(buffer);
  const DWORD inheritance = folder ? OBJECT_INHERIT_ACE | CONTAINER_INHERIT_ACE : 0;
  if (!InitializeAcl(list, sizeof(buffer), ACL_REVISION)) return false;
  for (const Identity& each : full) {
    if (!AddAccessAllowedAceEx(list, ACL_REVISION, inheritance, FILE_ALL_ACCESS, each.Get())) return false;
  }
  constexpr DWORD kReadRights = FILE_GENERIC_READ | FILE_GENERIC_EXECUTE;
  if (!AddAccessAllowedAceEx(list, ACL_REVISION, inheritance, kReadRights, users->Get())) return false;
  SECURITY_DESCRIPTOR descriptor;
  return InitializeSecurityDescriptor(&descriptor, SECURITY_DESCRIPTOR_REVISION) &&
         SetSecurityDescriptorDacl(&descriptor, TRUE, list, FALSE) &&
         SetSecurityDescriptorControl(&descriptor, SE_DACL_PROTECTED, SE_DACL_PROTECTED) &&
         SetKernelObjectSecurity(file, DACL_SECURITY_INFORMATION | PROTECTED_DACL_SECURITY_INFORMATION,
                                 &descriptor);
}

}  // namespace tavix::windows
