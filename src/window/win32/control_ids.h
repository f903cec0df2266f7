#pragma once

// By these, other programs find the window and its controls.
namespace tavix::win32 {

constexpr wchar_t kMainWindowClass[] = L"TavixMainWindow";

enum ControlId : int {
  kIdTitleHelp = 101,
  kIdTitleCommend,
  kIdMini,
  kIdClose,
  kIdVersion,
  kIdPrivacy,
  kIdSystem,
  kIdRegistry,
  kIdAdvanced,
  kIdOptions,
  kIdOneClick,
  kIdPrivacyTree,
  kIdScopeTree,
  kIdFunctions,
  kIdResult,
  kIdCheckAll,
  kIdToolbar,  // the first of four
  kIdStatus = kIdToolbar + 4,
  kIdOptionLink,
  kIdOptionPrompt,
  kIdProgress,
  kIdTimePrefix,
  kIdTime,
  kIdSum,
  kIdScan,
  kIdCancel,
  kIdClean,
  kIdRepair,
  kIdBusyPage,
};

constexpr int kLoaderTimer = 1;

}  // namespace tavix::win32
