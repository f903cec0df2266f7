#include "platform/windows/shell_link.h"

#include "platform/windows/com.h"
#include "platform/windows/wide.h"

#include <shlobj.h>
#include <shlwapi.h>

namespace tavix::windows {
namespace {

// An advertised program has no path before it is looked for among the installed ones.
bool IsAdvertised(IShellLinkW* link) {
  const auto data = Ask<IShellLinkDataList>(link, IID_IShellLinkDataList);
  DWORD flags = 0;
  return data && SUCCEEDED(data.Get()->GetFlags(&flags)) && (flags & SLDF_HAS_DARWINID) != 0;
}

}  // namespace

std::optional<Text> ReadLinkTarget(std::string_view bytes) {
  constexpr size_t kLargest = size_t{1} << 24;
  if (bytes.empty() || bytes.size() > kLargest) return std::nullopt;
  ComPointer<IShellLinkW> link;
  if (FAILED(CoCreateInstance(CLSID_ShellLink, nullptr, CLSCTX_INPROC_SERVER, IID_IShellLinkW,
                              reinterpret_cast<void**>(link.Receive()))))
    return std::nullopt;
  // From memory: a link that knows where it lies would look beside it for a target.
  const auto content = Ask<IPersistStream>(link.Get(), IID_IPersistStream);
  const ComPointer<IStream> stream(
      SHCreateMemStream(reinterpret_cast<const BYTE*>(bytes.data()), static_cast<UINT>(bytes.size())));
  if (!content || !stream || content.Get()->Load(stream.Get()) != S_OK) return std::nullopt;
  if (IsAdvertised(link.Get())) return Text();
  wchar_t path[MAX_PATH] = L"";
  if (FAILED(link.Get()->GetPath(path, MAX_PATH, nullptr, SLGP_RAWPATH))) return Text();
  return FromWide(path);
}

}  // namespace tavix::windows
