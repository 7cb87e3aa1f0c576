#include "machine/essais/ui/F_ParamMachine.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QTabWidget>
#include <QTimer>

#include "controller/ChoixCarte.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "machine/essais/Fenetre.h"
#include "machine/essais/Module_EssaiVitesse.h"
#include "machine/essais/Module_ParamMachine.h"
#include "machine/essais/TableOuverte.h"
#include "machine/essais/ui/ControlesTable.h"
#include "machine/essais/ui/PageEssai.h"
#include "machine/essais/ui/PageSorties.h"
#include "machine/essais/ui/PagesTable.h"

namespace ovelin {

namespace {

constexpr int PeriodeSuivi = 200;  // ms between two looks at the machine

struct BoutonGestion {
  const char* texte;
  const char* bulle;
};
constexpr std::array<BoutonGestion, 3> Gestions{{{"&Copier...", "Copier cette table sous un autre nom"},
                                                 {"&Renommer...", "Donner un autre nom à cette table"},
                                                 {"&Supprimer...", "Supprimer cette table"}}};

}  // namespace

F_ParamMachine::F_ParamMachine(QWidget* parent) : QDialog(parent) {
  setModal(false);
  controles_ = new ControlesTable(this);
  suivi_ = new QTimer(this);
  suivi_->setInterval(PeriodeSuivi);
  connect(suivi_, &QTimer::timeout, this, &F_ParamMachine::SuitMachine);
  Construit();
  PrepareFenetre(*this, FenetreParametres);
}

F_ParamMachine::~F_ParamMachine() {
  if (ouverte_) TableOuverte = AccesTable{};
}

void F_ParamMachine::Construit() {
  setWindowTitle(QStringLiteral("Paramètres de la machine"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->addLayout(RangeeTable());
  SSTab1_ = Nomme(new QTabWidget(this), "SSTab1");
  SSTab1_->setUsesScrollButtons(false);  // every page is in sight
  sorties_ = new PageSorties(*controles_);
  essai_ = new PageEssai(*controles_);
  SSTab1_->addTab(PageMecanique(*controles_), QStringLiteral("Mécanique"));
  SSTab1_->addTab(PageVitesses(*controles_), QStringLiteral("Vitesses"));
  SSTab1_->addTab(PageCourses(*controles_), QStringLiteral("Courses"));
  SSTab1_->addTab(sorties_, QStringLiteral("Sorties"));
  SSTab1_->addTab(PageCarte(*controles_), QStringLiteral("Carte"));
  SSTab1_->addTab(essai_, QStringLiteral("Essais"));
  boite->addWidget(SSTab1_, 1);
  connect(essai_, &PageEssai::EnCours, this, &F_ParamMachine::SuitMachine);

  Frame_Avancement_ = Etiquette("Frame_Avancement", QStringLiteral("Enregistrement..."));
  QSizePolicy place = Frame_Avancement_->sizePolicy();
  place.setRetainSizeWhenHidden(true);
  Frame_Avancement_->setSizePolicy(place);
  Frame_Avancement_->hide();
  Btn_Fermer_ = Bouton("Btn_Fermer", "Fermer", "Enregistrer la table et fermer la fenêtre", this);
  Btn_Fermer_->setAutoDefault(false);
  connect(Btn_Fermer_, &QPushButton::clicked, this, &F_ParamMachine::close);
  auto* bas = new QHBoxLayout;
  bas->addWidget(Frame_Avancement_);
  bas->addLayout(RangeeBoutons({Btn_Fermer_}), 1);
  boite->addLayout(bas);
}

QLayout* F_ParamMachine::RangeeTable() {
  auto* rangee = new QHBoxLayout;
  Combo_Table_ = Liste("Combo_Table", "Table des paramètres en vigueur", this);
  Combo_Table_->setProperty("texteLibre", true);
  Combo_Table_->setSizeAdjustPolicy(QComboBox::AdjustToContents);
  connect(Combo_Table_, &QComboBox::textActivated, this, &F_ParamMachine::Combo_Table_Click);
  rangee->addWidget(Etiquette("Lbl_Table", "&Table :", Combo_Table_));
  rangee->addWidget(Combo_Table_, 1);
  for (int i = 0; i < 3; ++i) {
    const BoutonGestion& g = Gestions[static_cast<std::size_t>(i)];
    QPushButton* bouton = Bouton(QStringLiteral("Cmd_Gestion_%1").arg(i + 1), QString::fromUtf8(g.texte),
                                 QString::fromUtf8(g.bulle), this);
    bouton->setAutoDefault(false);
    connect(bouton, &QPushButton::clicked, this, [this, i] { Cmd_Gestion_Click(i + 1); });
    rangee->addWidget(bouton);
    Cmd_Gestion_[i] = bouton;
  }
  return rangee;
}

void F_ParamMachine::Form_Load() {
  ouverte_ = true;
  Svc.Timer_Interro(false);
  TableOuverte.Lit = [this](const ChampMachine& champ) { return controles_->Texte(champ); };
  TableOuverte.Pose = [this](const ChampMachine& champ, const std::string& texte) {
    controles_->Pose(champ, texte);
  };
  sorties_->Traduit();
  essai_->CarteVirtuelle(LaCarte.genre == GenreCarte::Virtuelle && FenetreExiste &&
                         FenetreExiste("F_CarteVirtuelle"));
  chargee_ = TableDefaut;
  controles_->Montre(Chargt_Table(chargee_));
  essai_->Montre(LitChampsEssai());
  RemplitTables();
  SuitMachine();
  suivi_->start();
  Combo_Table_->setFocus();
}

void F_ParamMachine::RemplitTables() {
  const QSignalBlocker muet(Combo_Table_);
  Combo_Table_->clear();
  for (const std::string& nom : ListeTables()) Combo_Table_->addItem(QString::fromStdString(nom));
  Combo_Table_->setCurrentText(QString::fromStdString(TableDefaut));
}

void F_ParamMachine::ChargeTable(const std::string& nom) {
  ChampsTable champs = controles_->Lit();
  if (ChoisitTableFenetre(chargee_, nom, champs)) {
    chargee_ = nom;
    controles_->Montre(champs);
  }
  RemplitTables();
}

void F_ParamMachine::Combo_Table_Click(const QString& nom) {
  if (nom.toStdString() != chargee_) ChargeTable(nom.toStdString());
}

void F_ParamMachine::Cmd_Gestion_Click(int index) {
  ChampsTable champs = controles_->Lit();
  if (GereTableFenetre(static_cast<GestionTable>(index), champs)) {
    chargee_ = ListeTables().empty() ? std::string() : TableDefaut;
    controles_->Montre(champs);
  }
  RemplitTables();
}

// In a test all but the test waits; in somebody else's run everything does.
void F_ParamMachine::SuitMachine() {
  const bool libre = !TestEnCours && !RunActif;
  Combo_Table_->setEnabled(libre);
  for (QPushButton* bouton : Cmd_Gestion_) bouton->setEnabled(libre);
  for (int i = 0; i < SSTab1_->count(); ++i) {
    SSTab1_->setTabEnabled(i, libre || (TestEnCours && SSTab1_->widget(i) == essai_));
  }
}

// Another window may have put another table in force meanwhile.
void F_ParamMachine::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() != QEvent::ActivationChange || !isActiveWindow() || !ouverte_ || ferme_) return;
  if (!TestEnCours && !RunActif && chargee_ != TableDefaut) ChargeTable(TableDefaut);
}

void F_ParamMachine::done(int resultat) {
  if (TestEnCours) return Svc.Bip();
  if (ferme_) return;
  const QScopedValueRollback<bool> garde(ferme_, true);
  if (ouverte_) Ferme();
  QDialog::done(resultat);
}

void F_ParamMachine::Ferme() {
  Btn_Fermer_->setFocus();  // the field that has the keyboard is left first
  suivi_->stop();
  ArreteMouvement();
  EcritChampsEssai(essai_->Lit());
  Frame_Avancement_->show();
  Frame_Avancement_->repaint();
  FermeTableFenetre(chargee_, controles_->Lit());
  Frame_Avancement_->hide();
  TableOuverte = AccesTable{};
  ouverte_ = false;
  Svc.Timer_Interro(true);
}

}  // namespace ovelin
