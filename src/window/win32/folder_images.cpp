#include "window/win32/folder_images.h"

#include <shellapi.h>
#include <shlobj.h>

#include <cwchar>
#include <string_view>

#include "catalogue/scope_tree.h"

namespace tavix::win32 {
namespace {

using namespace mdlPubSelf;

constexpr int kImageSize = 240;  // twips

struct IconTraits {
  using Handle = HICON;
  static Handle Null() { return nullptr; }
  static void Close(Handle handle) { DestroyIcon(handle); }
};
using Icon = windows::Owned<IconTraits>;

// A picture of the system: its number among the stock icons, and in the library that has carried it since
// long before there were these.
struct Source {
  SHSTOCKICONID stock;
  int resource;
};

Source SourceOf(int image) {
  switch (image) {
    case kFixedDriveImage:
      return {SIID_DRIVEFIXED, 9};
    case kOpenFolderImage:
      return {SIID_FOLDEROPEN, 5};
    case kComputerImage:
      return {SIID_DESKTOPPC, 16};
    case kRemovableDriveImage:
      return {SIID_DRIVEREMOVE, 8};
    case kMemoryDriveImage:
      return {SIID_DRIVERAM, 13};
    case kUnknownDriveImage:
      return {SIID_DRIVEUNKNOWN, 9};
    default:
      return {SIID_FOLDER, 4};
  }
}

// Where a stock icon is. Empty if the system doesn't know.
SHSTOCKICONINFO PlaceOf(SHSTOCKICONID number) {
  SHSTOCKICONINFO place{};
  place.cbSize = sizeof place;
  if (FAILED(SHGetStockIconInfo(number, SHGSI_ICONLOCATION, &place))) place.szPath[0] = L'\0';
  return place;
}

// The icon drawn for this size, where the system has one. Wine gives the icon of a file for every number.
Icon SystemIcon(const Source& source, int size) {
  SHSTOCKICONINFO place = PlaceOf(source.stock);
  const SHSTOCKICONINFO file = PlaceOf(SIID_DOCNOASSOC);
  if (place.iIcon == file.iIcon && std::wstring_view(place.szPath) == file.szPath) {
    GetSystemDirectoryW(place.szPath, MAX_PATH);
    wcsncat(place.szPath, L"\\shell32.dll", MAX_PATH - wcslen(place.szPath) - 1);
    place.iIcon = -source.resource;
  }
  Icon icon;
  SHDefExtractIconW(place.szPath, place.iIcon, 0, icon.Receive(), nullptr, static_cast<UINT>(size));
  return icon;
}

}  // namespace

int FolderImageSize(const WindowContext& context) { return context.Pixels(kImageSize); }

ImageList MakeFolderImages(const WindowContext& context) {
  const int size = FolderImageSize(context);
  // A picture that the system can't give stays blank.
  ImageList images(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, kUnknownDriveImage, 0));
  for (int image = kFixedDriveImage; image <= kUnknownDriveImage; ++image) {
    const Icon icon = SystemIcon(SourceOf(image), size);
    if (icon) {
      ImageList_ReplaceIcon(images.Get(), -1, icon.Get());
    } else {
      AddBlankImage(images, size, size);
    }
  }
  return images;
}

}  // namespace tavix::win32
