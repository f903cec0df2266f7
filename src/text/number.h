#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace tavix {

// The user's separators, for showing and reading numbers.
struct Locale {
  Text Decimal = u".";
  Text Grouping = u",";
};

inline Locale userLocale;

// Formats by the pattern "#,0.#": digits grouped by three, at least one integer digit, at most one decimal,
// halves rounded away from zero. The decimal separator is always there, so 0 gives "0.". Empty for infinity
// and NaN.
Text FormatGrouped(double number, const Locale& locale = userLocale);

// Formats by the pattern "00000000.0": at least eight integer digits, exactly one decimal, no grouping.
// Halves are rounded away from zero. Empty for infinity and NaN.
Text FormatPadded(double number, const Locale& locale = userLocale);

// Formats by the pattern "#%": the number times 100, rounded to a whole number, halves away from zero. What
// rounds to zero has no digit and gives "%". Empty for infinity and NaN.
Text FormatPercent(double number);

// Rounds to one decimal, ties to the even digit.
double RoundToTenth(double number);

// Reads a number in the user's locale: blanks at both ends, a sign, digits with grouping separators anywhere
// among them, a decimal separator with or without digits after it, an exponent. Nothing for any other text,
// also one without digits.
std::optional<double> ParseNumber(TextView text, const Locale& locale = userLocale);

// Rounds to a signed 16-bit integer, ties to the even number. Nothing on overflow.
std::optional<int16_t> ToInteger16(double number);
// Reads a text with ParseNumber and converts it. Nothing if either fails.
std::optional<int16_t> ToInteger16(TextView text, const Locale& locale = userLocale);
// Rounds to a signed 32-bit integer in the same way.
std::optional<int32_t> ToInteger32(double number);

}  // namespace tavix
