#include "text/number.h"

#include <cmath>
#include <cstdint>
#include <cstring>

#include "require.h"

namespace {

using namespace tavix;

const Locale kLocales[] = {{u".", u","}, {u",", u"."}, {u",", u" "}, {u"::", u""}, {u"", u""}};

// Formats show at most one decimal and at most 15 digits.
bool IsNear(double shown, double number) {
  return std::fabs(shown - number) <= 0.05 + std::fabs(number) * 1e-14;
}

void CheckFormats(double number) {
  const Text percent = FormatPercent(number);
  Require(percent.empty() == !std::isfinite(number) && (percent.empty() || percent.ends_with(u'%')));
  if (std::isfinite(number))
    Require(std::fabs(RoundToTenth(number) - number) <= std::fabs(number) * 1e-15 + 0.05);
  const auto whole = ToInteger16(number);
  Require(!whole || std::fabs(*whole - number) <= 0.5);
  if (!std::isfinite(number)) {
    Require(!whole && FormatGrouped(number).empty() && FormatPadded(number).empty());
    return;
  }
  for (const Locale& locale : kLocales) {
    if (locale.Decimal.empty()) continue;
    const auto grouped = ParseNumber(FormatGrouped(number, locale), locale);
    const auto padded = ParseNumber(FormatPadded(number, locale), locale);
    // Rounding could exceed the range of double.
    if (std::fabs(number) > 1.7e308) continue;
    Require(grouped && IsNear(*grouped, number) && padded && IsNear(*padded, number));
  }
}

}  // namespace

// Parses the input as a text, and takes its first eight bytes as a number. Both numbers are formatted; each
// format reads back as the number, as exactly as it shows it.
extern "C" int LLVMFuzzerTestOneInput(const uint8_t* data, size_t size) {
  const Text text(data, data + size);
  for (const Locale& locale : kLocales) {
    const auto number = ParseNumber(text, locale);
    if (!number) continue;
    Require(std::isfinite(*number));
    Require(ToInteger16(text, locale) == ToInteger16(*number));
    Require(ParseNumber(u" " + text + u"  ", locale) == number);
    CheckFormats(*number);
  }
  if (size < sizeof(double)) return 0;
  double number = 0;
  std::memcpy(&number, data, sizeof(number));
  CheckFormats(number);
  return 0;
}
