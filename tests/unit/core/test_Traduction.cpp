#include <cstdlib>

#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::EcritFichierEssai;

// A translation file of this test alone.
void PoseTextes(const std::string& langue, const std::string& contenu) {
  DossiersProduit.clear();
  EcritFichierEssai("OVELIN" + langue + ".trad", contenu);
  Regl.Langue = langue;
  OublieTraductions();
}

TEST(Traduire, GivesTheTextOfTheKey) {
  PoseTextes("fr", "[erreurs]\r\n100=Aucun point\r\n[F_Fraisage]\r\nlib001=D\xE9part\r\n");
  EXPECT_EQ(Traduire("erreurs", "100"), "Aucun point");
  EXPECT_EQ(Traduire("f_fraisage", "LIB001"), "Départ");
}

TEST(Traduire, GivesThreeLinesForAnEmptyKey) { EXPECT_EQ(Traduire("erreurs", ""), "___"); }

TEST(Traduire, GivesTheKeyForAMissingOne) {
  PoseTextes("fr", "[erreurs]\r\n100=x\r\n");
  EXPECT_EQ(Traduire("erreurs", "lib999"), "lib999");
  EXPECT_EQ(Traduire("absente", "100"), "100");
}

TEST(Traduire, GivesTheKeyForATextOfTwoDollars) {
  PoseTextes("fr", "[erreurs]\r\n100=$$\r\n");
  EXPECT_EQ(Traduire("erreurs", "100"), "100");
}

TEST(Traduire, GivesAnEmptyTextWhereTheKeyHasOne) {
  PoseTextes("fr", "[erreurs]\r\n100=\r\n");
  EXPECT_EQ(Traduire("erreurs", "100"), "");
}

TEST(Traduire, GivesTheKeyWithoutAFile) {
  DossiersProduit.clear();
  Regl.Langue = "es";
  OublieTraductions();
  EXPECT_EQ(Traduire("erreurs", "100"), "100");
}

TEST(Traduire, TakesAtMost255Characters) {
  PoseTextes("fr", "[erreurs]\r\n100=" + std::string(300, '\xE9') + "\r\n");
  EXPECT_EQ(Traduire("erreurs", "100").size(), 2 * 255U);
}

TEST(Traduire, FollowsTheLanguage) {
  PoseTextes("fr", "[erreurs]\r\n100=bonjour\r\n");
  EXPECT_EQ(Traduire("erreurs", "100"), "bonjour");
  EcritFichierEssai("OVELINen.trad", "[erreurs]\r\n100=hello\r\n");
  Regl.Langue = "en";
  EXPECT_EQ(Traduire("erreurs", "100"), "hello");
}

TEST(Traduire, ReadsTheFileOnceUntilItIsForgotten) {
  PoseTextes("fr", "[erreurs]\r\n100=avant\r\n");
  EXPECT_EQ(Traduire("erreurs", "100"), "avant");
  EcritFichierEssai("OVELINfr.trad", "[erreurs]\r\n100=apres\r\n");
  EXPECT_EQ(Traduire("erreurs", "100"), "avant");
  OublieTraductions();
  EXPECT_EQ(Traduire("erreurs", "100"), "apres");
}

TEST(Traduire, TakesNoLanguageThatIsAPath) {
  EcritFichierEssai("OVELIN.x.trad", "[erreurs]\r\n100=dehors\r\n");
  Regl.Langue = ".x";
  OublieTraductions();
  EXPECT_EQ(Traduire("erreurs", "100"), "100");
}

TEST(LangueDuSysteme, KnowsTheLanguagesOfTheirCountries) {
  EXPECT_EQ(LangueDuSysteme("fr_FR.UTF-8"), "fr");
  EXPECT_EQ(LangueDuSysteme("fr_BE@euro"), "fr");
  EXPECT_EQ(LangueDuSysteme("de_DE"), "de");
  EXPECT_EQ(LangueDuSysteme("es-ES"), "es");
  EXPECT_EQ(LangueDuSysteme("ca_ES.UTF-8"), "ca");
  EXPECT_EQ(LangueDuSysteme("it_IT"), "it");
}

TEST(LangueDuSysteme, TakesALanguageWithoutACountryAsItsHomes) {
  EXPECT_EQ(LangueDuSysteme("fr"), "fr");
  EXPECT_EQ(LangueDuSysteme("de.UTF-8"), "de");
}

TEST(LangueDuSysteme, GivesEnglishForEveryOther) {
  for (const char* locale : {"fr_CA", "fr_CH.UTF-8", "de_AT", "es_MX", "it_CH", "en_GB", "nl_NL", "C", "POSIX",
                             "C.UTF-8", "", "f", "fra", "fr_FRA", "frxFR"}) {
    EXPECT_EQ(LangueDuSysteme(locale), "en") << locale;
  }
}

TEST(LangueDuSysteme, NeverSuggestsPortuguese) {
  EXPECT_EQ(LangueDuSysteme("pt_PT"), "en");
  EXPECT_EQ(LangueDuSysteme("pt"), "en");
}

TEST(LocaleSysteme, TakesTheMostBindingVariable) {
  for (const char* v : {"LC_ALL", "LC_MESSAGES", "LANG"}) unsetenv(v);
  EXPECT_EQ(LocaleSysteme(), "C");
  setenv("LANG", "it_IT", 1);
  EXPECT_EQ(LocaleSysteme(), "it_IT");
  setenv("LC_MESSAGES", "fr_FR", 1);
  EXPECT_EQ(LocaleSysteme(), "fr_FR");
  setenv("LC_ALL", "", 1);  // an empty one counts as none
  EXPECT_EQ(LocaleSysteme(), "fr_FR");
  setenv("LC_ALL", "de_DE", 1);
  EXPECT_EQ(LocaleSysteme(), "de_DE");
  for (const char* v : {"LC_ALL", "LC_MESSAGES", "LANG"}) unsetenv(v);
}

TEST(Langues, ListsTheNamesShown) {
  std::string noms;
  for (const LangueConnue& l : Langues()) noms += std::string(l.code) + "=" + l.nom + " ";
  EXPECT_EQ(noms, "fr=Français en=English de=Deutsch es=Espanol ca=Catalan it=Italiano pt=Portugues ");
}

}  // namespace
