#include "platform/windows/windows_instance.h"

#include <gtest/gtest.h>

#include "platform/windows/wide.h"
#include "support/case.h"

#include <sddl.h>

namespace tavix::windows {
namespace {

TEST(InstanceOfWindows, TheSecondFindsTheFirstAsLongAsItRuns) {
  {
    WindowsInstance first;
    EXPECT_FALSE(first.PreviousRuns());
    EXPECT_FALSE(first.PreviousRuns());
    WindowsInstance second;
    EXPECT_TRUE(second.PreviousRuns());
    EXPECT_TRUE(second.PreviousRuns());
    EXPECT_FALSE(first.PreviousRuns());
  }
  WindowsInstance third;
  EXPECT_FALSE(third.PreviousRuns());
}

// The mutex of a copy of another session or user counts, whether or not its access list lets us open it.
TEST(InstanceOfWindows, ACopyOfAnotherSessionOrUserCounts) {
  for (const wchar_t* rights : {L"D:(A;;GA;;;WD)", L"D:(D;;GA;;;WD)"}) {
    SCOPED_TRACE(Case(rights));
    PSECURITY_DESCRIPTOR descriptor = nullptr;
    ASSERT_TRUE(
        ConvertStringSecurityDescriptorToSecurityDescriptorW(rights, SDDL_REVISION_1, &descriptor, nullptr));
    SECURITY_ATTRIBUTES attributes = {sizeof attributes, descriptor, FALSE};
    const ObjectHandle mark(CreateMutexW(&attributes, FALSE, L"Global\\TavixPub.Running"));
    LocalFree(descriptor);
    ASSERT_TRUE(mark);
    EXPECT_TRUE(WindowsInstance().PreviousRuns());
  }
  EXPECT_FALSE(WindowsInstance().PreviousRuns());
}

TEST(InstanceOfWindows, AMarkThatCantBeOpenedCounts) {
  // An event of that name can't be opened as a mutex.
  const ObjectHandle other(CreateEventW(nullptr, TRUE, FALSE, L"Global\\TavixPub.Running"));
  ASSERT_TRUE(other);
  EXPECT_TRUE(WindowsInstance().PreviousRuns());
}

TEST(InstanceOfWindows, EverybodyMayOpenTheMark) {
  WindowsInstance first;
  ASSERT_FALSE(first.PreviousRuns());
  const ObjectHandle mark(OpenMutexW(READ_CONTROL | SYNCHRONIZE, FALSE, L"Global\\TavixPub.Running"));
  ASSERT_TRUE(mark);
  char buffer[4096];
  DWORD size = 0;
  ASSERT_TRUE(GetKernelObjectSecurity(mark.Get(), DACL_SECURITY_INFORMATION, buffer, sizeof buffer, &size));
  wchar_t* text = nullptr;
  ASSERT_TRUE(ConvertSecurityDescriptorToStringSecurityDescriptorW(
      buffer, SDDL_REVISION_1, DACL_SECURITY_INFORMATION, &text, nullptr));
  const Text rights = FromWide(text);
  LocalFree(text);
  EXPECT_NE(rights.find(u";;;WD)"), Text::npos) << testing::PrintToString(rights);
  EXPECT_EQ(rights.find(u"(D;"), Text::npos) << testing::PrintToString(rights);
}

}  // namespace
}  // namespace tavix::windows
