#include "platform/windows/windows_locale.h"

#include <iterator>

#include "platform/windows/wide.h"
#include "platform/windows/windows_api.h"

namespace tavix::windows {
namespace {

void ReadEntry(LCTYPE entry, Text& separator) {
  wchar_t found[16];
  if (GetLocaleInfoEx(LOCALE_NAME_USER_DEFAULT, entry, found, static_cast<int>(std::size(found))) == 0)
    return;
  separator = FromWide(found);
}

}  // namespace

Locale ReadUserLocale() {
  Locale locale;
  ReadEntry(LOCALE_SDECIMAL, locale.Decimal);
  ReadEntry(LOCALE_STHOUSAND, locale.Grouping);
  return locale;
}

}  // namespace tavix::windows
