#include <sys/stat.h>

#include "language_fixture.h"
#include "platform/memory_settings_store.h"

namespace kxc {
namespace {

using testing::LanguageTest;

class TransMesTest : public LanguageTest {
 protected:
  TransMesTest() {
    textAll("NAME", "Name");
    text("NAME", 2, "Bezeichnung");
    textAll("INDEX", "Index");
    textAll("HELP", "Help");
    textAll("OK&", "&OK");
    textAll("FILE", "Fi&le");
    textAll("GREET", "Grüße");
    textAll("MANAGER%", "%%1 Manager");
    textAll("OF", "%%1 of %%2");
    textAll("WRAP", "A %%1 B");
  }
};

TEST_F(TransMesTest, TextsWithoutTheKeyMarkPassUnchanged) {
  branding("Yes", "Acme");
  auto lang = make();
  for (const char* plain : {"OK", "Kestra", "", "x@NAME", " @NAME"}) {
    EXPECT_EQ(lang->TransMes(plain), plain);
  }
}

TEST_F(TransMesTest, KeysAnswerInTheCurrentLanguage) {
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@NAME"), "Name");
  lang->CurrentLanguage(int16_t{2});
  EXPECT_EQ(lang->TransMes("@NAME"), "Bezeichnung");
  EXPECT_EQ(userSetting("CurrentLanguage"), "2");
}

TEST_F(TransMesTest, AccessKeyHintsPlaceTheOnlyAmpersand) {
  auto lang = make();
  struct Case {
    const char* key;
    const char* out;
  };
  for (auto c : {Case{"@HELP &H", "&Help"}, Case{"@HELP &e", "H&elp"}, Case{"@HELP &Z", "Help"},
                 Case{"@HELP &LP", "He&lp"}, Case{"@FILE &F", "&File"}, Case{"@FILE &L", "Fi&le"},
                 Case{"@OK&", "&OK"}, Case{"@GREET &ü", "Gr&üße"}, Case{"@HELP &", "&Help"},
                 Case{"@HELP &H &X", "Help"},  // the hint is everything after the first " &"
                 Case{"@ABSENT &H", "!!ABSENT"}, Case{"@HELP &H", "&Help"}}) {
    EXPECT_EQ(lang->TransMes(c.key), c.out) << c.key;
  }
}

TEST_F(TransMesTest, AMissingKeyShowsItsCode) {
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@VALUE"), "!!VALUE");
  EXPECT_EQ(lang->TransMes("@HELP &H"), "&Help");
  EXPECT_EQ(lang->TransMes("@Name"), "!!Name");  // codes compare exactly
  EXPECT_EQ(lang->TransMes("@HELP_ME &H"), "!!&HELP_ME");
  EXPECT_EQ(lang->TransMes("@VALUE &Q"), "!!VALUE");
}

TEST_F(TransMesTest, PlaceholdersAreFilledAndTheRestRemoved) {
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@OF", "A", "B"), "A of B");
  EXPECT_EQ(lang->TransMes("@OF", "A"), "A of ");
  EXPECT_EQ(lang->TransMes("@OF", {}, "B"), " of B");
  EXPECT_EQ(lang->TransMes("@OF", "@NAME", "@INDEX"), "Name of Index");
  EXPECT_EQ(lang->TransMes("@OF", int32_t{5}, 2.5), "5 of 2.5");
  EXPECT_EQ(lang->TransMes("@OF", Variant(), "x"), " of x");  // an empty variant is given
  EXPECT_EQ(lang->TransMes("@MANAGER% &M", "Kestra"), "Kestra &Manager");
}

TEST_F(TransMesTest, APlaceholderInsideAParameterIsRemovedAfterwards) {
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@WRAP", "x%%1y"), "A xy B");
  EXPECT_EQ(lang->TransMes("@OF", "a", "b%%1c%%4"), "a of bc");
}

TEST_F(TransMesTest, TheLanguageComesFromTheSettingsOnEveryCall) {
  auto lang = make();
  EXPECT_EQ(lang->TransMes("@NAME"), "Name");
  userSetting("CurrentLanguage", "2");
  EXPECT_EQ(lang->TransMes("@NAME"), "Bezeichnung");
  EXPECT_EQ(lang->CurrentLanguage(), 2);
  userSetting("CurrentLanguage", "2.6 was typed");  // the leading number, rounded
  lang->TransMes("@NAME");
  EXPECT_EQ(lang->CurrentLanguage(), 3);
}

TEST_F(TransMesTest, OutOfRangeLanguagesAreIgnored) {
  auto lang = make();
  lang->CurrentLanguage(int16_t{2});
  for (int16_t bad : {int16_t{16}, int16_t{-1}, int16_t{32767}}) {
    lang->CurrentLanguage(bad);
    EXPECT_EQ(lang->CurrentLanguage(), 2);
  }
  for (const char* stored : {"16", "-1", "99999999", "abc"}) {
    userSetting("CurrentLanguage", stored);
    EXPECT_EQ(lang->TransMes("@NAME"), std::string(stored) == "abc" ? "Name" : "Bezeichnung");
    // A foreign value stays in the settings; "abc" reads as language 0, which is written back.
    EXPECT_EQ(userSetting("CurrentLanguage"), std::string(stored) == "abc" ? "0" : stored);
    lang->CurrentLanguage(int16_t{2});
  }
}

TEST_F(TransMesTest, AnUnreadableLanguageIsResetToZero) {
  auto lang = make();
  lang->CurrentLanguage(int16_t{2});
  ASSERT_EQ(userSetting("CurrentLanguage"), "2");
  userSetting("CurrentLanguage", std::string(501, '7'));  // too long to read
  EXPECT_EQ(lang->TransMes("@NAME"), "Name");
  EXPECT_EQ(userSetting("CurrentLanguage"), "0");
}

TEST_F(TransMesTest, WithoutTheSettingsKeyTheLanguageIsNotKept) {
  setSettingsStore(std::make_shared<MemorySettingsStore>());  // restored as the context ends
  auto lang = make();
  lang->CurrentLanguage(int16_t{2});
  EXPECT_EQ(lang->CurrentLanguage(), 2);
  EXPECT_FALSE(userSetting("CurrentLanguage"));  // the key is missing: the write is lost
  EXPECT_EQ(lang->TransMes("@NAME"), "Name");    // and the next call falls back to 0
  EXPECT_FALSE(settingsStore().keyExists(SettingsRoot::User, kCacheSettingsKey));
}

TEST_F(TransMesTest, RepeatedTranslationsDoNotRewriteTheSettingsFile) {
  auto lang = make();
  lang->TransMes("@NAME");
  struct stat before {};
  ASSERT_EQ(::stat(folders_.userFile().c_str(), &before), 0);
  for (int i = 0; i < 50; ++i) lang->TransMes("@NAME");
  struct stat after {};
  ASSERT_EQ(::stat(folders_.userFile().c_str(), &after), 0);
  EXPECT_EQ(after.st_ino, before.st_ino);
  EXPECT_EQ(after.st_mtim.tv_nsec, before.st_mtim.tv_nsec);
}

TEST_F(TransMesTest, AClosedCatalogueAnswersEmptyTextsForKeys) {
  auto lang = make(false);
  EXPECT_FALSE(lang->catalogueOpen());
  EXPECT_EQ(lang->TransMes("@NAME"), "");
  EXPECT_EQ(lang->TransMes("@HELP &H"), "");
  EXPECT_EQ(lang->TransMes("OK"), "OK");
}

TEST_F(TransMesTest, ANullTranslationGivesAnEmptyText) {
  text("HOLE", 0, "zero");
  auto lang = make();
  lang->CurrentLanguage(int16_t{3});
  EXPECT_EQ(lang->TransMes("@HOLE &Z"), "");  // first call: the failing read is skipped
  EXPECT_EQ(lang->TransMes("@HOLE &Z"), "");  // later calls end at the failure
  EXPECT_EQ(lang->TransMes("@NAME"), "Name");
}

TEST_F(TransMesTest, TransMesPlusJoinsTwoKeysAtTheFirstPlus) {
  auto lang = make();
  struct Case {
    const char* key;
    const char* out;
  };
  for (auto c : {Case{"@NAME+ @INDEX", "Name Index"}, Case{"@NAME+", "Name"},
                 Case{"@NAME+ (x)", "Name (x)"}, Case{"@NAME+ a @INDEX", "Name a Index"},
                 Case{"@NAME+@INDEX+@NAME", "Name!!INDEX+@NAME"}, Case{"@NAME", "Name"},
                 Case{"NAME+@INDEX", "NAME+@INDEX"}, Case{"@HELP &H+ @INDEX", "&Help Index"}}) {
    EXPECT_EQ(lang->TransMesPlus(c.key), c.out) << c.key;
  }
  EXPECT_EQ(lang->TransMesPlus("@OF+ @OF", "1", "2"), "1 of 2 1 of 2");
}

TEST_F(TransMesTest, LanguageListHasSixteenEntries) {
  detail("00_UserName", "English");
  detail("02_UserName", "Deutsch");
  auto lang = make();
  auto list = lang->GetLanguageList();
  ASSERT_EQ(list.size(), 16u);
  EXPECT_EQ(list[0], "English");
  EXPECT_EQ(list[1], "not found");
  EXPECT_EQ(list[2], "Deutsch");
  EXPECT_EQ(list[15], "not found");
}

TEST_F(TransMesTest, LanguageListStopsAtAFailure) {
  detail("00_UserName", "English");
  detail("01_UserName", std::nullopt);
  detail("02_UserName", "Deutsch");
  auto list = make()->GetLanguageList();
  ASSERT_EQ(list.size(), 16u);
  EXPECT_EQ(list[0], "English");
  EXPECT_EQ(list[2], "");
  auto closed = make(true, false)->GetLanguageList();
  EXPECT_EQ(closed, std::vector<std::string>(16));
}

TEST(CatalogueFolder, FollowsTheLibraryExceptUnderTheOldInstallFolder) {
  struct Case {
    const char* library;
    const char* folder;
  };
  for (auto c :
       {Case{"/opt/kestra/lib", "/opt/kestra/lib"}, Case{"C:\\TAMREL\\Bin", "C:"},
        Case{"d:\\apps\\c:\\tamrel", "C:"}, Case{"C:/TAMREL", "C:/TAMREL"}, Case{"", ""}}) {
    EXPECT_EQ(catalogueFolderFor(c.library), c.folder) << c.library;
  }
  EXPECT_EQ(cataloguePath("C:", kCatalogueFileName), "C:/TmBvCacheLanguages.xml");
  EXPECT_EQ(cataloguePath("/x/", kCatalogueFileName), "/x/TmBvCacheLanguages.xml");
}

TEST_F(TransMesTest, TheDefaultObjectLooksBesideTheLibrary) {
  ::setenv("KXC_LIBRARY_DIR", "/opt/kestra", 1);
  std::vector<std::string> paths;
  setCatalogueOpener([&](const std::string& path) {
    paths.push_back(path);
    return nullptr;
  });
  Language lang;
  ::unsetenv("KXC_LIBRARY_DIR");
  EXPECT_EQ(paths, (std::vector<std::string>{"/opt/kestra/TmBvCacheLanguages.xml",
                                             "/opt/kestra/TmBvCacheLanguageFontDetails.xml"}));
}

}  // namespace
}  // namespace kxc
