#include "gcode/ui/F_Gcode.h"

#include <QButtonGroup>
#include <QEvent>
#include <QHeaderView>
#include <QSplitter>
#include <QTableView>
#include <utility>

#include "controller/ClsCdeZENIK.h"
#include "core/Cles.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/AvisRun.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"
#include "gcode/Module_FraisageGcode.h"
#include "gcode/Module_Gcode.h"
#include "gcode/ui/ImageProgramme.h"
#include "gcode/ui/ModeleProgramme.h"
#include "machine/Module_Table.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Gcode";

struct BoutonVue {
  const char* texte;
  const char* bulle;
};
constexpr std::array<BoutonVue, 4> Vues{{{"&Dessus", "Vue de dessus"},
                                         {"&Face", "Vue de face"},
                                         {"&Côté", "Vue de côté"},
                                         {"&Espace", "Vue dans l'espace ; le bouton gauche la tourne"}}};

QString Deux(double v) { return QString::fromStdString(Formate(v, "0.00")); }

}  // namespace

F_Gcode::F_Gcode(QWidget* parent) : QDialog(parent) {
  setModal(false);
  setWindowFlag(Qt::WindowMaximizeButtonHint);
  Construit();
  PrepareFenetre(*this, Section);
  connect(&AvisRun::Unique(), &AvisRun::Change, this, [this] { MontreRun(fraise_); });
  MontreMesure();
  mnu_Ouvrir_->setFocus();
}

F_Gcode::~F_Gcode() { MontreDevant(false); }

void F_Gcode::Construit() {
  setWindowTitle(QStringLiteral("Atelier GCODE"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  mnu_Ouvrir_ = Bouton("mnu_Ouvrir", "&Ouvrir...", "Ouvrir un fichier GCODE", this);
  mnu_Ouvrir_->setAutoDefault(false);
  connect(mnu_Ouvrir_, &QPushButton::clicked, this, [this] {
    const std::string choisi = ChoisitProgramme();
    if (!choisi.empty()) Ouvre(choisi);
  });
  Combo_Table_ = Liste("Combo_Table", "Table dont la course et les vitesses valent pour le programme", this);
  connect(Combo_Table_, &QComboBox::textActivated, this, &F_Gcode::Combo_Table_Click);
  mnu_Fraisage_ =
      Bouton("mnu_Fraisage", "&Fraiser", "Lancer le programme sur la machine, à partir de sa place", this);
  mnu_Fraisage_->setAutoDefault(false);
  connect(mnu_Fraisage_, &QPushButton::clicked, this, &F_Gcode::mnu_Fraisage_Click);
  Btn_Stop_ = Bouton("Btn_Stop", "&Arrêter", "Arrêter par la rampe, puis la broche", this);
  Btn_Stop_->setAutoDefault(false);
  connect(Btn_Stop_, &QPushButton::clicked, this, [] { StopDemande = Vrai; });
  Btn_Reprise_ = Bouton("Btn_Reprise", "&Reprendre", "Continuer après le changement d'outil ou un arrêt", this);
  Btn_Reprise_->setAutoDefault(false);
  connect(Btn_Reprise_, &QPushButton::clicked, this, &F_Gcode::Btn_Reprise_Click);
  auto* haut = new QHBoxLayout;
  haut->addWidget(mnu_Ouvrir_);
  haut->addWidget(mnu_Fraisage_);
  haut->addWidget(Btn_Stop_);
  haut->addWidget(Btn_Reprise_);
  haut->addStretch();
  haut->addWidget(Etiquette("Lbl_Table", "&Table machine :", Combo_Table_));
  haut->addWidget(Combo_Table_);
  boite->addLayout(haut);

  auto* partage = new QSplitter(Qt::Horizontal, this);
  partage->setChildrenCollapsible(false);
  partage->addWidget(ConstruitListe());
  partage->addWidget(ConstruitVue());
  partage->setStretchFactor(0, 2);
  partage->setStretchFactor(1, 3);
  boite->addWidget(partage, 1);

  Lbl_Avis_ = Phrase("Lbl_Avis", "", this);
  Lbl_Avis_->setTextFormat(Qt::PlainText);
  Lbl_Avis_->setProperty("texteLibre", true);
  boite->addWidget(Lbl_Avis_);
  Lbl_Bornes_ = Valeur("Lbl_Bornes", {}, this);
  boite->addWidget(Lbl_Bornes_);
  OrdreTab({mnu_Ouvrir_, mnu_Fraisage_, Btn_Stop_, Btn_Reprise_, Combo_Table_, LV1_, Option_Vue_[0], Option_Vue_[1],
            Option_Vue_[2], Option_Vue_[3], CB_Rapides_, Btn_Ajuster_, CB_Refusees_});
}

QWidget* F_Gcode::ConstruitListe() {
  auto* volet = new QWidget(this);
  auto* colonne = new QVBoxLayout(volet);
  colonne->setContentsMargins(0, 0, 0, 0);
  modele_ = new ModeleProgramme(this);
  LV1_ = Nomme(new QTableView(this), "LV1", "Commentaires en gris, lignes refusées en rouge, douteuses en ambre");
  LV1_->setModel(modele_);
  LV1_->setAccessibleName(TexteQt(Textes::NomLignesGcode));
  LV1_->setSelectionBehavior(QAbstractItemView::SelectRows);
  LV1_->setSelectionMode(QAbstractItemView::SingleSelection);
  LV1_->setShowGrid(false);
  LV1_->setWordWrap(false);
  LV1_->setTabKeyNavigation(false);
  LV1_->verticalHeader()->hide();
  LV1_->verticalHeader()->setSectionResizeMode(QHeaderView::Fixed);
  LV1_->verticalHeader()->setDefaultSectionSize(fontMetrics().height() + 4);
  LV1_->horizontalHeader()->setSectionResizeMode(ModeleProgramme::Texte, QHeaderView::Stretch);
  LV1_->setMinimumWidth(fontMetrics().horizontalAdvance(QString(34, QLatin1Char('0'))));
  AjusteColonnes();
  colonne->addWidget(LV1_, 1);
  Lbl_Comptes_ = Phrase("Lbl_Comptes", "", this);
  Lbl_Comptes_->setProperty("texteLibre", true);
  colonne->addWidget(Lbl_Comptes_);
  CB_Refusees_ = Coche("CB_Refusees", "&Lignes refusées seulement",
                       "Ne montrer que les lignes ni valides ni de commentaire", this);
  connect(CB_Refusees_, &QCheckBox::toggled, modele_, &ModeleProgramme::Filtre);
  colonne->addWidget(CB_Refusees_);
  return volet;
}

// Numbers have the room of the longest there can be, the text has the rest.
void F_Gcode::AjusteColonnes() {
  constexpr qsizetype ChiffresMini = 5;
  const qsizetype chiffres = std::max(ChiffresMini, QString::number(programme_.NombreLignes()).size());
  const int largeur = fontMetrics().horizontalAdvance(QString(chiffres + 2, QLatin1Char('0')));
  LV1_->horizontalHeader()->resizeSection(ModeleProgramme::Numero, largeur);
  LV1_->horizontalHeader()->resizeSection(ModeleProgramme::Mouvement, largeur);
}

QWidget* F_Gcode::ConstruitVue() {
  auto* volet = new QWidget(this);
  auto* colonne = new QVBoxLayout(volet);
  colonne->setContentsMargins(0, 0, 0, 0);
  PB1_ = new ImageProgramme(this);
  auto* groupe = new QButtonGroup(this);
  auto* rangee = new QHBoxLayout;
  rangee->setSpacing(2);
  for (std::size_t i = 0; i < Vues.size(); ++i) {
    QToolButton* bouton =
        BoutonChoix(QStringLiteral("Option_Vue_%1").arg(i), QString::fromUtf8(Vues[i].texte), this);
    bouton->setToolTip(QString::fromUtf8(Vues[i].bulle));
    groupe->addButton(bouton);
    rangee->addWidget(bouton);
    Option_Vue_[i] = bouton;
    connect(bouton, &QToolButton::clicked, this, [this, i] { PB1_->Vue(static_cast<VueProgramme>(i)); });
  }
  connect(PB1_, &ImageProgramme::VueChangee, this, &F_Gcode::SuitVue);
  connect(PB1_, &ImageProgramme::Deplacee, this, &F_Gcode::Titre);
  SuitVue();
  rangee->addStretch();
  CB_Rapides_ = Coche("CB_Rapides", "Déplacements &rapides", "Montrer aussi les déplacements rapides", this);
  CB_Rapides_->setChecked(true);
  connect(CB_Rapides_, &QCheckBox::toggled, PB1_, &ImageProgramme::Rapides);
  rangee->addWidget(CB_Rapides_);
  Btn_Ajuster_ = Bouton("Btn_Ajuster", "Tout &voir", "Revenir à la vue entière", this);
  Btn_Ajuster_->setAutoDefault(false);
  connect(Btn_Ajuster_, &QPushButton::clicked, PB1_, &ImageProgramme::Ajuste);
  rangee->addWidget(Btn_Ajuster_);
  colonne->addLayout(rangee);
  colonne->addWidget(PB1_, 1);
  return volet;
}

void F_Gcode::Form_Load() {
  RemplitTables();
  PB1_->Traduit();
  LV1_->setAccessibleName(TexteQt(Textes::NomLignesGcode));
  modele_->Papier(LV1_->palette().color(QPalette::Base));
  MontreMesure();
  const std::string demande = std::exchange(FichierAMontrer, "");
  if (!demande.empty()) Ouvre(demande);
}

void F_Gcode::RemplitTables() {
  const QSignalBlocker muet(Combo_Table_);
  Combo_Table_->clear();
  for (const std::string& nom : ListeTables()) Combo_Table_->addItem(QString::fromStdString(nom));
  Combo_Table_->setCurrentText(QString::fromStdString(Regl.TableDefaut));
}

// The limits of the table hold at once, and a board that has it takes it as its default; its name goes to the
// settings file, never to a project.
void F_Gcode::Combo_Table_Click(const QString& nom) {
  const SansProjet reglages;
  ChoisitTable(nom.toStdString());
  CdeZENIK->SuitTable();
  MontreAvis();
}

void F_Gcode::Ouvre(const std::string& chemin) {
  if (fraise_) {
    Svc.Bip();
    return;
  }
  const Passe passe;
  Programme lu;
  if (!OuvreProgramme(chemin, lu)) return;
  modele_->Montre(nullptr);
  PB1_->Montre(nullptr);
  programme_ = std::move(lu);
  fichier_ = chemin;
  OublieGcode();
  mesure_ = AnalyseProgramme(programme_);
  if (!devant_) RetablitBornes();
  modele_->Montre(&programme_);
  AjusteColonnes();
  PB1_->Montre(&mesure_);
  MontreMesure();
}

void F_Gcode::MontreMesure() {
  const ComptesProgramme& c = programme_.Comptes();
  QStringList parties{QStringLiteral("%1 ").arg(programme_.NombreLignes()) + TexteQt(Textes::GcodeLignes)};
  const auto ajoute = [&](std::size_t n, CleTexte texte) {
    if (n > 0) parties += QStringLiteral("%1 ").arg(n) + TexteQt(texte);
  };
  ajoute(c.valides, Textes::GcodeValides);
  ajoute(c.douteuses, Textes::GcodeDouteuses);
  ajoute(c.commentaires, Textes::GcodeCommentaires);
  ajoute(c.refusees, Textes::GcodeRefusees);
  Lbl_Comptes_->setText(programme_.Vide() ? QString() : parties.join(QStringLiteral(", ")));
  CB_Refusees_->setEnabled(c.refusees > 0 || CB_Refusees_->isChecked());
  const BornesProgramme& b = mesure_.bornes;
  Lbl_Bornes_->setText(
      QStringLiteral("Xmax : %1    Ymax : %2    Zmax : %3").arg(Deux(b.Xmax), Deux(b.Ymax), Deux(b.Zmax)));
  MontreAvis();
  Titre({});
  MontreRun(false);
}

void F_Gcode::MontreAvis() {
  QStringList avis;
  for (const std::string& texte : {TexteSansVitesse(mesure_), TexteHorsCourse(mesure_)}) {
    if (!texte.empty()) avis += QString::fromStdString(texte);
  }
  Lbl_Avis_->setText(avis.join(QLatin1Char('\n')));
  Lbl_Avis_->setVisible(!avis.isEmpty());
}

void F_Gcode::mnu_Fraisage_Click() { Fraise(false); }

void F_Gcode::Btn_Reprise_Click() {
  if (attendOutil_) {
    ReprendOutil();
  } else {
    Fraise(true);
  }
}

// The window lives on while the machine works: buttons set flags, and closing only hides it.
void F_Gcode::Fraise(bool reprise) {
  if (fraise_ || programme_.Vide()) return;
  fraise_ = true;
  MontreRun(true);
  if (!reprise) modele_->EffaceMouvements();
  Vue_Gcode.Mouvement = [this](std::size_t ligne, std::uint32_t numero) {
    modele_->Mouvements(ligne, numero);
    const int rangee = modele_->RangeeDe(ligne);
    if (rangee >= 0) LV1_->scrollTo(modele_->index(rangee, ModeleProgramme::Texte));
  };
  Vue_Gcode.AttendOutil = [this](bool attend) {
    attendOutil_ = attend;
    MontreRun(true);
  };
  Vue_Gcode.Outil = [this](const Lieu& lieu) { PB1_->Outil(lieu); };
  if (reprise) {
    ReprendGcode(programme_, mesure_);
  } else {
    LanceGcode(programme_, mesure_);
  }
  Vue_Gcode = VueGcode{};
  fraise_ = attendOutil_ = false;
  MontreRun(false);
}

void F_Gcode::MontreRun(bool enCours) {
  const bool ailleurs = AvisRun::Unique().EnCours() && !enCours;  // the machine works for somebody else
  mnu_Ouvrir_->setEnabled(!enCours);
  Combo_Table_->setEnabled(!enCours && !ailleurs);
  mnu_Fraisage_->setEnabled(!enCours && !ailleurs && !programme_.Vide());
  mnu_Fraisage_->setText(enCours ? QStringLiteral("...")
                                 : TraduireOu(Section, QStringLiteral("mnu_Fraisage"), QStringLiteral("&Fraiser")));
  Btn_Stop_->setEnabled(enCours);
  Btn_Reprise_->setVisible(attendOutil_ || (!enCours && ResteGcode()));
}

void F_Gcode::SuitVue() { Option_Vue_[static_cast<std::size_t>(PB1_->Vue())]->setChecked(true); }

void F_Gcode::Titre(const QString& deplacement) {
  const QString nom = TraduireOu(Section, QStringLiteral("0"), QStringLiteral("Atelier GCODE"));
  if (!deplacement.isEmpty()) {
    setWindowTitle(deplacement);
  } else {
    setWindowTitle(fichier_.empty() ? nom : nom + QStringLiteral(" - ") + QString::fromStdString(NomDe(fichier_)));
  }
}

// The bounds in force are those of the program while this window is in front, else those of the drawing.
void F_Gcode::MontreDevant(bool devant) {
  if (devant == devant_) return;
  devant_ = devant;
  if (programme_.Vide()) return;
  if (devant) {
    PlaceBornes(mesure_.bornes);
  } else {
    RetablitBornes();
  }
}

void F_Gcode::changeEvent(QEvent* e) {
  if (e->type() == QEvent::ActivationChange) MontreDevant(isActiveWindow());
  if (e->type() == QEvent::PaletteChange && modele_ != nullptr) {
    modele_->Papier(LV1_->palette().color(QPalette::Base));
  }
  QDialog::changeEvent(e);
}

QSize F_Gcode::sizeHint() const { return {980, 620}; }

void F_Gcode::done(int resultat) {
  MontreDevant(false);
  QDialog::done(resultat);
}

}  // namespace ovelin
