// What a path has beyond its record: the table by code, and its lines in a project.
#include <gtest/gtest.h>

#include "core/Complements.h"
#include "core/DocumentCourant.h"
#include "core/Projet.h"
#include "core/ProjetTexte.h"
#include "tests/support/Support.h"
#include "tests/unit/core/ProjetTest.h"

namespace {

using namespace ovelin;
using essai::DeuxPoints;
using essai::LigneSequence;

const Code2 A(" A");
const Code2 B(" B");

Complement Rouge(const std::string& calque = "Gravure") { return {false, calque, 0xFF0000}; }

std::string Lignes(const Complement& complement) {
  std::string texte;
  ComposeComplement(texte, A, complement);
  return texte;
}

// Two points and the line of " A", with these lines behind it.
ContenuProjet Lu(const std::string& lignes) {
  return LitTexteProjet(LigneSequence(" A", "001", "-2") + "$$SeD1\r\n" + lignes + DeuxPoints());
}

TEST(TableComplements, APathWithoutEntryIsAllDefault) {
  const TableComplements table;
  EXPECT_EQ(table.De(A), Complement{});
  EXPECT_FALSE(table.De(A).Ilot);
  EXPECT_FALSE(table.De(A).Couleur.has_value());
}

TEST(TableComplements, WhatIsAllDefaultAgainHasNoEntry) {
  TableComplements table;
  table.Pose(A, Rouge());
  table.Pose(B, {true, "", std::nullopt});
  EXPECT_EQ(table.De(A).Calque, "Gravure");
  EXPECT_TRUE(table.De(B).Ilot);
  table.Pose(A, {});
  table.Pose(B, Complement{});
  EXPECT_TRUE(table.Vide());
  EXPECT_EQ(table, TableComplements{});
}

TEST(TableComplements, ForgetsOnePathOrThoseOfACondition) {
  TableComplements table;
  table.Pose(A, Rouge());
  table.Pose(B, Rouge("Bord"));
  table.Pose(Code2(" C"), Rouge("Bord"));
  table.Oublie(A);
  EXPECT_EQ(table.De(A), Complement{});
  EXPECT_EQ(table.De(B).Calque, "Bord");
  table.OublieSi([](Code2 code) { return code == B; });
  EXPECT_EQ(table.De(B), Complement{});
  EXPECT_EQ(table.De(Code2(" C")).Calque, "Bord");
}

TEST(NomDeCalque, IsUtf8WithoutControlCharactersAndBlanksAround) {
  EXPECT_EQ(NomDeCalque("Gravure"), "Gravure");
  EXPECT_EQ(NomDeCalque("  a\tb\r\n"), "a b");
  EXPECT_EQ(NomDeCalque("Contour ext\xE9rieur"), "Contour ext\xC3\xA9rieur") << "8 bits";
  EXPECT_EQ(NomDeCalque("ext\xC3\xA9rieur"), "ext\xC3\xA9rieur");
  EXPECT_EQ(NomDeCalque("a\xC2\x85z"), "a  z") << "U+0085 ends a line for some";
  EXPECT_EQ(NomDeCalque(std::string("a\0b", 3)), "a b");
  EXPECT_EQ(NomDeCalque("\x01\x7F "), "");
}

TEST(NomDeCalque, IsCutAtAWholeCharacter) {
  EXPECT_EQ(NomDeCalque(std::string(1000000, 'x')), std::string(255, 'x'));
  std::string longue;
  for (int i = 0; i < 500000; ++i) longue += "\xC3\xA9";
  EXPECT_EQ(NomDeCalque(longue), longue.substr(0, 254));
  EXPECT_EQ(NomDeCalque(std::string(1000000, '\xE9')).size(), 254U) << "two bytes for each of them";
}

TEST(ComposeComplement, NothingToTellIsNoLine) { EXPECT_EQ(Lignes({}), ""); }

TEST(ComposeComplement, HasItsColumns) {
  EXPECT_EQ(Lignes({true, "", std::nullopt}), "$$SeI A1\r\n");
  EXPECT_EQ(Lignes(Rouge()), "$$SeC AFF0000Gravure\r\n");
  EXPECT_EQ(Lignes({false, "Bord", std::nullopt}), "$$SeC A      Bord\r\n");
  EXPECT_EQ(Lignes({false, "", 0x00000A}), "$$SeC A00000A\r\n");
  EXPECT_EQ(Lignes({true, "Bord", std::nullopt}), "$$SeI A1\r\n$$SeC A      Bord\r\n");
}

TEST(ComposeComplement, WritesWhatWouldBeASettingByItsNumber) {
  EXPECT_EQ(Lignes({false, "$$ProfFraisage=9", std::nullopt}), "$$SeC A      %24%24ProfFraisage%3D9\r\n");
  EXPECT_EQ(Lignes({false, "50%", std::nullopt}), "$$SeC A      50%25\r\n");
  EXPECT_EQ(Lignes({false, "ext\xC3\xA9rieur", std::nullopt}), "$$SeC A      ext\xE9rieur\r\n");
}

TEST(LitTexteProjet, BringsBackEachComplement) {
  const std::string longue(255, 'n');
  for (const Complement& c :
       {Complement{true, "", std::nullopt}, Rouge(), Rouge(""), Complement{true, "a  b", 0}, Rouge(longue),
        Rouge("$$ProfFraisage=9"), Rouge("50% = %3D"), Rouge("\xC3\x83\xC2\xA9"), Rouge("\xE5\xB1\xA4 \xD7\xA9")}) {
    const ContenuProjet lu = Lu(Lignes(c));
    EXPECT_EQ(lu.Complements.De(A), c) << c.Calque;
    EXPECT_TRUE(lu.Douteuses.empty()) << c.Calque;
  }
}

TEST(LitTexteProjet, WithoutLinesOfTheirsHasNoComplements) { EXPECT_TRUE(Lu("").Complements.Vide()); }

TEST(LitTexteProjet, ADamagedComplementSaysNothingAndIsTold) {
  for (const char* ligne :
       {"$$SeI", "$$SeI A", "$$SeI A2", "$$SeI B1", "$$SeC A", "$$SeC AFF00", "$$SeC AFF00GGNom",
        "$$SeC A 12345Nom", "$$SeC A      50%", "$$SeC A      %4", "$$SeC A      %ZZ", "$$SeC A      %FF"}) {
    const ContenuProjet lu = Lu(std::string(ligne) + "\r\n");
    EXPECT_TRUE(lu.Complements.Vide()) << ligne;
    ASSERT_EQ(lu.Douteuses.size(), 1U) << ligne;
    EXPECT_EQ(lu.Douteuses[0].ligne, 3) << ligne;
    EXPECT_EQ(lu.Douteuses[0].valeur, ligne);
    EXPECT_EQ(lu.Points.size(), 2U) << ligne;
  }
}

TEST(LitTexteProjet, ANameThatIsTooLongIsCutAndTold) {
  const ContenuProjet lu = Lu("$$SeC A00FF00" + std::string(300000, 'x') + "\r\n");
  EXPECT_EQ(lu.Complements.De(A), (Complement{false, std::string(255, 'x'), 0x00FF00}));
  ASSERT_EQ(lu.Douteuses.size(), 1U);
  EXPECT_EQ(lu.Douteuses[0].valeur.size(), 60U);
}

TEST(LitTexteProjet, ASettingThatBeginsLikeThemIsNone) {
  const ContenuProjet lu = Lu("$$SeCurite=1\r\n$$SeInfo=2\r\n");
  EXPECT_TRUE(lu.Complements.Vide());
  EXPECT_TRUE(lu.Douteuses.empty());
}

TEST(LitTexteProjet, TakesACodeWithAnEqualsSign) {
  const ContenuProjet lu =
      LitTexteProjet(LigneSequence("=A", "001", "-2") + "$$SeD1\r\n$$SeI=A1\r\n" + DeuxPoints("=A"));
  EXPECT_TRUE(lu.Complements.De(Code2("=A")).Ilot);
}

TEST(EcrireProjet, KeepsWhatStandsBesideTheRecords) {
  essai::AjouteCarre(" A", 0, 0, 10);
  essai::AjouteCarre(" B", 20, 0, 10);
  NbPoints = 10;
  Complements.Pose(B, {true,
                       "D\xC3\xA9"
                       "coupe",
                       0x123456});
  const std::string chemin = essai::Dossier() + "/p.OVL";
  ASSERT_EQ(EcrireProjet(chemin), "");
  const std::string texte = essai::LitFichierEssai(chemin);
  EXPECT_NE(texte.find("\r\n$$SeD1\r\n$$SeI B1\r\n$$SeC B123456D\xE9"
                       "coupe\r\n"),
            std::string::npos);
  EXPECT_EQ(texte.find("$$SeI A"), std::string::npos);
  const TableComplements avant = Complements;
  Complements.OublieTout();
  Complements.Pose(A, Rouge());
  FichierCourant = chemin;
  ASSERT_TRUE(LireProjet(chemin));
  EXPECT_EQ(Complements, avant);
}

TEST(EcrireProjet, OfALargeDrawingKeepsThemToo) {
  std::vector<std::pair<float, float>> xy;
  for (int i = 0; i < 6000; ++i) xy.emplace_back(static_cast<float>(i % 100), static_cast<float>(i));
  essai::AjouteSequence(" A", xy);
  NbPoints = 6000;
  Complements.Pose(A, Rouge());
  const std::string chemin = essai::Dossier() + "/p.OVL";
  ASSERT_EQ(EcrireProjet(chemin), "");
  EXPECT_NE(essai::LitFichierEssai(chemin).find("\r\n$$SeC AFF0000Gravure\r\n"), std::string::npos);
}

}  // namespace
