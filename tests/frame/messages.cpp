#include "frame/messages.h"

#include <gtest/gtest.h>

#include "doubles/memory_file_system.h"
#include "doubles/memory_host.h"
#include "frame/support/pub_system.h"
#include "platform/application.h"

namespace tavix {
namespace {

using mdlPubSelf::GetMessageText;

machine::FileSeed Content(std::string content) {
  machine::FileSeed seed;
  seed.content = std::move(content);
  return seed;
}

class Messages : public testing::Test {
 protected:
  Messages() {
    platform::applicationFolder = u"C:\\Program Files\\Tavix";
    mdlPubSelf::pubSystem = clsPubSystem({.files = &host.fileSystem});
  }
  ~Messages() override {
    mdlPubSelf::pubSystem = {};
    platform::applicationFolder.clear();
  }
  void Write(const std::string& content) {
    host.files.AddFile(u"C:\\Program Files\\Tavix\\tips.dll", Content(content));
  }

  machine::MemoryHost host;
};

TEST_F(Messages, AreReadFromTheCatalogueBesideTheProgram) {
  Write("[Message & Text]\r\nEXIST=is there.\r\n[Other]\r\nUPGRADE=wrong\r\n");
  EXPECT_EQ(GetMessageText(u"EXIST"), u"is there.");
  EXPECT_EQ(GetMessageText(u"UPGRADE"), u"");
}

TEST_F(Messages, AreReadFromTheFileEachTime) {
  Write("[Message & Text]\nEXIST=one");
  EXPECT_EQ(GetMessageText(u"EXIST"), u"one");
  Write("[Message & Text]\nEXIST=two");
  EXPECT_EQ(GetMessageText(u"EXIST"), u"two");
}

TEST_F(Messages, AreEmptyWithoutACatalogue) { EXPECT_EQ(GetMessageText(u"EXIST"), u""); }

TEST_F(Messages, ShowTheTextOfTheFileUnchanged) {
  Write("[Message & Text]\nEXIST=a\\nb & c\n");
  EXPECT_EQ(GetMessageText(u"EXIST"), u"a\\nb & c");
}

// Lines of the file end with a line feed, so the only line end that a text can hold is a carriage return.
TEST_F(Messages, KeepTheLineEndsOfTheFile) {
  Write("[Message & Text]\r\nEXIST=first\rsecond\r\rthird\r\nUPGRADE=next\r\n");
  EXPECT_EQ(GetMessageText(u"EXIST"), u"first\rsecond\r\rthird");
  EXPECT_EQ(GetMessageText(u"UPGRADE"), u"next");
}

TEST(MessagesWithoutServices, AreEmpty) { EXPECT_EQ(GetMessageText(u"EXIST"), u""); }

}  // namespace
}  // namespace tavix
