#include "window/win32/folder_images.h"

#include <shellapi.h>
#include <shlobj.h>

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

SHSTOCKICONID StockNumber(int image) {
  switch (image) {
    case kFixedDriveImage:
      return SIID_DRIVEFIXED;
    case kOpenFolderImage:
      return SIID_FOLDEROPEN;
    case kComputerImage:
      return SIID_DESKTOPPC;
    case kRemovableDriveImage:
      return SIID_DRIVEREMOVE;
    case kMemoryDriveImage:
      return SIID_DRIVERAM;
    case kUnknownDriveImage:
      return SIID_DRIVEUNKNOWN;
    default:
      return SIID_FOLDER;
  }
}

// The icon drawn for this size, where the system has one.
Icon StockIcon(SHSTOCKICONID number, int size) {
  SHSTOCKICONINFO stock{};
  stock.cbSize = sizeof stock;
  Icon icon;
  if (SUCCEEDED(SHGetStockIconInfo(number, SHGSI_ICONLOCATION, &stock)))
    SHDefExtractIconW(stock.szPath, stock.iIcon, 0, icon.Receive(), nullptr, static_cast<UINT>(size));
  return icon;
}

}  // namespace

int FolderImageSize(const WindowContext& context) { return context.Pixels(kImageSize); }

ImageList MakeFolderImages(const WindowContext& context) {
  const int size = FolderImageSize(context);
  // A picture that the system can't give stays blank.
  ImageList images(ImageList_Create(size, size, ILC_COLOR32 | ILC_MASK, kUnknownDriveImage, 0));
  for (int image = kFixedDriveImage; image <= kUnknownDriveImage; ++image) {
    const Icon icon = StockIcon(StockNumber(image), size);
    if (icon) {
      ImageList_ReplaceIcon(images.Get(), -1, icon.Get());
    } else {
      AddBlankImage(images, size, size);
    }
  }
  return images;
}

}  // namespace tavix::win32
