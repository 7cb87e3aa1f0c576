// From the bytes of a drawing to the lines of its G-code by kernels alone: what is in force stays as it is.
#include <gtest/gtest.h>

#include <filesystem>
#include <string>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "machine/TableCourante.h"
#include "tests/support/Support.h"
#include "tests/unit/workspace/Route.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using essai::EcritFichierEssai;
using essai::Parcourt;
using essai::Route;

// One hole at (10, 15).
const std::string Trou = "M48\nMETRIC\nT1C1.0\n%\nT1\nX10.0Y15.0\nM30\n";

Reglages ReglagesTrou() {
  Reglages r;
  r.ProfFraisage = -1;
  r.ProfPasse = -1;
  r.HautDeg = 5;
  r.Vitesse_Mat_H = 2;
  r.Vitesse_Mat_V = 1;
  return r;
}

TableMachine TableTrou() {
  TableMachine t;
  t.VitesseMaxX = 5;
  t.VitesseMaxY = 5;
  t.VitesseMaxZ = 4;
  return t;
}

// What is in force, none of it as a fresh start has it.
struct EnVigueur {
  Document document = Doc;
  Reglages reglages = Regl;
  TableMachine table = Table;
  EtatPlan plan = Plan;
  bool operator==(const EnVigueur&) const = default;
};
EnVigueur Travail() {
  essai::AjouteCarre(" A", 0, 0, 10);
  TraceDecale = {{Code2(" A"), TraceInitial}};
  FichierCourant = "avant.dxf";
  FichierProjet = "";
  Xmax = 10;
  SeqCourante = Code2(" A");
  Regl.ProfFraisage = -7;
  Regl.RayonFraise = 1.25;
  Table.CourseX = 321;
  TableDecoupe.assign(4, Deplacement{1, 2, 3});
  NbDeplacements = 3;
  CumulX = 4;
  return {};
}

// The margin of 5 mm puts the hole at (15, 20). Rapids run at 5 mm/s in Y, the slower share of the way 3-4-5, so at
// 6.25 mm/s along it: F375. Up and down in the air at 4 mm/s: F240; in the material at 1 mm/s: F60.
TEST(Route, OfAHoleIsTheFileThatAHandReckons) {
  const Route route = Parcourt(EcritFichierEssai("trou.drl", Trou), ReglagesTrou(), TableTrou());
  EXPECT_EQ(route.nc,
            "(essai)\n()\n(mm)\nG71\n(abs)\n(M)\nM03\n"
            "F240.00000\nG00  Z5.000\n"
            "F375.00000\nG00  X15.000 Y20.000\n"
            "F240.00000\nG01  Z0.000\n"
            "F60.00000\nG01  Z-1.000\nG01  Z0.000\n"
            "F240.00000\nG00  Z5.000\n"
            "F375.00000\nG00  X0.000 Y0.000\n"
            "F240.00000\nG01  Z0.000\n"
            "(S)\nM05\n(F)\nM02\n");
}

TEST(Route, LeavesWhatIsInForceAsItWas) {
  const EnVigueur avant = Travail();
  const Route route = Parcourt(essai::DossierExemples() + "/equerre.dxf", Reglages{}, TableMachine{});
  EXPECT_GT(route.document.TraceDecale.size(), 3U);
  EXPECT_NE(route.nc.find("M02"), std::string::npos);
  EXPECT_EQ(EnVigueur{}, avant);
}

TEST(LitDessin, OfARefusedFileTellsLineAndReasonAndLeavesTheJob) {
  const EnVigueur avant = Travail();
  const std::string chemin = EcritFichierEssai("faux.dxf", "0\nSECTION\n2\nENTITIES\nLINE\n8\n");
  const DessinLu lu = LitDessin(chemin, Reglages{}, {});
  ASSERT_TRUE(lu.refus);
  EXPECT_EQ(lu.refus->cle, "lib115");
  EXPECT_EQ(lu.refus->fichier, chemin);
  EXPECT_EQ(lu.refus->ligne, 5);
  EXPECT_TRUE(lu.refus->suite.starts_with(" (DXF)\nfaux.dxf:5")) << lu.refus->suite;
  EXPECT_EQ(EnVigueur{}, avant);
}

TEST(LitDessin, OfAProjectGivesItsDocumentAndLeavesTheJob) {
  const std::string chemin = EcritFichierEssai(
      "p.OVL",
      "$$ProfFraisage=-4\r\n$$Se A0-10-2.5\r\n$$SeD3\r\n"
      "1              2              PD              A\r\n3              5              PD              A\r\n"
      "$$Mat01 6\r\n$$Mat02 0.5\r\n");
  const EnVigueur avant = Travail();
  const DessinLu lu = LitDessin(chemin, Reglages{}, {});
  ASSERT_FALSE(lu.refus);
  ASSERT_TRUE(lu.projet);
  EXPECT_EQ(lu.contenu.points, 2);
  EXPECT_EQ(lu.projet->document.Xmax, 3);
  EXPECT_EQ(lu.projet->LargeurEncoche, 6);
  EXPECT_EQ(lu.projet->reglages.at("ProfFraisage"), "-4");
  EXPECT_EQ(EnVigueur{}, avant);
}

TEST(LitDessin, NamesTheKeysThatAnOpeningWantsWrittenAndWritesNone) {
  EcrireCle("Fichier", "avant");
  const std::string chemin = EcritFichierEssai("trou.drl", Trou);
  const DessinLu lu = LitDessin(chemin, Reglages{}, {});
  EXPECT_EQ(lu.cles, (std::vector<std::pair<std::string, std::string>>{{"Fichier", chemin}}));
  EXPECT_EQ(LireCle("Fichier", ""), "avant");
}

// The file is gone by then: what comes into force is what was read.
TEST(OuvreDessinLu, PutsInForceWhatWasReadWithoutTheFile) {
  const std::string chemin = EcritFichierEssai("trou.drl", Trou);
  DessinLu lu = LitDessin(chemin, Reglages{}, {});
  std::filesystem::remove(chemin);
  OptionsOuverture options;
  options.rendUniforme = false;
  ASSERT_EQ(OuvreDessinLu(std::move(lu), options), Ouverture::Reussie);
  EXPECT_EQ(NbPoints, 2);
  EXPECT_EQ(TraceInitial[0].X, 15);
  EXPECT_EQ(TraceInitial[0].Y, 20);
  EXPECT_EQ(FichierCourant, chemin);
  EXPECT_EQ(LireCle("Fichier", ""), chemin);
  EXPECT_EQ(TraceDecale.size(), 1U);
}

}  // namespace
