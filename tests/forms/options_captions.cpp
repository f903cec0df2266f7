#include <gtest/gtest.h>

#include "forms/options_form.h"
#include "forms/type_form.h"

namespace tavix {
namespace {

struct Caption {
  const char* name;
  const char16_t* text;
};

// The built-in captions, shown without a catalogue.
constexpr Caption kOptions[] = {
    {"cbxDF(0)", u"Equal Name"},
    {"cbxDF(1)", u"Equal &Size"},
    {"cbxDF(2)", u"Equal Modified &Time"},
    {"cbxDF(3)", u"File Size Must Be &Greater Than "},
    {"optDF(0)", u"&All Files"},
    {"optDF(1)", u"&Only The Following Common Files"},
    {"fraDFGroup(0)", u"Duplicate Rule"},
    {"fraDFGroup(1)", u"Scanning Scope"},
    {"optCM(2)", u"&Move to The Following Folder"},
    {"optOO(0)", u"&Auto"},
    {"optOO(2)", u"&Small"},
    {"fraOOGroup(0)", u"Interface Size"},
    {"fraOOGroup(1)", u"'Last Accessed ? Days Before' Scanning Options"},
    {"fraOOGroup(2)", u"Exception Folder(s) (include sub folder(s)) for 'Advanced' Clean"},
    {"lblOOSize(0)", u"The main interface size is bases on the screen resolution."},
    {"lblOOSize(1)", u"Applies to 1024 * 768+ screen resolution."},
    {"lblOOSize(2)", u"Applies to 800 * 600+ screen resolution."},
    {"lblOOSize(3)", u"Note: this option will be effective at next startup."},
    {"lblOODays(0)", u"For 'Advanced -> &Last Accessed ? Days Before' Cleaning Function"},
    {"lblOODays(1)", u"For 'System -> &Old Prefetch data' Cleaning Function"},
    {"lsvJF.ColumnHeaders(1)", u"Description"},
    {"lsvJF.ColumnHeaders(2)", u"Pattern"},
    {"lsvOO.ColumnHeaders(1)", u"Folder"},
    {"lsvOO.ColumnHeaders(2)", u"Description"},
};

constexpr Caption kType[] = {
    {"sbt(0)", u"Save && Add"},
    {"sbt(1)", u"Save && Close"},
    {"sbt(2)", u"Close"},
};

Text CaptionOf(Form& form, std::string_view name) {
  for (const NamedText& text : form.Texts()) {
    if (text.Name == Text(name.begin(), name.end())) return text.Get();
  }
  return u"(missing)";
}

TEST(OptionsCaptions, AreThoseOfTheProgram) {
  OptionsForm options;
  for (const Caption& caption : kOptions)
    EXPECT_EQ(CaptionOf(options, caption.name), caption.text) << caption.name;
  TypeForm type;
  for (const Caption& caption : kType) EXPECT_EQ(CaptionOf(type, caption.name), caption.text) << caption.name;
}

TEST(OptionsCaptions, NameIsAFixedRule) {
  OptionsForm options;
  EXPECT_EQ(options.cbxDF[0].Value, 1);
  EXPECT_FALSE(options.cbxDF[0].Enabled);
}

TEST(TypeCaptions, TitleIsTheModeAndStaysOutOfTheCatalogue) {
  TypeForm type;
  EXPECT_EQ(CaptionOf(type, "Caption"), u"(missing)");
}

}  // namespace
}  // namespace tavix
