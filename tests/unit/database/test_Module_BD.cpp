#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "database/Module_BD.h"
#include "tests/support/Support.h"

namespace {

using namespace ovelin;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LitFichierEssai;

FicheMateriau Fiche(const char* nom, const char* rayon = "0.5", const char* profondeur = "-4",
                    const char* passe = "-2", const char* avanceH = "8", const char* avanceV = "2",
                    const char* largeur = "5", const char* hauteur = "4") {
  return {{nom, rayon, "2 flutes", profondeur, passe, avanceH, avanceV, largeur, hauteur}};
}

std::string Ini() { return LitFichierEssai(Dossier() + "/OVELIN.ini"); }

// An open project that overrides key after key.
void OuvreProjet(const std::string& lignes) {
  FichierCourant = EcritFichierEssai("job.OVL", lignes);
  FichierProjet = FichierCourant;
}

TEST(EcritFichesDefaut, FirstStartGivesFiveRows) {
  EcritFichesDefaut();
  const auto fiches = LitFiches();
  ASSERT_EQ(fiches.size(), 5U);
  EXPECT_EQ(fiches[0], (FicheMateriau{{"Dépron 3 mm", "0.5", "2 lèvres", "-4", "-4", "8.33", "2", "5", "4"}}));
  EXPECT_EQ(fiches[1], (FicheMateriau{{"Dépron 6 mm", "0.5", "2 lèvres", "-7", "-7", "8.33", "2", "5", "7"}}));
  EXPECT_EQ(fiches[2], (FicheMateriau{{"Formica 0,7 mm", "0.8", "2 lèvres", "-2", "-1", "5.0", "2", "3", "1"}}));
  EXPECT_EQ(fiches[3], (FicheMateriau{{"CTP 3 mm", "0.8", "Diamant", "-4.5", "-4.5", "2.5", "2", "2", "4.5"}}));
  EXPECT_EQ(fiches[4], (FicheMateriau{{"Alu 2 mm", "0.8", "2 lèvres", "-2.5", "-2", "1.0", "2", "2", "2"}}));
}

TEST(EcritFichesDefaut, LeavesAListThatIsThere) {
  EcritFiches({Fiche("Oak")});
  EcritFichesDefaut();
  ASSERT_EQ(LitFiches().size(), 1U);
  EXPECT_EQ(LitFiches()[0].champs[0], "Oak");
}

TEST(EcritFichesDefaut, IsNotFooledByAProjectThatHoldsRows) {
  OuvreProjet("$$DB1=From the project\r\n");
  EcritFichesDefaut();
  EXPECT_EQ(LitFiches().size(), 5U);
}

TEST(EcritFiches, StoresTabsAsTwoSigns) {
  EcritFiches({Fiche("Oak")});
  EXPECT_NE(Ini().find("DB1=Oak&&0.5&&2 flutes&&-4&&-2&&8&&2&&5&&4\r\n"), std::string::npos) << Ini();
}

TEST(EcritFiches, ComesBackAsItWas) {
  const std::vector<FicheMateriau> fiches{Fiche("Oak"), Fiche("Beech, 3 mm", "0,8"), Fiche("Hêtre")};
  EcritFiches(fiches);
  OublieCles();
  EXPECT_EQ(LitFiches(), fiches);
}

TEST(EcritFiches, DeletesTheRowsBehindTheLast) {
  EcritFichesDefaut();
  auto fiches = LitFiches();
  fiches.erase(fiches.begin() + 2);
  EcritFiches(fiches);
  OublieCles();
  EXPECT_EQ(LitFiches(), fiches);
  EXPECT_EQ(LireCle("DB4", "$$"), "Alu 2 mm\t0.8\t2 lèvres\t-2.5\t-2\t1.0\t2\t2\t2");
  EXPECT_EQ(LireCle("DB5", "$$"), "$$");
}

TEST(EcritFiches, EmptyListDeletesEveryRow) {
  EcritFichesDefaut();
  EcritFiches({});
  EXPECT_TRUE(LitFiches().empty());
  EXPECT_EQ(LireCle("DB1", "$$"), "$$");
}

TEST(EcritFiches, NameWithACommaSurvives) {
  EcritFiches({Fiche("Formica 0,7 mm")});
  EXPECT_EQ(LitFiches()[0].champs[0], "Formica 0,7 mm");
}

TEST(EcritFiches, NameWithATabShiftsTheFields) {
  EcritFiches({Fiche("Oak\tred")});
  const auto fiche = LitFiches()[0];
  EXPECT_EQ(fiche.champs[0], "Oak");
  EXPECT_EQ(fiche.champs[1], "red");
  EXPECT_EQ(fiche.champs[2], "0.5");
  EXPECT_EQ(fiche.champs[8], "5");  // the last one is pushed out
}

TEST(EcritFiches, LeavesTheOpenProjectAlone) {
  OuvreProjet("$$RayonFraise=2\r\n");
  const std::string avant = LitFichierEssai(FichierCourant);
  EcritFiches({Fiche("Oak")});
  EXPECT_EQ(LitFichierEssai(FichierCourant), avant);
  EXPECT_EQ(FichierProjet, FichierCourant) << "the override is on again";
}

TEST(LitFiches, EndsAtTheFirstMissingNumber) {
  EcrireCle("DB1", "a");
  EcrireCle("DB3", "c");
  EXPECT_EQ(LitFiches().size(), 1U);
}

TEST(LitFiches, ShortRowIsFilledUpToNineFields) {
  EcrireCle("DB1", "Oak\t0.5");
  EXPECT_EQ(LitFiches()[0], (FicheMateriau{{"Oak", "0.5", "", "", "", "", "", "", ""}}));
}

TEST(LitFiches, ComesFromTheSettingsFileAlone) {
  EcrireCle("DB1", "Oak\t0.5");
  OuvreProjet("$$DB1=Project&&9\r\n$$DB2=More&&9\r\n");
  ASSERT_EQ(LireCle("DB1", ""), "Project\t9") << "the project does override keys";
  const auto fiches = LitFiches();
  ASSERT_EQ(fiches.size(), 1U);
  EXPECT_EQ(fiches[0].champs[0], "Oak");
  EXPECT_EQ(FichierProjet, FichierCourant) << "the override is on again";
  EXPECT_EQ(LireCle("DB1", ""), "Project\t9");
}

TEST(LitFiches, ValueBeyond255CharactersIsCut) {
  EcritFiches({Fiche(std::string(300, 'x').c_str())});
  OublieCles();
  const auto fiche = LitFiches()[0];
  EXPECT_EQ(fiche.champs[0], std::string(255, 'x'));
  EXPECT_EQ(fiche.champs[1], "");
}

TEST(ChargeFiche, PutsTheFieldsIntoTheirParameters) {
  EcritFiches({Fiche("Oak"), Fiche("Beech", "0.8", "-4.5", "-1.5", "2.5", "1.25", "3", "0.75")});
  EXPECT_TRUE(ChargeFiche(2));
  EXPECT_EQ(RayonFraise, 0.8);
  EXPECT_EQ(ProfFraisage, -4.5);
  EXPECT_EQ(ProfPasse, -1.5);
  EXPECT_EQ(Vitesse_Mat_H, 2.5);
  EXPECT_EQ(Vitesse_Mat_V, 1.25);
  EXPECT_EQ(LargeurEncoche, 3);
  EXPECT_EQ(MiniEncoche, 0.75);
  EXPECT_EQ(MateriauCourant, "Beech");
}

TEST(ChargeFiche, ReadsEitherDecimalMarkWhateverTheUsersIs) {
  EcritFiches({Fiche("Oak", "0,8", "-4,5", "-1.5", "2,5")});
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    ChargeFiche(1);
    EXPECT_EQ(RayonFraise, 0.8);
    EXPECT_EQ(ProfFraisage, -4.5);
    EXPECT_EQ(ProfPasse, -1.5);
    EXPECT_EQ(Vitesse_Mat_H, 2.5);
  }
}

TEST(ChargeFiche, FirstEntryChangesNothing) {
  EcritFichesDefaut();
  const Reglages avant = Regl;
  const std::string fichier = Ini();
  EXPECT_TRUE(ChargeFiche(0));
  EXPECT_EQ(RayonFraise, avant.RayonFraise);
  EXPECT_EQ(ProfFraisage, avant.ProfFraisage);
  EXPECT_EQ(LargeurEncoche, avant.LargeurEncoche);
  EXPECT_EQ(MateriauCourant, "");
  EXPECT_EQ(Ini(), fichier);
}

TEST(ChargeFiche, RowThatIsNotThereIsRefused) {
  EcritFichesDefaut();
  const double rayon = RayonFraise;
  EXPECT_FALSE(ChargeFiche(6));
  EXPECT_FALSE(ChargeFiche(-1));
  EXPECT_EQ(RayonFraise, rayon);
}

TEST(ChargeFiche, NotchWidthOfZeroOrLessBecomesOne) {
  EcritFiches({Fiche("a", "1", "-4", "-2", "8", "2", "0"), Fiche("b", "1", "-4", "-2", "8", "2", "-3"),
               Fiche("c", "1", "-4", "-2", "8", "2", ""), Fiche("d", "1", "-4", "-2", "8", "2", "0.5")});
  for (const int rang : {1, 2, 3}) {
    LargeurEncoche = 9;
    ChargeFiche(rang);
    EXPECT_EQ(LargeurEncoche, 1.0) << rang;
  }
  ChargeFiche(4);
  EXPECT_EQ(LargeurEncoche, 0.5);
}

TEST(ChargeFiche, PassWithoutADepthBecomesATenth) {
  EcritFiches({Fiche("a", "1", "-4", "0"), Fiche("b", "1", "-4", "2")});
  for (const int rang : {1, 2}) {
    ChargeFiche(rang);
    EXPECT_EQ(ProfPasse, -0.1) << rang;
  }
}

TEST(ChargeFiche, RadiusIsNeverNegative) {
  EcritFiches({Fiche("a", "-0.5")});
  ChargeFiche(1);
  EXPECT_EQ(RayonFraise, 0);
}

TEST(ChargeFiche, ComesFromTheSettingsFileAlone) {
  EcritFiches({Fiche("Oak", "0.5")});
  OuvreProjet("$$DB1=Project&&9&&t&&-1&&-1&&1&&1&&1&&1\r\n");
  ChargeFiche(1);
  EXPECT_EQ(RayonFraise, 0.5);
  EXPECT_EQ(FichierProjet, FichierCourant);
}

TEST(ChargeFiche, WritesTheSettings) {
  EcritFiches({Fiche("Oak", "0.8", "-4.5", "-1.5", "2.5", "1.25", "3", "0.75")});
  ChargeFiche(1);
  OublieCles();
  EXPECT_EQ(LireNombre("RayonFraise", 0), 0.8);
  EXPECT_EQ(LireNombre("ProfFraisage", 0), -4.5);
  EXPECT_EQ(LireNombre("ProfPasse", 0), -1.5);
  EXPECT_EQ(LireNombre("Vitesse_Mat_H", 0), 2.5);
  EXPECT_EQ(LireNombre("Vitesse_Mat_V", 0), 1.25);
  EXPECT_EQ(LireNombre("LargeurEncoche", 0), 3);
  EXPECT_EQ(LireNombre("MiniEncoche", 0), 0.75);
  EXPECT_EQ(LireCle("MatDefaut", ""), "Oak");
}

TEST(ChargeFiche, SettingsGoIntoTheOpenProjectToo) {
  EcritFiches({Fiche("Oak", "0.8")});
  OuvreProjet("$$RayonFraise=2\r\n");
  ChargeFiche(1);
  EXPECT_NE(LitFichierEssai(FichierCourant).find("$$RayonFraise=0.8\r\n"), std::string::npos);
}

TEST(ChargeFiche, LeavesTheDepthsOfThePathsToTheCaller) {
  essai::AjouteCarre(" A", 0, 0, 10, 1, -9);
  EcritFiches({Fiche("Oak")});
  ChargeFiche(1);
  EXPECT_EQ(Sequences[0].Profondeur, -9);
}

TEST(ChercheFiche, FindsTheFirstRowThatAgreesExactly) {
  EcritFiches({Fiche("Oak"), Fiche("Beech", "0.8"), Fiche("Beech again", "0.8")});
  ChargeFiche(3);
  EXPECT_EQ(ChercheFiche(), 2);
  EXPECT_EQ(MateriauCourant, "Beech");
}

TEST(ChercheFiche, EachOfTheSevenValuesCounts) {
  EcritFiches({Fiche("Oak")});
  ChargeFiche(1);
  double* const valeurs[] = {&RayonFraise,   &ProfFraisage,   &ProfPasse,  &Vitesse_Mat_H,
                             &Vitesse_Mat_V, &LargeurEncoche, &MiniEncoche};
  for (double* valeur : valeurs) {
    const double avant = *valeur;
    *valeur += 1e-9;
    EXPECT_EQ(ChercheFiche(), 0);
    *valeur = avant;
    EXPECT_EQ(ChercheFiche(), 1);
  }
}

TEST(ChercheFiche, WithoutAMatchNoMaterialIsNamed) {
  EcritFichesDefaut();
  MateriauCourant = "Oak";
  RayonFraise = 77;
  EXPECT_EQ(ChercheFiche(), 0);
  EXPECT_EQ(MateriauCourant, "");
}

TEST(ChercheFiche, ReadsEitherDecimalMark) {
  EcritFiches({Fiche("Oak", "0,5")});
  ChargeFiche(1);
  Svc.MarqueDecimale = ',';
  EXPECT_EQ(ChercheFiche(), 1);
}

TEST(ChercheFiche, RowWithoutANotchWidthAgreesWithNothing) {
  // It applies 1 mm, and 1 isn't 0.
  EcritFiches({Fiche("Oak", "0.5", "-4", "-2", "8", "2", "0")});
  ChargeFiche(1);
  EXPECT_EQ(ChercheFiche(), 0);
}

TEST(VerifieFiches, GoodRowsPass) {
  EXPECT_EQ(VerifieFiches({Fiche("Oak"), Fiche("Beech", "0,8", "-4,5")}), std::make_pair(0, 0));
  EXPECT_EQ(VerifieFiches({}), std::make_pair(0, 0));
}

TEST(VerifieFiches, RadiusIsANumberAndNotNegative) {
  EXPECT_EQ(VerifieFiches({Fiche("a", "0")}), std::make_pair(0, 0));
  EXPECT_EQ(VerifieFiches({Fiche("a", "-0.1")}), std::make_pair(1, 2));
  EXPECT_EQ(VerifieFiches({Fiche("a", "x")}), std::make_pair(1, 2));
  EXPECT_EQ(VerifieFiches({Fiche("a", "")}), std::make_pair(1, 2));
}

TEST(VerifieFiches, DepthAndPassAreNumbersAndNotPositive) {
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "0", "0")}), std::make_pair(0, 0)) << "a depth of 0 is accepted";
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "0.5")}), std::make_pair(1, 4));
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "-1-1")}), std::make_pair(1, 4));
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "-1", "2")}), std::make_pair(1, 5));
}

TEST(VerifieFiches, FeedsAreGreaterThanZero) {
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "-1", "-1", "0")}), std::make_pair(1, 6)) << "a feed of 0 is refused";
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "-1", "-1", "-2")}), std::make_pair(1, 6));
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "-1", "-1", "1", "0")}), std::make_pair(1, 7));
}

TEST(VerifieFiches, NotchFieldsAreNotTested) {
  EXPECT_EQ(VerifieFiches({Fiche("a", "1", "-1", "-1", "1", "1", "wide", "high")}), std::make_pair(0, 0));
}

TEST(VerifieFiches, RowThatCannotBeReadBackIsRefused) {
  // "&&0.5&&2 flutes&&-4&&-2&&8&&2&&5&&4" are 35 characters: 220 are left for the name. A letter with an accent is
  // one.
  const auto nom = [](int lettres) {
    std::string n;
    for (int i = 0; i < lettres; ++i) n += "\xC3\xA9";
    return n;
  };
  const FicheMateriau juste = Fiche(nom(220).c_str());
  EXPECT_EQ(VerifieFiches({juste}), std::make_pair(0, 0));
  EXPECT_EQ(VerifieFiches({Fiche("a"), Fiche(nom(221).c_str())}), std::make_pair(2, 1));
  EcritFiches({juste});
  OublieCles();
  EXPECT_EQ(LitFiches()[0], juste);
}

TEST(VerifieFiches, StopsAtTheFirstFaultOfTheFirstRow) {
  EXPECT_EQ(VerifieFiches({Fiche("a"), Fiche("b", "1", "1", "1"), Fiche("c", "x")}), std::make_pair(2, 4));
  EXPECT_EQ(VerifieFiches({Fiche("a", "x", "1", "1", "0")}), std::make_pair(1, 2));
}

}  // namespace
