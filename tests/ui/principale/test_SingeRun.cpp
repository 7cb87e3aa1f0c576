// Random work while a job runs on the virtual board: in the main window and the milling window, in boxes, at the
// quit. Neither drawing nor plan change under the run, and what was cut ends where it was planned.
#include <QAbstractButton>
#include <QApplication>
#include <QMenu>
#include <QMessageBox>
#include <QPushButton>
#include <QTimer>
#include <array>
#include <cstdlib>
#include <map>
#include <optional>

#include "closed/CarteVirtuelle.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/DocumentCourant.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Textes.h"
#include "core/ui/AvisRun.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/FiltreStop.h"
#include "core/ui/ServicesQt.h"
#include "machine/Module_Table.h"
#include "machine/TableCourante.h"
#include "run/Module_Decoupe.h"
#include "run/ui/F_Fraisage.h"
#include "tests/ui/principale/Singe.h"

namespace {

using namespace ovelin;
using zenikcom::Axes3;

// What a run must not find changed.
struct Figees {
  Document document;  // without its selection
  std::vector<Deplacement> lignes;
  TableMachine table;
};

class SingeRun : public essai::Singe {
 protected:
  void SetUp() override {
    Singe::SetUp();
    if (std::getenv("OVELIN_MONKEY_ACTIONS") == nullptr) actions_ = 2000;
    tue_ = false;
    essai::EcritFichierEssai(
        "OVELIN.ini",
        "[OVELIN]\r\nTableDefaut=Essai\r\n[table_Essai]\r\nTB_SAV_30=30\r\nTB_SAV_31=80\r\nCB_SAV_16=1\r\n"
        "TB_SAV_12=4\r\nTB_SAV_13=4\r\nTB_SAV_14=4\r\nTB_SAV_15=20\r\nTB_SAV_16=20\r\nTB_SAV_17=8\r\n");
    OublieCles();
    TableDefaut = "Essai";
    ChargeGlobalesTable();
    Svc.Horloge = [this] { return heure_; };
    Svc.Attend = [this](double s) { heure_ += s; };
    Svc.MontreRun = [](bool enCours) { AvisRun::Unique().Note(enCours); };
    Svc.Montre = [this](const BoiteMessage& boite) { return Repond(boite); };
    Svc.LaisseEvenements = [this](Evenements mode) {
      if (mode != Evenements::Tous) return;
      heure_ += 0.0005;
      if (!RunActif || dedans_ || !libre_ || Un(60) != 0) return;
      dedans_ = true;
      Geste();
      dedans_ = false;
    };
    reponses_["F_Fraisage"] = [] { return false; };
  }
  void TearDown() override {
    fraisage_.reset();
    Singe::TearDown();
    AvisRun::Unique().Note(false);
    CdeZENIK = std::make_unique<ClsCdeZENIK>();
  }

  // A fresh board, main window, drawing and milling window.
  void Recommence() {
    fraisage_.reset();
    fenetre_.reset();
    Doc = Document{};
    Marche = EtatRun{};
    zenikcom::ConditionsCarte c;
    c.horloge = [this] { return static_cast<std::int64_t>(heure_ * 1e9); };
    carte_ = zenikcom::CreeCarteVirtuelle(std::move(c));
    CdeZENIK = std::make_unique<ClsCdeZENIK>(zenikcom::LiaisonVirtuelle(carte_));
    CdeZENIK->ChargeParametres();
    Charge(Exemple("equerre.dxf"));
    RayonFraise = 1;
    HautDeg = 3;
    ProfPasse = -1;
    ProfFraisage = -2;
    Vitesse_Mat_H = 4;
    Vitesse_Mat_V = 2;
    fraisage_ = std::make_unique<F_Fraisage>();
    essai::Montre(*fraisage_);
  }

  // A box stands open while the job goes on, and is answered by chance, now and then with Escape.
  Reponse Repond(const BoiteMessage& boite) {
    EXPECT_FALSE(boite.texte.empty()) << boite.section << "/" << boite.cle;
    ++boites_[boite.cle];
    const auto fenetre = FaitBoite(boite, fenetre_.get());
    const bool echappe = RunActif && Un(3) == 0;
    QTimer::singleShot(0, fenetre.get(), [&] {
      for (int i = 0; i < 40 && essai::Vu().battement; ++i) {
        heure_ += 0.005;
        essai::Vu().battement();
      }
      if (echappe) {
        QTest::keyClick(fenetre.get(), Qt::Key_Escape);
      } else {
        const auto boutons = fenetre->buttons();
        essai::Clique(*boutons[Un(static_cast<int>(boutons.size()))]);
      }
    });
    const int appuye = fenetre->exec();
    if (appuye == QMessageBox::Ok) return Reponse::Ok;
    if (appuye == QMessageBox::Yes) return Reponse::Oui;
    return appuye == QMessageBox::No ? Reponse::Non : Reponse::Annuler;
  }

  std::string Fraisage() {
    switch (Un(6)) {
      case 0:
        fraisage_->close();
        return "the milling window closed";
      case 1:
        fraisage_->Form_Load();
        essai::Montre(*fraisage_);
        return "the milling window opened";
      case 2: {
        auto* champ = UnDe<ChampNombre>(*fraisage_);
        if (champ == nullptr) return "";
        essai::Tape(*champ, Un(2) == 0 ? "3" : "2,5", essai::Sortie::Entree);
        return champ->objectName().toStdString();
      }
      default: {
        auto* bouton = UnDe<QAbstractButton>(*fraisage_);
        if (bouton == nullptr) return "";
        if (bouton->objectName() == QLatin1String("Btn_Fraiser_Serie") && Un(6) != 0) return "";
        const std::string nom = bouton->objectName().toStdString();
        essai::Clique(*bouton);
        return nom;
      }
    }
  }

  // What only a run makes interesting: its stops, its end, its board.
  std::string Dangereux() {
    switch (Un(8)) {
      case 0:
        ++fermetures_;
        fenetre_->close();
        return "quit";
      case 1:
        QTest::mousePress(C<BoutonStop>("Btn_Stop"), Qt::LeftButton);
        return "stop";
      case 2:
        QTest::keyClick(fenetre_.get(), Qt::Key_Escape);
        return "Escape";
      case 3:
        QTest::keyClick(fraisage_.get(), Qt::Key_X);
        return "a key";
      case 4:
        ++debranchements_;
        carte_->Debranche(true);
        return "unplugged";
      case 5:
        carte_->FinDeCourse(true);
        carte_->FinDeCourse(false);
        return "limit switch";
      default:
        Message(Textes::MemoireManque, Icone::Information);
        return "box";
    }
  }

  void Geste() {
    if (fenetre_ == nullptr || !fenetre_->isVisible()) return;
    if (!figees_) Fige();
    std::string quoi;
    const int sorte = Un(40);
    if (sorte == 0) {
      quoi = Dangereux();
    } else if (sorte < 10) {
      quoi = Fraisage();
    } else if (sorte < 14) {
      static constexpr std::array<Qt::Key, 6> Touches{Qt::Key_Z, Qt::Key_O, Qt::Key_S,
                                                      Qt::Key_N, Qt::Key_A, Qt::Key_G};
      const Qt::Key touche = Touches[static_cast<std::size_t>(Un(6))];
      QTest::keyClick(fenetre_.get(), touche, Qt::ControlModifier);
      quoi = "Ctrl and a key";
    } else {
      quoi = Agit();
    }
    essai::Evenements();
    if (QWidget* menu = QApplication::activePopupWidget()) menu->close();
    journal_.push_back(quoi);
    ++faites_;
    Regarde();
  }

  void Fige() {
    figees_ = Figees{SansSelection(Doc), TableDecoupe, Table};
    for (Deplacement& d : figees_->lignes) d.Ticks = 0;
  }
  static Document SansSelection(Document d) {
    for (SequenceInfo& s : d.Sequences) s.Selection = Faux;
    return d;
  }
  void Regarde() {
    if (!RunActif) return;
    const Document ici = SansSelection(Doc);
    const Document& avant = figees_->document;
    std::string faute = Invariants();
    if (ici.TraceInitial != avant.TraceInitial) faute = "the drawing has changed";
    if (ici.Sequences != avant.Sequences) faute = "the paths have changed";
    if (ici.TraceDecale != avant.TraceDecale) faute = "the tool path has changed";
    if (!(Table == figees_->table)) faute = "the machine's table has changed";
    if (TableDecoupe.size() != figees_->lignes.size()) faute = "the plan has changed";
    for (std::size_t i = 1; faute.empty() && i < TableDecoupe.size(); ++i) {
      Deplacement d = TableDecoupe[i];
      d.Ticks = 0;
      if (!(d == figees_->lignes[i])) faute = "row " + std::to_string(i) + " has changed";
    }
    if (!faute.empty()) ADD_FAILURE() << faute << " after " << Derniers();
  }
  std::string Derniers() const {
    std::string texte;
    for (std::size_t k = journal_.size() > 12 ? journal_.size() - 12 : 0; k < journal_.size(); ++k) {
      texte += journal_[k] + "; ";
    }
    return texte;
  }

  // The button of the milling window, pressed until the job has ended or can't be resumed.
  void UnTravail() {
    constexpr int ArretsAuPlus = 5;  // then it is left alone, so that every job comes to its end
    for (int fois = 0; fois <= ArretsAuPlus; ++fois) {
      figees_.reset();
      libre_ = fois < ArretsAuPlus && faites_ < actions_;
      auto& depart = *essai::Controle<QPushButton>(*fraisage_, "Btn_Fraiser_Serie");
      if (!depart.isVisible()) essai::Montre(*fraisage_);
      essai::Clique(depart);
      libre_ = false;
      ASSERT_FALSE(RunActif || OperationCarte) << Derniers();
      if (!fenetre_->isVisible() || fermetures_ > 0) return Quitte();
      carte_->Debranche(false);
      heure_ += 3;
      if (AttendCarte) {
        ASSERT_TRUE(RetrouveCarte()) << Derniers();
      }
      essai::Evenements();
      ASSERT_FALSE(PlacePerdue) << Derniers();
      const Axes3 ici{CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ};
      ASSERT_EQ(ici, carte_->Compteurs().pas) << Derniers();
      if (FaceCourante() == FaceFraisage::Depart) {
        ++termines_;
        ASSERT_EQ(ici, (Axes3{0, 0, 0})) << Derniers();
        return;
      }
      ++arrets_;
    }
  }
  // The main window goes once the machine stands.
  void Quitte() {
    fermetures_ = 0;
    ++quittes_;
    C<QTimer>("Timer_Fin")->setInterval(0);
    essai::Evenements();
    essai::Evenements();
  }

  double heure_ = 1000;  // s
  std::shared_ptr<zenikcom::CarteVirtuelle> carte_;
  std::unique_ptr<F_Fraisage> fraisage_;
  std::optional<Figees> figees_;
  std::vector<std::string> journal_;
  std::map<std::string, int> boites_;
  bool dedans_ = false, libre_ = false;
  int faites_ = 0, fermetures_ = 0, quittes_ = 0, debranchements_ = 0, termines_ = 0, arrets_ = 0;
};

TEST_F(SingeRun, RandomWorkDuringRunsChangesNeitherDrawingNorPlanNorPlace) {
  SCOPED_TRACE("OVELIN_MONKEY_SEED=" + std::to_string(graine_));
  int travaux = 0;
  while (faites_ < actions_ && !HasFailure()) {
    Recommence();
    UnTravail();
    ASSERT_LT(++travaux, actions_) << "nothing happens";
  }
  if (actions_ < 2000) return;
  EXPECT_GT(termines_, 3);
  EXPECT_GT(arrets_, 10);
  EXPECT_GT(quittes_, 1);
  EXPECT_GT(debranchements_, 1);
}

}  // namespace
