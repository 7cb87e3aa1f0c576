// What the reading of a drawing left out, in words, and where it stood in the file.
#include <gtest/gtest.h>

#include <string>

#include "core/ReglagesCourants.h"
#include "tests/support/Support.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/TexteLecture.h"

namespace {

using namespace ovelin;
using pathwerk::RapportLecture;

const std::string TexteDxf = "0\r\nTEXT\r\n8\r\n0\r\n10\r\n1\r\n20\r\n2\r\n40\r\n5\r\n1\r\nA\r\n";     // 12 lines
const std::string LigneDxf = "0\r\nLINE\r\n8\r\n0\r\n10\r\n0\r\n20\r\n0\r\n11\r\n40\r\n21\r\n30\r\n";  // 12 lines

std::string Dxf(const std::string& entites) {
  return "0\r\nSECTION\r\n2\r\nENTITIES\r\n" + entites + "0\r\nENDSEC\r\n0\r\nEOF\r\n";
}

RapportLecture Lu(const std::string& nom, const std::string& texte) {
  return pathwerk::ImporteFichier(essai::EcritFichierEssai(nom, texte)).Rapport;
}

TEST(PremieresLignes, OfADxfAreThoseOfTheNamesOfItsEntities) {
  const RapportLecture r = Lu("a.dxf", Dxf(LigneDxf + TexteDxf + TexteDxf));
  EXPECT_EQ(r.Ignores.at("TEXT"), 2);
  EXPECT_EQ(r.PremieresLignes.at("TEXT"), 18) << "4 lines of the section, 12 of the line, then 0 and TEXT";
}

TEST(PremieresLignes, OfASvgAreThoseOfItsElements) {
  const RapportLecture r = Lu("a.svg",
                              "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"20mm\" height=\"10mm\" "
                              "viewBox=\"0 0 20 10\">\n<path d=\"M0 0H10V5Z\"/>\n<image width=\"3\"/>\n</svg>\n");
  EXPECT_EQ(r.Ignores.at("image"), 1);
  EXPECT_EQ(r.PremieresLignes.at("image"), 3);
}

TEST(PremieresLignes, OfADrillFileAreThoseOfItsRows) {
  const RapportLecture r = Lu("a.drl", "M48\nMETRIC\nT1C1.0\n%\nT1\nX1.0Y1.0\nX2.0Y2.0\nM97,ABC\nM30\n");
  EXPECT_EQ(r.PremieresLignes.at("M97"), 8);
}

TEST(PremieresLignes, LeaveOutAKindThatComesFromNoLine) {
  const RapportLecture r = Lu("a.dxf", Dxf(LigneDxf + LigneDxf));
  EXPECT_EQ(r.Ignores.at("DUPLICATE"), 1);
  EXPECT_FALSE(r.PremieresLignes.contains("DUPLICATE"));
}

RapportLecture Exemple() {
  RapportLecture r;
  r.Ignores = {{"HATCH", 1}, {"TEXT", 3}, {"XYZ", 2}};
  r.PremieresLignes = {{"TEXT", 120}};
  r.Suppose = {{pathwerk::Avis::SansUnites, ""}};
  return r;
}

TEST(PhraseLecture, SaysPlainWordsWhereTheOtherSaysThoseOfTheFile) {
  Regl.Langue = "fr";
  EXPECT_EQ(PhraseLecture(Exemple()),
            "Aucune unité trouvée, pouces supposés, Laissé de côté : hachure 1, texte 3, XYZ 2");
  EXPECT_EQ(TexteLecture(Exemple()),
            "Aucune unité trouvée, pouces supposés, Laissé de côté : HATCH 1, TEXT 3, XYZ 2");
  EXPECT_EQ(PhraseLecture({}), "");
}

TEST(DetailsLecture, NameFileKindsCountsAndFirstLines) {
  Regl.Langue = "fr";
  EXPECT_EQ(
      DetailsLecture(Exemple(), "plaque.dxf"),
      "plaque.dxf\n\nLaissé de côté :\n  hachure (HATCH) : 1\n  texte (TEXT) : 3, première fois à la ligne 120\n"
      "  XYZ : 2\n\nSupposé :\n  Aucune unité trouvée, pouces supposés");
}

TEST(RapportOuvert, IsThatOfTheDrawingInForceAndEndsWithIt) {
  ASSERT_EQ(mnu_Ouvrir(essai::EcritFichierEssai("a.dxf", Dxf(LigneDxf + TexteDxf)), {}), Ouverture::Reussie);
  EXPECT_EQ(RapportOuvert().Ignores.at("TEXT"), 1);
  ASSERT_EQ(mnu_Ouvrir(essai::EcritFichierEssai("b.dxf", Dxf(LigneDxf)), {}), Ouverture::Reussie);
  EXPECT_TRUE(RapportOuvert().Ignores.empty());
}

}  // namespace
