#include "window/win32/palette.h"

namespace tavix::win32 {

bool IsHighContrast() {
  HIGHCONTRASTW contrast{};
  contrast.cbSize = sizeof contrast;
  return SystemParametersInfoW(SPI_GETHIGHCONTRAST, sizeof contrast, &contrast, 0) != FALSE &&
         (contrast.dwFlags & HCF_HIGHCONTRASTON) != 0;
}

}  // namespace tavix::win32
