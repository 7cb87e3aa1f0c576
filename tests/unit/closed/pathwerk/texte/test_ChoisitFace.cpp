#include <gtest/gtest.h>

#include "closed/pathwerk/texte/Polices.h"

namespace {

using pathwerk::texte::ChoisitFace;
using pathwerk::texte::FacePolice;

FacePolice Face(const char* fichier, int graisse, bool italique = false, int largeur = 100) {
  FacePolice f;
  f.fichier = fichier;
  f.graisse = graisse;
  f.italique = italique;
  f.largeur = largeur;
  return f;
}

std::string Choix(const std::vector<FacePolice>& faces, bool italique, bool gras) {
  const FacePolice* f = ChoisitFace(faces, italique, gras);
  return f != nullptr ? f->fichier : "";
}

TEST(ChoisitFace, TakesTheFaceOfTheStyle) {
  const std::vector<FacePolice> faces{Face("gras-italique", 200, true), Face("italique", 80, true),
                                      Face("gras", 200), Face("normal", 80), Face("maigre", 40)};
  EXPECT_EQ(Choix(faces, false, false), "normal");
  EXPECT_EQ(Choix(faces, true, false), "italique");
  EXPECT_EQ(Choix(faces, false, true), "gras");
  EXPECT_EQ(Choix(faces, true, true), "gras-italique");
}

TEST(ChoisitFace, KeepsTheNormalWidth) {
  const std::vector<FacePolice> faces{Face("serre", 200, false, 75), Face("normal", 80)};
  EXPECT_EQ(Choix(faces, false, true), "normal");
}

TEST(ChoisitFace, WithoutABoldFaceTheRegularOneIsMadeBolder) {
  const std::vector<FacePolice> faces{Face("moyen", 100), Face("normal", 80), Face("maigre", 40)};
  EXPECT_EQ(Choix(faces, false, true), "normal");
}

TEST(ChoisitFace, AmongBoldFacesTheOneNearestToBold) {
  const std::vector<FacePolice> faces{Face("noir", 210), Face("demi", 180), Face("gras", 205)};
  EXPECT_EQ(Choix(faces, false, true), "gras");
}

TEST(ChoisitFace, BoldIsSlantedRatherThanItalicMadeBolder) {
  const std::vector<FacePolice> faces{Face("italique", 80, true), Face("gras", 200)};
  EXPECT_EQ(Choix(faces, true, true), "gras");
}

TEST(ChoisitFace, FamilyThatIsAllItalicStaysSo) {
  EXPECT_EQ(Choix({Face("italique", 100, true)}, false, false), "italique");
}

TEST(ChoisitFace, InstanceBeforeDesignSpaceAndOpenTypeBeforeType1) {
  FacePolice espace = Face("a-variable", 80);
  espace.variable = true;
  FacePolice type1 = Face("b-type1", 80);
  type1.sfnt = false;
  EXPECT_EQ(Choix({espace, type1, Face("c-sfnt", 80)}, false, false), "c-sfnt");
  EXPECT_EQ(Choix({espace, type1}, false, false), "b-type1");
}

TEST(ChoisitFace, DoesNotDependOnTheOrder) {
  EXPECT_EQ(Choix({Face("b", 80), Face("a", 80)}, false, false), "a");
  EXPECT_EQ(Choix({Face("a", 80), Face("b", 80)}, false, false), "a");
}

TEST(ChoisitFace, NothingFromNothing) { EXPECT_EQ(ChoisitFace({}, false, false), nullptr); }

}  // namespace
