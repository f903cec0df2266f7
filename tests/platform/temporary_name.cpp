#include "platform/temporary_name.h"

#include <gtest/gtest.h>

namespace tavix::platform {
namespace {

TEST(TemporaryNames, TellTheProcessThatMadeThem) {
  EXPECT_EQ(kTemporaryFiles.Make(4242, 7), u"~tvx4242-7.tmp");
  for (const uint32_t process : {1U, 10U, 4242U, UINT32_MAX}) {
    for (const uint32_t count : {1U, 99U, UINT32_MAX}) {
      EXPECT_EQ(kTemporaryFiles.ProcessOf(kTemporaryFiles.Make(process, count)), process);
    }
  }
  constexpr TemporaryNames kOpenEnd{u".own:", u""};
  EXPECT_EQ(kOpenEnd.ProcessOf(kOpenEnd.Make(3, 4)), 3U);
}

TEST(TemporaryNames, AreNoneInAnyOtherForm) {
  for (const TextView name : {u"",
                              u"~tvx",
                              u"~tvx.tmp",
                              u"~tvx-.tmp",
                              u"~tvx1.tmp",
                              u"~tvx1-.tmp",
                              u"~tvx-1.tmp",
                              u"~tvx0-1.tmp",
                              u"~tvx1-0.tmp",
                              u"~tvx01-1.tmp",
                              u"~tvx1-01.tmp",
                              u"~tvx1-1-1.tmp",
                              u"~tvx1-1.tmp ",
                              u" ~tvx1-1.tmp",
                              u"~TVX1-1.tmp",
                              u"~tvx1-1.TMP",
                              u"~tvx1-1.tmp.tmp",
                              u"~tvx4294967296-1.tmp",
                              u"~tvx1-4294967296.tmp",
                              u"~tvx1-99999999999999999999999.tmp",
                              u"~tvx+1-1.tmp",
                              u"~tvx1- 1.tmp",
                              u"~tvx1-1.tm",
                              u"~tavix1.tmp"}) {
    EXPECT_FALSE(kTemporaryFiles.ProcessOf(name)) << std::string(name.begin(), name.end());
  }
}

}  // namespace
}  // namespace tavix::platform
