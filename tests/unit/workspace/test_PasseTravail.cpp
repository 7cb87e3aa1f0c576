// Deletion, material and undo with their tool path beside the window: what the user takes back is as before in the
// document, in the settings and in the files.
#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <functional>
#include <string>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/Projet.h"
#include "core/ReglagesCourants.h"
#include "database/Module_BD.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "tests/support/PasseEcrite.h"
#include "tests/support/Support.h"
#include "toolpath/ChampsOutil.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "toolpath/traces/Bibliotheque.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Panneau.h"
#include "workspace/Module_PanneauChamps.h"
#include "workspace/Module_Travail.h"

namespace {

using namespace ovelin;
using namespace essai;

// A pocket worth a pass, with an island in it, and a small path.
class PasseTravail : public testing::Test {
 protected:
  void SetUp() override {
    RayonFraise = 1.5;
    PCPoche = 40;
    std::vector<std::pair<float, float>> xy;
    constexpr int n = 2600;
    for (int i = 0; i <= n; ++i) {
      const double a = -2 * M_PI * (i % n) / n;
      xy.emplace_back(static_cast<float>(40 * std::cos(a)), static_cast<float>(40 * std::sin(a)));
    }
    AjouteCarre(" I", -5, -5, 10);
    Complements.Pose(Code2(" I"), {true, "", {}});
    AjouteSequence(" A", xy);
    Sequences.back().Poche = Vrai;
    AjouteCarre(" B", 100, 100, 10);
    NbPoints = static_cast<std::int32_t>(TraceInitial.size());
    const auto decale = [](Bibliotheque::Points& p, float d) {
      for (PointTrace& q : p) q.X += d;
      return 1;
    };
    Biblio.DecalSequence = [decale](Bibliotheque::Points& p, float, float d, std::int32_t) { return decale(p, d); };
    Biblio.DecalSequenceIlots = [decale](Bibliotheque::Points& p, float, float d, std::int32_t,
                                         Bibliotheque::Chemin) { return decale(p, 2 * d); };
    EncombrementGeneral();
    RecalculDecalages();
  }
  static void Choisit(const std::string& code) {
    for (SequenceInfo& s : Sequences) s.Selection = s.Code == Code2(code) ? Vrai : Faux;
  }
  static std::string Ini() { return LitFichierEssai(CheminIni()); }
  void Echappe() {
    passe_.Offre();
    passe_.script = {[] { return true; }};
  }
  PasseEcrite passe_;
};

TEST_F(PasseTravail, AnIslandThatGoesIsFilledByItsPocketOrComesBackWithItsTrace) {
  Choisit(" I");
  const std::size_t traces = TraceDecale.size();
  VerifieCommande(
      passe_, [] { CB_Supprimer(); }, [] { EntreRayonFraise("2"); });
  passe_.Offre();
  CB_Supprimer();
  EXPECT_EQ(TraceDecale.size(), traces - 1);
  for (const SequenceDecalee& d : TraceDecale) EXPECT_NE(d.Seq, Code2(" I"));
}

TEST_F(PasseTravail, APathThatGoesAloneNeedsNoPass) {
  Choisit(" B");
  const auto traces = TraceDecale;
  passe_.Offre();
  CB_Supprimer();
  EXPECT_EQ(passe_.passes, 0);
  EXPECT_EQ(passe_.rafraichis, 1);
  ASSERT_EQ(TraceDecale.size(), traces.size() - 1);
  EXPECT_TRUE(std::equal(TraceDecale.begin(), TraceDecale.end(), traces.begin()));
}

TEST_F(PasseTravail, TurnsAndMirrorsOfThePanel) {
  Choisit(" A");
  const auto fleche = [] { Deplacement_Selection(Direction::Y, 0.5F); };
  VerifieCommande(
      passe_, [] { CB_Rotation(1, "30"); }, fleche);
  VerifieCommande(
      passe_, [] { CB_Miroir(1); }, fleche);
}

TEST_F(PasseTravail, AMaterialComesBackWithAllOfItsRecordInForceAndInTheFile) {
  EcritFichesDefaut();
  EcritMateriau();
  EcritOutil();
  Choisit(" A");
  MateriauCourant = "Alu 2 mm";
  EcrireCle("MatDefaut", MateriauCourant);
  const std::string ini = Ini();
  VerifieCommande(
      passe_, [] { AppliqueMateriau(4); }, [] { Deplacement_Selection(Direction::X, 1); });
  // What ran without a pass, and was not taken back, has written.
  EcritMateriau();
  EcritOutil();
  MateriauCourant = "Alu 2 mm";
  EcrireCle("MatDefaut", MateriauCourant);
  ASSERT_EQ(Ini(), ini);
  EcritOptions();
  for (const auto& suivante : {std::function<void()>(), std::function<void()>([] { EntrePCPoche("20"); }),
                               std::function<void()>([] { EntreLargeurEncoche("9"); })}) {
    const std::string avant = Ini();
    const Reglages reglages = Regl;
    const Document document = Doc;
    passe_.Remet();
    passe_.script = {[&] {
                       EXPECT_EQ(RayonFraise, 0.8);
                       EXPECT_NE(Ini(), avant);
                       if (suivante) suivante();
                       return !suivante;
                     },
                     [] { return true; }};
    EXPECT_FALSE(AppliqueMateriau(4));
    EXPECT_EQ(passe_.repris, 1);
    EXPECT_EQ(MateriauCourant, "Alu 2 mm");
    EXPECT_TRUE(Regl == reglages);
    EXPECT_TRUE(Doc == document);
    EXPECT_EQ(Ini(), avant);
  }
}

TEST_F(PasseTravail, AMaterialThatIsTakenBackLeavesKeysOutOfTheFilesThatStoodInNone) {
  EcritFichesDefaut();
  FichierCourant = FichierProjet = EcritFichierEssai("p.OVL", "$$ProfPasse=-2\r\n0              0\r\n");
  const std::string ini = Ini();
  const std::string projet = LitFichierEssai(FichierProjet);
  ASSERT_EQ(ini.find("Vitesse_Mat_H"), std::string::npos);
  Choisit(" A");
  passe_.Offre();
  passe_.script = {[&] {
    EXPECT_NE(Ini(), ini);
    EXPECT_NE(LitFichierEssai(FichierProjet), projet);
    return true;
  }};
  EXPECT_FALSE(AppliqueMateriau(4));
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_EQ(Ini(), ini);
  EXPECT_EQ(LitFichierEssai(FichierProjet), projet);
}

TEST_F(PasseTravail, AnUndoThatIsTakenBackLeavesTheStepsAndAllThatItReads) {
  DossierTemp = Dossier() + "/temp";
  Crochets.ChargeTable = [] { ChargeGlobalesTable(); };
  Crochets.ChercheMateriau = [] { ChercheFiche(); };
  const CrochetsAnnulation crochets{{}, {}, {}, [] { PrendInstantane(); }};
  RetientTravail();
  PrendInstantane();
  ProfFraisage = -7;
  LargeurEncoche = 9;
  Table.CourseX += 1;
  for (PointTrace& p : TraceInitial) p.X += 3;
  EncombrementGeneral();
  RecalculDecalages();
  Modifie = Vrai;
  PrendInstantane();
  ASSERT_EQ(NumeroInstantane(), 2);
  const Document avant = Doc;
  const Reglages reglages = Regl;
  const TableMachine table = Table;
  const std::string ini = Ini();
  const auto noms = ListeFichiers(DossierTemp, "OVL");
  Echappe();
  const ResultatAnnulation repris = mnu_Undo(crochets);
  EXPECT_FALSE(repris.fait);
  EXPECT_TRUE(passe_.seule) << "nothing else comes in between";
  EXPECT_EQ(passe_.repris, 1);
  EXPECT_TRUE(Doc == avant);
  EXPECT_TRUE(Regl == reglages);
  EXPECT_EQ(Table.CourseX, table.CourseX);
  EXPECT_EQ(Ini(), ini);
  EXPECT_EQ(ListeFichiers(DossierTemp, "OVL"), noms);
  EXPECT_EQ(PasARefaire(), 0);
  EXPECT_EQ(HistoriqueCourant().present, 2);
  EXPECT_EQ(HistoriqueCourant().pas.size(), 2U);

  const ResultatAnnulation fait = mnu_Undo(crochets);
  EXPECT_TRUE(fait.fait && fait.lu);
  EXPECT_EQ(NumeroInstantane(), 1);
  EXPECT_EQ(PasARefaire(), 1);
  EXPECT_EQ(TraceInitial[0].X, avant.TraceInitial[0].X - 3);
  EXPECT_EQ(TraceDecale.size(), avant.TraceDecale.size());
  EXPECT_NE(ProfFraisage, -7);
}

TEST_F(PasseTravail, AnUndoWithAPassIsTheOneWithout) {
  DossierTemp = Dossier() + "/temp";
  const CrochetsAnnulation crochets{{}, {}, {}, [] { PrendInstantane(); }};
  PrendInstantane();
  Choisit(" A");
  Deplacement_Selection(Direction::X, 4);
  PrendInstantane();
  PasseEcrite::Refuse();
  EXPECT_TRUE(mnu_Undo(crochets).fait);
  const Document attendu = Doc;
  EXPECT_TRUE(mnu_Redo(crochets).fait);
  passe_.Offre();
  EXPECT_TRUE(mnu_Undo(crochets).fait);
  EXPECT_EQ(passe_.passes, 1);
  EXPECT_TRUE(Doc == attendu);
}

}  // namespace
