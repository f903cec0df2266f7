#include "text/number.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>

namespace tavix {
namespace {

const Locale kEnglish{u".", u","};
const Locale kGerman{u",", u"."};
const Locale kFrench{u",", u"\u00A0"};

struct Formatted {
  double number;
  const char16_t* grouped;
  const char16_t* padded;
};

TEST(SizePatterns, Table) {
  const Formatted table[] = {
      {0, u"0.", u"00000000.0"},
      {12, u"12.", u"00000012.0"},
      {0.04, u"0.", u"00000000.0"},
      {0.05, u"0.1", u"00000000.1"},
      {0.1, u"0.1", u"00000000.1"},
      {0.95, u"1.", u"00000001.0"},
      {9.95, u"10.", u"00000010.0"},
      {999.9, u"999.9", u"00000999.9"},
      {999.95, u"1,000.", u"00001000.0"},
      {1024, u"1,024.", u"00001024.0"},
      {1536.5, u"1,536.5", u"00001536.5"},
      {1234567.8, u"1,234,567.8", u"01234567.8"},
      {99999999.9, u"99,999,999.9", u"99999999.9"},
      {100000000, u"100,000,000.", u"100000000.0"},
      {-1536.5, u"-1,536.5", u"-00001536.5"},
      {-0.01, u"0.", u"00000000.0"},
      {1e18, u"1,000,000,000,000,000,000.", u"1000000000000000000.0"},
      {1e-300, u"0.", u"00000000.0"},
  };
  for (const Formatted& row : table) {
    EXPECT_EQ(FormatGrouped(row.number, kEnglish), row.grouped) << row.number;
    EXPECT_EQ(FormatPadded(row.number, kEnglish), row.padded) << row.number;
  }
}

// The numbers next to a tenth are shown as the tenth, whichever way they are formatted.
TEST(SizePatterns, EveryTenthAndItsNeighboursHaveItsDigits) {
  std::mt19937_64 random(20261122);
  for (int i = 0; i < 20'000; ++i) {
    const auto tenths = static_cast<int64_t>(random() % 100'000'000'000'000 >> i % 47);
    const Text whole = ToText(tenths / 10);
    const Text text =
        Concat(Text(whole.size() < 8 ? 8 - whole.size() : 0, u'0'), whole, u".", ToText(tenths % 10));
    const double number = static_cast<double>(tenths) / 10;
    EXPECT_EQ(FormatPadded(number, kEnglish), text) << number;
    EXPECT_EQ(FormatPadded(std::nextafter(number, 1e300), kEnglish), text) << number;
    EXPECT_EQ(FormatPadded(std::fabs(std::nextafter(number, -1e300)), kEnglish), text) << number;
    Text grouped = FormatGrouped(number, kEnglish);
    std::erase(grouped, u',');
    EXPECT_EQ(grouped, tenths % 10 == 0 ? whole + u"." : Concat(whole, u".", ToText(tenths % 10))) << number;
  }
}

TEST(SizePatterns, FollowTheLocalesSeparators) {
  EXPECT_EQ(FormatGrouped(1536.5, kGerman), u"1.536,5");
  EXPECT_EQ(FormatGrouped(12, kGerman), u"12,");
  EXPECT_EQ(FormatPadded(12, kGerman), u"00000012,0");
  EXPECT_EQ(FormatGrouped(1234567, kFrench), u"1\u00A0234\u00A0567,");
}

TEST(SizePatterns, WhatIsNoNumberIsEmpty) {
  EXPECT_EQ(FormatGrouped(std::numeric_limits<double>::infinity()), u"");
  EXPECT_EQ(FormatPadded(std::numeric_limits<double>::quiet_NaN()), u"");
}

TEST(FormatPercent, HasNoMandatoryDigit) {
  const std::pair<double, const char16_t*> table[] = {
      {0, u"%"},       {0.004, u"%"},    {0.005, u"1%"}, {0.145, u"15%"}, {0.5, u"50%"},    {1.0 / 3, u"33%"},
      {0.994, u"99%"}, {0.995, u"100%"}, {1, u"100%"},   {2.5, u"250%"},  {-0.25, u"-25%"},
  };
  for (const auto& [number, text] : table) EXPECT_EQ(FormatPercent(number), text) << number;
}

TEST(FormatPercent, ANumberThatADoubleHoldsOnlyWithoutTheFactorIsShownWhole) {
  constexpr double kLargest = 1.7976931348623157e308;
  EXPECT_EQ(FormatPercent(1.5e307), Concat(u"15", Text(308, u'0'), u"%"));
  EXPECT_EQ(FormatPercent(-kLargest), Concat(u"-179769313486232", Text(296, u'0'), u"%"));
  EXPECT_EQ(FormatPercent(kLargest * 2), u"");
}

TEST(RoundToTenth, ANumberThatADoubleHoldsOnlyWithoutTheFactorStaysAsItIs) {
  for (const double number : {1.7e308, -1.7e308, 1e300, 9007199254740993.0}) {
    EXPECT_EQ(RoundToTenth(number), number);
  }
}

TEST(RoundToTenth, TiesGoToTheEvenDigit) {
  EXPECT_EQ(RoundToTenth(0.25), 0.2);
  EXPECT_EQ(RoundToTenth(0.75), 0.8);
  EXPECT_EQ(RoundToTenth(1.25), 1.2);
  EXPECT_EQ(RoundToTenth(0.2500001), 0.3);
  EXPECT_EQ(RoundToTenth(-0.25), -0.2);
}

struct Parsed {
  const char16_t* text;
  std::optional<double> number;
};

TEST(ParseNumber, AcceptedAndRefused) {
  const Parsed table[] = {
      {u"0.", 0},
      {u"12.", 12},
      {u"1,536.5", 1536.5},
      {u"1,024.", 1024},
      {u" 42 ", 42},
      {u"-3.5", -3.5},
      {u"+7", 7},
      {u".5", 0.5},
      {u"1,2,3", 123},
      {u"1e3", 1000},
      {u"1.5E-1", 0.15},
      {u"00000012.0", 12},
      {u"365", 365},
      {u"", std::nullopt},
      {u" ", std::nullopt},
      {u".", std::nullopt},
      {u"-", std::nullopt},
      {u"N/A", std::nullopt},
      {u"Over 2,097,152", std::nullopt},
      {u"1.2.3", std::nullopt},
      {u"12x", std::nullopt},
      {u",5", std::nullopt},
      {u"1.5,0", std::nullopt},
      {u"1e", std::nullopt},
      {u"1 2", std::nullopt},
      {u"--1", std::nullopt},
      {u"1e999", std::nullopt},
      {u"\u0661", std::nullopt},
  };
  for (const Parsed& row : table) {
    EXPECT_EQ(ParseNumber(row.text, kEnglish), row.number) << "row " << &row - table;
  }
}

TEST(ParseNumber, ReadsWhatTheFormatsPrintInEachLocale) {
  for (const Locale& locale : {kEnglish, kGerman, kFrench, Locale{u".", u""}}) {
    for (const double number : {0.0, 0.1, 12.0, 999.9, 1536.5, 1234567.8, 99999999.9}) {
      EXPECT_EQ(ParseNumber(FormatGrouped(number, locale), locale), number);
      EXPECT_EQ(ParseNumber(FormatPadded(number, locale), locale), number);
    }
  }
}

TEST(ParseNumber, AnotherLocalesDecimalPointIsRefused) {
  EXPECT_EQ(ParseNumber(u"1,5.0", kGerman), std::nullopt);
  EXPECT_EQ(ParseNumber(u"1.536,5", kGerman), 1536.5);
}

TEST(ToInteger16, RoundsTiesToEvenAndFailsOnOverflow) {
  const std::pair<double, std::optional<int16_t>> table[] = {
      {0.5, 0},
      {1.5, 2},
      {2.5, 2},
      {-0.5, 0},
      {-1.5, -2},
      {32767.4, 32767},
      {32767, 32767},
      {-32768, -32768},
      {-32768.5, -32768},
      {32767.5, std::nullopt},
      {32768, std::nullopt},
      {-32769, std::nullopt},
      {1e300, std::nullopt},
      {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
  };
  for (const auto& [number, integer] : table) EXPECT_EQ(ToInteger16(number), integer) << number;
}

TEST(ToInteger32, RoundsTiesToEvenAndFailsOnOverflow) {
  const std::pair<double, std::optional<int32_t>> table[] = {
      {0, 0},
      {0.5, 0},
      {1.5, 2},
      {-2.5, -2},
      {2147483647.0, 2147483647},
      {2147483647.4, 2147483647},
      {2147483647.5, std::nullopt},
      {2147483648.0, std::nullopt},
      {-2147483648.5, INT32_MIN},
      {-2147483649.0, std::nullopt},
      {1e300, std::nullopt},
      {std::numeric_limits<double>::quiet_NaN(), std::nullopt},
  };
  for (const auto& [number, integer] : table) EXPECT_EQ(ToInteger32(number), integer) << number;
}

TEST(ToInteger16, ReadsTexts) {
  EXPECT_EQ(ToInteger16(u"365", kEnglish), 365);
  EXPECT_EQ(ToInteger16(u"1,000", kEnglish), 1000);
  EXPECT_EQ(ToInteger16(u"10.5", kEnglish), 10);
  EXPECT_EQ(ToInteger16(u"40000", kEnglish), std::nullopt);
  EXPECT_EQ(ToInteger16(u"", kEnglish), std::nullopt);
  EXPECT_EQ(ToInteger16(u"many", kEnglish), std::nullopt);
}

}  // namespace
}  // namespace tavix
