// Commands of the main window while their tool path is computed beside it: Escape brings the state of before back,
// an arrow joins them in one step of undo.
#include <QAbstractButton>
#include <QAbstractItemView>
#include <QComboBox>
#include <QLineEdit>
#include <algorithm>
#include <functional>
#include <string>

#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/ui/ServicesQt.h"
#include "database/Module_BD.h"
#include "image/SceneSelection.h"
#include "tests/ui/principale/PendantPasse.h"
#include "toolpath/Module_Texte.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/Module_Prise.h"
#include "workspace/Module_Souris.h"
#include "workspace/ui/ArbreDocument.h"
#include "workspace/ui/CommandesPrincipales.h"

namespace {

using namespace ovelin;

class CommandesPendantPasse : public essai::PendantPasse {
 protected:
  struct Etat {
    Document document;
    Reglages reglages;
    std::string materiau;
    int rang = 0;  // of the list of materials
    int pas = 0;
    bool change = false;
    std::string ini;
    QImage image;
  };
  Etat Present() {
    return {Doc,
            Regl,
            MateriauCourant,
            C<QComboBox>("CB_BD")->currentIndex(),
            NumeroInstantane(),
            TravailChange(),
            essai::LitFichierEssai(essai::Dossier() + "/OVELIN.ini"),
            C<ImagePB1>("PB1")->Image()};
  }
  static void CompareDonnees(Etat a, Etat b) {
    a.document.FichierInstantane = b.document.FichierInstantane = "";  // of the last step, whatever its number
    EXPECT_TRUE(a.document.TraceInitial == b.document.TraceInitial);
    EXPECT_TRUE(a.document.TraceDecale == b.document.TraceDecale);
    EXPECT_TRUE(a.document == b.document);
    EXPECT_TRUE(a.reglages == b.reglages);
    EXPECT_EQ(a.materiau, b.materiau);
  }
  void Reprend(const Etat& etat, const std::function<void()>& prepare) {
    Doc = etat.document;
    Regl = etat.reglages;
    MateriauCourant = etat.materiau;
    Svc.Rafraichit();
    essai::Evenements();
    if (prepare) prepare();
    libre_ = false;
    finis_ = 0;
  }

  // The command taken back, then in force, then with an arrow; against the window that computes by itself.
  void Verifie(const std::function<void()>& commande, const std::function<void()>& prepare = {}) {
    essai::Evenements();
    const Etat debut = Present();
    if (prepare) prepare();
    const Etat avant = Present();
    Pendant({[this] { Presse(Qt::Key_Escape); }});
    commande();
    const Etat repris = Present();
    CompareDonnees(repris, avant);
    EXPECT_EQ(repris.pas, avant.pas);
    EXPECT_EQ(repris.change, avant.change);
    EXPECT_EQ(repris.rang, avant.rang);
    if (!prepare) {
      EXPECT_EQ(repris.image, avant.image);
    }
    EXPECT_EQ(finis_, 0);
    essai::Evenements();

    if (prepare) prepare();
    int pas = NumeroInstantane();
    libre_ = true;
    const auto passe = std::exchange(SvcPasse.Jusque, nullptr);
    commande();
    const Etat attendu = Present();
    const int chemins = finis_;
    EXPECT_EQ(attendu.pas, pas + 1);
    Presse(Qt::Key_Right);
    const Etat avecFleche = Present();
    SvcPasse.Jusque = passe;
    ASSERT_FALSE(attendu.document == avant.document);

    Reprend(debut, prepare);
    pas = NumeroInstantane();
    bool vue = false;
    Pendant({[&] {
      vue = true;
      EXPECT_TRUE(TraceDecale.empty());
      EXPECT_TRUE(TraceInitial == attendu.document.TraceInitial);
    }});
    commande();
    EXPECT_TRUE(vue);
    EXPECT_LE(finis_, chemins);
    CompareDonnees(Present(), attendu);
    EXPECT_EQ(NumeroInstantane(), pas + 1);
    EXPECT_FALSE(PasseEnCours());

    Reprend(debut, prepare);
    pas = NumeroInstantane();
    Pendant({[this] { Presse(Qt::Key_Right); }});
    commande();
    EXPECT_LE(finis_, chemins);
    CompareDonnees(Present(), avecFleche);
    EXPECT_EQ(NumeroInstantane(), pas + 1);
    libre_ = true;
  }
  void Presse(const char* nom) {
    auto* bouton = C<QAbstractButton>(nom);
    ASSERT_TRUE(bouton->isEnabled());
    bouton->click();
  }
  using essai::PendantPasse::Presse;
  void ChoisitPoint() {
    Regl.ConfirmSuppr = false;
    CliqueLigne("TreeView1", 0, 5);
    C<ImagePB1>("PB1")->setFocus();
    essai::Evenements();
  }
};

TEST_F(CommandesPendantPasse, ARotationOfTheSelection) {
  GrandePoche();
  Verifie([this] { Presse("CB_Rotation_0"); });
}

TEST_F(CommandesPendantPasse, AMirrorOfTheSelection) {
  GrandePoche();
  Verifie([this] { Presse("CB_Miroir_0"); });
}

TEST_F(CommandesPendantPasse, TheOtherSideOfTheTool) {
  GrandePoche();
  Verifie([this] { Presse("Option_Decal_3"); });
}

TEST_F(CommandesPendantPasse, TheOtherSenseOfTravel) {
  GrandePoche();
  Verifie([this] { Presse("CB_AutreCote"); });
}

TEST_F(CommandesPendantPasse, APointThatLeavesTheDrawing) {
  GrandePoche();
  Verifie([this] { Presse("CB_Supprimer_Point"); }, [this] { ChoisitPoint(); });
}

TEST_F(CommandesPendantPasse, ThePointsThatAreChosenInTheTreeStayChosenWhereTheirChangeIsTakenBack) {
  GrandePoche();
  ChoisitPoint();
  const auto* arbre = C<ArbreDocument>("TreeView1");
  ASSERT_EQ(arbre->PointsChoisis(), std::vector<std::int32_t>{5});
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  Presse("CB_Supprimer_Point");
  ASSERT_EQ(NbPoints, 3001);
  EXPECT_EQ(arbre->PointsChoisis(), std::vector<std::int32_t>{5});
  EXPECT_EQ(C<QAbstractItemView>("List_Position")->model()->rowCount(), 1);
  const PointTrace sixieme = TraceInitial[6];
  Pendant({});
  Presse("CB_Supprimer_Point");
  EXPECT_EQ(NbPoints, 3000);
  EXPECT_EQ(TraceInitial[5], sixieme);
}

// A drag in the picture selects and moves in one.
TEST_F(CommandesPendantPasse, ASelectionThatTheTreeHasNotSeenIsShownWhereTheChangeIsTakenBack) {
  GrandePoche();
  essai::AjouteCarre(" B", 200, 200, 10);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  Sequences.back().Selection = Faux;
  libre_ = true;
  RecalculDecalages();
  Svc.Rafraichit();
  essai::Evenements();
  libre_ = false;
  auto* arbre = C<ArbreDocument>("TreeView1");
  const QModelIndex carre = arbre->model()->index(1, 0, arbre->model()->index(0, 0));
  ASSERT_FALSE(arbre->selectionModel()->isSelected(carre));
  Sequences.back().Selection = Vrai;
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  EXPECT_FALSE(Deplacement_Selection(Direction::X, 1));
  EXPECT_TRUE(arbre->selectionModel()->isSelected(carre));
}

TEST_F(CommandesPendantPasse, APathThatStartsElsewhere) {
  GrandePoche();
  Verifie([this] { Presse("CB_Depart"); }, [this] { ChoisitPoint(); });
}

TEST_F(CommandesPendantPasse, StartsThatAreChosenByTheProgram) {
  GrandePoche();
  essai::AjouteCarre(" B", 200, 200, 10);
  NbPoints = static_cast<std::int32_t>(TraceInitial.size());
  EncombrementGeneral();
  Svc.Rafraichit();
  Verifie([this] { Menu("mnu_Optimisation")->trigger(); });
}

TEST_F(CommandesPendantPasse, ACleanUp) {
  GrandePoche();
  Biblio.NettoyageFichier = [](Bibliotheque::Points& p, float) {
    p.erase(p.begin() + 9);
    return static_cast<std::int32_t>(p.size());
  };
  reponses_["F_Nettoyage"] = [] {
    Regl.Resolution = 0.01F;
    return true;
  };
  Regl.Resolution = 0.01F;
  Verifie([this] { Menu("mnu_Nettoyage")->trigger(); });
}

TEST_F(CommandesPendantPasse, Smoothing) {
  GrandePoche();
  Biblio.LissageSequence = [](Bibliotheque::Points& p) { p[9].X += 1; };
  Verifie([this] { Presse("CB_Lissage"); });
}

TEST_F(CommandesPendantPasse, ACopyBeside) {
  GrandePoche();
  Verifie([this] { Menu("mnu_Dupliquer")->trigger(); });
  EXPECT_EQ(essai::Bips(), 0);
}

TEST_F(CommandesPendantPasse, AMaterial) {
  GrandePoche();
  Verifie([this] {
    auto* combo = C<QComboBox>("CB_BD");
    combo->setCurrentIndex(4);
    Q_EMIT combo->activated(4);
    C<ImagePB1>("PB1")->setFocus();
  });
}

TEST_F(CommandesPendantPasse, AMaterialThatIsTakenBackIsInNoFile) {
  GrandePoche();
  EcritMateriau();
  EcritOutil();
  const std::string ini = Present().ini;
  ASSERT_NE(ini.find("RayonFraise"), std::string::npos);
  auto* combo = C<QComboBox>("CB_BD");
  Pendant({[this] { Presse(Qt::Key_Escape); }});
  combo->setCurrentIndex(4);
  Q_EMIT combo->activated(4);
  EXPECT_EQ(Present().ini, ini);
  EXPECT_EQ(combo->currentIndex(), 0);
  EXPECT_EQ(Champ("TB_RayonFraise"), TexteNombre(RayonFraise));
}

TEST_F(CommandesPendantPasse, AnUndoIsTakenBackWithItsList) {
  GrandePoche();
  libre_ = true;
  Presse(Qt::Key_Right);
  essai::Evenements();
  libre_ = false;
  finis_ = 0;
  const Etat avant = Present();
  ASSERT_EQ(avant.pas, pas_ + 1);
  Pendant({[this] {
             EXPECT_TRUE(TraceInitial == points_);
             EXPECT_TRUE(TraceDecale.empty());
           },
           [this] { Presse(Qt::Key_Escape); }});
  Menu("mnu_Undo")->trigger();
  const Etat repris = Present();
  CompareDonnees(repris, avant);
  EXPECT_EQ(repris.pas, avant.pas);
  EXPECT_EQ(repris.image, avant.image);
  EXPECT_EQ(repris.ini, avant.ini);
  EXPECT_EQ(PasARefaire(), 0);
  EXPECT_TRUE(Menu("mnu_Undo")->isEnabled());
  EXPECT_TRUE(Bouton("mnu_Undo")->isVisible());

  Pendant({});
  Menu("mnu_Undo")->trigger();
  EXPECT_EQ(finis_, 1);
  EXPECT_TRUE(TraceInitial == points_);
  EXPECT_TRUE(TraceDecale == traces_);
  EXPECT_EQ(NumeroInstantane(), pas_);
  EXPECT_EQ(PasARefaire(), 1);
}

TEST_F(CommandesPendantPasse, AnArrowComesBehindAnUndoAsAStepOfItsOwn) {
  GrandePoche();
  libre_ = true;
  Presse(Qt::Key_Up);
  essai::Evenements();
  libre_ = false;
  finis_ = 0;
  Pendant({[this] {
    QKeyEvent appui(QEvent::KeyPress, Qt::Key_Right, Qt::NoModifier);
    QCoreApplication::sendEvent(fenetre_->windowHandle(), &appui);
    EXPECT_TRUE(TraceInitial == points_);
  }});
  Menu("mnu_Undo")->trigger();
  EXPECT_EQ(finis_, 1);
  EXPECT_TRUE(TraceInitial == points_);
  EXPECT_EQ(NumeroInstantane(), pas_);
  essai::Evenements();
  EXPECT_EQ(TraceInitial[0].X, points_[0].X + 0.1F);
  EXPECT_EQ(NumeroInstantane(), pas_ + 1);
}

// By the grip over the selection, dragged a quarter of a turn.
TEST_F(CommandesPendantPasse, ATurnByTheGripOfTheSelection) {
  GrandePoche();
  auto* image = C<ImagePB1>("PB1");
  QPoint cible;
  const auto tire = [&] {
    const Poignees p = PoigneesDe(BoiteDe(Doc), image->Taille());
    const auto pixel = [](const PointEcran& q) {
      return QPoint(static_cast<int>(q.X / TwipsParPixel), static_cast<int>(q.Y / TwipsParPixel));
    };
    const QPoint milieu = PlaceDessin(100, 80);
    const QPoint prise = pixel(p.tourne);
    cible = milieu + QPoint(milieu.y() - prise.y(), 0);
    QTest::mousePress(image, Qt::LeftButton, {}, prise);
    QTest::mouseMove(image, (prise + cible) / 2);
    QTest::mouseMove(image, cible);
    essai::Evenements();
  };
  Verifie([&] { QTest::mouseRelease(image, Qt::LeftButton, {}, cible); }, tire);
}

TEST_F(CommandesPendantPasse, ATextOnAnEmptySheetIsShownAtOnceAndLeavesItEmpty) {
  Charge();
  const QImage vide = C<ImagePB1>("PB1")->Image();
  std::vector<std::pair<float, float>> xy;
  constexpr int n = 50000;
  for (int i = 0; i <= n; ++i) {
    const double a = 2 * M_PI * (i % n) / n;
    xy.emplace_back(static_cast<float>(30 + 20 * std::cos(a)), static_cast<float>(30 + 20 * std::sin(a)));
  }
  Biblio.Texte = [points = essai::Trace("t1", xy)](Bibliotheque::Points& p, const std::string&, const std::string&,
                                                   std::int32_t, std::int32_t) {
    p = points;
    return static_cast<std::int32_t>(p.size());
  };
  Biblio.NettoyageFichier = [](Bibliotheque::Points& p, float) { return static_cast<std::int32_t>(p.size()); };
  Biblio.DecalSequence = [this](Bibliotheque::Points& /*p*/, float, float, std::int32_t) {
    auTravail_ = true;
    while (!libre_ && !base::ArretDemande()) std::this_thread::yield();
    auTravail_ = false;
    return base::ArretDemande() ? 0 : 1;
  };
  const Document avant = Doc;
  bool vu = false;
  bool fait = true;
  reponses_["F_Texte"] = [&] { return fait = GenereTexte("o", "DejaVu Sans", 0, 0); };
  Pendant({[] {},
           [&] {
             vu = true;
             EXPECT_FALSE(C<QWidget>("Frame_Accueil")->isVisible());
             EXPECT_NE(C<ImagePB1>("PB1")->Image(), vide);
             EXPECT_GT(PlaceDessin(50, 30).x() - PlaceDessin(10, 30).x(), C<ImagePB1>("PB1")->height() / 2);
           },
           [this] { Presse(Qt::Key_Escape); }});
  Menu("mnu_Texte")->trigger();
  EXPECT_TRUE(vu);
  EXPECT_FALSE(fait);
  EXPECT_TRUE(Doc == avant);
  EXPECT_TRUE(C<QWidget>("Frame_Accueil")->isVisible());
  EXPECT_FALSE(Menu("mnu_Save")->isEnabled());
}

}  // namespace
