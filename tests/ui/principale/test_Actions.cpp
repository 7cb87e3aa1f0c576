// From a foreign drawing to the file for the machine, counted in what a user does: a key, a click, an answer.
#include <QComboBox>
#include <QPushButton>
#include <QTabBar>
#include <QTreeView>

#include "app/ovelin/Composition.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "tests/ui/principale/FenetrePrincipale.h"
#include "toolpath/Module_Sequence.h"
#include "workspace/ui/F_Representation.h"

namespace {

using namespace ovelin;

class PeuDActions : public essai::Principale {
 protected:
  void SetUp() override {
    Principale::SetUp();
    // The milling window and that of the attachment points as they are; each press in them is an action.
    reponses_["F_Fraisage"] = [this] { return Genere(); };
    reponses_["F_Attaches"] = [this] {
      const auto fenetre = FaitFenetre(*ChercheFenetre(TableFenetres(), "F_Attaches"), nullptr);
      essai::Montre(*fenetre);
      Fait();
      essai::Clique(*essai::Controle<QPushButton>(*fenetre, "Btn_OK"));
      return true;
    };
    Svc.Dimensionne = [this](DemandeDimension&) { Fait(); };  // its OK
  }
  bool Genere() {
    const auto fenetre = FaitFenetre(*ChercheFenetre(TableFenetres(), "F_Fraisage"), nullptr);
    essai::Montre(*fenetre);
    essai::AttendFichier("Btn_Gener_GCODE", essai::Dossier() + "/piece.nc");
    Fait(2);  // the button, and the name that is proposed
    essai::Clique(*essai::Controle<QPushButton>(*fenetre, "Btn_Gener_GCODE"));
    fenetre->close();
    return false;
  }

  void Fait(int combien = 1) { actions_ += combien; }
  void Touches(const char* commande) {
    Fait();
    Commande(commande);
  }
  void Ouvre() {
    essai::AttendFichier("mnu_Ouvrir", Exemple("plaque.dxf"));
    Fait(2);  // Ctrl+O, and the file in the dialog
    Commande("mnu_Ouvrir");
  }
  void Materiau() {
    auto* combo = C<QComboBox>("CB_BD");
    Fait();
    combo->setCurrentIndex(4);
    Q_EMIT combo->activated(4);
    essai::Evenements();
  }
  void Clic(const char* controle) {
    Fait();
    C<QAbstractButton>(controle)->click();
    essai::Evenements();
  }
  void Ligne(int groupe, int point = -1) {
    Fait();
    CliqueLigne("TreeView1", groupe, point);
  }
  static std::string GCode() { return essai::LitFichierEssai(essai::Dossier() + "/piece.nc"); }
  static int Attaches() {
    int nombre = 0;
    for (const PointTrace& p : TraceInitial) nombre += p.Cde == CodePC ? 1 : 0;
    return nombre;
  }

  int actions_ = 0;
};

TEST_F(PeuDActions, FromADrawingToItsFileInSevenActions) {
  Charge();
  Ouvre();
  Materiau();
  Touches("mnu_Fraisage");
  EXPECT_LE(actions_, 7);
  EXPECT_NE(GCode().find("G01"), std::string::npos) << GCode().substr(0, 300);
}

// Another side, a pocket, four tabs, another start.
TEST_F(PeuDActions, WithAllThatAJobMayWantInTwentyActions) {
  Charge();
  Ouvre();
  Materiau();
  const int derniere = static_cast<int>(ListeCodes().size()) - 1;  // the outline comes last
  Ligne(0);
  const Code2 trou = CodesSelectionnes().front();
  Clic("CB_Poche");
  Ligne(1);
  const Code2 autre = CodesSelectionnes().front();
  const PointTrace avant = TraceInitial[static_cast<std::size_t>(IndexSequence(autre)) + 1];
  Clic("CB_AutreCote");
  EXPECT_NE(TraceInitial[static_cast<std::size_t>(IndexSequence(autre)) + 1], avant);
  Ligne(derniere);
  const Code2 contour = CodesSelectionnes().front();
  const PointTrace coin = TraceInitial[static_cast<std::size_t>(IndexSequence(contour)) + 2];
  Fait();
  C<QTabBar>("Option1")->setCurrentIndex(0);
  Ligne(derniere, 2);
  Clic("CB_Depart");
  const PointTrace depart = TraceInitial[static_cast<std::size_t>(IndexSequence(contour))];
  EXPECT_EQ(depart.X, coin.X);
  EXPECT_EQ(depart.Y, coin.Y);
  Ligne(derniere);
  Touches("mnu_Attaches");
  EXPECT_EQ(Attaches(), 4);
  Touches("mnu_Fraisage");
  EXPECT_LE(actions_, 20);
  const SequenceInfo* poche = nullptr;
  for (const SequenceInfo& s : Sequences) poche = s.Code == trou ? &s : poche;
  ASSERT_NE(poche, nullptr);
  EXPECT_EQ(poche->Poche, Vrai);
  EXPECT_NE(GCode().find("G01"), std::string::npos);
}

}  // namespace
