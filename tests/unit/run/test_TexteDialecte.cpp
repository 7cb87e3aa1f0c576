// Users' dialects: what a file may say, and how each of its faults is told.
#include <gtest/gtest.h>

#include <string>

#include "run/Dialectes.h"
#include "run/TexteDialecte.h"

namespace {

using namespace ovelin;

RefusDialecte Refus(const std::string& texte) {
  const DialecteLu lu = LitDialecte(texte, "essai");
  return lu.refus.value_or(RefusDialecte{FauteDialecte::Nom, -1, "taken"});
}
bool Pris(const std::string& texte) { return !LitDialecte(texte, "essai").refus; }

TEST(LitDialecte, AnEmptyFileIsThePlainRowUnderItsOwnName) {
  const DialecteLu lu = LitDialecte("", "atelier");
  ASSERT_FALSE(lu.refus);
  Dialecte attendu = *DialecteDeTable("iso");
  attendu.nom = attendu.titre = "atelier";
  EXPECT_EQ(lu.dialecte, attendu);
}

TEST(LitDialecte, DiffersFromItsBaseInWhatItSays) {
  const DialecteLu lu = LitDialecte(
      "# au garage\r\n\r\nbase = grbl\r\ntitre = Fraiseuse du garage\r\nextension=cnc\r\n; fin\r\nnumeros = 10\r\n"
      "decimales = 4\r\narcs = non\r\necart_rayons = 0,01\r\ncommentaires = point-virgule\r\n",
      "garage");
  ASSERT_FALSE(lu.refus) << lu.refus->texte;
  Dialecte attendu = *DialecteDeTable("grbl");
  attendu.nom = "garage";
  attendu.titre = "Fraiseuse du garage";
  attendu.extension = "cnc";
  attendu.numeros = 10;
  attendu.decimales = 4;
  attendu.arcs = false;
  attendu.ecartRayons = 0.01;
  attendu.commentaires = FormeCommentaire::PointVirgule;
  EXPECT_EQ(lu.dialecte, attendu);
}

TEST(LitDialecte, ARepeatedKeyMakesLinesAndTheFirstReplacesThoseOfTheBase) {
  const DialecteLu lu = LitDialecte("base = mach\ndebut = G17\nfin =\ndebut = G40 G49\noutil =\n", "essai");
  ASSERT_FALSE(lu.refus);
  EXPECT_EQ(lu.dialecte.debut, (std::vector<std::string>{"G17", "G40 G49"}));
  EXPECT_TRUE(lu.dialecte.fin.empty());
  EXPECT_TRUE(lu.dialecte.outil.empty());
}

TEST(LitDialecte, TakesTitlesInEitherSet) {
  EXPECT_EQ(LitDialecte("titre = Fr\xE9s\xE9\n", "essai").dialecte.titre, "Frésé");
  EXPECT_EQ(LitDialecte("titre = Frésé\n", "essai").dialecte.titre, "Frésé");
}

TEST(LitDialecte, TellsTheLineOfEachFault) {
  EXPECT_EQ(Refus("\n# oui\nfin M2\n"), (RefusDialecte{FauteDialecte::Forme, 3, "fin M2"}));
  EXPECT_EQ(Refus("fins = M2\n"), (RefusDialecte{FauteDialecte::Cle, 1, "fins = M2"}));
  EXPECT_EQ(Refus("arcs = oui\n\narcs = oui\n"), (RefusDialecte{FauteDialecte::Double, 3, "arcs = oui"}));
  EXPECT_EQ(Refus("arcs = oui\nbase = grbl\n"), (RefusDialecte{FauteDialecte::Base, 2, "base = grbl"}));
  EXPECT_EQ(Refus("base = rien\n").faute, FauteDialecte::Base);
  EXPECT_EQ(Refus("base = own\n").faute, FauteDialecte::Base);
  EXPECT_EQ(Refus("base = grbl\nbase = grbl\n").faute, FauteDialecte::Base);
}

TEST(LitDialecte, RefusesValuesThatAKeyCanNotTake) {
  for (const char* ligne : {"arcs = peut-etre",
                            "arcs =",
                            "decimales = 1",
                            "decimales = 7",
                            "decimales = 3.5",
                            "decimales = trois",
                            "decimales_avance = -1",
                            "numeros = 1001",
                            "longueur = 79",
                            "longueur = 1001",
                            "ecart_rayons = 0",
                            "ecart_rayons = 1",
                            "commentaires = oui",
                            "jeu = utf-8",
                            "extension =",
                            "extension = .nc",
                            "extension = trois.nc",
                            "titre =",
                            "unites =",
                            "unites = G20",
                            "unites = M3",
                            "broche = M3 S{s}",
                            "attente = G4 P{S}",
                            "attente = G4 P{s",
                            "arret = M5}",
                            "fin = M2 \xE9"}) {
    EXPECT_EQ(Refus(std::string(ligne) + "\n").faute, FauteDialecte::Valeur) << ligne;
    EXPECT_EQ(Refus(std::string(ligne) + "\n").ligne, 1) << ligne;
  }
  for (const char* ligne : {"arcs = non", "decimales = 2", "numeros = 0", "longueur = 0", "longueur = 80",
                            "ecart_rayons = 0.1", "unites = G21", "attente = G4 P{ms}", "broche =", "fin = M2"}) {
    EXPECT_TRUE(Pris(std::string(ligne) + "\n")) << ligne;
  }
}

// Numbers are millimetres and places absolute, whatever a line would make of them.
TEST(LitDialecte, RefusesWordsThatWouldMakeAnotherPartOfTheFile) {
  for (const char* mot : {"G20", "G70", "G91", "G90 G20", "g20", "G 91", "G91.0"}) {
    EXPECT_EQ(Refus(std::string("debut = ") + mot + "\n").faute, FauteDialecte::Valeur) << mot;
    EXPECT_EQ(Refus(std::string("outil = ") + mot + "\n").faute, FauteDialecte::Valeur) << mot;
  }
  for (const char* mot : {"G91.1", "G90", "G21", "G200", "G54"})
    EXPECT_TRUE(Pris(std::string("debut = ") + mot)) << mot;
}

TEST(LitDialecte, ASpindleThatIsStartedMustBeStopped) {
  EXPECT_EQ(Refus("broche = M3\narret =\n"), (RefusDialecte{FauteDialecte::Valeur, 2, "arret ="}));
  EXPECT_TRUE(Pris("broche =\narret =\n"));
}

TEST(LitDialecte, TellsALineThatIsLongerThanItsOwnLimit) {
  const std::string longue(76, 'M');
  EXPECT_TRUE(Pris("base = grbl\nlongueur = 80\nfin = " + longue + "\n"));
  const RefusDialecte refus = Refus("base = grbl\nlongueur = 80\nnumeros = 1\nfin = " + longue + "\n");
  EXPECT_EQ(refus.faute, FauteDialecte::Longueur);
  EXPECT_EQ(refus.ligne, 4);
}

TEST(LitDialecte, TheNameIsThatOfNoRowAndOfPlainSigns) {
  for (const char* nom : {"grbl", "GRBL", "own", "", "a b", "../x", "é", "a.b"}) {
    const DialecteLu lu = LitDialecte("", nom);
    ASSERT_TRUE(lu.refus) << nom;
    EXPECT_EQ(lu.refus->faute, FauteDialecte::Nom) << nom;
  }
  EXPECT_FALSE(LitDialecte("", "Mon_GRBL-2").refus);
}

TEST(LitDialecte, RefusesAFileThatIsTooLong) {
  EXPECT_EQ(Refus(std::string(TailleDialecte + 1, '#')).faute, FauteDialecte::Taille);
  EXPECT_TRUE(Pris(std::string(TailleDialecte, '#')));
}

TEST(EcritDialecte, EveryRowOfTheTableReadsBack) {
  for (const Dialecte& d : TableDialectes()) {
    if (d.prescrit) continue;
    DialecteLu lu = LitDialecte(EcritDialecte(d), "essai");
    ASSERT_FALSE(lu.refus) << d.nom << lu.refus->texte;
    lu.dialecte.nom = d.nom;
    EXPECT_EQ(lu.dialecte, d);
  }
}

TEST(EcritDialecte, SaysEveryKey) {
  const std::string texte = "\n" + EcritDialecte(*DialecteDeTable("grbl"));
  EXPECT_EQ(ClesDialecte().size(), 21U);
  for (const std::string_view cle : ClesDialecte()) {
    EXPECT_NE(texte.find("\n" + std::string(cle) + " ="), std::string::npos) << cle;
  }
}

}  // namespace
