// Help by the desktop, and the addresses of the project's site.
#include <filesystem>

#include "core/Aide.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Dossiers.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"

namespace essai {
namespace {

using namespace ovelin;

TEST(Aide, OpensTheManualOfTheProgramsFolder) {
  const std::string chemin = EcritFichierEssai("OVELIN V4.pdf", "%PDF");
  AttendBureau(chemin);
  mnu_Help();
  EXPECT_TRUE(Boites().empty());
}

TEST(Aide, OpensTheInstalledManualWhereTheProgramsFolderHasNone) {
  std::filesystem::create_directories(Dossier() + "/installe");
  const std::string chemin = EcritFichierEssai("installe/OVELIN V4.pdf", "%PDF");
  DossiersProduit = {Dossier() + "/installe"};
  AttendBureau(chemin);
  mnu_Help();
}

TEST(Aide, OpensTheManualOfTheLanguageThatLiesInItsFolder) {
  std::filesystem::create_directories(Dossier() + "/en");
  EcritFichierEssai("OVELIN V4.pdf", "%PDF");
  const std::string anglais = EcritFichierEssai("en/OVELIN V4.pdf", "%PDF");
  Regl.Langue = "en";
  AttendBureau(anglais);
  mnu_Help();
}

TEST(Aide, FrenchStandsInForALanguageWithoutAManual) {
  std::filesystem::create_directories(Dossier() + "/en");
  const std::string francais = EcritFichierEssai("OVELIN V4.pdf", "%PDF");
  EcritFichierEssai("en/OVELIN V4.pdf", "%PDF");
  for (const char* langue : {"fr", "de"}) EXPECT_EQ(TrouveAide(langue), francais) << langue;
}

TEST(Aide, AManualBesideTheProgramGoesBeforeAnInstalledOneOfTheLanguage) {
  std::filesystem::create_directories(Dossier() + "/installe/en");
  EcritFichierEssai("installe/en/OVELIN V4.pdf", "%PDF");
  const std::string propre = EcritFichierEssai("OVELIN V4.pdf", "%PDF");
  DossiersProduit = {Dossier() + "/installe"};
  EXPECT_EQ(TrouveAide("en"), propre);
}

struct Refus {
  IssueBureau issue;
  const char* cle;
};
class AideRefusee : public testing::TestWithParam<Refus> {};
INSTANTIATE_TEST_SUITE_P(Reponses, AideRefusee,
                         testing::Values(Refus{IssueBureau::FichierAbsent, "lib002"},
                                         Refus{IssueBureau::CheminAbsent, "lib003"},
                                         Refus{IssueBureau::SansDroit, "lib005"},
                                         Refus{IssueBureau::SansAssociation, "lib031"}));

TEST_P(AideRefusee, TellsTheReasonBehindTheNameOfTheFile) {
  AttendBureau(DossierProgramme + "/OVELIN V4.pdf", GetParam().issue);
  Attend("Aide", GetParam().cle);
  mnu_Help();
  EXPECT_THAT(Boites()[0].texte, testing::StartsWith("OVELIN V4.pdf : "));
  EXPECT_THAT(Boites()[0].texte, testing::EndsWith(" !"));
}

TEST(Aide, HasNoAddressUntilOneIsSet) { EXPECT_EQ(AdresseSite("/Aide/HELP.htm"), ""); }

TEST(Aide, PutsThePageBehindTheAddressThatIsSet) {
  EcrireCle(cles::AdresseMaj, " https://example.org/ovelin/ ");
  EXPECT_EQ(AdresseSite("/Aide/HELP.htm"), "https://example.org/ovelin/Aide/HELP.htm");
  EXPECT_EQ(AdresseSite(""), "https://example.org/ovelin");
}

}  // namespace
}  // namespace essai
