#include "text/json.h"

#include <gtest/gtest.h>

namespace tavix {
namespace {

std::string Json(TextView text) {
  std::string out;
  AppendJson(out, text);
  return out;
}

TEST(Json, EscapesWhatMustBeEscapedAndNothingElse) {
  EXPECT_EQ(Json(u""), "\"\"");
  EXPECT_EQ(Json(u"C:\\a \"b\""), "\"C:\\\\a \\\"b\\\"\"");
  EXPECT_EQ(Json(u"\r\n\t\x01"), "\"\\r\\n\\t\\u0001\"");
  EXPECT_EQ(Json(TextView(u"a\0b", 3)), "\"a\\u0000b\"");
  EXPECT_EQ(Json(u"äß世😀/"), "\"äß世😀/\"");
}

TEST(Json, EscapesHalfAPairSoThatTheOutputStaysValid) {
  EXPECT_EQ(Json(u"a\xD83D"), "\"a\\ud83d\"");
  EXPECT_EQ(Json(u"\xDE00z"), "\"\\ude00z\"");
  EXPECT_EQ(Json(u"\xD83D\xD83D\xDE00"), "\"\\ud83d😀\"");
}

}  // namespace
}  // namespace tavix
