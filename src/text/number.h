#pragma once

#include <cstdint>
#include <optional>

#include "text/text.h"

namespace tavix {

// The separators in which numbers are shown to the user and read back.
struct Locale {
  Text Decimal = u".";
  Text Grouping = u",";
};

inline Locale userLocale;

// The pattern "#,0.#": digits grouped by three, at least one integer digit, at most one decimal, halves
// away from zero, and the decimal separator always, so zero gives "0.". Empty for what is no finite number.
Text FormatGrouped(double number, const Locale& locale = userLocale);

// The pattern "00000000.0": at least eight integer digits, exactly one decimal, no grouping.
Text FormatPadded(double number, const Locale& locale = userLocale);

// The pattern "#%": the number times 100, rounded to a whole number, halves away from zero, with no
// mandatory digit, so what rounds to zero gives "%" alone.
Text FormatPercent(double number);

// Rounded to one decimal, ties to the even digit.
double RoundToTenth(double number);

// Reads a number as the user's locale writes it: blanks around it, a sign, digits with grouping
// separators anywhere among them, a decimal separator with or without digits after it, an exponent.
// Nothing when anything else stands in the text, or no digit.
std::optional<double> ParseNumber(TextView text, const Locale& locale = userLocale);

// Conversion to a signed 16-bit integer, ties to the even number. Nothing on overflow.
std::optional<int16_t> ToInteger16(double number);
// The same of a text, read by ParseNumber.
std::optional<int16_t> ToInteger16(TextView text, const Locale& locale = userLocale);
// The same with 32 bits.
std::optional<int32_t> ToInteger32(double number);

}  // namespace tavix
