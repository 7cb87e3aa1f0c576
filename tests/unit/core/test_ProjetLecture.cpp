#include <sys/stat.h>

#include <algorithm>
#include <cmath>
#include <random>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Projet.h"
#include "core/ProjetTexte.h"
#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "tests/unit/core/ProjetTest.h"

namespace {

using namespace ovelin;
using essai::AjouteSequence;
using essai::Attend;
using essai::Boites;
using essai::DeuxPoints;
using essai::Dossier;
using essai::EcritFichierEssai;
using essai::LignePoint;
using essai::LigneSequence;
using essai::LitFichierEssai;
using essai::Rempli;

bool Lit(const std::string& contenu, const std::string& nom = "p.OVL") {
  FichierCourant = EcritFichierEssai(nom, contenu);
  return LireProjet(FichierCourant);
}

std::string Remplace(std::string s, char ancien, const std::string& nouveau) {
  for (std::size_t i = s.find(ancien); i != std::string::npos; i = s.find(ancien, i + nouveau.size())) {
    s.replace(i, 1, nouveau);
  }
  return s;
}

const std::string Complet = "$$RayonFraise=1.5\r\n$$ProfFraisage=-6.5\r\n" + LigneSequence(" A", "011", "-2.5") +
                            "$$SeD3\r\n" + LigneSequence(" B", "000", "-1") + "$$SeD1\r\n" +
                            LignePoint("0.5", "0", "PD", " A") + LignePoint("12.25", "-3.125", "PC", " A") +
                            LignePoint("7", "8", "XY", " B") + Rempli("$$Mat012.5", 60) + "\r\n" +
                            Rempli("$$Mat020.75", 60) + "\r\n";

void AttendComplet() {
  ASSERT_EQ(NbPoints, 3);
  ASSERT_EQ(TraceInitial.size(), 3U);
  EXPECT_EQ(TraceInitial[0], (PointTrace{0.5F, 0, CodePD, Code2(" A")}));
  EXPECT_EQ(TraceInitial[1], (PointTrace{12.25F, -3.125F, CodePC, Code2(" A")}));
  EXPECT_EQ(TraceInitial[2], (PointTrace{7, 8, Code2("XY"), Code2(" B")}));
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[0], (SequenceInfo{Code2(" A"), Vrai, -2.5, Vrai, 3, Vrai}));
  EXPECT_EQ(Sequences[1], (SequenceInfo{Code2(" B"), Faux, -1, Faux, 1, Vrai}));
  EXPECT_EQ(Regl.RayonFraise, 1.5);
  EXPECT_EQ(Regl.ProfFraisage, -6.5);
  EXPECT_EQ(Regl.LargeurEncoche, 2.5);
  EXPECT_EQ(Regl.MiniEncoche, 0.75);
  EXPECT_EQ(Xmin, 0.5F);
  EXPECT_EQ(Xmax, 12.25F);
  EXPECT_EQ(Ymin, -3.125F);
  EXPECT_EQ(Ymax, 8.0F);
}

TEST(LireProjet, ReadsAWholeDocument) {
  EXPECT_TRUE(Lit(Complet));
  AttendComplet();
}

TEST(LireProjet, ReadsEitherDecimalMarkUnderEither) {
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    EXPECT_TRUE(Lit(Complet));
    AttendComplet();
    EXPECT_TRUE(Lit(Remplace(Complet, '.', ",")));
    AttendComplet();
  }
}

TEST(LireProjet, ReadsAFileWithLineFeedsAlone) {
  EXPECT_TRUE(Lit(Remplace(Complet, '\r', "")));
  AttendComplet();
}

TEST(LireProjet, ReadsAFileWithCarriageReturnsAlone) {
  EXPECT_TRUE(Lit(Remplace(Complet, '\n', "")));
  AttendComplet();
}

TEST(LireProjet, LeavesTheProjectsNameAsLoading) {
  EXPECT_TRUE(Lit(DeuxPoints()));
  EXPECT_EQ(FichierProjet, "Chargt");
}

TEST(LireProjet, SetsTheScaleFactorsToOne) {
  Doc.EchelleX = 3;
  Doc.EchelleY = 4;
  EXPECT_TRUE(Lit(DeuxPoints()));
  EXPECT_EQ(Doc.EchelleX, 1);
  EXPECT_EQ(Doc.EchelleY, 1);
}

TEST(LireProjet, GivesFalseAtOnceForAnEmptyPath) {
  Doc.EchelleX = 3;
  NbPoints = 7;
  EXPECT_FALSE(LireProjet(""));
  EXPECT_EQ(Doc.EchelleX, 3);
  EXPECT_EQ(NbPoints, 7);
}

TEST(LireProjet, RefusesAFileWithoutAPoint) {
  AjouteSequence("ZZ", {{1, 2}, {3, 4}});
  const Document avant = Doc;
  for (const std::string& contenu : {std::string(), std::string("$$A=1\r\n"), LignePoint("1", "2", "PE", " A")}) {
    Attend("erreurs", "100");
    EXPECT_FALSE(Lit(contenu));
    EXPECT_EQ(Boites().back().icone, Icone::Critique);
    EXPECT_EQ(Boites().back().fichier, FichierCourant);
    EXPECT_EQ(NbPoints, 0);
    EXPECT_EQ(TraceInitial, avant.TraceInitial);
    EXPECT_EQ(Sequences, avant.Sequences);
    EXPECT_EQ(FichierProjet, "");
  }
}

TEST(LireProjet, RefusesAFileThatCannotBeReadWithTheSystemsReason) {
  NbPoints = 7;
  Attend("F_Representation", "lib110");
  EXPECT_FALSE(LireProjet(Dossier() + "/absent.OVL"));
  EXPECT_EQ(NbPoints, 0);
  EXPECT_EQ(FichierProjet, "");
  Attend("F_Representation", "lib110");
  EXPECT_FALSE(VerifierProjet(Dossier()));
  ASSERT_EQ(Boites().size(), 2U);
  EXPECT_TRUE(Boites()[0].texte.ends_with("absent.OVL: No such file or directory")) << Boites()[0].texte;
  EXPECT_TRUE(Boites()[1].texte.ends_with(": Is a directory")) << Boites()[1].texte;
  EXPECT_EQ(Boites()[0].icone, Icone::Critique);
}

TEST(LireProjet, GivesABlankCodeARecordOfItsOwnBehindANamedOne) {
  EXPECT_TRUE(Lit(LigneSequence(" A", "001", "-1") + LigneSequence("  ", "001", "-2") + DeuxPoints()));
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[0].Code, Code2(" A"));
  EXPECT_EQ(Sequences[0].Profondeur, -1);
  EXPECT_EQ(Sequences[1].Profondeur, -2);
}

TEST(LireProjet, RefusesPointsThatAllCoincide) {
  AjouteSequence("ZZ", {{1, 2}, {3, 4}});
  const Document avant = Doc;
  const std::string point = LignePoint("5", "6", "PD", " A");
  for (const int nombre : {1, 4}) {
    std::string contenu = "$$RayonFraise=9\r\n";
    for (int i = 0; i < nombre; ++i) contenu += point;
    Attend("erreurs", "101");
    EXPECT_FALSE(Lit(contenu));
    EXPECT_EQ(Boites().back().icone, Icone::Critique);
    EXPECT_EQ(NbPoints, nombre);  // 4 is larger than the array
    EXPECT_EQ(Xmin, 5.0F);
    EXPECT_EQ(Ymax, 6.0F);
    EXPECT_EQ(TraceInitial, avant.TraceInitial);
    EXPECT_EQ(Sequences, avant.Sequences);
    EXPECT_EQ(FichierProjet, "");
    EXPECT_EQ(Regl.RayonFraise, 3);
  }
}

TEST(LireProjet, AcceptsPointsThatDifferInOneDirectionAlone) {
  EXPECT_TRUE(Lit(LignePoint("5", "6", "PD", " A") + LignePoint("5", "7", "PD", " A")));
  EXPECT_TRUE(Lit(LignePoint("5", "6", "PD", " A") + LignePoint("6", "6", "PD", " A")));
}

TEST(LireProjet, DropsNotchPoints) {
  EXPECT_TRUE(Lit(LignePoint("-99", "-99", "PE", " A") + DeuxPoints() + LignePoint("99", "99", "PE", " A")));
  EXPECT_EQ(NbPoints, 2);
  EXPECT_EQ(TraceInitial.size(), 2U);
  EXPECT_EQ(Xmin, 0.0F);
  EXPECT_EQ(Xmax, 10.0F);
}

TEST(LireProjet, GivesPathsOfAnOldFileWithoutSidesTheMiddle) {
  EXPECT_TRUE(Lit(LigneSequence(" A", "001", "-2") + DeuxPoints()));
  EXPECT_EQ(Sequences[0].Decalage, 2);
}

TEST(LireProjet, GivesPathsWithoutARecordTheDefaults) {
  EXPECT_TRUE(Lit("$$ProfFraisage=-4\r\n" + LigneSequence(" B", "010", "-2") + DeuxPoints(" A") + DeuxPoints(" B") +
                  DeuxPoints(" C")));
  ASSERT_EQ(Sequences.size(), 3U);
  EXPECT_EQ(Sequences[0], (SequenceInfo{Code2(" B"), Vrai, -2, Faux, 2, Vrai}));
  EXPECT_EQ(Sequences[1], (SequenceInfo{Code2(" A"), Faux, -4, Vrai, 1, Vrai}));
  EXPECT_EQ(Sequences[2], (SequenceInfo{Code2(" C"), Faux, -4, Vrai, 1, Vrai}));
}

TEST(LireProjet, GivesAnOldFileWithoutPathLinesItsRecords) {
  EXPECT_TRUE(Lit(DeuxPoints(" A") + DeuxPoints("AA")));
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[0], (SequenceInfo{Code2(" A"), Faux, -3, Vrai, 1, Vrai}));
  EXPECT_EQ(Sequences[1].Code, Code2("AA"));
}

TEST(LireProjet, WritesASecondLineOfACodeOverTheFirst) {
  EXPECT_TRUE(Lit(LigneSequence(" A", "001", "-2") + "$$SeD1\r\n" + LigneSequence(" A", "011", "-5") +
                  "$$SeD3\r\n" + DeuxPoints()));
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0], (SequenceInfo{Code2(" A"), Vrai, -5, Vrai, 3, Vrai}));
}

TEST(LireProjet, TakesAnyFlagButZeroAsTrueAndDropsTheFirst) {
  EXPECT_TRUE(Lit(LigneSequence(" A", "1x ", "-2") + DeuxPoints()));
  EXPECT_EQ(Sequences[0].Poche, Vrai);
  EXPECT_EQ(Sequences[0].Fraiser, Vrai);
}

TEST(LireProjet, TakesTheDepthFromItsTwentyColumns) {
  EXPECT_TRUE(Lit("$$Seq A001-1.23456789012345678999\r\n" + DeuxPoints()));
  EXPECT_EQ(Sequences[0].Profondeur, -1.23456789012345678);
  EXPECT_TRUE(Lit("$$Seq A001-1.2345678901234567\r\n" + DeuxPoints()));
  EXPECT_EQ(Sequences[0].Profondeur, -1.2345678901234567);
  EXPECT_TRUE(Lit("$$Seq A00100000000000000000-5\r\n" + DeuxPoints()));
  EXPECT_EQ(Sequences[0].Profondeur, 0);  // the sign stands in the wrong place
}

TEST(LireProjet, ReadsWhatIsNoNumberAsZero) {
  EXPECT_TRUE(Lit(LigneSequence(" A", "001", "profond") + LignePoint("abc", "12mm", "PD", " A") +
                  LignePoint("1e99", "nan", "PD", " A")));
  EXPECT_EQ(Sequences[0].Profondeur, 0);
  EXPECT_EQ(TraceInitial[0].X, 0.0F);
  EXPECT_EQ(TraceInitial[0].Y, 12.0F);
  EXPECT_EQ(TraceInitial[1].X, 0.0F);
  EXPECT_EQ(TraceInitial[1].Y, 0.0F);
}

TEST(LireProjet, ReadsAStrayLineAsAPoint) {
  EXPECT_TRUE(Lit("7\r\n" + DeuxPoints()));
  EXPECT_EQ(NbPoints, 3);
  EXPECT_EQ(TraceInitial[0], (PointTrace{7, 0, Code2("  "), Code2("  ")}));
}

TEST(LireProjet, ReadsAFileThatEndsInTheMiddleOfALineAndWarns) {
  for (std::size_t reste = 1; reste <= 31; ++reste) {
    const std::string contenu = DeuxPoints() + LignePoint("3.5", "4.5", "PD", " A").substr(0, reste);
    Attend("erreurs", "102");
    EXPECT_TRUE(Lit(contenu));
    ASSERT_EQ(TraceInitial.size(), 3U);
    EXPECT_EQ(TraceInitial[2].X, reste == 1 ? 3.0F : reste == 2 ? 3.0F : 3.5F) << reste;
  }
  EXPECT_EQ(essai::Boites().back().icone, Icone::Exclamation);
  EXPECT_EQ(essai::Boites().back().fichier, FichierCourant);
  // Cut behind the first letter of "PE" it is not known as one.
  Attend("erreurs", "102");
  EXPECT_TRUE(Lit(DeuxPoints() + LignePoint("3.5", "4.5", "PE", " A").substr(0, 32)));
  EXPECT_EQ(TraceInitial.size(), 2U);
}

TEST(LireProjet, TakesAWholeFileWithoutTheLastLineEndForWhole) {
  ASSERT_TRUE(Complet.ends_with("\r\n"));
  EXPECT_TRUE(Lit(Complet.substr(0, Complet.size() - 2)));
  AttendComplet();
  EXPECT_TRUE(essai::Boites().empty());
}

TEST(EstTronque, AsksForTheClosingLineOnlyWhereTheLastLineHasNoEnd) {
  EXPECT_FALSE(EstTronque(""));
  EXPECT_FALSE(EstTronque("1\r\n"));
  EXPECT_FALSE(EstTronque("1\r"));
  EXPECT_TRUE(EstTronque("1\r\n2"));
  EXPECT_FALSE(EstTronque("1\r\n$$Mat02 0\r\n$$PCPoche=1"));
  EXPECT_FALSE(EstTronque("$$Mat02 0\n2"));
  EXPECT_TRUE(EstTronque("1 $$Mat02\n2"));
}

TEST(LireProjet, AnyPlaceToCutAFileGivesARefusalOrADocument) {
  for (std::size_t n = 0; n < Complet.size(); n += 7) {
    Svc.Montre = [](const BoiteMessage& b) {
      EXPECT_TRUE(b.cle == "100" || b.cle == "101" || b.cle == "102");
      return Reponse::Ok;
    };
    if (Lit(Complet.substr(0, n))) {
      EXPECT_EQ(TraceInitial.size(), static_cast<std::size_t>(NbPoints));
    }
  }
}

TEST(LireProjet, KeepsTheBlanksAndSignsOfCodes) {
  // A comma in a code is no decimal mark.
  EXPECT_TRUE(Lit(LigneSequence("A,", "001", "-2,5") + LignePoint("0", "0", "PD", "A,") +
                  LignePoint("1", "1", "P,", "A,") + LignePoint("2", "2", "PD", " A")));
  ASSERT_EQ(Sequences.size(), 2U);
  EXPECT_EQ(Sequences[0].Code, Code2("A,"));
  EXPECT_EQ(Sequences[0].Profondeur, -2.5);
  EXPECT_EQ(TraceInitial[1].Seq, Code2("A,"));
  EXPECT_EQ(TraceInitial[1].Cde, Code2("P,"));
  EXPECT_EQ(TraceInitial[2].Seq, Code2(" A"));
}

TEST(LireProjet, IgnoresLinesThatItDoesNotKnow) {
  EXPECT_TRUE(Lit("$$Zzz9\r\n$$\r\n$$SeD3\r\n" + DeuxPoints()));
  EXPECT_EQ(NbPoints, 2);
  ASSERT_EQ(Sequences.size(), 1U);
  EXPECT_EQ(Sequences[0].Decalage, 1);  // a side in front of every path belongs to none
}

TEST(LireProjet, ReadsTheSettingsOfTheProjectThenThoseOfTheSettingsFileThenTheDefaults) {
  EcritFichierEssai("OVELIN.ini", "[OVELIN]\r\nRayonFraise=9\r\nVitesse_Mat_H=8\r\ngMaxMRU=6\r\n");
  EXPECT_TRUE(Lit("$$RayonFraise=1\r\n$$PCPoche=33\r\n$$CouleurNumero=5\r\n$$gMaxMRU=2\r\n" + DeuxPoints()));
  EXPECT_EQ(Regl.RayonFraise, 1);
  EXPECT_EQ(Regl.Vitesse_Mat_H, 8);
  EXPECT_EQ(Regl.Vitesse_Mat_V, 2);
  EXPECT_EQ(Regl.PCPoche, 33);
  EXPECT_EQ(Regl.CouleurNumero, 5);
  EXPECT_EQ(Regl.gMaxMRU, 6);
}

TEST(LireProjet, TakesTheNotchesOfTheClosingLinesBeforeThoseOfTheSettings) {
  EXPECT_TRUE(Lit("$$LargeurEncoche=1\r\n$$MiniEncoche=2\r\n" + DeuxPoints()));
  EXPECT_EQ(Regl.LargeurEncoche, 1);
  EXPECT_EQ(Regl.MiniEncoche, 2);
  EXPECT_TRUE(Lit("$$LargeurEncoche=1\r\n$$MiniEncoche=2\r\n" + DeuxPoints() + "$$Mat018\r\n$$Mat020,5\r\n"));
  EXPECT_EQ(Regl.LargeurEncoche, 8);
  EXPECT_EQ(Regl.MiniEncoche, 0.5);
}

std::string Suite;

TEST(LireProjet, CallsTheHooksBetweenItsSteps) {
  Suite.clear();
  Crochets.ChercheMateriau = [] {
    // The values to compare stand, the records of the paths not yet.
    Suite += "m" + std::to_string(Regl.LargeurEncoche == 8) + std::to_string(Sequences[0].Code == Code2{});
  };
  Crochets.ChargeTable = [] {
    // Every path has its record, the colours are still the old ones.
    Suite += "t" + std::to_string(Sequences[0].Code == Code2(" A")) + std::to_string(Regl.CouleurNumero == 0) +
             FichierProjet;
  };
  EXPECT_TRUE(Lit("$$CouleurNumero=5\r\n" + DeuxPoints() + "$$Mat018\r\n"));
  EXPECT_EQ(Suite, "m11t11Chargt");
  EXPECT_EQ(Regl.CouleurNumero, 5);
}

TEST(LireProjet, ReadsAReadOnlyProject) {
  const std::string chemin = EcritFichierEssai("p.OVL", DeuxPoints());
  chmod(chemin.c_str(), 0444);
  EXPECT_TRUE(LireProjet(chemin));
}

TEST(VerifierProjet, GivesTheCountAndTheBoundsAlone) {
  AjouteSequence("ZZ", {{1, 2}, {3, 4}});
  const Document avant = Doc;
  EXPECT_TRUE(VerifierProjet(EcritFichierEssai("p.OVL", Complet)));
  EXPECT_EQ(NbPoints, 3);
  EXPECT_EQ(Xmax, 12.25F);
  EXPECT_EQ(TraceInitial, avant.TraceInitial);
  EXPECT_EQ(FichierProjet, "");
}

TEST(EcrireProjet, GivesTheSameBytesForWhatItHasRead) {
  std::mt19937 alea(11);
  std::uniform_real_distribution<float> place(-500, 500);
  std::vector<std::pair<float, float>> points;
  for (int i = 0; i < 500; ++i) points.emplace_back(place(alea), std::ldexp(place(alea), i % 60 - 30));
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    Doc = Document{};
    AjouteSequence(" A", points, 3, -0.1);
    AjouteSequence("zZ", {{1, 1}, {2, 1.0F / 3}}, 2, -1.0 / 3);
    Sequences[1].Poche = Vrai;
    Regl.LargeurEncoche = 0.7;
    FichierProjet = FichierCourant = Dossier() + "/p.OVL";
    EXPECT_EQ(EcrireProjet(FichierProjet), "");
    const std::string octets = LitFichierEssai(FichierProjet);
    const Document avant = Doc;
    Doc = Document{};
    Regl = Reglages{};
    FichierCourant = avant.FichierCourant;
    EXPECT_TRUE(LireProjet(FichierCourant));
    EXPECT_EQ(TraceInitial, avant.TraceInitial);
    EXPECT_EQ(Sequences, avant.Sequences);
    FichierProjet = FichierCourant = Dossier() + "/q.OVL";
    EXPECT_EQ(EcrireProjet(FichierProjet), "");
    EXPECT_EQ(LitFichierEssai(FichierProjet), octets);
  }
}

// Texts of up to fifteen columns, most of all those that lie between two floats or near it.
TEST(LireProjet, GivesTheFloatNearestToEveryText) {
  std::mt19937 alea(5);
  std::vector<std::string> textes = {"16777217",
                                     "16777219",
                                     "33554434",
                                     "-16777217",
                                     "8388608.5",
                                     "8388609.5",
                                     "1.0000000596046",
                                     "0.00000000001",
                                     "1e-40",
                                     "123456789012345",
                                     "999999999999999",
                                     "-0",
                                     "0.1",
                                     ".5",
                                     "5.",
                                     "1.4013e-45",
                                     "3.4028235e38",
                                     "+7",
                                     "1 2",
                                     "-",
                                     "1.2.3",
                                     "0000000000.0001",
                                     "16777217.00000"};
  for (int i = 0; i < 20000; ++i) {
    std::string t = std::to_string(alea() % 100000000) + std::to_string(alea() % 10000000);
    t.insert(alea() % t.size(), ".");
    textes.push_back(t.substr(0, 15));
    textes.push_back(std::to_string(16777216 + alea() % 100000000));
    // As near as fifteen columns come to the middle of two floats; through a double a few would go astray.
    const double milieu = 1 + std::ldexp(static_cast<double>(alea() % (1U << 23)) + 0.5, -23);
    char tampon[32];
    std::snprintf(tampon, sizeof tampon, "%.13f", milieu);
    textes.emplace_back(tampon);
  }
  std::string contenu;
  for (const std::string& t : textes) contenu += LignePoint(t, Remplace(t, '.', ","), "PD", " A");
  EXPECT_TRUE(Lit(contenu));
  for (std::size_t i = 0; i < textes.size(); ++i) {
    const std::string lu = textes[i] == "1 2" ? "1" : textes[i];
    ASSERT_EQ(TraceInitial[i].X, std::strtof(lu.c_str(), nullptr)) << textes[i];
    ASSERT_EQ(TraceInitial[i].Y, TraceInitial[i].X) << textes[i];
  }
}

TEST(LireProjet, ReadsEightThousandPathsIntoOneTable) {
  std::string contenu;
  std::string points;
  for (int i = 0; i < 8000; ++i) {
    const std::string code = {static_cast<char>(0x21 + i / 89), static_cast<char>(0x21 + i % 89)};
    if (code.find_first_of("$-=") != std::string::npos) continue;
    contenu += LigneSequence(code, "001", "-" + std::to_string(i)) + "$$SeD1\r\n";
    points += LignePoint(std::to_string(i), "0", "PD", code) + LignePoint(std::to_string(i), "1", "PD", code);
  }
  EXPECT_TRUE(Lit(contenu + points));
  EXPECT_EQ(Sequences.size() * 2, TraceInitial.size());
  for (std::size_t i = 0; i < Sequences.size(); ++i) {
    ASSERT_EQ(Sequences[i].Code, TraceInitial[2 * i].Seq);
    ASSERT_EQ(-Sequences[i].Profondeur, static_cast<double>(TraceInitial[2 * i].X));
  }
}

}  // namespace
