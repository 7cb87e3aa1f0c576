// Undo: snapshots in the temporary folder, one step back, and what an undo leaves behind.
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <filesystem>
#include <string>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "tests/support/Support.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/FinCycle.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Ouverture.h"

namespace {

using namespace ovelin;
using Noms = std::vector<std::string>;

Noms Instantanes() { return ListeFichiers(DossierTemp, "OVL"); }

nlink_t Liens(const std::string& chemin) {
  struct stat etat {};
  return stat(chemin.c_str(), &etat) == 0 ? etat.st_nlink : 0;
}

void EcritInstantane(const std::string& nom, const std::string& octets = "") {
  essai::EcritFichierEssai("temp/" + nom, octets);
}

CrochetsAnnulation AvecDessin() {
  CrochetsAnnulation c;
  c.Dessin = [] { PrendInstantane(); };
  return c;
}

void Decale(float dx) {
  for (PointTrace& p : TraceInitial) p.X += dx;
}

TEST(PrendInstantane, NumbersRunFromOneWithFiveDigits) {
  essai::AjouteCarre(" A", 0, 0, 10);
  EXPECT_EQ(NumeroInstantane(), 0);
  const ResultatInstantane premier = PrendInstantane();
  EXPECT_EQ(premier.numero, 1);
  EXPECT_FALSE(premier.bouton);
  Decale(1);
  const ResultatInstantane second = PrendInstantane();
  EXPECT_EQ(second.numero, 2);
  EXPECT_TRUE(second.bouton);
  EXPECT_FALSE(second.lie);
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL", "00002.OVL"}));
  EXPECT_EQ(CheminInstantane(7), DossierTemp + "/00007.OVL");
}

TEST(PrendInstantane, TheFlagStandsOnlyWhileItIsWritten) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Drapeau pendant = Faux;
  Svc.AvancementDebut = [&pendant](const std::string&, long) { pendant = Instantane; };
  PrendInstantane();
  EXPECT_EQ(pendant, Vrai);
  EXPECT_EQ(Instantane, Faux);
}

TEST(PrendInstantane, TheLastListedNameCountsNotTheLargestNumber) {
  essai::AjouteCarre(" A", 0, 0, 10);
  EcritInstantane("00005.OVL");
  EcritInstantane("00012.OVL");
  EXPECT_EQ(PrendInstantane().numero, 13);
  EcritInstantane("abc.OVL");  // listed behind the digits; no number counts as 0
  EXPECT_EQ(NumeroInstantane(), 0);
  EXPECT_EQ(PrendInstantane().numero, 1);
}

TEST(PrendInstantane, HiddenFilesAndOtherKindsArentListed) {
  essai::AjouteCarre(" A", 0, 0, 10);
  EcritInstantane(".99999.OVL");
  EcritInstantane("99998.txt");
  std::filesystem::create_directory(DossierTemp + "/99997.OVL");
  EXPECT_EQ(PrendInstantane().numero, 1);
}

TEST(PrendInstantane, AnUnchangedDocumentCostsAHardLink) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  int ecritures = 0;
  Svc.AvancementDebut = [&ecritures](const std::string&, long) { ++ecritures; };
  const ResultatInstantane r = PrendInstantane();
  EXPECT_TRUE(r.lie);
  EXPECT_EQ(r.numero, 2);
  EXPECT_TRUE(r.bouton);
  EXPECT_EQ(ecritures, 0);  // the project writer was not needed
  EXPECT_EQ(Liens(CheminInstantane(1)), 2U);
  PrendInstantane();
  EXPECT_EQ(Liens(CheminInstantane(3)), 3U);
}

TEST(PrendInstantane, ASelectionIsNoChange) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Sequences[0].Selection = Faux;
  EXPECT_TRUE(PrendInstantane().lie);
}

TEST(PrendInstantane, EveryPartOfTheStateMakesAFileOfItsOwn) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  TraceInitial[1].Y += 1;
  EXPECT_FALSE(PrendInstantane().lie);
  Sequences[0].Profondeur = -8;
  EXPECT_FALSE(PrendInstantane().lie);
  Regl.RayonFraise = 4.25;
  EXPECT_FALSE(PrendInstantane().lie);
  Svc.MarqueDecimale = ',';
  EXPECT_FALSE(PrendInstantane().lie);
  EXPECT_TRUE(PrendInstantane().lie);
}

TEST(PrendInstantane, ASnapshotReplacedByAnotherFileIsNotLinked) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  std::filesystem::remove(CheminInstantane(1));
  EcritInstantane("00001.OVL", "$$other\r\n");
  const ResultatInstantane r = PrendInstantane();
  EXPECT_FALSE(r.lie);
  EXPECT_NE(essai::LitFichierEssai(CheminInstantane(2)).find("$$Seq A"), std::string::npos);
}

TEST(PrendInstantane, TheSettingsGoIntoTheSnapshotAndOnceIntoTheSettingsFile) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Regl.RayonFraise = 4.25;
  PrendInstantane();
  const std::string texte = essai::LitFichierEssai(CheminInstantane(1));
  EXPECT_NE(texte.find("$$RayonFraise=4.25\r\n"), std::string::npos);
  EXPECT_NE(texte.find("$$gMaxMRU=4\r\n"), std::string::npos);  // in a snapshot, not in a saved project
  EXPECT_EQ(LireCleIni("RayonFraise", ""), "4.25");
  struct stat avant {};
  struct stat apres {};
  ASSERT_EQ(stat(CheminIni().c_str(), &avant), 0);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  ASSERT_EQ(stat(CheminIni().c_str(), &apres), 0);
  EXPECT_EQ(avant.st_ino, apres.st_ino);  // a write would have put another file in its place
  EXPECT_EQ(avant.st_mtim.tv_nsec, apres.st_mtim.tv_nsec);
}

TEST(PrendInstantane, NoKeyGoesIntoTheProjectOfTheUser) {
  FichierProjet = FichierCourant = essai::EcritFichierEssai("piece.OVL", "$$RayonFraise=1\r\n");
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  EXPECT_EQ(essai::LitFichierEssai(FichierProjet), "$$RayonFraise=1\r\n");
  EXPECT_EQ(FichierProjet, FichierCourant);
}

TEST(PrendInstantane, TheLastNumberIsThatOfSixteenBits) {
  essai::AjouteCarre(" A", 0, 0, 10);
  EcritInstantane("32766.OVL");
  EXPECT_EQ(PrendInstantane().numero, 32767);
  Decale(1);
  const ResultatInstantane r = PrendInstantane();
  EXPECT_EQ(r.numero, 0);
  EXPECT_EQ(r.erreur, "");
  EXPECT_TRUE(r.bouton);  // what is there can still be undone
  EXPECT_EQ(Instantanes(), (Noms{"32766.OVL", "32767.OVL"}));
}

TEST(PrendInstantane, WithoutATemporaryFolderThereIsNone) {
  essai::AjouteCarre(" A", 0, 0, 10);
  DossierTemp.clear();
  const ResultatInstantane r = PrendInstantane();
  EXPECT_EQ(r.numero, 0);
  EXPECT_FALSE(r.bouton);
  EXPECT_FALSE(FichierExiste("/00001.OVL"));
}

TEST(PrendInstantane, AFolderThatIsGoneGivesTheReasonAndNothingElse) {
  essai::AjouteCarre(" A", 0, 0, 10);
  std::filesystem::remove_all(DossierTemp);
  const ResultatInstantane r = PrendInstantane();
  EXPECT_NE(r.erreur, "");
  EXPECT_EQ(r.numero, 0);
  EXPECT_FALSE(r.bouton);
  EXPECT_EQ(Instantane, Faux);
}

TEST(Annulation, BringsBackTheGeometryAndTheToolValues) {
  essai::AjouteCarre(" A", 0, 0, 10);
  Regl.RayonFraise = 1.5;
  PrendInstantane();
  const auto avant = TraceInitial;
  Decale(5);
  Regl.RayonFraise = 2.5;
  Regl.ProfPasse = -0.7;
  PrendInstantane();
  PointCourantX = PointCourantY = 9;
  Regl.DecalageOutil = 2;

  const ResultatAnnulation r = mnu_Undo(AvecDessin());
  EXPECT_TRUE(r.fait);
  EXPECT_TRUE(r.lu);
  EXPECT_FALSE(r.bouton);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Regl.RayonFraise, 1.5);
  EXPECT_EQ(Regl.ProfPasse, -1);
  EXPECT_EQ(Regl.DecalageOutil, 1);
  EXPECT_EQ(Xmax, 10.0F);
  EXPECT_EQ(PointCourantX, 0.0F);
  EXPECT_EQ(PointCourantY, 0.0F);
  EXPECT_FALSE(TraceDecale.empty());
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL"}));
}

// What is drawn anew, or set, without a drawing leaves no further step: undo would find nothing to read there.
TEST(Annulation, ComesOutOfAnEmptiedDrawingInOneStep) {
  essai::AjouteCarre(" A", 0, 0, 10);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  PrendInstantane();
  const auto dessin = TraceInitial;
  SelectionneTout();
  SupprimeSelection();
  EXPECT_EQ(PrendInstantane().numero, 2);
  EXPECT_EQ(PrendInstantane().numero, 0);
  RayonFraise = 7;
  const ResultatInstantane r = PrendInstantane();
  EXPECT_EQ(r.numero, 0);
  EXPECT_TRUE(r.bouton);
  EXPECT_EQ(NumeroInstantane(), 2);
  EXPECT_TRUE(mnu_Undo(AvecDessin()).lu);
  EXPECT_TRUE(TraceInitial == dessin);
}

TEST(Annulation, IsNotOfferedWithASingleSnapshot) {
  essai::AjouteCarre(" A", 0, 0, 10);
  EXPECT_FALSE(PrendInstantane().bouton);
  const auto avant = Doc.TraceInitial;
  EXPECT_FALSE(mnu_Undo(AvecDessin()).fait);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(FichierProjet, "");
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL"}));
}

TEST(Annulation, TenStepsBackToTheStart) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  for (int i = 1; i <= 10; ++i) {
    Decale(1);
    EXPECT_EQ(PrendInstantane().numero, i + 1);
  }
  for (int i = 9; i >= 0; --i) {
    const ResultatAnnulation r = mnu_Undo(AvecDessin());
    EXPECT_EQ(TraceInitial[0].X, static_cast<float>(i));
    EXPECT_EQ(Instantanes().size(), static_cast<std::size_t>(i + 1));
    EXPECT_EQ(r.bouton, i > 0);
  }
  EXPECT_FALSE(mnu_Undo(AvecDessin()).fait);
}

TEST(Annulation, AChangeAfterAnUndoTakesTheNumberThatIsFree) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  mnu_Undo(AvecDessin());
  EXPECT_TRUE(PrendInstantane().lie);  // a picture drawn again: the state on disk has not changed
  Decale(7);
  EXPECT_EQ(PrendInstantane().numero, 3);
  mnu_Undo(AvecDessin());
  EXPECT_EQ(TraceInitial[0].X, 0.0F);
}

TEST(Annulation, AfterAZoomItSeemsToDoNothing) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  PrendInstantane();
  const auto avant = TraceInitial;
  EXPECT_TRUE(mnu_Undo(AvecDessin()).fait);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(Instantanes().size(), 1U);
}

TEST(Annulation, TheStepsComeInTheirOrder) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  FichierCourant = "/home/user/piece.dxf";
  Noms pas;
  CrochetsAnnulation c;
  c.MontreBouton = [&](bool visible) { pas.push_back(visible ? "visible" : "hidden"); };
  c.RemplitArbres = [&] { pas.push_back("trees " + std::to_string(static_cast<int>(TraceInitial[0].X))); };
  c.DeuxiemeDrapeauOutil = [&] { pas.emplace_back("flag"); };
  c.Dessin = [&] {
    pas.push_back("draw " + std::to_string(Instantanes().size()));
    PrendInstantane();
    pas.push_back("drawn " + std::to_string(Instantanes().size()));
  };
  mnu_Undo(c);
  EXPECT_EQ(pas, (Noms{"hidden", "trees 0", "flag", "draw 1", "drawn 2", "visible"}));
  EXPECT_EQ(FichierCourant, "/home/user/piece.dxf");
  EXPECT_EQ(Instantanes().size(), 1U);
}

TEST(Annulation, ADrawingThatLeavesNoSnapshotIsNoHarm) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  EXPECT_TRUE(mnu_Undo(CrochetsAnnulation{}).fait);
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL"}));
}

TEST(Annulation, ASnapshotThatCantBeReadIsToldAndLeavesTheDrawing) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  std::filesystem::remove(CheminInstantane(2));
  EcritInstantane("00002.OVL", "$$nothing\r\n");
  const auto avant = TraceInitial;
  essai::Attend("erreurs", "100");
  const ResultatAnnulation r = mnu_Undo(AvecDessin());
  EXPECT_TRUE(r.fait);
  EXPECT_FALSE(r.lu);
  EXPECT_TRUE(r.bouton);
  EXPECT_EQ(TraceInitial, avant);
  EXPECT_EQ(NbPoints, 5);
  EXPECT_EQ(Xmax, 12.0F);
  EXPECT_EQ(FichierProjet, "");
  // The next one gets past it.
  EXPECT_TRUE(mnu_Undo(AvecDessin()).lu);
  EXPECT_EQ(TraceInitial[0].X, 0.0F);
}

// A project of the user, open, with two states; the shell of the tests below.
std::string ProjetAnnule() {
  const std::string chemin = essai::Dossier() + "/piece.OVL";
  essai::AjouteCarre(" A", 0, 0, 10);
  EXPECT_EQ(EnregistreProjet(chemin), "");
  PrendInstantane();
  Decale(5);
  PrendInstantane();
  EXPECT_TRUE(mnu_Undo(AvecDessin()).lu);
  return chemin;
}

bool FichierChargt() {
  return FichierExiste("Chargt") || FichierExiste(essai::Dossier() + "/Chargt") ||
         FichierExiste(DossierTemp + "/Chargt");
}

TEST(ApresAnnulation, TheProjectIsCalledChargtAndNoFileOfThatNameAppears) {
  const std::string chemin = ProjetAnnule();
  EXPECT_EQ(FichierProjet, "Chargt");
  EXPECT_EQ(FichierCourant, chemin);
  const std::string avant = essai::LitFichierEssai(chemin);
  EcrireCle("Essai", "12");
  EcritCouleurs();
  EXPECT_EQ(Magasin.DerniereErreur, "");
  EXPECT_EQ(LireCleIni("Essai", ""), "12");
  EXPECT_EQ(essai::LitFichierEssai(chemin), avant);
  EXPECT_FALSE(FichierChargt());
}

TEST(ApresAnnulation, KeysAreLookedUpInTheUsersFile) {
  const std::string chemin = ProjetAnnule();
  essai::EcritFichierEssai("piece.OVL", "$$Particulier=7\r\n" + essai::LitFichierEssai(chemin));
  OublieCles();
  EXPECT_EQ(LireCle("Particulier", "0"), "7");
}

TEST(ApresAnnulation, SavingMakesItAProjectAgain) {
  const std::string chemin = ProjetAnnule();
  Modifie = Vrai;
  EXPECT_EQ(EnregistreProjet(FichierCourant), "");
  EXPECT_EQ(FichierProjet, chemin);
  EXPECT_EQ(Modifie, Faux);
  EXPECT_FALSE(FichierChargt());
}

TEST(ApresAnnulation, ClosingAsksAndPlacementGoesToTheSettingsFile) {
  ProjetAnnule();
  Modifie = Vrai;
  essai::Attend("F_Representation", "lib004", Reponse::Non);
  EXPECT_TRUE(DemandeFermeture({}, "OVELIN"));
  EtatFenetre fenetre;
  fenetre.place.gauche = 321;
  DechargeFenetre(fenetre, "");
  EXPECT_EQ(LireCleIni("F_Representation_Left", ""), "321");
  EXPECT_FALSE(FichierChargt());
  EXPECT_TRUE(Instantanes().empty());
}

TEST(EffaceTousInstantanes, HiddenAndProtectedOnesGoOthersStay) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  EcritInstantane(".cache.OVL");
  EcritInstantane("petit.ovl");
  EcritInstantane("garde.txt");
  chmod((DossierTemp + "/petit.ovl").c_str(), 0);
  EffaceTousInstantanes();
  EXPECT_TRUE(Instantanes().empty());
  EXPECT_TRUE(FichierExiste(DossierTemp + "/garde.txt"));
  EXPECT_EQ(PrendInstantane().numero, 1);
}

TEST(EffaceTousInstantanes, WithoutAFolderNothingHappens) {
  DossierTemp.clear();
  EffaceTousInstantanes();
  EXPECT_EQ(NumeroInstantane(), 0);
}

// --- forward again -----------------------------------------------------------------------------------------------

TEST(mnu_Redo, GoesForwardThroughAllThatWasTakenBack) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  for (int i = 0; i < 3; ++i) {
    Decale(1);
    PrendInstantane();
  }
  EXPECT_FALSE(mnu_Redo(AvecDessin()).fait);
  mnu_Undo(AvecDessin());
  mnu_Undo(AvecDessin());
  EXPECT_EQ(TraceInitial[0].X, 1);
  EXPECT_EQ(PasARefaire(), 2);
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL", "00002.OVL"})) << "what was taken back has other names";
  EXPECT_TRUE(mnu_Redo(AvecDessin()).bouton);
  EXPECT_EQ(TraceInitial[0].X, 2);
  mnu_Redo(AvecDessin());
  EXPECT_EQ(TraceInitial[0].X, 3);
  EXPECT_EQ(PasARefaire(), 0);
  EXPECT_EQ(Instantanes(), (Noms{"00001.OVL", "00002.OVL", "00003.OVL", "00004.OVL"}));
  mnu_Undo(AvecDessin());
  EXPECT_EQ(TraceInitial[0].X, 2) << "and back";
}

TEST(mnu_Redo, IsKeptThroughAViewAndForgottenByAChange) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  mnu_Undo(AvecDessin());
  PrendInstantane();  // a zoom: nothing has changed
  EXPECT_EQ(PasARefaire(), 1);
  Decale(5);
  PrendInstantane();
  EXPECT_EQ(PasARefaire(), 0);
  EXPECT_FALSE(mnu_Redo(AvecDessin()).fait);
  EXPECT_EQ(TraceInitial[0].X, 5);
}

TEST(mnu_Redo, BringsTheToolValuesOfItsState) {
  essai::AjouteCarre(" A", 0, 0, 10);
  RayonFraise = 1;
  PrendInstantane();
  RayonFraise = 2;
  EcritOutil();
  PrendInstantane();
  mnu_Undo(AvecDessin());
  EXPECT_EQ(RayonFraise, 1);
  mnu_Redo(AvecDessin());
  EXPECT_EQ(RayonFraise, 2);
}

TEST(mnu_Redo, AnOpeningLeavesNothingToRedo) {
  essai::AjouteCarre(" A", 0, 0, 10);
  PrendInstantane();
  Decale(1);
  PrendInstantane();
  mnu_Undo(AvecDessin());
  EffaceTousInstantanes();
  EXPECT_EQ(PasARefaire(), 0);
  EXPECT_TRUE(std::filesystem::is_empty(DossierTemp));
}

TEST(Annulation, BringsBackWhatStandsBesideTheRecords) {
  essai::AjouteCarre(" A", 0, 0, 10);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  const Complement bord{false, "Bord", 0xFF0000};
  Complements.Pose(Code2(" A"), bord);
  PrendInstantane();
  Complements.Pose(Code2(" A"), {true, "Bord", 0xFF0000});
  const ResultatInstantane second = PrendInstantane();
  EXPECT_EQ(second.numero, 2);
  EXPECT_FALSE(second.lie) << "it is another state";
  ASSERT_TRUE(mnu_Undo(AvecDessin()).lu);
  EXPECT_EQ(Complements.De(Code2(" A")), bord);
}

}  // namespace
