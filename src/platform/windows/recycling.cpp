#include "platform/windows/recycling.h"

#include <optional>

#include "platform/windows/bin_settings.h"
#include "platform/windows/com.h"
#include "platform/windows/delete_watch.h"
#include "platform/windows/wide.h"

#include <shobjidl.h>

namespace tavix::windows {
namespace {

// Later systems need FOFX_RECYCLEONDELETE. Windows 7 rejects it and recycles because of FOF_ALLOWUNDO.
HRESULT SetFlags(IFileOperation* operation) {
  constexpr DWORD kStopAtErrors = FOFX_EARLYFAILURE;
  const HRESULT result = operation->SetOperationFlags(kRecycleFlags | kStopAtErrors | FOFX_RECYCLEONDELETE);
  return result == E_INVALIDARG ? operation->SetOperationFlags(kRecycleFlags | kStopAtErrors) : result;
}

// Nothing when the system lacks IFileOperation: Wine has the object, but its calls do nothing.
std::optional<bool> RecycleWatched(const Text& path) {
  ComPointer<IFileOperation> operation;
  if (FAILED(CoCreateInstance(CLSID_FileOperation, nullptr, CLSCTX_INPROC_SERVER, IID_IFileOperation,
                              reinterpret_cast<void**>(operation.Receive()))))
    return std::nullopt;
  const HRESULT flags = SetFlags(operation.Get());
  if (flags == E_NOTIMPL) return std::nullopt;
  ComPointer<IShellItem> item;
  if (FAILED(flags) || FAILED(SHCreateItemFromParsingName(Wide(path), nullptr, IID_IShellItem,
                                                          reinterpret_cast<void**>(item.Receive()))))
    return false;
  DeleteWatch watch;
  if (FAILED(operation.Get()->DeleteItem(item.Get(), &watch)) || FAILED(operation.Get()->PerformOperations()))
    return false;
  BOOL stopped = FALSE;
  if (FAILED(operation.Get()->GetAnyOperationsAborted(&stopped)) || stopped != FALSE) return false;
  return watch.IsInBin();
}

bool RecycleUnwatched(Text path) {
  // The shell expects a list of paths with an empty path at its end.
  path.push_back(u'\0');
  SHFILEOPSTRUCTW operation = {};
  operation.wFunc = FO_DELETE;
  operation.pFrom = Wide(path);
  operation.fFlags = kRecycleFlags;
  return SHFileOperationW(&operation) == 0 && !operation.fAnyOperationsAborted;
}

}  // namespace

bool SendToBin(const Text& path) {
  if (!BinTakes(path)) return false;
  const std::optional<bool> recycled = RecycleWatched(path);
  return recycled ? *recycled : RecycleUnwatched(path);
}

}  // namespace tavix::windows
