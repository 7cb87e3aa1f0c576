// Whole jobs on the project's own drawings, from the file to the G-code: against files that were looked over, move
// by move against an interpreter of others, and with the properties a user counts on.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <ostream>
#include <string>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "run/Module_GCode.h"
#include "tests/support/Golden.h"
#include "tests/support/Rs274.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Outils.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;

// A machine with 15 mm/s on every axis and 0.005 mm a step, the material presets, French texts.
void Prepare() {
  essai::InstalleTextesGolden();
  TableDefaut = "ESSAI";
  for (const char* cle : {"TB_SAV_15", "TB_SAV_16", "TB_SAV_17"}) EcrireCleSection("table_ESSAI", cle, "15");
  EcrireCleSection("table_ESSAI", "TB_SAV_3", "100");
  EcrireCleSection("table_ESSAI", "TB_SAV_4", "100");
  ChargeGlobalesTable();
  EcritFichesDefaut();
}

void Ouvre(const std::string& nom) {
  OptionsOuverture options;
  options.ecritFichier = false;
  options.rendUniforme = false;
  ASSERT_EQ(mnu_Ouvrir(essai::DossierExemples() + "/" + nom, options), Ouverture::Reussie);
}

float Aire(const Etendue& e) {
  double s = 0;
  for (std::size_t i = e.premier; i + 1 < e.Fin(); ++i) {
    const PointTrace& a = TraceInitial[i];
    const PointTrace& b = TraceInitial[i + 1];
    s += static_cast<double>(a.X) * static_cast<double>(b.Y) - static_cast<double>(b.X) * static_cast<double>(a.Y);
  }
  return static_cast<float>(s / 2);
}

// The path with the largest area: the outline of the part.
Etendue Contour() {
  const auto toutes = EtenduesSequences();
  return *std::max_element(toutes.begin(), toutes.end(), [](const Etendue& a, const Etendue& b) {
    return std::fabs(Aire(a)) < std::fabs(Aire(b));
  });
}

struct Travail {
  const char* nom;
  const char* dessin;
  std::function<void()> prepare;
};

void PrintTo(const Travail& travail, std::ostream* sortie) { *sortie << travail.nom; }

void SelectionneContour(bool contour) {
  const Code2 code = Contour().code;
  for (SequenceInfo& s : Sequences) s.Selection = EnDrapeau((s.Code == code) == contour);
}

const Travail Travaux[] = {
    // A bracket cut from plywood, held by two notches on its outline.
    {"equerre", "equerre.dxf",
     [] {
       EXPECT_TRUE(AppliqueMateriau(4));
       EntreMiniEncoche("1,5");
       const Etendue c = Contour();
       const auto milieu = [&](std::size_t i) {
         const PointTrace& a = TraceInitial[c.premier + i];
         const PointTrace& b = TraceInitial[c.premier + i + 1];
         return std::pair{(a.X + b.X) / 2, (a.Y + b.Y) / 2};
       };
       int posees = 0;
       for (std::size_t i = 0; i + 1 < c.nombre && posees < 2; ++i) {
         const PointTrace& a = TraceInitial[c.premier + i];
         const PointTrace& b = TraceInitial[c.premier + i + 1];
         if (DistancePoints(a, b) < 20) continue;
         const auto [x, y] = milieu(i);
         if (AjouteAttache(x, y)) ++posees;
       }
       EXPECT_EQ(posees, 2);
     }},
    // A nameplate: everything inside the outline is a pocket 1 mm deep, the outline is cut through.
    {"plaque", "plaque.dxf",
     [] {
       EXPECT_TRUE(EntreRayonFraise("0.5"));
       EXPECT_TRUE(EntrePCPoche("40"));
       SelectionneContour(false);
       PocheSelection(true);
       EXPECT_TRUE(ProfondeurSelection(-1));
       SelectionneTout();
     }},
    // The same plate, cleared 1 mm deep around its frame, holes and triangles, which stand; the ellipse in the
    // frame is
    // a pocket within an island.
    {"ilots", "plaque.dxf",
     [] {
       EXPECT_TRUE(EntreRayonFraise("1.5"));
       EXPECT_TRUE(EntrePCPoche("40"));
       auto fermees = EtenduesSequences();
       std::erase_if(fermees, [](const Etendue& e) { return e.nombre < 4 || !EstFermee(e); });
       std::stable_sort(fermees.begin(), fermees.end(),
                        [](const Etendue& a, const Etendue& b) { return std::fabs(Aire(a)) > std::fabs(Aire(b)); });
       ASSERT_GE(fermees.size(), 4U);  // outline, frame, ellipse, small ones
       DeselectionneTout();
       for (const std::size_t k : {0U, 2U}) BasculeSelection(fermees[k].code);
       PocheSelection(true);
       DeselectionneTout();
       for (std::size_t k = 1; k < fermees.size(); ++k) {
         if (k != 2) BasculeSelection(fermees[k].code);
       }
       IlotSelection(true);
       SelectionneTout();
       EXPECT_TRUE(ProfondeurSelection(-1));
     }},
    // A wing rib in foam.
    {"aile", "aile.dat", [] { EXPECT_TRUE(AppliqueMateriau(1)); }},
    // Holes and slots on the line.
    {"percage", "percage.drl",
     [] {
       EXPECT_TRUE(EntreRayonFraise("0.4"));
       SelectionneTout();
       DecaleSelection(2);
     }},
    // A sign whose letters stand, cut with a fine tool.
    {"enseigne", "enseigne.plt", [] { EXPECT_TRUE(AppliqueMateriau(3)); }},
};

class GoldenTravail : public testing::TestWithParam<Travail> {};

std::string Ecrit() {
  const std::string fichier = essai::Dossier() + "/travail.nc";
  EcritureNC resultat;
  EXPECT_TRUE(EcritGCode(fichier, resultat));
  EXPECT_GT(resultat.deplacements, 10);
  return fichier;
}

TEST_P(GoldenTravail, AgreesWithTheFileThatWasLookedOver) {
  Prepare();
  Ouvre(GetParam().dessin);
  GetParam().prepare();
  EXPECT_EQ(essai::CompareGolden(std::string("travail-") + GetParam().nom, Ecrit()), "");
}

TEST_P(GoldenTravail, IsReadByAnInterpreterOfOthersMoveByMove) {
  if (!essai::Rs274Present()) GTEST_SKIP() << essai::Rs274Absent;
  Prepare();
  Ouvre(GetParam().dessin);
  GetParam().prepare();
  EXPECT_EQ(essai::CompareTableDecoupe(essai::LanceRs274(Ecrit())), "");
}

TEST_P(GoldenTravail, NeverMovesFastInTheMaterialNorBelowItsDepth) {
  Prepare();
  Ouvre(GetParam().dessin);
  GetParam().prepare();
  Ecrit();
  double profond = 0;
  for (const SequenceInfo& s : Sequences) profond = std::min(profond, s.Profondeur);
  ASSERT_GT(NbDeplacements, 10);
  for (std::int32_t i = 2; i <= NbDeplacements; ++i) {
    const Deplacement& avant = TableDecoupe[static_cast<std::size_t>(i) - 1];
    const Deplacement& d = TableDecoupe[static_cast<std::size_t>(i)];
    EXPECT_GE(d.Z, static_cast<float>(profond) - 1e-4F) << i;
    const bool plan = d.X != avant.X || d.Y != avant.Y;
    if (plan && d.Z < 0) {
      EXPECT_LE(d.Vitesse, static_cast<float>(Vitesse_Mat_H) + 1e-4F) << i;
    }
    if (!plan && d.Z < -1e-5F && d.Z < avant.Z) {
      EXPECT_LE(d.Vitesse, static_cast<float>(Vitesse_Mat_V) + 1e-4F) << i;
    }
  }
  const Deplacement& fin = TableDecoupe[static_cast<std::size_t>(NbDeplacements)];
  EXPECT_EQ(fin.X, 0);
  EXPECT_EQ(fin.Y, 0);
  EXPECT_NEAR(fin.Z, 0, 1e-5);
}

TEST_P(GoldenTravail, GivesTheSameFileFromItsSavedProject) {
  Prepare();
  Ouvre(GetParam().dessin);
  GetParam().prepare();
  const std::string avant = essai::LitFichierEssai(Ecrit());
  const std::string projet = essai::Dossier() + "/travail.OVL";
  ASSERT_EQ(EnregistreProjet(projet), "");
  Doc = Document{};
  Regl.RayonFraise = 99;
  OptionsOuverture options;
  options.ecritFichier = false;
  ASSERT_EQ(mnu_Ouvrir(projet, options), Ouverture::Reussie);
  EXPECT_EQ(essai::LitFichierEssai(Ecrit()), avant);
}

INSTANTIATE_TEST_SUITE_P(Samples, GoldenTravail, testing::ValuesIn(Travaux),
                         [](const auto& travail) { return std::string(travail.param.nom); });

TEST(Scenario, TextAddedToADrawingIsMilledBesideIt) {
  Prepare();
  Ouvre("enseigne.plt");
  const std::int32_t avant = NbSequences();
  ASSERT_TRUE(GenereTexte("Été 8", "DejaVu Sans", 0, 0));
  // É and é: two and three contours with their accents and counter, t one, 8 three.
  EXPECT_EQ(NbSequences(), avant + 2 + 1 + 3 + 3);
  EXPECT_TRUE(AppliqueMateriau(1));
  const std::string fichier = Ecrit();
  if (!essai::Rs274Present()) GTEST_SKIP() << essai::Rs274Absent;
  EXPECT_EQ(essai::CompareTableDecoupe(essai::LanceRs274(fichier)), "");
}

TEST(Scenario, AnEpsLogoBecomesAJob) {
  Prepare();
  Ouvre("logo.eps");
  EXPECT_TRUE(AppliqueMateriau(1));
  const std::string fichier = Ecrit();
  if (!essai::Rs274Present()) GTEST_SKIP() << essai::Rs274Absent;
  EXPECT_EQ(essai::CompareTableDecoupe(essai::LanceRs274(fichier)), "");
}

TEST(Scenario, TheDragKnifeLengthensEveryClosedCut) {
  Prepare();
  Ouvre("enseigne.plt");
  SelectionneTout();
  DecaleSelection(2);
  std::vector<std::size_t> avant;
  for (const SequenceDecalee& s : TraceDecale) avant.push_back(s.Points.size());
  RegleProlongement(true);
  ASSERT_EQ(TraceDecale.size(), avant.size());
  for (std::size_t i = 0; i < avant.size(); ++i) {
    // A hole has no direction in which to lengthen.
    EXPECT_EQ(TraceDecale[i].Points.size(), avant[i] + (avant[i] > 2 ? 3 : 0)) << i;
  }
}

}  // namespace
