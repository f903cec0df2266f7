#include "platform/windows/windows_host.h"

#include <gtest/gtest.h>

#include "platform/application.h"
#include "platform/screen.h"
#include "platform/windows/wide.h"
#include "platform/windows/windows_locale.h"
#include "text/number.h"

namespace tavix::windows {
namespace {

TEST(WindowsHost, PutsTheSystemInPlaceAndTakesItAway) {
  {
    const WindowsHost host;
    ASSERT_NE(platform::registry, platform::noRegistry);
    EXPECT_EQ(platform::registry->KeyExists(platform::Hive::LocalMachine, u"Software"), true);
    EXPECT_EQ(platform::registry->KeyExists(platform::Hive::ClassesRoot, u"CLSID"), true);
    ASSERT_NE(platform::clock, platform::noClock);
    ASSERT_NE(platform::fileSystem, platform::noFileSystem);
    EXPECT_EQ(platform::fileSystem->FolderExists(u"C:\\"), true);
    ASSERT_NE(platform::shell, platform::noShell);
    EXPECT_TRUE(platform::shell->SpecialFolderByNumber(9966));
    EXPECT_NE(platform::eventLogs, platform::noEventLogs);
    EXPECT_NE(platform::dialogs, platform::noDialogs);
    EXPECT_NE(platform::desktop, platform::noDesktop);
    EXPECT_NE(platform::instance, platform::noInstance);
    wchar_t program[MAX_PATH];
    ASSERT_NE(GetModuleFileNameW(nullptr, program, MAX_PATH), 0U);
    const Text path = FromWide(program);
    EXPECT_EQ(platform::applicationFolder, path.substr(0, path.rfind(u'\\')));
    EXPECT_FALSE(userLocale.Decimal.empty());
    EXPECT_GT(platform::screen.Width, 0);
    EXPECT_GT(platform::screen.Height, 0);
    userLocale.Decimal.clear();
    platform::screen.Width = 1;
  }
  EXPECT_EQ(platform::registry, platform::noRegistry);
  EXPECT_EQ(platform::clock, platform::noClock);
  EXPECT_EQ(platform::fileSystem, platform::noFileSystem);
  EXPECT_EQ(platform::shell, platform::noShell);
  EXPECT_EQ(platform::eventLogs, platform::noEventLogs);
  EXPECT_EQ(platform::dialogs, platform::noDialogs);
  EXPECT_EQ(platform::desktop, platform::noDesktop);
  EXPECT_EQ(platform::instance, platform::noInstance);
  EXPECT_EQ(platform::applicationFolder, u"");
  EXPECT_EQ(userLocale.Decimal, u".");
  EXPECT_EQ(platform::screen.Width, platform::Screen().Width);
}

TEST(WindowsClock, TellsTheLocalTime) {
  WindowsClock clock;
  const auto now = [] {
    SYSTEMTIME local;
    GetLocalTime(&local);
    return ToDateTime(local.wYear, local.wMonth, local.wDay, local.wHour, local.wMinute, local.wSecond,
                      local.wMilliseconds);
  };
  const platform::DateTime before = now(), told = clock.Now(), after = now();
  EXPECT_LE(before, told);
  EXPECT_LE(told, after);
}

TEST(WindowsClock, CountsMillisecondsSince1970) {
  EXPECT_EQ(ToDateTime(1970, 1, 1, 0, 0, 0, 0), 0);
  EXPECT_EQ(ToDateTime(1970, 1, 1, 0, 0, 0, 1), 1);
  EXPECT_EQ(ToDateTime(1969, 12, 31, 23, 59, 59, 999), -1);
  EXPECT_EQ(ToDateTime(2000, 3, 1, 12, 30, 15, 250), 951'913'815'250);
  EXPECT_EQ(ToDateTime(2026, 11, 20, 0, 0, 0, 0), 1'795'132'800'000);
  EXPECT_EQ(ToDateTime(2026, 2, 30, 0, 0, 0, 0), 0);
}

TEST(WindowsLocale, ReadsTheUsersSeparators) {
  const Locale before = ReadUserLocale();
  ASSERT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL, L","));
  ASSERT_TRUE(SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND, L"\u00A0"));
  EXPECT_EQ(ReadUserLocale().Decimal, u",");
  EXPECT_EQ(ReadUserLocale().Grouping, u"\u00A0");
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_SDECIMAL,
                 reinterpret_cast<const wchar_t*>(before.Decimal.c_str()));
  SetLocaleInfoW(LOCALE_USER_DEFAULT, LOCALE_STHOUSAND,
                 reinterpret_cast<const wchar_t*>(before.Grouping.c_str()));
  EXPECT_EQ(ReadUserLocale().Decimal, before.Decimal);
}

}  // namespace
}  // namespace tavix::windows
