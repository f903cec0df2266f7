#include "platform/machine/services/machine_network.h"

#include <gtest/gtest.h>

namespace tavix::machine {
namespace {

TEST(MachineNetwork, AnswersWhatIsScriptedAndNotesEveryCall) {
  Journal journal;
  MachineNetwork network(journal);
  network.answers[u"http://a.example/x"] = "answer";
  network.answers[u"http://a.example/empty"] = "";
  EXPECT_EQ(network.Fetch(u"http://a.example/x", 6), "answer");
  EXPECT_EQ(network.Fetch(u"http://a.example/empty", 7), "");
  EXPECT_EQ(network.Fetch(u"http://b.example/", 26), std::nullopt);
  ASSERT_EQ(journal.Entries().size(), 3U);
  EXPECT_EQ(journal.Entries()[2].Json(), R"({"op":"Fetch","url":"http://b.example/"})");
  EXPECT_EQ(network.timeouts, (std::vector<int>{6, 7, 26}));
}

}  // namespace
}  // namespace tavix::machine
