// Copied paths as a text.
#include <gtest/gtest.h>

#include "core/Services.h"
#include "tests/support/Support.h"
#include "toolpath/chemins/TexteCopie.h"

namespace {

using namespace ovelin;

SequenceInfo Fiche(const char* code, double profondeur, std::int16_t decalage) {
  SequenceInfo f;
  f.Code = Code2(code);
  f.Profondeur = profondeur;
  f.Decalage = decalage;
  f.Fraiser = Vrai;
  f.Selection = Vrai;
  return f;
}

Copie Deux() {
  Copie copie;
  copie.points = essai::Trace(" A", {{0.1F, 0}, {0, 7.123457F}, {-9, 7}});
  const auto b = essai::Trace("ZZ", {{3, 3}, {3, 3}});
  copie.points.insert(copie.points.end(), b.begin(), b.end());
  copie.points[1].Cde = CodePC;
  copie.fiches = {Fiche(" A", -2.5, 3), Fiche("ZZ", -1, 1)};
  copie.fiches[1].Poche = Vrai;
  copie.fiches[0].Fraiser = Faux;
  return copie;
}

TEST(CopieDuTexte, BringsBackPointsAndRecordsWithEitherMark) {
  for (const char marque : {'.', ','}) {
    Svc.MarqueDecimale = marque;
    EXPECT_EQ(CopieDuTexte(TexteDeCopie(Deux()), -3), Deux()) << marque;
  }
  const std::string virgule = TexteDeCopie(Deux());
  Svc.MarqueDecimale = '.';
  EXPECT_EQ(CopieDuTexte(virgule, -3), Deux()) << "from a program of another language";
}

TEST(CopieDuTexte, GivesAPathWithoutItsLineTheDepthOfAFreshOne) {
  Copie seule;
  seule.points = essai::Trace(" A", {{0, 0}, {5, 0}});
  std::string texte = TexteDeCopie(seule);
  texte.erase(0, texte.find("$$SeD") + 8);
  const Copie lue = CopieDuTexte(texte, -4);
  ASSERT_EQ(lue.fiches.size(), 1U);
  EXPECT_EQ(lue.fiches[0].Profondeur, -4);
}

TEST(CopieDuTexte, OfAnythingElseIsEmpty) {
  EXPECT_TRUE(CopieDuTexte("", -3).Vide());
  EXPECT_TRUE(CopieDuTexte("bonjour", -3).Vide());
  EXPECT_TRUE(CopieDuTexte(std::string("\x00\x01\x02", 3), -3).Vide());
  EXPECT_TRUE(CopieDuTexte("$$Seq A011-3\r\n$$SeD1\r\n", -3).Vide()) << "a record without points";
}

TEST(CopieDuTexte, BringsBackLayersAndIslands) {
  Copie copie = Deux();
  copie.complements.Pose(Code2("ZZ"), {true, "Bord = 3", 0x0000FF});
  EXPECT_EQ(CopieDuTexte(TexteDeCopie(copie), -3), copie);
}

}  // namespace
