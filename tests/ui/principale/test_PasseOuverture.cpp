// The main window while the tool path of a drawing that is being opened is computed: the picture shows it at once,
// a field of the tool begins the pass anew, Escape leaves the window as it was.
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <atomic>
#include <cstdio>
#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ServicesPasse.h"
#include "core/Textes.h"
#include "core/ui/ServicesQt.h"
#include "tests/ui/principale/PendantPasse.h"
#include "workspace/Module_Cycle.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Recents.h"
#include "workspace/Module_Vue.h"

namespace {

using namespace ovelin;

class OuverturePendantPasse : public essai::PendantPasse {
 protected:
  // One outline that is worth a pass.
  std::string EcritGrandDessin() {
    constexpr int n = 51000;
    std::string dxf = "0\nSECTION\n2\nENTITIES\n0\nLWPOLYLINE\n8\n0\n70\n1\n90\n" + std::to_string(n) + "\n";
    char ligne[80];
    for (int i = 0; i < n; ++i) {
      const double a = -2 * M_PI * i / n;
      std::snprintf(ligne, sizeof ligne, "10\n%.5f\n20\n%.5f\n", 400 + 300 * std::cos(a), 400 + 300 * std::sin(a));
      dxf += ligne;
    }
    Biblio.NettoyageFichier = [](Bibliotheque::Points& p, float) { return static_cast<std::int32_t>(p.size()); };
    return essai::EcritFichierEssai("grand.dxf", dxf + "0\nENDSEC\n0\nEOF\n");
  }
  void Ouvre(const std::string& chemin) {
    essai::AttendFichier("mnu_Ouvrir", chemin);
    Menu("mnu_Ouvrir")->trigger();
  }
  // A drawing with a step of undo and work that no file holds.
  void Travail() {
    GrandePoche();
    libre_ = true;
    Presse(Qt::Key_Right);
    essai::Evenements();
    libre_ = false;
    finis_ = 0;
    ASSERT_TRUE(TravailChange());
    ASSERT_TRUE(Menu("mnu_Undo")->isEnabled());
  }
  // The next readings begin once the test has done this in a round of events.
  void LectureQuiAttend(std::function<void()> pendant) {
    SvcPasse.Lit = [this, lit = SvcPasse.Lit, pendant = std::move(pendant)](const auto& noyau, const auto& arrete) {
      std::atomic<bool> passe{false};
      QTimer::singleShot(0, &timer_, [&] {
        pendant();
        passe = true;
      });
      return lit(
          [&] {
            while (!passe) std::this_thread::yield();
            noyau();
          },
          arrete);
    };
  }
  static void LaisseTravail() {
    essai::Attend("F_Representation", std::string(Textes::TravailNonEnregistre.Cle()), Reponse::Non);
  }

  struct Etat {
    Document document;
    Reglages reglages;
    EtatVue vue;
    QImage image;
    QString titre;
    std::vector<std::string> textes;
    std::vector<std::string> recents;
    std::vector<bool> permises;
    int pas = 0, materiau = 0;
    std::string ini;
  };
  Etat Present() {
    Etat e{Doc, Regl, Vue, C<ImagePB1>("PB1")->Image(), fenetre_->windowTitle(), {}, Recents.chemins, {}, 0, 0, ""};
    for (const char* nom : {"TB_RayonFraise", "TB_LargeurEncoche", "TB_X", "TB_Y"}) e.textes.push_back(Champ(nom));
    for (const char* nom : {"SB1_1", "SB1_2", "SB1_5", "SB1_11"}) {
      e.textes.push_back(C<QLabel>(nom)->text().toStdString());
    }
    for (const char* nom : {"mnu_Save", "mnu_Undo", "mnu_Redo", "mnu_Zoom1", "mnu_Lever", "mnu_Fraisage"}) {
      e.permises.push_back(Menu(nom)->isEnabled());
    }
    e.permises.push_back(Bouton("mnu_Undo")->isVisible());
    e.permises.push_back(C<QWidget>("Frame_Accueil")->isVisible());
    e.pas = NumeroInstantane();
    e.materiau = C<QComboBox>("CB_BD")->currentIndex();
    e.ini = essai::LitFichierEssai(CheminIni());
    return e;
  }
  static void Compare(const Etat& a, const Etat& b) {
    EXPECT_TRUE(a.document == b.document);
    EXPECT_TRUE(a.reglages == b.reglages);
    EXPECT_TRUE(a.vue == b.vue);
    EXPECT_EQ(a.image, b.image);
    EXPECT_EQ(a.titre, b.titre);
    EXPECT_EQ(a.textes, b.textes);
    EXPECT_EQ(a.recents, b.recents);
    EXPECT_EQ(a.permises, b.permises);
    EXPECT_EQ(a.pas, b.pas);
    EXPECT_EQ(a.materiau, b.materiau);
    EXPECT_EQ(a.ini, b.ini);
  }
};

TEST_F(OuverturePendantPasse, ThePictureShowsTheDrawingBeforeItsToolPath) {
  GrandePoche();
  const QImage avant = C<ImagePB1>("PB1")->Image();
  bool vu = false;
  Pendant({[] {},
           [&] {
             vu = true;
             EXPECT_EQ(TraceInitial.size(), 51001U);
             EXPECT_TRUE(TraceDecale.empty());
             EXPECT_NE(C<ImagePB1>("PB1")->Image(), avant);
             EXPECT_GT(PlaceDessin(705, 405).x() - PlaceDessin(105, 405).x(), C<ImagePB1>("PB1")->height() / 2)
                 << "fitted";
             EXPECT_TRUE(C<QLabel>("Label_Couleur_Dessin")->isVisible());
             EXPECT_FALSE(C<QLabel>("Label_Couleur_Decalage")->isVisible());
             EXPECT_EQ(C<QLabel>("SB1_2")->text().toStdString(), Traduire(Textes::OuvertureQuiSAnnule));
             EXPECT_EQ(NumeroInstantane(), pas_);
           }});
  Ouvre(EcritGrandDessin());
  EXPECT_TRUE(vu);
  EXPECT_EQ(finis_, 1);
  EXPECT_EQ(NumeroInstantane(), 1);
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> grand.dxf");
  EXPECT_TRUE(C<QLabel>("Label_Couleur_Decalage")->isVisible());
}

TEST_F(OuverturePendantPasse, EscapeLeavesTheWindowAsItWas) {
  Travail();
  const Etat avant = Present();
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  LaisseTravail();
  Ouvre(EcritGrandDessin());
  Compare(Present(), avant);
  EXPECT_EQ(finis_, 0);
  EXPECT_TRUE(TravailChange());
  essai::Evenements();
  Compare(Present(), avant);
  libre_ = true;
  Commande("mnu_Undo");
  EXPECT_TRUE(TraceInitial == points_);
}

TEST_F(OuverturePendantPasse, EscapeWhileTheFileIsReadLeavesTheWindowAsItWas) {
  Travail();
  const Etat avant = Present();
  std::string attente;
  LectureQuiAttend([&] {
    attente = C<QLabel>("Lbl_Avancement")->text().toStdString();
    Presse(Qt::Key_Right);  // neither this drawing nor the next one moves
    Presse(Qt::Key_Escape);
  });
  LaisseTravail();
  Ouvre(EcritGrandDessin());
  EXPECT_EQ(attente, Traduire(Textes::LectureQuiSAnnule));
  EXPECT_EQ(finis_, 0);
  Compare(Present(), avant);
  essai::Evenements();
  Compare(Present(), avant);
  EXPECT_TRUE(TravailChange());
  libre_ = true;
  Commande("mnu_Undo");
  EXPECT_TRUE(TraceInitial == points_);
}

TEST_F(OuverturePendantPasse, EscapeWhileTheFileIsReadAtTheStartLeavesTheEmptySheet) {
  const std::string grand = EcritGrandDessin();
  Charge();
  LectureQuiAttend([this] { Presse(Qt::Key_Escape); });
  EXPECT_EQ(OuvreLigneCommande(grand), SuiteCommande::Refusee);
  EXPECT_TRUE(TraceInitial.empty());
  EXPECT_EQ(FichierCourant, "");
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN");
  EXPECT_TRUE(C<QWidget>("Frame_Accueil")->isVisible());
  EXPECT_TRUE(Recents.chemins.empty());
}

TEST_F(OuverturePendantPasse, ADrawingThatIsReadWithoutEscapeIsOpened) {
  GrandePoche();
  libre_ = true;
  LectureQuiAttend([] {});
  Ouvre(EcritGrandDessin());
  EXPECT_EQ(TraceInitial.size(), 51001U);
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN <-> grand.dxf");
}

TEST_F(OuverturePendantPasse, EscapeLeavesTheTitleOfADrawingThatComesFromNoFile) {
  GrandePoche();
  Svc.TitreDessin("Bonjour");
  const QString titre = fenetre_->windowTitle();
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  Ouvre(EcritGrandDessin());
  EXPECT_EQ(fenetre_->windowTitle(), titre);
  Svc.Rafraichit();
  EXPECT_EQ(fenetre_->windowTitle(), titre);
}

TEST_F(OuverturePendantPasse, EscapeFromAnEntryOfTheRecentListLeavesTheListAsItWas) {
  GrandePoche();
  const std::string grand = EcritGrandDessin();
  Svc.FichierRecent(grand);
  Svc.FichierRecent(Exemple("equerre.dxf"));
  const auto chemins = Recents.chemins;
  ASSERT_EQ(chemins.at(1), grand);
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  Menu("mnu_MRU_2")->trigger();
  EXPECT_EQ(finis_, 0);
  EXPECT_EQ(Recents.chemins, chemins);
  EXPECT_TRUE(TraceInitial == points_);
}

TEST_F(OuverturePendantPasse, EscapeOnAnEmptySheetLeavesItsGreeting) {
  Charge();
  NoyauQuiAttend();
  const Etat avant = Present();
  bool vu = false;
  Pendant({[&] {
             vu = true;
             EXPECT_FALSE(C<QWidget>("Frame_Accueil")->isVisible());
           },
           [this] { Presse(Qt::Key_Escape); }});
  Ouvre(EcritGrandDessin());
  EXPECT_TRUE(vu);
  Compare(Present(), avant);
  EXPECT_TRUE(C<QWidget>("Frame_Accueil")->isVisible());
}

TEST_F(OuverturePendantPasse, EscapeAtTheStartLeavesTheEmptySheet) {
  const std::string grand = EcritGrandDessin();
  NoyauQuiAttend();
  bool vu = false;
  Pendant({[&] {
             vu = true;
             EXPECT_FALSE(C<QWidget>("Frame_Accueil")->isVisible());
             EXPECT_FALSE(C<ImagePB1>("PB1")->Image().isNull());
           },
           [this] { Presse(Qt::Key_Escape); }});
  Charge(grand);
  EXPECT_TRUE(vu);
  EXPECT_TRUE(TraceInitial.empty());
  EXPECT_EQ(FichierCourant, "");
  EXPECT_EQ(fenetre_->windowTitle(), "OVELIN");
  EXPECT_TRUE(C<QWidget>("Frame_Accueil")->isVisible());
  EXPECT_FALSE(Menu("mnu_Save")->isEnabled());
  EXPECT_TRUE(Recents.chemins.empty());
  EXPECT_EQ(LireCleIni("Fichier", ""), "");
  EXPECT_EQ(NumeroInstantane(), 0);
  EXPECT_NE(Champ("TB_RayonFraise"), "");
}

TEST_F(OuverturePendantPasse, ARadiusThatIsTypedInItIsTheOneInForceAfterOnePass) {
  Travail();
  LaisseTravail();
  auto* champ = C<QLineEdit>("TB_RayonFraise");
  Pendant({[&] { Retape(*champ, "4"); }, [&] { Retape(*champ, "5"); }});
  Ouvre(EcritGrandDessin());
  EXPECT_EQ(RayonFraise, 5);
  EXPECT_EQ(Champ("TB_RayonFraise"), "5");
  EXPECT_EQ(finis_, 1);
  EXPECT_EQ(TraceDecale.at(0).Points[0].X, TraceInitial[0].X + 5);
  EXPECT_EQ(NumeroInstantane(), 1);
  essai::Evenements();
  EXPECT_EQ(NumeroInstantane(), 1) << "and none comes behind";
}

TEST_F(OuverturePendantPasse, TheFieldsShowTheToolOfTheProjectThatIsOpened) {
  GrandePoche();
  libre_ = true;
  const double rayon = RayonFraise;
  const std::string projet = essai::Dossier() + "/grand.OVL";
  RayonFraise = 1.25;
  ASSERT_EQ(EnregistreProjet(projet), "");
  RayonFraise = rayon;
  FichierProjet.clear();
  EcritOutil();
  ASSERT_NE(rayon, 1.25);
  Ouvre(Exemple("plaque.dxf"));
  const std::string avant = Champ("TB_RayonFraise");
  libre_ = false;
  Pendant({[this] { EXPECT_EQ(Champ("TB_RayonFraise"), "1.25"); }, [this] { Presse(Qt::Key_Escape); }});
  Ouvre(projet);
  EXPECT_EQ(Champ("TB_RayonFraise"), avant);
  EXPECT_EQ(NomDe(FichierCourant), "plaque.dxf");
}

TEST_F(OuverturePendantPasse, WhatIsHalfTypedStaysInItsFieldWithTheKeyboard) {
  GrandePoche();
  auto* champ = C<QLineEdit>("TB_RayonFraise");
  Pendant({[&] {
    champ->setFocus();
    champ->selectAll();
    QTest::keyClicks(champ, "4");
  }});
  Ouvre(EcritGrandDessin());
  EXPECT_EQ(Champ("TB_RayonFraise"), "4");
  EXPECT_TRUE(champ->hasFocus());
  EXPECT_NE(RayonFraise, 4);
  QTest::keyClick(champ, Qt::Key_Return);
  EXPECT_EQ(RayonFraise, 4);
  EXPECT_EQ(NumeroInstantane(), 2) << "a change of its own";
}

TEST_F(OuverturePendantPasse, AnArrowComesBehindItAsAStepOfItsOwn) {
  GrandePoche();
  float x = 0;
  Pendant({[&] {
    x = TraceInitial[0].X;
    C<ImagePB1>("PB1")->setFocus();
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QCoreApplication::sendEvent(fenetre_->windowHandle(), &appui);
    EXPECT_EQ(TraceInitial[0].X, x);
  }});
  Ouvre(EcritGrandDessin());
  EXPECT_EQ(finis_, 1);
  EXPECT_EQ(TraceInitial[0].X, x);
  EXPECT_EQ(NumeroInstantane(), 1);
  essai::Evenements();
  EXPECT_EQ(TraceInitial[0].X, x + 0.1F);
  EXPECT_EQ(NumeroInstantane(), 2);
}

TEST_F(OuverturePendantPasse, AQuitComesBehindIt) {
  GrandePoche();
  Pendant({[this] {
    fenetre_->close();
    EXPECT_TRUE(fenetre_->isVisible());
  }});
  Ouvre(EcritGrandDessin());
  EXPECT_TRUE(fenetre_->isVisible());
  EXPECT_EQ(finis_, 1);
  essai::Evenements();
  EXPECT_FALSE(fenetre_->isVisible());
}

TEST_F(OuverturePendantPasse, ADrawingThatIsDroppedInAPassIsOpenedBehindItAndMayBeTakenBack) {
  GrandePoche();
  const std::string grand = EcritGrandDessin();
  Pendant({[&] { fenetre_->Depose(grand); }, [&] { EXPECT_NE(FichierCourant, grand); }});
  Presse(Qt::Key_Right);
  EXPECT_EQ(finis_, 1);
  const Etat avant = Present();
  libre_ = false;
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  LaisseTravail();
  essai::Evenements();
  EXPECT_EQ(finis_, 1);
  Compare(Present(), avant);
}

// As the desktop ends the program: what may still be given back is there at the next start.
TEST_F(OuverturePendantPasse, AnEndWithoutAQuestionKeepsTheWorkOfBefore) {
  Travail();
  LaisseTravail();
  const int pas = NumeroInstantane();
  Pendant({[&] {
    fenetre_->TermineSansQuestion();
    EXPECT_EQ(NumeroInstantane(), pas);
  }});
  Ouvre(EcritGrandDessin());
}

TEST_F(OuverturePendantPasse, AnEndWithoutAQuestionKeepsNothingOfADrawingThatAFileHolds) {
  GrandePoche();
  Pendant({[&] {
    fenetre_->TermineSansQuestion();
    EXPECT_EQ(NumeroInstantane(), 0);
  }});
  Ouvre(EcritGrandDessin());
}

}  // namespace
