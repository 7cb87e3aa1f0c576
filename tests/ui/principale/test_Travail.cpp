// A user's work in the main window, with mouse and keys: select, prepare, change, undo, save, write.
#include <QAbstractItemModel>
#include <QProcess>
#include <QTreeView>
#include <array>
#include <cmath>
#include <filesystem>

#include "core/DocumentCourant.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "run/ui/F_Fraisage.h"
#include "tests/places/Lieux.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;
using essai::Clique;
using essai::Principale;
using essai::Tape;

class Travail : public Principale {
 protected:
  // Of samples/plaque.dxf: two holes, a slot, a frame, two triangles, an open wave, the outline.
  void Plaque() { Charge(Exemple("plaque.dxf")); }
  ProprietesSequence Fiche(const char* code) {
    ProprietesSequence p;
    LitSequence(Code2(code), p);
    return p;
  }
  PointTrace Premier(const char* code) {
    return TraceInitial[static_cast<std::size_t>(IndexSequence(Code2(code)))];
  }
  std::vector<PointTrace> Points(const char* code) {
    const std::int32_t debut = IndexSequence(Code2(code));
    const auto premier = TraceInitial.begin() + debut;
    return {premier, premier + NbPointsSequence(debut)};
  }
  // Middle of the first segment of a path: a place where a click can only mean this path.
  PointTrace Milieu(const char* code) {
    const auto points = Points(code);
    PointTrace p = points[0];
    p.X = (points[0].X + points[1].X) / 2;
    p.Y = (points[0].Y + points[1].Y) / 2;
    return p;
  }
  void Choisit(const char* code, Qt::KeyboardModifiers touches = {}) {
    const PointTrace p = Milieu(code);
    CliqueDessin(p.X, p.Y, touches);
  }
  // The tool path without the numbers of its pieces, which only a full computation gives.
  static std::vector<std::pair<Code2, std::vector<std::array<float, 2>>>> Trajet() {
    std::vector<std::pair<Code2, std::vector<std::array<float, 2>>>> trajet;
    for (const SequenceDecalee& s : TraceDecale) {
      trajet.emplace_back(s.Seq, std::vector<std::array<float, 2>>{});
      for (const PointTrace& p : s.Points) trajet.back().second.push_back({p.X, p.Y});
    }
    return trajet;
  }
  int Attaches() {
    int n = 0;
    for (const PointTrace& p : TraceInitial) n += p.Cde == CodePC;
    return n;
  }
};

TEST_F(Travail, EachSampleOpensAndIsShown) {
  for (const char* nom : {"equerre.dxf", "plaque.dxf", "enseigne.plt", "aile.dat", "percage.drl", "logo.eps",
                          "etiquette.svg", "aile-mousse.OVL", "enseigne-texte.OVL", "equerre-attaches.OVL",
                          "percage-ligne.OVL", "plaque-poches.OVL"}) {
    SCOPED_TRACE(nom);
    Charge();
    essai::AttendFichier("mnu_Ouvrir", Exemple(nom));
    Commande("mnu_Ouvrir");
    EXPECT_GE(NbPoints, 2);
    EXPECT_FALSE(TraceDecale.empty());
    EXPECT_EQ(fenetre_->windowTitle().toStdString(), std::string("OVELIN <-> ") + nom);
    auto* modele = C<QTreeView>("TreeView1")->model();
    const QModelIndex racine = modele->index(0, 0);
    EXPECT_EQ(modele->rowCount(racine), NbSequences());
    const QImage image = C<ImagePB1>("PB1")->Image();
    const QRgb fond = image.pixel(0, 0);
    long peints = 0;
    for (int y = 0; y < image.height(); ++y) {
      for (int x = 0; x < image.width(); ++x) peints += image.pixel(x, y) != fond;
    }
    EXPECT_GT(peints, 200);
    EXPECT_TRUE(Menu("mnu_Fraisage")->isEnabled());
    fenetre_.reset();
  }
}

TEST_F(Travail, AClickSelectsTheNearestPathAlone) {
  Plaque();
  Choisit(" E");
  EXPECT_EQ(Selectionnes(), std::vector<std::string>{" E"});
  Choisit(" F");
  EXPECT_EQ(Selectionnes(), std::vector<std::string>{" F"});
}

TEST_F(Travail, ControlAddsAndTakesAway) {
  Plaque();
  Choisit(" E");
  Choisit(" F", Qt::ControlModifier);
  EXPECT_EQ(Selectionnes(), (std::vector<std::string>{" E", " F"}));
  Choisit(" E", Qt::ControlModifier);
  EXPECT_EQ(Selectionnes(), std::vector<std::string>{" F"});
}

TEST_F(Travail, ALineOfTheTreeSelectsItsPath) {
  Plaque();
  Choisit(" A");
  auto* arbre = C<QTreeView>("TreeView1");
  const QModelIndex ligne = arbre->model()->index(3, 0, arbre->model()->index(0, 0));
  arbre->scrollTo(ligne);
  QTest::mouseClick(arbre->viewport(), Qt::LeftButton, {}, arbre->visualRect(ligne).center());
  essai::Evenements();
  EXPECT_EQ(Selectionnes(), std::vector<std::string>{" D"});
}

TEST_F(Travail, ADepthGoesToAllSelectedPaths) {
  Plaque();
  Choisit(" E");
  Choisit(" F", Qt::ControlModifier);
  Tape(*C<QLineEdit>("TB_Profondeur"), "-1.5");
  EXPECT_EQ(Fiche(" E").Profondeur, -1.5);
  EXPECT_EQ(Fiche(" F").Profondeur, -1.5);
  EXPECT_EQ(Fiche(" H").Profondeur, -3);
}

TEST_F(Travail, UnequalDepthsAskAndNoRestoresTheText) {
  Plaque();
  Choisit(" E");
  Tape(*C<QLineEdit>("TB_Profondeur"), "-1.5");
  Choisit(" F", Qt::ControlModifier);
  EXPECT_EQ(C<QLineEdit>("TB_Profondeur")->text(), "");
  essai::Attend("F_Representation", "lib106", Reponse::Non);
  Tape(*C<QLineEdit>("TB_Profondeur"), "-2");
  EXPECT_EQ(Fiche(" E").Profondeur, -1.5);
  EXPECT_EQ(Fiche(" F").Profondeur, -3);
  EXPECT_EQ(C<QLineEdit>("TB_Profondeur")->text(), "");
}

TEST_F(Travail, AMixedPocketShowsUncheckedAMixedMillingChecked) {
  Plaque();
  Choisit(" C");
  Clique(*C<QAbstractButton>("CB_Poche"));
  EXPECT_EQ(Fiche(" C").Poche, Vrai);
  Clique(*C<QAbstractButton>("CB_Fraiser"));
  EXPECT_EQ(Fiche(" C").Fraiser, Faux);
  Choisit(" E", Qt::ControlModifier);
  EXPECT_FALSE(C<QAbstractButton>("CB_Poche")->isChecked());
  EXPECT_TRUE(C<QAbstractButton>("CB_Fraiser")->isChecked());
  EXPECT_EQ(Fiche(" C").Poche, Vrai);  // showing has changed nothing
  Clique(*C<QAbstractButton>("CB_Poche"));
  EXPECT_EQ(Fiche(" C").Poche, Vrai);
  EXPECT_EQ(Fiche(" E").Poche, Vrai);
}

TEST_F(Travail, APocketFillsItsPathAndGoesAgain) {
  Plaque();
  Choisit(" D");
  const auto avant = Trajet();
  const auto longueur = [] {
    double mm = 0;
    for (const SequenceDecalee& s : TraceDecale) {
      if (s.Seq != Code2(" D")) continue;
      for (std::size_t i = 1; i < s.Points.size(); ++i) mm += DistancePoints(s.Points[i - 1], s.Points[i]);
    }
    return mm;
  };
  const double contour = longueur();
  Clique(*C<QAbstractButton>("CB_Poche"));
  EXPECT_GT(longueur(), 1.5 * contour);
  Clique(*C<QAbstractButton>("CB_Poche"));
  EXPECT_TRUE(Trajet() == avant);
}

TEST_F(Travail, AttachmentPointsAreSetAndRemovedByClick) {
  Plaque();
  Commande("mnu_Lever");
  EXPECT_TRUE(Menu("mnu_Lever")->isChecked());
  EXPECT_TRUE(Bouton("mnu_Lever")->isChecked());
  CliqueDessin(60, 5);
  ASSERT_EQ(Attaches(), 1);
  CliqueDessin(60, 5, Qt::ShiftModifier);
  EXPECT_EQ(Attaches(), 0);
}

TEST_F(Travail, TheTwoToolsAreNeverOnAtOnce) {
  Plaque();
  Commande("mnu_Lever");
  Commande("mnu_ZoomSelection");
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
  EXPECT_TRUE(Menu("mnu_ZoomSelection")->isChecked());
  Commande("mnu_Lever");
  EXPECT_TRUE(Bouton("mnu_Lever")->isChecked());
  EXPECT_FALSE(Bouton("mnu_ZoomSelection")->isChecked());
}

TEST_F(Travail, WithoutAWidthTheAttachmentToolStaysOffAndItsFieldIsOffered) {
  Plaque();
  LargeurEncoche = 0;
  essai::Attend("F_Representation", "lib312");
  Commande("mnu_Lever");
  EXPECT_FALSE(Menu("mnu_Lever")->isChecked());
  EXPECT_FALSE(Bouton("mnu_Lever")->isChecked());
  EXPECT_TRUE(C<QLineEdit>("TB_LargeurEncoche")->hasFocus());
}

TEST_F(Travail, APressWithTheZoomToolAlsoSelectsAndTheRectangleFillsThePicture) {
  Plaque();
  Commande("mnu_ZoomSelection");
  const float avant = Zoom;
  auto* image = C<ImagePB1>("PB1");
  QTest::mousePress(image, Qt::LeftButton, {}, PlaceDessin(15, 63));
  QTest::mouseMove(image, PlaceDessin(29, 52));
  QTest::mouseRelease(image, Qt::LeftButton, {}, PlaceDessin(29, 52));
  essai::Evenements();
  EXPECT_EQ(Selectionnes().size(), 1U);
  EXPECT_GT(Zoom, 2 * avant);
  EXPECT_NEAR(OrigineDessinX, 22, 0.5);
  EXPECT_FALSE(Menu("mnu_ZoomSelection")->isChecked());
}

TEST_F(Travail, TheMarkedPointOfAPathBecomesItsStart) {
  Plaque();
  const PointTrace voulu = Points(" E")[1];
  Choisit(" E");
  auto* arbre = C<QTreeView>("TreeView1");
  auto* modele = arbre->model();
  const QModelIndex groupe = modele->index(4, 0, modele->index(0, 0));
  arbre->expand(groupe);
  const QModelIndex ligne = modele->index(1, 0, groupe);
  arbre->scrollTo(ligne);
  QTest::mouseClick(arbre->viewport(), Qt::LeftButton, {}, arbre->visualRect(ligne).center());
  essai::Evenements();
  Clique(*C<QAbstractButton>("CB_Depart"));
  EXPECT_EQ(Premier(" E").X, voulu.X);
  EXPECT_EQ(Premier(" E").Y, voulu.Y);
  EXPECT_TRUE(MemePlace(Points(" E").front(), Points(" E").back()));
}

TEST_F(Travail, TheOrderOfTheSelectionChangesAndBeepsAtTheEdge) {
  Plaque();
  Choisit(" B");
  Clique(*C<QAbstractButton>("CB_Ordre_0"));
  EXPECT_EQ(ListeCodes().front().Texte(), " B");
  const int bips = essai::Bips();
  Clique(*C<QAbstractButton>("CB_Ordre_0"));
  EXPECT_EQ(essai::Bips(), bips + 1);
}

TEST_F(Travail, ArrowsMoveTheSelectionByATenthAndFieldsByWhatIsTyped) {
  Plaque();
  Choisit(" E");
  const PointTrace avant = Premier(" E");
  Modifie = Faux;
  Clique(*C<QAbstractButton>("CB_Droite"));
  EXPECT_NEAR(Premier(" E").X, avant.X + 0.1F, 1e-4);
  EXPECT_EQ(Modifie, Vrai);
  Clique(*C<QAbstractButton>("CB_Bas"));
  EXPECT_NEAR(Premier(" E").Y, avant.Y - 0.1F, 1e-4);
}

TEST_F(Travail, TheDisplacementCountsFromZeroBehindAnUndoAndInAnotherDrawing) {
  Plaque();
  Commande("mnu_Tout");
  Clique(*C<QAbstractButton>("CB_Droite"));
  ASSERT_EQ(C<QLineEdit>("TB_X")->text().toDouble(), 0.1);
  Commande("mnu_Undo");
  EXPECT_EQ(C<QLineEdit>("TB_X")->text().toDouble(), 0);
  Commande("mnu_Tout");
  Clique(*C<QAbstractButton>("CB_Droite"));
  essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
  essai::Attend("F_Representation", "lib140", Reponse::Non);
  Commande("mnu_Ouvrir");
  EXPECT_EQ(C<QLineEdit>("TB_X")->text().toDouble(), 0);
}

TEST_F(Travail, CursorKeysOverThePictureMoveTheSelection) {
  Plaque();
  Choisit(" E");
  const PointTrace avant = Premier(" E");
  auto* image = C<ImagePB1>("PB1");
  image->setFocus();
  QTest::keyClick(image, Qt::Key_Up);
  QTest::keyClick(image, Qt::Key_Right, Qt::ShiftModifier);
  essai::Evenements();
  EXPECT_NEAR(Premier(" E").X, avant.X + 1, 1e-4);
  EXPECT_NEAR(Premier(" E").Y, avant.Y + 0.1F, 1e-4);
  EXPECT_EQ(C<QLineEdit>("TB_X")->text().toDouble(), 1);
  EXPECT_EQ(C<QLineEdit>("TB_Y")->text().toDouble(), 0.1);
}

TEST_F(Travail, ATurnByNinetyDegreesExchangesWidthAndHeight) {
  Plaque();
  Choisit(" E");
  Tape(*C<QLineEdit>("TB_Angle"), "90");
  Clique(*C<QAbstractButton>("CB_Rotation_0"));
  EXPECT_EQ(C<QLineEdit>("TB_Initial_0")->text(), "6");
  EXPECT_EQ(C<QLineEdit>("TB_Initial_1")->text(), "10");
}

TEST_F(Travail, TwoMirrorsGiveThePathBack) {
  Plaque();
  Choisit(" E");
  const auto avant = Points(" E");
  Clique(*C<QAbstractButton>("CB_Miroir_0"));
  EXPECT_NE(Points(" E"), avant);
  Clique(*C<QAbstractButton>("CB_Miroir_0"));
  const auto apres = Points(" E");
  ASSERT_EQ(apres.size(), avant.size());
  for (std::size_t i = 0; i < avant.size(); ++i) EXPECT_NEAR(apres[i].X, avant[i].X, 1e-4);
}

TEST_F(Travail, ASizeBeyondTheTravelIsRefused) {
  Plaque();
  Choisit(" H");
  const auto avant = TraceInitial;
  Tape(*C<QLineEdit>("TB_Rapport_0"), "100");
  essai::Attend("F_Dimension", "lib002");
  Clique(*C<QAbstractButton>("CB_OK_Dimension"));
  EXPECT_TRUE(TraceInitial == avant);
}

TEST_F(Travail, ASmoothedPathHasMorePoints) {
  Plaque();
  Choisit(" G");
  const auto avant = Points(" G");
  Clique(*C<QAbstractButton>("CB_Lissage"));
  EXPECT_GE(Points(" G").size(), avant.size());
  EXPECT_FALSE(Points(" G") == avant);
}

TEST_F(Travail, TheCleanUpTakesTheChosenToleranceAndTellsTheNumberOfPoints) {
  Plaque();
  const std::int32_t avant = NbPoints;
  reponses_["F_Nettoyage"] = [] {
    Regl.Resolution = 0.5F;
    return true;
  };
  Commande("mnu_Nettoyage");
  EXPECT_LT(NbPoints, avant);
  EXPECT_TRUE(fenetre_->windowTitle().endsWith(QString::number(NbPoints))) << fenetre_->windowTitle().toStdString();
}

TEST_F(Travail, ACancelledCleanUpLeavesTheDrawing) {
  Plaque();
  const auto avant = TraceInitial;
  Commande("mnu_Nettoyage");
  EXPECT_EQ(ouvertes_, std::vector<std::string>{"F_Nettoyage"});
  EXPECT_TRUE(TraceInitial == avant);
}

TEST_F(Travail, AMaterialSetsToolAndDepths) {
  Plaque();
  auto* combo = C<QComboBox>("CB_BD");
  combo->setFocus();
  QTest::keyClick(combo, Qt::Key_End);
  essai::Evenements();
  EXPECT_EQ(combo->currentText(), "Alu 2 mm");
  EXPECT_EQ(RayonFraise, 0.8);
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text(), "0.8");
  EXPECT_EQ(Fiche(" H").Profondeur, -2.5);
  EXPECT_EQ(ProfPasse, -2);
}

TEST_F(Travail, UndoGoesBackStepByStepToTheStart) {
  Plaque();
  const auto debut = TraceInitial;
  const auto rayon = RayonFraise;
  Choisit(" E");
  Clique(*C<QAbstractButton>("CB_Droite"));
  const auto milieu = TraceInitial;
  Tape(*C<QLineEdit>("TB_RayonFraise"), "2");
  Clique(*C<QAbstractButton>("CB_Miroir_1"));
  int pas = 0;
  bool vuMilieu = false;
  while (Menu("mnu_Undo")->isEnabled() && pas < 50) {
    Commande("mnu_Undo");
    ++pas;
    vuMilieu = vuMilieu || TraceInitial == milieu;
  }
  EXPECT_TRUE(vuMilieu);
  EXPECT_GE(pas, 4);
  EXPECT_TRUE(TraceInitial == debut);
  EXPECT_EQ(RayonFraise, rayon);
  EXPECT_EQ(C<QLineEdit>("TB_RayonFraise")->text().toDouble(), rayon);
  EXPECT_EQ(FichierProjet, "Chargt");
  EXPECT_FALSE(FichierExiste("Chargt"));
}

TEST_F(Travail, AnUndoLeavesOneSnapshotLess) {
  Plaque();
  Choisit(" E");
  Clique(*C<QAbstractButton>("CB_Droite"));
  const auto avant = ListeFichiers(DossierTemp, "OVL").size();
  ASSERT_GE(avant, 3U);
  Commande("mnu_Undo");
  EXPECT_EQ(ListeFichiers(DossierTemp, "OVL").size(), avant - 1);
}

TEST_F(Travail, AHeadlineFollowsAChangeOfAPoint) {
  Plaque();
  auto* modele = C<QTreeView>("TreeView1")->model();
  const auto titre = [&] { return modele->index(4, 0, modele->index(0, 0)).data().toString(); };
  const QString avant = titre();
  Choisit(" E");
  auto* arbre = C<QTreeView>("TreeView1");
  const QModelIndex point = modele->index(1, 0, modele->index(4, 0, modele->index(0, 0)));
  arbre->scrollTo(point);
  QTest::mouseClick(arbre->viewport(), Qt::LeftButton, {}, arbre->visualRect(point).center());
  essai::Evenements();
  C<PanneauLateral>("Panneau")->Option1(PageSequence::Points);
  Clique(*C<QAbstractButton>("CB_Position"));
  Tape(*C<QLineEdit>("TB_PositionX"), "-300");
  Clique(*C<QAbstractButton>("CB_PositionOK"));
  EXPECT_NE(titre(), avant);
  EXPECT_EQ(titre().section("pts", 0, 0), avant.section("pts", 0, 0)) << "the number and the count stay";
}

TEST_F(Travail, ASavedProjectComesBackAsItWas) {
  Plaque();
  Choisit(" D");
  Clique(*C<QAbstractButton>("CB_Poche"));
  Tape(*C<QLineEdit>("TB_Profondeur"), "-1");
  const std::string projet = essai::Dossier() + "/plaque.OVL";
  essai::AttendFichier("mnu_Save", projet);
  Commande("mnu_Save");
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> plaque.OVL");
  const auto points = TraceInitial;
  const auto trajet = Trajet();
  Charge(projet);
  EXPECT_TRUE(TraceInitial == points);
  EXPECT_EQ(Fiche(" D").Poche, Vrai);
  EXPECT_EQ(Fiche(" D").Profondeur, -1);
  EXPECT_TRUE(Trajet() == trajet);
}

TEST_F(Travail, TheWindowAndTheCommandLineWriteTheSameFile) {
  const std::string projet = Exemple("plaque-poches.OVL");
  const std::string fenetre = essai::Dossier() + "/fenetre.nc";
  const std::string ligne = essai::Dossier() + "/ligne.nc";
  Charge(projet);
  essai::AttendFichier("Btn_Gener_GCODE", fenetre);
  reponses_["F_Fraisage"] = [this] {
    F_Fraisage fraisage(fenetre_.get());
    essai::Montre(fraisage);
    Clique(*essai::Controle<QAbstractButton>(fraisage, "Btn_Gener_GCODE"));
    fraisage.close();
    return true;
  };
  Commande("mnu_Fraisage");
  QProcess cli;
  cli.start(QString::fromStdString(essai::DossierProgrammes() + "/ovelin-cli"),
            {"--config", QString::fromStdString(essai::Dossier()), "--lang", "fr", "--decimal", ".", "gcode",
             QString::fromStdString(projet), "-o", QString::fromStdString(ligne)});
  ASSERT_TRUE(cli.waitForFinished(60000));
  ASSERT_EQ(cli.exitCode(), 0) << cli.readAllStandardError().toStdString();
  EXPECT_GT(std::filesystem::file_size(fenetre), 2000U);
  EXPECT_EQ(essai::LitFichierEssai(fenetre), essai::LitFichierEssai(ligne));
}

}  // namespace
