// Lines of other dialects, one by one, as the manuals of the controls want them.
#include <gtest/gtest.h>

#include <string>
#include <utility>

#include "run/LigneDialecte.h"

namespace {

using namespace ovelin;

Deplacement Rang(float x, float y, float z, float v) {
  Deplacement d;
  d.X = x;
  d.Y = y;
  d.Z = z;
  d.Vitesse = v;
  return d;
}

struct Ecriture {
  Dialecte d;
  std::string texte;
  EtatNC etat;
  explicit Ecriture(Dialecte dialecte = {}) : d(std::move(dialecte)) {}
  LigneDialecte sortie{texte, etat, d, 0, 0};
  std::string Rend() { return std::exchange(texte, {}); }
  std::string Ligne(float x, float y, float z, float v) {
    sortie.Rang(Rang(x, y, z, v));
    return Rend();
  }
};

Dialecte Modal() {
  Dialecte d;
  d.repete = false;
  return d;
}

TEST(LigneDialecte, TheFeedStandsInTheLineOfTheCut) {
  Ecriture e;
  e.Ligne(5, 5, 2, 50);
  EXPECT_EQ(e.Ligne(5, 5, -1, 1), "G1 Z-1.000 F60.000\n");
  EXPECT_EQ(e.Ligne(9, 5, -1, 1), "G1 X9.000\n");
  EXPECT_EQ(e.Ligne(9, 6.5F, -1, 10), "G1 Y6.500 F600.000\n");
}

TEST(LigneDialecte, ARapidHasNoFeedOfItsOwn) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(5, 5, 2, 50), "G0 X5.000 Y5.000 Z2.000\n");
}

TEST(LigneDialecte, TheFeedMayHaveALineOfItsOwn) {
  Dialecte d;
  d.avanceSeule = true;
  d.decimalesAvance = 1;
  Ecriture e(d);
  e.Ligne(5, 5, 2, 50);
  EXPECT_EQ(e.Ligne(5, 5, -1, 1), "F60.0\nG1 Z-1.000\n");
}

TEST(LigneDialecte, TheWordOfTheMoveIsSaidAgainWhereItChangesAlone) {
  Ecriture e(Modal());
  EXPECT_EQ(e.Ligne(5, 5, 2, 50), "G0 X5.000 Y5.000 Z2.000\n");
  EXPECT_EQ(e.Ligne(6, 5, 2, 50), "X6.000\n");
  EXPECT_EQ(e.Ligne(6, 5, -1, 1), "G1 Z-1.000 F60.000\n");
  EXPECT_EQ(e.Ligne(7, 5, -1, 1), "X7.000\n");
  e.sortie.Interrompt();
  EXPECT_EQ(e.Ligne(8, 5, -1, 1), "G1 X8.000\n");
}

TEST(LigneDialecte, ARowThatChangesNoDigitIsNoLine) {
  Ecriture e;
  e.Ligne(5, 5, 2, 50);
  EXPECT_EQ(e.Ligne(5, 5, 2, 8), "");
  EXPECT_EQ(e.Ligne(5.0001F, 5, 2, 8), "");
  EXPECT_EQ(e.Ligne(5.0006F, 5, 2, 8), "G0 X5.001\n");
}

// A machine may stand anywhere: no cut begins in a place of which only a part was said.
TEST(LigneDialecte, TheFirstWayNamesBothAxes) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(0, 0, 5, 8), "G0 Z5.000\n");
  EXPECT_EQ(e.Ligne(0, 7, 5, 50), "G0 X0.000 Y7.000\n");
}

TEST(LigneDialecte, AJobThatBeginsWhereItsPlanDoesSaysSo) {
  Ecriture e;
  EXPECT_EQ(e.Ligne(0, 0, 5, 8), "G0 Z5.000\n");
  EXPECT_EQ(e.Ligne(0, 0, 0, 8), "G0 X0.000 Y0.000\nG1 Z0.000 F480.000\n");
}

TEST(LigneDialecte, AnArcNamesItsEndAndItsCentre) {
  Ecriture e(Modal());
  e.Ligne(10, 0, 2, 50);
  e.Ligne(10, 0, -1, 5);
  e.sortie.Arc({4, false, -10, 0}, Rang(0, 10, -1, 5));
  EXPECT_EQ(e.Rend(), "G3 X0.000 Y10.000 I-10.000 J0.000\n");
  e.sortie.Arc({8, true, 0, -10}, Rang(10, 0, -1, 6));
  EXPECT_EQ(e.Rend(), "G2 X10.000 Y0.000 I0.000 J-10.000 F360.000\n");
  EXPECT_EQ(e.Ligne(11, 0, -1, 6), "G1 X11.000\n");
}

TEST(LigneDialecte, WordsMayHaveTwoDigitsAndLinesNumbers) {
  Dialecte d;
  d.motsLongs = true;
  d.numeros = 5;
  Ecriture e(d);
  e.sortie.Mot("G71");
  e.sortie.Marque("%");
  EXPECT_EQ(e.Rend(), "N5 G71\n%\n");
  EXPECT_EQ(e.Ligne(1, 2, 3, 50), "N10 G00 X1.000 Y2.000 Z3.000\n");
}

TEST(LigneDialecte, LineNumbersBeginAgainBeforeTheyHaveSixDigits) {
  Dialecte d;
  d.numeros = 60'000;
  Ecriture e(d);
  e.sortie.Mot("M5");
  e.sortie.Mot("M5");
  EXPECT_EQ(e.Rend(), "N60000 M5\nN60000 M5\n");
}

TEST(LigneDialecte, AFeedIsNeverZero) {
  Ecriture e;
  e.Ligne(1, 1, 1, 50);
  EXPECT_EQ(e.Ligne(1, 1, -1, 1e-9F), "G1 Z-1.000 F0.001\n");
}

TEST(LigneDialecte, CountsLinesThatAreTooLong) {
  Dialecte d;
  d.longueur = 64;
  Ecriture e(d);
  e.sortie.Mot(std::string(64, 'M'));
  EXPECT_EQ(e.sortie.TropLongues(), 0);
  e.sortie.Mot(std::string(65, 'M'));
  EXPECT_EQ(e.sortie.TropLongues(), 1);
}

TEST(CommentaireDialecte, HasItsForm) {
  Dialecte d;
  Ecriture parentheses(d);
  parentheses.sortie.Commentaire(" Vitesse (max) : 3");
  EXPECT_EQ(parentheses.Rend(), "(Vitesse [max] : 3)\n");
  d.commentaires = FormeCommentaire::PointVirgule;
  Ecriture point(d);
  point.sortie.Commentaire("Vitesse");
  EXPECT_EQ(point.Rend(), "; Vitesse\n");
  d.commentaires = FormeCommentaire::Aucun;
  Ecriture aucun(d);
  aucun.sortie.Commentaire("Vitesse");
  EXPECT_EQ(aucun.Rend(), "");
}

TEST(CommentaireDialecte, IsCutAtBlanksIntoLinesThatFit) {
  Dialecte d;
  d.longueur = 12;
  Ecriture e(d);
  e.sortie.Commentaire("un deux trois quatre");
  EXPECT_EQ(e.Rend(), "(un deux)\n(trois)\n(quatre)\n");
  e.sortie.Commentaire("abcdefghijklmnop");
  EXPECT_EQ(e.Rend(), "(abcdefghij)\n(klmnop)\n");
  EXPECT_EQ(e.sortie.TropLongues(), 0);
}

TEST(CommentaireDialecte, HasTheSetOfItsDialect) {
  Dialecte d;
  Ecriture ascii(d);
  ascii.sortie.Commentaire("Généré à 10 €");
  EXPECT_EQ(ascii.Rend(), "(Genere a 10 -)\n");
  d.jeu = JeuCommentaire::Windows1252;
  Ecriture large(d);
  large.sortie.Commentaire("Généré");
  EXPECT_EQ(large.Rend(), "(G\xE9n\xE9r\xE9)\n");
}

// Some controls act on these bytes at once, wherever they stand.
TEST(EnAscii, LeavesNoByteThatAControlActsOn) {
  EXPECT_EQ(EnAscii("a!b?c~d%e$f\x18g"), "a-b-c-d-e-f-g");
  EXPECT_EQ(EnAscii("Größe, Überlänge"), "Groesse, Ueberlaenge");
}

TEST(MotBroche, TakesTheSpeedOrLeavesItsWordOut) {
  EXPECT_EQ(MotBroche("M3 S{S}", 12'000), "M3 S12000");
  EXPECT_EQ(MotBroche("M3 S{S}", 0), "M3");
  EXPECT_EQ(MotBroche("S{S} M3", 0), "M3");
  EXPECT_EQ(MotBroche("M3", 12'000), "M3");
}

TEST(MotAttente, IsInSecondsOrMilliseconds) {
  EXPECT_EQ(MotAttente("G4 P{s}", 2.5), "G4 P2.5");
  EXPECT_EQ(MotAttente("G4 P{s}", 3), "G4 P3");
  EXPECT_EQ(MotAttente("G4 P{ms}", 2.5), "G4 P2500");
  EXPECT_EQ(MotAttente("G4 P{s}", 0), "");
}

}  // namespace
