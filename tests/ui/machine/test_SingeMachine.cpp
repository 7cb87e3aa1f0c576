// Random work in the windows of the machine and of the board's choice, repeatable by its seed: whatever is clicked
// and typed, nothing hangs, the controls come back, and what the settings hold can be read.
#include <QAbstractButton>
#include <QAbstractSlider>
#include <QCheckBox>
#include <QListWidget>
#include <QTabWidget>
#include <cmath>
#include <cstdlib>
#include <random>
#include <sstream>

#include "controller/ui/F_CarteVirtuelle.h"
#include "controller/ui/F_ChangtTable.h"
#include "core/Nombres.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/F_ParamAppli.h"
#include "core/ui/PageChoixCarte.h"
#include "machine/essais/ui/F_ParamMachine.h"
#include "machine/essais/ui/F_PasPerdus.h"
#include "machine/essais/ui/F_Test.h"
#include "tests/ui/machine/BancMachine.h"

namespace essai {
namespace {

class SingeMachine : public BancMachine {
 protected:
  SingeMachine() {
    const auto entier = [](const char* nom, unsigned long sinon) {
      const char* valeur = std::getenv(nom);
      return valeur != nullptr ? std::strtoul(valeur, nullptr, 10) : sinon;
    };
    graine_ = static_cast<std::uint32_t>(entier("OVELIN_MONKEY_SEED", 20261122));
    actions_ = static_cast<int>(entier("OVELIN_MONKEY_ACTIONS", 400));
    hasard_.seed(graine_);
    Svc.Montre = [this](const BoiteMessage& boite) {
      EXPECT_FALSE(boite.texte.empty()) << boite.section << "/" << boite.cle;
      if (boite.boutons == Boutons::Ok) return Reponse::Ok;
      const bool oui = Un(2) == 0;
      if (boite.boutons == Boutons::OkAnnuler) return oui ? Reponse::Ok : Reponse::Annuler;
      return oui ? Reponse::Oui : Reponse::Non;
    };
    Svc.Saisit = [this](CleTexte, const std::string&, const std::string&) {
      static const char* const noms[]{"", "A", "Essai", "huitcara", "", "B [x]"};
      for (;;) {
        const std::string nom = noms[Un(6)];
        if (!RefusNomTable(nom)) return nom;
      }
    };
    Svc.ChoisitFichier = [this](const DialogueFichier&) {
      return Un(2) == 0 ? std::string() : Dossier() + "/chemin" + (Un(2) == 0 ? ".svg" : ".csv");
    };
    Svc.OuvreFenetre = [](const std::string&) { return std::optional<int>(); };
    FenetreExiste = [](const std::string&) { return true; };
    OuvreFenetre = [](const std::string&, QWidget*) { return IssueFenetre::Annulee; };
    // A test that goes on for long is stopped, as its user would.
    aChaqueTour_ = [this] {
      if (TestEnCours && Un(300) == 0) StopDemande = Vrai;
    };
    CarteReglee = [] {};
    perdus_.setModal(false);
    test_.setModal(false);
    Charge();
  }
  ~SingeMachine() override {
    CarteReglee = nullptr;
    fenetres_.clear();
  }

  int Un(int n) { return static_cast<int>(hasard_() % static_cast<unsigned>(n)); }
  void Charge() {
    param_.Form_Load();
    perdus_.Form_Load();
    panneau_.Form_Load();
    changt_.Form_Load();
    appli_ =
        std::make_unique<F_ParamAppli>();  // made anew for each showing, as its settings are those of the moment
    fenetres_ = {&param_, &perdus_, &test_, &panneau_, &changt_, appli_.get()};
    for (QDialog* f : fenetres_) f->show();
  }
  template <class T>
  T* UnDe(QWidget& fenetre) {
    std::vector<T*> bons;
    for (T* w : fenetre.findChildren<T*>()) {
      if (w->isVisible() && w->isEnabled() && !w->objectName().isEmpty() && !w->objectName().startsWith("qt_"))
        bons.push_back(w);
    }
    return bons.empty() ? nullptr : bons[static_cast<std::size_t>(Un(static_cast<int>(bons.size())))];
  }
  std::string Agit();
  std::string AgitFenetre(QDialog& fenetre);
  std::string AgitCarte();
  std::string Fautes();

  std::mt19937 hasard_;
  std::uint32_t graine_ = 0;
  int actions_ = 0;
  F_ParamMachine param_;
  F_PasPerdus perdus_;
  F_Test test_;
  F_CarteVirtuelle panneau_;
  F_ChangtTable changt_;
  std::unique_ptr<F_ParamAppli> appli_;
  std::vector<QDialog*> fenetres_;
};

std::string SingeMachine::AgitFenetre(QDialog& fenetre) {
  const std::string qui = fenetre.objectName().toStdString() + " ";
  switch (Un(7)) {
    case 6: {
      auto* liste = UnDe<QListWidget>(fenetre);
      if (liste == nullptr || liste->count() == 0) return "";
      liste->setCurrentRow(Un(liste->count()));
      Q_EMIT liste->itemClicked(liste->currentItem());
      return qui + liste->objectName().toStdString();
    }
    case 0:
    case 1: {
      auto* champ = UnDe<QLineEdit>(fenetre);
      if (champ == nullptr) return "";
      static const char* const textes[]{"0", "-1", "1",   "2.5", "0,75", "90",      "1e9",
                                        "",  "-",  "...", "5",   "0.01", "99999999"};
      const char* texte = textes[Un(13)];
      Tape(*champ, texte, Un(2) == 0 ? Sortie::Tab : Sortie::Entree);
      return qui + champ->objectName().toStdString() + " \"" + texte + "\"";
    }
    case 2: {
      auto* liste = UnDe<QComboBox>(fenetre);
      if (liste == nullptr || liste->count() == 0) return "";
      liste->setCurrentIndex(Un(liste->count()));
      Q_EMIT liste->textActivated(liste->currentText());
      return qui + liste->objectName().toStdString();
    }
    case 3: {
      auto* onglets = fenetre.findChild<QTabWidget*>();
      auto* curseur = UnDe<QAbstractSlider>(fenetre);
      if (onglets != nullptr) onglets->setCurrentIndex(Un(onglets->count()));
      if (curseur != nullptr) curseur->setValue(Un(10));
      return qui + "page";
    }
    default: {
      auto* bouton = UnDe<QAbstractButton>(fenetre);
      if (bouton == nullptr) return "";
      const std::string nom = bouton->objectName().toStdString();
      Clique(*bouton);
      return qui + nom;
    }
  }
}

std::string SingeMachine::AgitCarte() {
  switch (Un(6)) {
    case 0:
      carte_->Debranche(true);
      return "unplugged";
    case 1:
      carte_->Fautes({{carte_->Compteurs().echanges + 1 + Un(20),
                       zenikcom::NomsFautes[static_cast<std::size_t>(Un(6))].genre, static_cast<double>(Un(3))}});
      return "fault";
    case 2:
      carte_->FinDeCourse(Un(2) == 0);
      return "limit switch";
    default:
      carte_->Debranche(false);
      carte_->FinDeCourse(false);
      carte_->Fautes({});
      return "plugged in";
  }
}

std::string SingeMachine::Agit() {
  const int quoi = Un(20);
  if (quoi == 0) return AgitCarte();
  if (quoi == 1) {
    for (QDialog* f : fenetres_) f->close();
    Charge();
    return "closed and opened";
  }
  return AgitFenetre(*fenetres_[static_cast<std::size_t>(Un(static_cast<int>(fenetres_.size())))]);
}

// What must hold behind every action; "" when it does.
std::string SingeMachine::Fautes() {
  std::ostringstream fautes;
  if (TestEnCours || OperationCarte || RunActif) fautes << "a test is still under way; ";
  for (QDialog* f : {static_cast<QDialog*>(&param_), static_cast<QDialog*>(&perdus_)}) {
    if (!f->isVisible()) continue;
    auto* combo = f->findChild<QComboBox*>("Combo_Table");
    if (combo != nullptr && !combo->isEnabled()) fautes << "the tables stay disabled; ";
    auto* pas = f->findChild<QPushButton*>("Cmd_Depl_0");
    if (pas != nullptr && !pas->isEnabled()) fautes << "a button of the steps stays disabled; ";
  }
  for (const double v :
       {CdeZENIK->PosX, CdeZENIK->PosY, CdeZENIK->PosZ, static_cast<double>(VitesseMaxX), TransmissionX}) {
    if (!std::isfinite(v)) fautes << "a number that is none; ";
  }
  return fautes.str();
}

TEST_F(SingeMachine, LeavesTheProgramWhole) {
  std::vector<std::string> derniers;
  for (int i = 0; i < actions_; ++i) {
    const std::string action = Agit();
    essai::Evenements();
    for (QDialog* f : fenetres_) {
      if (!f->isVisible()) {
        Charge();
        break;
      }
    }
    derniers.push_back(action);
    if (derniers.size() > 12) derniers.erase(derniers.begin());
    const std::string fautes = Fautes();
    if (!fautes.empty()) {
      std::string chemin;
      for (const std::string& a : derniers) chemin += "\n  " + a;
      FAIL() << "seed " << graine_ << ", action " << i << ": " << fautes << chemin;
    }
  }
  carte_->Debranche(false);
  carte_->Fautes({});
  for (QDialog* f : fenetres_) f->close();
  OublieCles();
  for (const std::string& nom : ListeTables()) {
    for (const auto& [cle, texte] : Chargt_Table(nom)) {
      EXPECT_TRUE(texte.empty() || EstNumerique(texte)) << nom << " " << cle << "=" << texte;
    }
  }
}

}  // namespace
}  // namespace essai
