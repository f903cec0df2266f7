#include "platform/windows/ordinary_rights.h"

#include <gtest/gtest.h>

#include "platform/windows/com.h"
#include "platform/windows/scratch_place.h"
#include "platform/windows/test_window.h"

namespace tavix::windows {
namespace {

TEST(OrdinaryRights, WhatTheDesktopOpensIsItsOwnProcessAndNotOurs) {
  if (!MakeWindow(u"window")) GTEST_SKIP() << "no display";
  const ComApartment apartment;
  const ScratchPlace place;
  const Text program = place.File(u"a program.cmd", "@echo [%TAVIX_OPENED_BY%]>\"%~dp0done.txt\"\r\n");
  // Ours would have the variable from us.
  SetEnvironmentVariableW(L"TAVIX_OPENED_BY", L"tests");
  const bool opened = OpenByDesktop(program, SW_HIDE);
  SetEnvironmentVariableW(L"TAVIX_OPENED_BY", nullptr);
  if (!opened) GTEST_SKIP() << "no desktop";
  EXPECT_EQ(ContentWhenThere(place.In(u"done.txt")), "[]\r\n");
}

}  // namespace
}  // namespace tavix::windows
