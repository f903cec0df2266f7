#pragma once

#include "window/win32/marks.h"

namespace tavix::win32 {

// Width and height of a picture, in pixels.
int FolderImageSize(const WindowContext& context);
// The system's pictures of drives and folders, in the order of their numbers in the tree's model. No drive is
// looked at.
ImageList MakeFolderImages(const WindowContext& context);

}  // namespace tavix::win32
