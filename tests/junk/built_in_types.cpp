#include "junk/built_in_types.h"

#include <gtest/gtest.h>

namespace tavix::mdlPubSelf {
namespace {

// One type a line, in the order of the options list: description, pattern, whether it is recommended, whether
// it is searched for.
constexpr TextView kTypes =
    u"Backup Files|*.old|Y|Y\n"
    u"Backup Files|*.bak|N|N\n"
    u"Backup Files|*.prv|Y|Y\n"
    u"Backup Files|*.syd|N|N\n"
    u"Backup Files|*.sik|N|N\n"
    u"CorelDraw Backup Files|*.cdr_|N|N\n"
    u"Description for Zip Files|*.diz|N|N\n"
    u"Error Log Files|*.err|Y|Y\n"
    u"Error Log Files|*errorlog.txt|Y|Y\n"
    u"Excel Backup Files|*.xlk|N|N\n"
    u"File Fragments|file0*.chk|Y|Y\n"
    u"File Fragments|chklist.m*|Y|Y\n"
    u"File Fragments|file????._dd|Y|N\n"
    u"Full Text Group Files|*.ftg|Y|Y\n"
    u"Full Text Search Files|*.fts|Y|Y\n"
    u"Installer Temporary Files|*.%%%|Y|N\n"
    u"Installer Temporary Files|*.@@@|Y|Y\n"
    u"Installer Temporary Files|*.$$$|Y|Y\n"
    u"Installer Temporary Files|mscreate.dir|Y|Y\n"
    u"Installer Temporary Files|imagedb.aid|Y|Y\n"
    u"Intermediate Files|*.ilk|N|N\n"
    u"Intermediate Files|*.aps|N|N\n"
    u"Intermediate Files|*.ncb|N|N\n"
    u"Log Files|*.log|Y|Y\n"
    u"Log Files|*log.txt|N|N\n"
    u"Log Files|log*.txt|N|N\n"
    u"Log Files|*.log?|N|Y\n"
    u"Mac Photoshop to Windows Temporary Files|*.#res|Y|N\n"
    u"MacroMedia Xtra Cache Files|*.mch|Y|Y\n"
    u"Memory Dump Files|*.dmp|Y|Y\n"
    u"Newsgroup Temporary Files|0???????.nch|Y|Y\n"
    u"Pictures Preview Index Files|thumbs.db|Y|Y\n"
    u"Precompiled Header Files|*.pch|N|N\n"
    u"Prefetch Files|*exe-*.pf|N|N\n"
    u"Search Temporary Files|*.fnd|Y|Y\n"
    u"Temporary Files|*.~*|Y|Y\n"
    u"Temporary Files|~*.*|Y|Y\n"
    u"Temporary Files|*.---|Y|Y\n"
    u"Temporary Files|*.^*|N|Y\n"
    u"Temporary Files|*.??~|N|Y\n"
    u"Temporary Files|*.??$|Y|Y\n"
    u"Temporary Files|*.tmp|Y|Y\n"
    u"Temporary Files|*._mp|Y|Y\n"
    u"Temporary Files|*.$*|Y|Y\n"
    u"Temporary Files|*.temp|N|Y\n"
    u"Temporary Files|*.___|N|Y\n"
    u"Temporary Files|*.~mp|N|Y\n"
    u"Temporary Files|*.$db|N|Y\n"
    u"Temporary Files|*.?$?|N|Y\n"
    u"Temporary Files|*.?~?|N|Y\n"
    u"Temporary Files|*.db$|N|Y\n"
    u"Temporary Files|*.^|N|Y\n"
    u"Temporary Files|*.detmp|N|Y\n"
    u"Windows Help Index Files|*.gid|Y|Y\n"
    u"Word Backup Files|*.wbk|N|N\n"
    u"WordPerfect Temporary Files|*.spc|N|N\n";

TEST(BuiltInJunkTypes, AreTheseWordForWord) {
  const auto lines = Split(kTypes, u"\n");
  ASSERT_EQ(std::size(kBuiltInJunkTypes) + 1, lines.size()) << "the last line has an end, too";
  for (size_t i = 0; i < std::size(kBuiltInJunkTypes); ++i) {
    const BuiltInJunkType& type = kBuiltInJunkTypes[i];
    Text line = Concat(type.description, u"|", type.pattern, u"|", type.flags);
    if (const size_t tab = line.find(u'\t'); tab != Text::npos) line[tab] = u'|';
    EXPECT_EQ(line, lines[i]) << i;
  }
}

}  // namespace
}  // namespace tavix::mdlPubSelf
