#include <gtest/gtest.h>

#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <string>

#include "forms/about_form.h"
#include "forms/main_form.h"
#include "forms/options_form.h"
#include "forms/type_form.h"
#include "support/source_folder.h"
#include "text/ini_text.h"
#include "text/letter_case.h"
#include "text/text_file.h"
#include "text/utf8.h"

namespace tavix {
namespace {

using Texts = std::map<std::string, Text>;

FileText Catalogue(const std::string& language, const std::string& name) {
  std::ifstream file(SourceFolder() + "/res/lang/" + language + "/" + name, std::ios::binary);
  return DecodeTextFile(std::string(std::istreambuf_iterator<char>(file), {}));
}

Texts Section(const FileText& file, TextView section) {
  Texts texts;
  VisitIniSection(file.text, section, [&](TextView key, TextView value) {
    EXPECT_TRUE(texts.emplace(ToUtf8(key), value).second) << "twice: " << ToUtf8(key);
  });
  return texts;
}

Texts BuiltIn(const std::vector<NamedText>& named) {
  Texts texts;
  for (const NamedText& text : named) {
    EXPECT_TRUE(texts.emplace(ToUtf8(text.Name), text.Get()).second) << "twice: " << ToUtf8(text.Name);
  }
  return texts;
}

std::vector<std::string> Keys(const Texts& texts) {
  std::vector<std::string> keys;
  for (const auto& [key, text] : texts) keys.push_back(key);
  return keys;
}

// The names of all sections, in the order of the file.
std::vector<Text> SectionNames(const FileText& file) {
  std::vector<Text> names;
  for (const TextView line : Split(file.text, u"\r\n")) {
    if (line.starts_with(u'[')) names.emplace_back(line.substr(1, line.size() - 2));
  }
  return names;
}

struct Forms {
  MainForm main;
  OptionsForm options;
  TypeForm type;
  AboutForm about;
  std::vector<Form*> All() { return {&main, &options, &type, &about}; }
};

const std::vector<std::string> kMessages{
    "ADD_JUNK",      "BACKUP_FOLDER", "BUTTON_CANCEL", "BUTTON_NO",       "BUTTON_OK", "BUTTON_YES",
    "CM_REMARK",     "DATA_FOREIGN",  "DATA_STAYS",    "DEL_TYPE_PROMPT", "DF_REMARK", "EDIT_JUNK",
    "EXCEPT_FOLDER", "EXIST",         "EXT_ERR",       "INPUT_DESC",      "INPUT_EXT", "JF_REMARK",
    "LBOUND_ERR",    "NEED_COMM",     "NEED_DESC",     "NEED_PATTERN",    "NO_FOLDER", "NO_NEWVER",
    "NO_TYPE_DEL",   "NO_TYPE_EDIT",  "OC_REMARK",     "ONE_CLICK",       "OO_REMARK", "PATTERN_ERR",
    "UPGRADE"};

class EachLanguage : public testing::TestWithParam<const char*> {};

TEST_P(EachLanguage, HasEveryMessageAndNoMore) {
  EXPECT_EQ(Keys(Section(Catalogue(GetParam(), "tips.dll"), u"Message & Text")), kMessages);
}

TEST_P(EachLanguage, HasEveryTextOfTheFormsAndNoMore) {
  Forms forms;
  const FileText tips = Catalogue(GetParam(), "tips.dll");
  std::vector<Text> sections{u"Message & Text"};
  for (Form* form : forms.All()) {
    EXPECT_EQ(Keys(Section(tips, form->Name())), Keys(BuiltIn(form->Texts())));
    sections.emplace_back(form->Name());
  }
  EXPECT_EQ(SectionNames(tips), sections);
}

TEST_P(EachLanguage, HasEveryMenuCaptionAndNoMore) {
  Forms forms;
  const FileText menus = Catalogue(GetParam(), "menus.dll");
  EXPECT_EQ(Keys(Section(menus, u"frmPubType")), Keys(BuiltIn(forms.type.Menus())));
  EXPECT_EQ(SectionNames(menus), std::vector<Text>{u"frmPubType"});
}

TEST_P(EachLanguage, IsUtf8AndLeavesNothingEmpty) {
  for (const char* name : {"tips.dll", "menus.dll"}) {
    const FileText file = Catalogue(GetParam(), name);
    EXPECT_EQ(file.encoding, TextEncoding::Utf8);
    for (const Text& section : SectionNames(file)) {
      for (const auto& [key, text] : Section(file, section)) EXPECT_NE(Trim(text), u"") << key;
    }
  }
}

// The access keys of a caption, in capitals. A doubled ampersand marks none.
std::u16string AltLetters(TextView caption) {
  std::u16string letters;
  for (size_t i = 0; i + 1 < caption.size(); ++i) {
    if (caption[i] != u'&') continue;
    if (caption[++i] != u'&')
      letters += caption[i] >= u'a' && caption[i] <= u'z' ? caption[i] - 32 : caption[i];
  }
  return letters;
}

// The controls that are on screen together.
const std::vector<std::pair<TextView, std::vector<std::string>>> kShownTogether{
    {u"frmPubOptions", {"sbtJF", "sbtSave", "sbtRecommend", "sbtClose"}},
    {u"frmPubOptions", {"cbxDF", "optDF", "sbtDF", "sbtSave", "sbtRecommend", "sbtClose"}},
    {u"frmPubOptions", {"optCM", "sbtCM", "sbtSave", "sbtRecommend", "sbtClose"}},
    {u"frmPubOptions", {"optOO", "lblOODays", "sbtOO", "sbtSave", "sbtRecommend", "sbtClose"}},
    {u"frmPubType", {"lbl", "sbt"}},
    {u"frmPubAbout", {"sbt"}},
};

TEST_P(EachLanguage, GivesNoAltLetterTwice) {
  const FileText tips = Catalogue(GetParam(), "tips.dll");
  for (const auto& [form, names] : kShownTogether) {
    std::map<char16_t, std::string> taken;
    for (const auto& [key, text] : Section(tips, form)) {
      const auto shown = [&entry = key](const std::string& name) { return entry.starts_with(name); };
      if (std::none_of(names.begin(), names.end(), shown)) continue;
      EXPECT_LE(AltLetters(text).size(), 1U) << key;
      for (const char16_t letter : AltLetters(text)) {
        EXPECT_TRUE(taken.emplace(letter, key).second) << key << " and " << taken[letter];
      }
    }
  }
}

TEST_P(EachLanguage, GivesTheButtonsOfABoxDifferentLetters) {
  const Texts messages = Section(Catalogue(GetParam(), "tips.dll"), u"Message & Text");
  EXPECT_EQ(AltLetters(messages.at("BUTTON_YES")).size(), 1U);
  EXPECT_EQ(AltLetters(messages.at("BUTTON_NO")).size(), 1U);
  EXPECT_NE(AltLetters(messages.at("BUTTON_YES")), AltLetters(messages.at("BUTTON_NO")));
}

// The words of a language for passwords, logs and ticks.
struct PlainWords {
  Text passwords, logs, ticks;
};
const std::map<std::string, PlainWords> kPlainWords{
    {"en", {u"passwords", u"event logs", u"The ticks don't limit the search"}},
    {"de",
     {u"Kennw\u00f6rter", u"Ereignisprotokolle", u"Die H\u00e4kchen schr\u00e4nken die Suche nicht ein"}}};

TEST_P(EachLanguage, SaysPlainlyThatPasswordsAndLogsGoAndThatTicksDoNotLimitTheSearch) {
  const Texts messages = Section(Catalogue(GetParam(), "tips.dll"), u"Message & Text");
  const PlainWords& words = kPlainWords.at(GetParam());
  for (const char* key : {"ONE_CLICK", "OC_REMARK"}) {
    const Text text = ToLower(messages.at(key));
    EXPECT_NE(text.find(ToLower(words.passwords)), Text::npos) << key;
    EXPECT_NE(text.find(ToLower(words.logs)), Text::npos) << key;
  }
  EXPECT_NE(messages.at("JF_REMARK").find(words.ticks), Text::npos);
}

INSTANTIATE_TEST_SUITE_P(Catalogues, EachLanguage, testing::Values("en", "de"),
                         [](const auto& test) { return std::string(test.param); });

TEST(EnglishCatalogue, EqualsTheBuiltInCaptions) {
  Forms forms;
  const FileText tips = Catalogue("en", "tips.dll");
  for (Form* form : forms.All()) EXPECT_EQ(Section(tips, form->Name()), BuiltIn(form->Texts()));
  EXPECT_EQ(Section(Catalogue("en", "menus.dll"), u"frmPubType"), BuiltIn(forms.type.Menus()));
  EXPECT_EQ(ReadIniValue(tips.text, u"Message & Text", u"ADD_JUNK"), forms.type.Caption.Get());
}

TEST(GermanCatalogue, TranslatesTheMessages) {
  const Texts english = Section(Catalogue("en", "tips.dll"), u"Message & Text");
  for (const auto& [key, text] : Section(Catalogue("de", "tips.dll"), u"Message & Text")) {
    if (key == "BUTTON_OK") continue;  // the word is the same
    EXPECT_NE(text, english.at(key)) << key;
  }
}

}  // namespace
}  // namespace tavix
