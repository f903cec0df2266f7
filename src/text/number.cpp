#include "text/number.h"

#include <charconv>
#include <cmath>
#include <string>

namespace tavix {
namespace {

// The digits of a number without its sign. The decimal point is after the first `point` digits.
struct Digits {
  std::string text;
  size_t point = 0;
};

// The digits of a number with one decimal at most, which most numbers have that are shown. Nothing for any
// other number, and for one with more digits than a double always holds.
std::optional<Digits> TenthDigits(double magnitude) {
  constexpr double kMost = 1e13;
  if (magnitude >= kMost) return std::nullopt;
  const auto tenths = static_cast<uint64_t>(std::nearbyint(magnitude * 10));
  if (static_cast<double>(tenths) / 10 != magnitude) return std::nullopt;
  char buffer[20];
  const auto end = std::to_chars(buffer, buffer + sizeof buffer, tenths).ptr;
  Digits digits{std::string(tenths < 10 ? 1 : 0, '0'), 0};
  digits.text.append(buffer, end);
  digits.point = digits.text.size() - 1;
  return digits;
}

// Multiplies by ten to the power of `shift` and rounds to `decimals`, halves away from zero. Starts from 15
// significant digits, which a double always holds, so that 0.15 is rounded as 0.15 and not as the binary
// fraction next to it.
Digits RoundedDigits(double magnitude, size_t decimals, int shift = 0) {
  char buffer[32];
  const auto end =
      std::to_chars(buffer, buffer + sizeof buffer, magnitude, std::chars_format::scientific, 14).ptr;
  const std::string_view shown(buffer, static_cast<size_t>(end - buffer));
  const size_t mark = shown.find('e');
  int exponent = 0;
  std::from_chars(shown[mark + 1] == '+' ? buffer + mark + 2 : buffer + mark + 1, end, exponent);
  exponent += shift;

  std::string all(1, shown[0]);
  all.append(shown.substr(2, mark - 2));
  if (exponent < 0) all.insert(0, static_cast<size_t>(-exponent), '0');
  size_t point = exponent < 0 ? 1 : static_cast<size_t>(exponent) + 1;
  if (all.size() < point + decimals + 1) all.append(point + decimals + 1 - all.size(), '0');

  const bool up = all[point + decimals] >= '5';
  all.resize(point + decimals);
  if (up) {
    size_t i = all.size();
    while (i > 0 && all[i - 1] == '9') all[--i] = '0';
    if (i > 0) {
      ++all[i - 1];
    } else {
      all.insert(0, 1, '1');
      ++point;
    }
  }
  return {all, point};
}

Digits DigitsToTenth(double magnitude) {
  return TenthDigits(magnitude)
      .or_else([magnitude] { return std::optional(RoundedDigits(magnitude, 1)); })
      .value();
}

bool IsZero(const Digits& digits) { return digits.text.find_first_not_of('0') == std::string::npos; }

Text Widen(std::string_view ascii) { return {ascii.begin(), ascii.end()}; }

}  // namespace

Text FormatGrouped(double number, const Locale& locale) {
  if (!std::isfinite(number)) return {};
  const Digits digits = DigitsToTenth(std::fabs(number));
  Text shown;
  shown.reserve(digits.text.size() + digits.point / 3 + 1);
  if (number < 0 && !IsZero(digits)) shown += u'-';
  for (size_t i = 0; i < digits.point; ++i) {
    if (i > 0 && (digits.point - i) % 3 == 0) shown += locale.Grouping;
    shown += static_cast<char16_t>(digits.text[i]);
  }
  shown += locale.Decimal;
  if (digits.text[digits.point] != '0') shown += static_cast<char16_t>(digits.text[digits.point]);
  return shown;
}

Text FormatPadded(double number, const Locale& locale) {
  if (!std::isfinite(number)) return {};
  constexpr size_t kIntegerDigits = 8;
  const Digits digits = DigitsToTenth(std::fabs(number));
  Text shown;
  shown.reserve(digits.text.size() + kIntegerDigits + 2);
  if (number < 0 && !IsZero(digits)) shown += u'-';
  if (digits.point < kIntegerDigits) shown.append(kIntegerDigits - digits.point, u'0');
  shown.append(digits.text.begin(), digits.text.begin() + static_cast<std::ptrdiff_t>(digits.point));
  shown += locale.Decimal;
  shown += static_cast<char16_t>(digits.text[digits.point]);
  return shown;
}

Text FormatPercent(double number) {
  if (!std::isfinite(number)) return {};
  // Shift the digits: multiplying by 100 could overflow the double.
  const Digits digits = RoundedDigits(std::fabs(number), 0, 2);
  if (IsZero(digits)) return u"%";
  return Concat(number < 0 ? u"-" : u"", Widen(digits.text), u"%");
}

double RoundToTenth(double number) {
  // From this value on, doubles are whole numbers.
  constexpr double kWholeFrom = 0x1p53;
  return std::fabs(number) < kWholeFrom ? std::nearbyint(number * 10) / 10 : number;
}

std::optional<double> ParseNumber(TextView text, const Locale& locale) {
  text = Trim(text);
  std::string plain;
  size_t at = 0;
  if (!text.empty() && (text[0] == u'-' || text[0] == u'+')) {
    if (text[0] == u'-') plain += '-';
    at = 1;
  }
  bool digit = false;
  bool decimals = false;
  while (at < text.size()) {
    const TextView rest = text.substr(at);
    if (rest[0] >= u'0' && rest[0] <= u'9') {
      plain += static_cast<char>(rest[0]);
      digit = true;
      ++at;
    } else if (!decimals && !locale.Decimal.empty() && rest.starts_with(locale.Decimal)) {
      plain += '.';
      decimals = true;
      at += locale.Decimal.size();
    } else if (!decimals && digit && !locale.Grouping.empty() && rest.starts_with(locale.Grouping)) {
      at += locale.Grouping.size();
    } else {
      break;
    }
  }
  if (!digit) return std::nullopt;
  if (at < text.size() && (text[at] == u'e' || text[at] == u'E')) {
    plain += 'e';
    if (++at < text.size() && (text[at] == u'-' || text[at] == u'+')) {
      if (text[at] == u'-') plain += '-';
      ++at;
    }
    if (at == text.size()) return std::nullopt;
    for (; at < text.size() && text[at] >= u'0' && text[at] <= u'9'; ++at)
      plain += static_cast<char>(text[at]);
  }
  if (at != text.size()) return std::nullopt;
  double number = 0;
  const auto [end, error] = std::from_chars(plain.data(), plain.data() + plain.size(), number);
  if (error != std::errc() || end != plain.data() + plain.size()) return std::nullopt;
  return number;
}

namespace {

template <class Integer>
std::optional<Integer> ToInteger(double number) {
  const double rounded = std::nearbyint(number);
  const bool fits =
      rounded >= std::numeric_limits<Integer>::min() && rounded <= std::numeric_limits<Integer>::max();
  return fits ? std::optional(static_cast<Integer>(rounded)) : std::nullopt;
}

}  // namespace

std::optional<int16_t> ToInteger16(double number) { return ToInteger<int16_t>(number); }

std::optional<int32_t> ToInteger32(double number) { return ToInteger<int32_t>(number); }

std::optional<int16_t> ToInteger16(TextView text, const Locale& locale) {
  const std::optional<double> number = ParseNumber(text, locale);
  return number ? ToInteger16(*number) : std::nullopt;
}

}  // namespace tavix
