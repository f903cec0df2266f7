#pragma once

// By these, other programs find the modal windows and their controls. Arrays take as many numbers as they
// have members.
namespace tavix::win32 {

constexpr wchar_t kOptionsWindowClass[] = L"TavixOptionsWindow";
constexpr wchar_t kTypeWindowClass[] = L"TavixTypeWindow";

enum OptionsControlId : int {
  kIdPageTree = 301,
  kIdPagePicture,
  kIdPageTitle,
  kIdPageRemark,
  kIdRecommend,
  kIdSave,
  kIdCloseOptions,
  kIdOneClickTree = 310,
  kIdJunkTypes = 320,
  kIdJunkButtons,
  kIdDuplicateGroups = 330,
  kIdDuplicateRules = 332,
  kIdLeastSize = 336,
  kIdLeastSizeUnit,
  kIdScopes,
  kIdCommonTypes = 340,
  kIdCommonTypeButtons,
  kIdMethods = 350,
  kIdBackupFolder = 353,
  kIdBrowse,
  kIdOtherGroups = 360,
  kIdSizes = 363,
  kIdSizeNotes = 366,
  kIdDaysLabels = 370,
  kIdDays = 372,
  kIdExceptFolders = 374,
  kIdExceptFolderButtons,
};

enum TypeControlId : int { kIdTypeLabels = 401, kIdTypeBoxes = 403, kIdTypeButtons = 405 };

}  // namespace tavix::win32
