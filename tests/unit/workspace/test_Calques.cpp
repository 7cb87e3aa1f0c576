// Layers from the file of a drawing into the document, the trees and the selection.
#include <gtest/gtest.h>

#include <filesystem>

#include "core/DocumentCourant.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "tests/support/Support.h"
#include "tests/unit/workspace/DeuxArbres.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Arbres.h"
#include "workspace/Module_Enregistrement.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Panneau.h"
#include "workspace/NoyauOuverture.h"

namespace {

using namespace ovelin;
using essai::EcritFichierEssai;

// A line of 20 mm at this height.
std::string Ligne(const std::string& calque, int y, const std::string& suite = "") {
  return "0\nLINE\n8\n" + calque + "\n" + suite + "10\n0\n20\n" + std::to_string(y) + "\n11\n20\n21\n" +
         std::to_string(y) + "\n";
}
std::string Dxf(const std::string& entites) {
  return "0\nSECTION\n2\nENTITIES\n" + entites + "0\nENDSEC\n0\nEOF\n";
}
TableComplements Lus(const std::string& nom, const std::string& octets, const SouhaitLecture& souhait = {}) {
  const DessinLu lu = LitDessin(EcritFichierEssai(nom, octets), Reglages{}, {}, souhait);
  EXPECT_FALSE(lu.refus);
  return lu.document.Complements;
}

TEST(LitDessin, GivesTheLayerOfEachPath) {
  const auto c = Lus("a.dxf", Dxf(Ligne("Coupe", 0, "62\n1\n") + Ligne("Gravure", 10) + Ligne("Coupe", 20)));
  EXPECT_EQ(c.De(Code2(" A")), (Complement{false, "Coupe", 0xFF0000}));
  EXPECT_EQ(c.De(Code2(" B")), (Complement{false, "Gravure", std::nullopt}));
  EXPECT_EQ(c.De(Code2(" C")), (Complement{false, "Coupe", std::nullopt}));
}

TEST(LitDessin, OfADrawingWithOneLayerKeepsNone) {
  EXPECT_TRUE(Lus("a.dxf", Dxf(Ligne("0", 0) + Ligne("0", 10))).Vide());
  EXPECT_TRUE(Lus("a.dxf", Dxf(Ligne("Coupe", 0, "62\n1\n") + Ligne("Coupe", 10, "62\n1\n"))).Vide());
  EXPECT_TRUE(Lus("a.plt", "IN;SP2;PU0,0;PD400,0;PU;PU0,400;PD400,400;PU;").Vide());
  EXPECT_TRUE(Lus("a.dat", "0 0\n10 0\n").Vide());
}

TEST(LitDessin, ReadsNamesOfEightBitsAndOfUtf8AndCleansThem) {
  const auto c = Lus("a.dxf", Dxf(Ligne("Ext\xE9rieur", 0) + Ligne("Int\xC3\xA9rieur", 10) + Ligne("a\x01z", 20) +
                                  Ligne(std::string(1'000'000, 'n'), 30)));
  EXPECT_EQ(c.De(Code2(" A")).Calque, "Ext\xC3\xA9rieur");
  EXPECT_EQ(c.De(Code2(" B")).Calque, "Int\xC3\xA9rieur");
  EXPECT_EQ(c.De(Code2(" C")).Calque, "a z");
  EXPECT_EQ(c.De(Code2(" D")).Calque, std::string(255, 'n'));
}

TEST(LitDessin, CallsPensAndToolsByTheirWords) {
  SouhaitLecture souhait;
  souhait.motPlume = "Plume";
  souhait.motOutil = "Outil";
  EXPECT_EQ(Lus("a.plt", "IN;SP1;PU0,0;PD400,0;PU;SP3;PU0,400;PD400,400;PU;", souhait).De(Code2(" B")).Calque,
            "Plume 3");
  EXPECT_EQ(Lus("a.drl", "M48\nMETRIC\nT1C0.8\nT2C1.0\n%\nT1\nX1.0Y1.0\nT2\nX9.0Y1.0\nM30\n", souhait)
                .De(Code2(" A"))
                .Calque,
            "Outil 1 (0.8 mm)");
}

OptionsOuverture SansToucher() {
  OptionsOuverture options;
  options.rendUniforme = false;
  return options;
}
void Ouvre(const std::string& chemin) {
  ASSERT_EQ(OuvreDessinLu(LitAOuvrir(chemin), SansToucher()), Ouverture::Reussie);
}
std::string DeuxCalques() {
  return EcritFichierEssai("deux.dxf",
                           Dxf(Ligne("Coupe", 0, "62\n1\n") + Ligne("Gravure", 30) + Ligne("Coupe", 60)));
}

TEST(OuvreDessinLu, PutsTheLayersIntoTheDocumentAndTheirProjectBringsThemBack) {
  Ouvre(DeuxCalques());
  EXPECT_EQ(Complements.De(Code2(" B")).Calque, "Gravure");
  const TableComplements avant = Complements;
  const std::string projet = essai::Dossier() + "/p.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  Ouvre(EcritFichierEssai("un.dxf", Dxf(Ligne("0", 0) + Ligne("0", 30))));
  EXPECT_TRUE(Complements.Vide()) << "nothing is left of the drawing before";
  Ouvre(projet);
  EXPECT_EQ(Complements, avant);
}

TEST(OuvreDessinLu, CallsAPenInTheLanguageInForce) {
  Regl.Langue = "en";
  Ouvre(EcritFichierEssai("a.plt", "IN;SP1;PU0,0;PD400,0;PU;SP3;PU0,400;PD400,400;PU;"));
  EXPECT_EQ(Complements.De(Code2(" B")).Calque, "Pen 3");
}

TEST(Arbre, BothTreesTellLayerAndColourOfAPath) {
  Regl.Langue = "en";
  Ouvre(DeuxCalques());
  for (const Arbre& arbre : essai::DeuxArbres()) {
    ASSERT_EQ(arbre.groupes.size(), 3U);
    EXPECT_EQ(arbre.Nom(0), "Line 20.0, -3.0, Coupe");
    EXPECT_EQ(arbre.Nom(1), "Line 20.0, -3.0, Gravure");
    EXPECT_EQ(arbre.CouleurCalque(0), 0xFF0000U);
    EXPECT_EQ(arbre.CouleurCalque(1), std::nullopt);
    EXPECT_EQ(arbre.CouleurCalque(3), std::nullopt) << "no such path";
  }
}

TEST(Arbre, OfADrawingWithOneLayerTellsNothingNew) {
  Regl.Langue = "en";
  Ouvre(EcritFichierEssai("un.dxf", Dxf(Ligne("Coupe", 0, "62\n1\n") + Ligne("Coupe", 30, "62\n1\n"))));
  Arbre arbre;
  Remplissage_Trace_Initial(arbre);
  EXPECT_EQ(arbre.Nom(0), "Line 20.0, -3.0");
  EXPECT_EQ(arbre.CouleurCalque(0), std::nullopt);
}

TEST(SelectionneCalques, MakesTheLayersOfTheSelectionTheSelection) {
  Ouvre(DeuxCalques());
  int rafraichis = 0;
  Svc.Rafraichit = [&rafraichis] { ++rafraichis; };
  DeselectionneTout();
  BasculeSelection(Code2(" C"));
  SelectionneCalques();
  EXPECT_EQ(CodesSelectionnes(), (std::vector<Code2>{Code2(" A"), Code2(" C")}));
  EXPECT_EQ(rafraichis, 1);
  EXPECT_EQ(essai::Bips(), 0);
}

TEST(SelectionneCalques, BeepsWithoutASelection) {
  Ouvre(DeuxCalques());
  DeselectionneTout();
  SelectionneCalques();
  EXPECT_EQ(essai::Bips(), 1);
  EXPECT_TRUE(CodesSelectionnes().empty());
}

}  // namespace
