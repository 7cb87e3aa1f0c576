// What an opening asks and tells: units, doubts, what was left out, why a file is refused.
#include <gtest/gtest.h>

#include <cmath>
#include <string>

#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Traduction.h"
#include "tests/support/Support.h"
#include "tests/unit/workspace/DessinsOuverts.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using essai::Attend;
using essai::CarreDxf;
using essai::Dxf;
using essai::EcritFichierEssai;
using essai::Ouvre;

// A bracket of 20 x 10 units.
std::string Svg(const std::string& taille) {
  return EcritFichierEssai("equerre.svg",
                           "<svg " + taille + " viewBox=\"0 0 20 10\"><path d=\"M0 0H20V10z\"/></svg>\r\n");
}

TEST(Ouvrir, ASvgWithoutUnitAsksForItAndMillimetresAreRead) {
  const std::string chemin = Svg("width=\"20\" height=\"10\"");
  Attend("F_Representation", "lib144", Reponse::Oui);
  EXPECT_EQ(Ouvre(chemin), Ouverture::Reussie);
  EXPECT_NEAR(Xmax - Xmin, 20, 1e-4);
  const std::string& texte = essai::Boites()[0].texte;
  EXPECT_NE(texte.find("\n20.0 x 10.0 mm\n5.292 x 2.646 mm"), std::string::npos) << texte;
}

TEST(Ouvrir, ASvgWithoutUnitIsInPixelsWhenTheUserSaysSo) {
  const std::string chemin = Svg("width=\"20\" height=\"10\"");
  Attend("F_Representation", "lib144", Reponse::Non);
  EXPECT_EQ(Ouvre(chemin), Ouverture::Reussie);
  EXPECT_NEAR(Xmax - Xmin, 20 * 25.4 / 96, 1e-4);
}

TEST(Ouvrir, ASvgWithAUnitAsksNothing) {
  EXPECT_EQ(Ouvre(Svg("width=\"20cm\" height=\"10cm\"")), Ouverture::Reussie);
  EXPECT_NEAR(Xmax - Xmin, 200, 1e-3);
}

TEST(Ouvrir, WithoutAQuestionTheUnitIsTold) {
  OptionsOuverture options;
  options.demandeUnite = false;
  Attend("F_Representation", "lib135");
  EXPECT_EQ(mnu_Ouvrir(Svg("width=\"20\" height=\"10\""), options), Ouverture::Reussie);
  options.souhait.uniteSvg = 25.4;
  EXPECT_EQ(mnu_Ouvrir(Svg("width=\"20\" height=\"10\""), options), Ouverture::Reussie);
  EXPECT_NEAR(Xmax - Xmin, 508, 1e-3);
}

TEST(Ouvrir, ADrawingWhoseEndIsMissingIsOpenedWithAWarning) {
  const std::string entier = CarreDxf;
  const std::string coupe = EcritFichierEssai("coupe.dxf", entier.substr(0, entier.find("0\r\nENDSEC")));
  Attend("erreurs", "102");
  EXPECT_EQ(Ouvre(coupe), Ouverture::Reussie);
  ASSERT_EQ(essai::Boites().size(), 1U);
  EXPECT_EQ(essai::Boites()[0].icone, Icone::Exclamation);
  EXPECT_EQ(essai::Boites()[0].fichier, coupe);
  EXPECT_EQ(NbSequences(), 1);
}

TEST(Ouvrir, WhatTheReaderLeavesOutIsToldInTheStatusBarUntilTheNextDrawing) {
  std::string avecTexte = CarreDxf;
  avecTexte.insert(avecTexte.find("0\r\nENDSEC"),
                   "0\r\nTEXT\r\n8\r\n0\r\n10\r\n1\r\n20\r\n2\r\n40\r\n5\r\n1\r\nA\r\n");
  EXPECT_EQ(Ouvre(EcritFichierEssai("texte.dxf", avecTexte)), Ouverture::Reussie);
  EXPECT_THAT(essai::Panneaux(),
              testing::Contains(testing::Pair(5, Traduire("F_Representation", "Ecartes") + " TEXT 1")));
  EXPECT_EQ(Ouvre(EcritFichierEssai("carre.dxf", CarreDxf)), Ouverture::Reussie);
  EXPECT_EQ(essai::Panneaux().back(), (std::pair<int, std::string>{5, ""}));
}

TEST(Ouvrir, ADrillFileWithoutAUnitIsOpenedWithAWarning) {
  Attend("F_Representation", "lib131");
  ContenuLu lu;
  ASSERT_EQ(Ouvre(EcritFichierEssai("u.drl", "M48\r\n%\r\nX1.0Y1.0\r\nX2.0Y1.0\r\nM30\r\n"), &lu),
            Ouverture::Reussie);
  EXPECT_FLOAT_EQ(lu.xmax, 50.8F);
  EXPECT_EQ(lu.message, Traduire("F_Representation", "lib131"));
}

TEST(Ouvrir, AGuessedNumberFormatStandsInTheStatusBarAlone) {
  ContenuLu lu;
  const std::string texte = "M48\r\nMETRIC\r\n%\r\nX1000Y1000\r\nX2000Y1000\r\nX2000Y1000\r\nM30\r\n";
  ASSERT_EQ(Ouvre(EcritFichierEssai("f.drl", texte), &lu), Ouverture::Reussie);
  EXPECT_EQ(lu.message, Traduire("F_Representation", "lib132") + " METRIC,TZ,000.000, " +
                            Traduire("F_Representation", "Ecartes") + " " + Traduire("Ecartes", "DUPLICATE") +
                            " 1");
  EXPECT_EQ(essai::Panneaux().back(), (std::pair<int, std::string>{5, lu.message}));
}

TEST(Ouvrir, ExtentsAndColumnsThatTheReaderDoubtsAreTold) {
  Attend("F_Representation", "lib133");
  const std::string perce = "M48\r\n;EXTENTS 10.0 10.0\r\nMETRIC\r\n%\r\nX1.0Y1.0\r\nX90.0Y1.0\r\nM30\r\n";
  EXPECT_EQ(Ouvre(EcritFichierEssai("e.drl", perce)), Ouverture::Reussie);
  Attend("F_Representation", "lib134");
  EXPECT_EQ(Ouvre(EcritFichierEssai("c.dat", "0 0 1 2\r\n9 0 1 2\r\n9 9 1 2\r\n")), Ouverture::Reussie);
}

TEST(Ouvrir, EveryKindOfTheAssemblyHasItsWord) {
  ContenuLu lu;
  ASSERT_EQ(Ouvre(EcritFichierEssai("d.dxf", Dxf({{true, {{10, 10}, {50, 10}, {50, 50}}},
                                                  {true, {{10, 10}, {50, 10}, {50, 50}}}})),
                  &lu),
            Ouverture::Reussie);
  EXPECT_EQ(lu.rapport.Ignores.at("DUPLICATE"), 1);
  for (const char* genre : {"DUPLICATE", "ZERO_LENGTH", "ROW", "LAYER", "PAPER_SPACE"}) {
    EXPECT_NE(Traduire("Ecartes", genre), genre);
  }
}

TEST(Ouvrir, WhatIsLeftOutIsASentenceOfWordsOfTheLanguage) {
  Regl.Langue = "fr";
  ContenuLu lu;
  std::string texte = Dxf({{true, {{10, 10}, {50, 10}, {50, 50}}}, {true, {{10, 10}, {50, 10}, {50, 50}}}});
  texte.insert(texte.find("0\r\nENDSEC"), "0\r\nTEXT\r\n8\r\n0\r\n10\r\n1\r\n20\r\n2\r\n40\r\n5\r\n1\r\nA\r\n");
  ASSERT_EQ(Ouvre(EcritFichierEssai("d.dxf", texte), &lu), Ouverture::Reussie);
  EXPECT_EQ(lu.message, "Laissé de côté : doublon 1, TEXT 1");
}

// Nothing of such a file is in the library's message but what was left out, in words of the formats.
TEST(Ouvrir, ADrawingThatHoldsNothingToMillNamesItsFileAndWhatWasLeftOut) {
  Regl.Langue = "fr";
  Attend("F_Representation", "lib109");
  std::string texte = Dxf({});
  texte.insert(texte.find("0\r\nENDSEC"), "0\r\nTEXT\r\n8\r\n0\r\n10\r\n1\r\n20\r\n2\r\n40\r\n5\r\n1\r\nA\r\n");
  EXPECT_EQ(Ouvre(EcritFichierEssai("texte.dxf", texte)), Ouverture::Refusee);
  const std::string debut = Traduire("F_Representation", "lib109");
  EXPECT_EQ(essai::Boites().back().texte, debut + " (DXF)\ntexte.dxf: Laissé de côté : TEXT 1");
  Attend("F_Representation", "lib109");
  EXPECT_EQ(Ouvre(EcritFichierEssai("coupe.plt", "IN;SP1;PU0,0;PD40")), Ouverture::Refusee);
  EXPECT_EQ(essai::Boites().back().texte, debut + " (PLT)\ncoupe.plt\n" + Traduire("erreurs", "102"));
}

TEST(Ouvrir, AProjectWithoutPointsOrWithAllInOnePlaceNamesItsFile) {
  for (const auto& [points, cle] :
       {std::pair{"$$PCPoche=1\r\n", "100"}, {"$$PCPoche=1\r\n1              2              PD\r\n", "101"}}) {
    const std::string chemin = EcritFichierEssai("p.OVL", points);
    Attend("erreurs", cle);
    EXPECT_EQ(Ouvre(chemin), Ouverture::Refusee);
    EXPECT_EQ(essai::Boites().back().texte, Traduire("erreurs", cle) + "\n" + chemin);
  }
}

TEST(Ouvrir, ARefusedDrawingTellsReasonExtensionAndLine) {
  const std::string chemin = EcritFichierEssai("faux.dxf", "0\r\nSECTION\r\n2\r\nENTITIES\r\nzut\r\nLINE\r\n");
  Attend("F_Representation", "lib115");
  ContenuLu contenu;
  EXPECT_EQ(Ouvre(chemin, &contenu), Ouverture::Refusee);
  EXPECT_EQ(NbPoints, -115);
  EXPECT_TRUE(TraceInitial.empty());
  ASSERT_EQ(essai::Boites().size(), 1U);
  const BoiteMessage& boite = essai::Boites()[0];
  EXPECT_EQ(boite.icone, Icone::Critique);
  EXPECT_NE(boite.texte.find(" (DXF)\nfaux.dxf:5"), std::string::npos) << boite.texte;
  EXPECT_EQ(boite.fichier, chemin);
  EXPECT_EQ(boite.ligne, 5);
}

TEST(Ouvrir, FewerThanTwoPointsIsNumber109) {
  Attend("F_Representation", "lib109");
  EXPECT_EQ(Ouvre(EcritFichierEssai("vide.dxf", Dxf({}))), Ouverture::Refusee);
  EXPECT_EQ(NbPoints, -109);
}

TEST(RefusLecture, OfNumber101HasNoLineOfTheLibrary) {
  ContenuLu contenu;
  contenu.message = "x.dxf:1: y";
  contenu.rapport.Ligne = 1;
  const RefusFichier sans = RefusLecture(-101, "/d/x.dxf", contenu);
  EXPECT_EQ(sans.cle, "lib101");
  EXPECT_EQ(sans.suite, " (DXF)");
  const RefusFichier avec = RefusLecture(-119, "/d/x.dxf", contenu);
  EXPECT_EQ(avec.cle, "lib119");
  EXPECT_EQ(avec.suite, " (DXF)\nx.dxf:1: y");
  EXPECT_EQ(avec.fichier, "/d/x.dxf");
  EXPECT_EQ(avec.ligne, 1);
}

}  // namespace
