#pragma once

#include "platform/windows/com.h"

#include <shobjidl.h>

namespace tavix::windows {

// Looks on while the shell deletes one thing into the recycle bin. Before each item the shell says whether it
// recycles it "if possible"; what it is about to delete for good, and has no such word, is refused, and the
// whole operation ends. Afterwards it says where in the bin the item is now, or that it is nowhere.
//
// It lives on the stack of its user, longer than the operation: references to it aren't counted.
class DeleteWatch final : public IFileOperationProgressSink {
 public:
  // Whether the item was deleted and is in the bin.
  bool IsInBin() const { return inBin_; }

  HRESULT STDMETHODCALLTYPE QueryInterface(REFIID id, void** object) override {
    const bool known = id == IID_IUnknown || id == IID_IFileOperationProgressSink;
    *object = known ? this : nullptr;
    return known ? S_OK : E_NOINTERFACE;
  }
  ULONG STDMETHODCALLTYPE AddRef() override { return 2; }
  ULONG STDMETHODCALLTYPE Release() override { return 1; }

  HRESULT STDMETHODCALLTYPE PreDeleteItem(DWORD flags, IShellItem*) override {
    return (flags & TSF_DELETE_RECYCLE_IF_POSSIBLE) != 0 ? S_OK : E_ABORT;
  }
  HRESULT STDMETHODCALLTYPE PostDeleteItem(DWORD, IShellItem*, HRESULT result, IShellItem* inBin) override {
    inBin_ = SUCCEEDED(result) && inBin != nullptr;
    return S_OK;
  }

  HRESULT STDMETHODCALLTYPE StartOperations() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE FinishOperations(HRESULT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PreRenameItem(DWORD, IShellItem*, LPCWSTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PostRenameItem(DWORD, IShellItem*, LPCWSTR, HRESULT, IShellItem*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PreMoveItem(DWORD, IShellItem*, IShellItem*, LPCWSTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PostMoveItem(DWORD, IShellItem*, IShellItem*, LPCWSTR, HRESULT,
                                         IShellItem*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PreCopyItem(DWORD, IShellItem*, IShellItem*, LPCWSTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PostCopyItem(DWORD, IShellItem*, IShellItem*, LPCWSTR, HRESULT,
                                         IShellItem*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE PreNewItem(DWORD, IShellItem*, LPCWSTR) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PostNewItem(DWORD, IShellItem*, LPCWSTR, LPCWSTR, DWORD, HRESULT,
                                        IShellItem*) override {
    return S_OK;
  }
  HRESULT STDMETHODCALLTYPE UpdateProgress(UINT, UINT) override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResetTimer() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE PauseTimer() override { return S_OK; }
  HRESULT STDMETHODCALLTYPE ResumeTimer() override { return S_OK; }

 private:
  bool inBin_ = false;
};

}  // namespace tavix::windows
