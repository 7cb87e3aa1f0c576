#include "run/ui/F_Fraisage.h"

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>
#include <utility>

#include "controller/ChoixCarte.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Textes.h"
#include "core/ui/AvisRun.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/TraduitFenetre.h"
#include "run/Module_Lancement.h"
#include "run/ui/PanneauNC.h"
#include "run/ui/PanneauOutil.h"
#include "run/ui/PanneauPlan.h"
#include "run/ui/PanneauRun.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Fraisage";
constexpr int DelaiMoteur = 30'000;  // ms behind the end of a job
constexpr int PeriodeCarte = 1000;   // ms between two looks for a lost board

const QColor Rouge(150, 20, 20), Vert(0, 127, 0);

// A key that an entry consists of, or that is none by itself; every other one stops the machine.
bool Saisit(const QKeyEvent& touche) {
  switch (touche.key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
    case Qt::Key_Shift:
    case Qt::Key_Control:
    case Qt::Key_Alt:
    case Qt::Key_AltGr:
    case Qt::Key_Meta:
    case Qt::Key_CapsLock:
    case Qt::Key_NumLock:
    case Qt::Key_Backspace:
      return true;
    default:
      break;
  }
  const QString texte = touche.text();
  return texte.size() == 1 && TouchesNumeriques.find(texte[0].toLatin1()) != std::string_view::npos;
}

}  // namespace

F_Fraisage::F_Fraisage(QWidget* parent) : QDialog(parent) {
  setModal(false);
  Construit();
  PrepareFenetre(*this, Section);
  Form_Load();
  RetablitPlace();
  nc_->Bouton()->setFocus();
  qApp->installEventFilter(this);
}

F_Fraisage::~F_Fraisage() {
  if (fraise_) Vue_Decoupe = VueDecoupe{};
}

void F_Fraisage::Construit() {
  setWindowTitle(QStringLiteral("Fraisage"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  Lbl_Virtuelle_ =
      Phrase("Lbl_Virtuelle", "Carte virtuelle : le travail est simulé, aucune machine ne bouge.", this);
  Lbl_Virtuelle_->setStyleSheet(
      QStringLiteral("background: #f5c518; color: black; padding: 5px; border-radius: 4px; font-weight: bold;"));
  boite->addWidget(Lbl_Virtuelle_);

  auto* gauche = new QVBoxLayout;
  outil_ = new PanneauOutil(this);
  gauche->addWidget(outil_);
  QGroupBox* vitesses = Groupe("Frame_Vitesses", "Vitesses", this);
  vitesses->setLayout(ConstruitVitesses());
  gauche->addWidget(vitesses);
  plan_ = new PanneauPlan(this);
  gauche->addWidget(plan_);
  gauche->addStretch();
  auto* droite = new QVBoxLayout;
  run_ = new PanneauRun(this);
  droite->addWidget(run_);
  nc_ = new PanneauNC(this);
  droite->addWidget(nc_);
  droite->addStretch();
  auto* colonnes = new QHBoxLayout;
  colonnes->addLayout(gauche, 1);
  colonnes->addLayout(droite, 1);
  boite->addLayout(colonnes);
  boite->addStretch();

  Btn_Fermer_ = Bouton("Btn_Fermer", "Fermer", "Fermer la fenêtre", this);
  Btn_Fermer_->setAutoDefault(false);
  boite->addLayout(RangeeBoutons({Btn_Fermer_}));
  Ordonne();

  connect(Btn_Fermer_, &QPushButton::clicked, this, &F_Fraisage::reject);
  connect(plan_, &PanneauPlan::Mende, this, &F_Fraisage::Mende);
  connect(outil_, &PanneauOutil::Change, this, [this] {
    Planifie(false);
    run_->GriseTemps();
  });
  connect(nc_, &PanneauNC::EcritureChange, this, &F_Fraisage::MontreRun);
  nc_->Vitesses = [this] { return std::pair{TB_Vit_Mat_H_->Texte(), TB_Vit_Mat_V_->Texte()}; };
  connect(run_, &PanneauRun::Lance, this, &F_Fraisage::Btn_Fraiser_Serie_Click);
  connect(run_, &PanneauRun::Arrete, this, [] { ArreteFraisage(); });
  connect(run_, &PanneauRun::Abandonne, this, &F_Fraisage::Btn_Abandon_Click);
  connect(run_, &PanneauRun::Essaie, this, [this] { Execute([] { return EssaiFlash(); }); });
  connect(run_, &PanneauRun::Mode, this, [](int mode) { ChoisitMode(mode); });
  connect(&AvisRun::Unique(), &AvisRun::Change, this, &F_Fraisage::MontreRun);
  Timer_MotorOff_.setParent(this);
  Timer_MotorOff_.setObjectName(QStringLiteral("Timer_MotorOff"));
  Timer_MotorOff_.setSingleShot(true);
  Timer_MotorOff_.setInterval(DelaiMoteur);
  connect(&Timer_MotorOff_, &QTimer::timeout, this, &F_Fraisage::Timer_MotorOff_Timer);
  Timer_Carte_.setParent(this);
  Timer_Carte_.setObjectName(QStringLiteral("Timer_Carte"));
  Timer_Carte_.setInterval(PeriodeCarte);
  connect(&Timer_Carte_, &QTimer::timeout, this, &F_Fraisage::AttendCarte_Timer);
}

void F_Fraisage::Ordonne() {
  std::vector<QWidget*> ordre = outil_->Champs();
  ordre.push_back(TB_Vit_Mat_H_);
  ordre.insert(ordre.end(), CB_VitMat_.begin(), CB_VitMat_.end());
  ordre.push_back(TB_Vit_Mat_V_);
  for (const std::vector<QWidget*>& suite : {run_->Controles(), nc_->Controles()}) {
    ordre.insert(ordre.end(), suite.begin(), suite.end());
  }
  ordre.push_back(Btn_Fermer_);
  for (std::size_t i = 1; i < ordre.size(); ++i) setTabOrder(ordre[i - 1], ordre[i]);
}

QLayout* F_Fraisage::ConstruitVitesses() {
  TB_Vit_Mat_H_ = Champ("TB_Vit_Mat_H", "mm/s", "Avance de l'outil dans la matière", this);
  TB_Vit_Mat_V_ = Champ("TB_Vit_Mat_V", "mm/s", "Vitesse de l'outil quand il descend dans la matière", this);
  auto* pas = new QHBoxLayout;
  pas->setSpacing(2);
  static constexpr std::array<const char*, 4> Textes{"-1", "-0,1", "+0,1", "+1"};
  for (int index = 1; index <= 4; ++index) {
    const auto i = static_cast<std::size_t>(index) - 1;
    auto* bouton = new QToolButton(this);
    bouton->setObjectName(QStringLiteral("CB_VitMat_%1").arg(index));
    QString texte = QString::fromLatin1(Textes[i]);
    if (Svc.MarqueDecimale == '.') texte.replace(QLatin1Char(','), QLatin1Char('.'));
    bouton->setText(texte);
    bouton->setFocusPolicy(Qt::StrongFocus);
    bouton->setToolTip(TexteQt(Textes::NomPasVitesse) + QLatin1Char(' ') + texte + QStringLiteral(" mm/s"));
    bouton->setAccessibleName(TexteQt(Textes::NomPasVitesse) + QLatin1Char(' ') + texte);
    bouton->setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
    connect(bouton, &QToolButton::clicked, this, [this, index] { Pas(index); });
    CB_VitMat_[i] = bouton;
    pas->addWidget(bouton);
  }
  QGridLayout* grille = GrilleFenetre();
  grille->setContentsMargins(8, 6, 8, 8);
  grille->addWidget(Etiquette("Lbl_Vit_Mat_H", "Vitesse &matière :", TB_Vit_Mat_H_), 0, 0);
  grille->addWidget(TB_Vit_Mat_H_, 0, 1);
  grille->addWidget(EquivalentDe(*TB_Vit_Mat_H_, SorteEquivalent::ParMinute), 0, 2);
  grille->addLayout(pas, 0, 3);
  grille->addWidget(Etiquette("Lbl_Vit_Mat_V", "Vitesse &descente :", TB_Vit_Mat_V_), 1, 0);
  grille->addWidget(TB_Vit_Mat_V_, 1, 1);
  grille->addWidget(EquivalentDe(*TB_Vit_Mat_V_, SorteEquivalent::ParMinute), 1, 2);
  grille->setColumnStretch(1, 1);
  connect(TB_Vit_Mat_H_, &ChampNombre::Quitte, this, [this](bool c) { VitesseQuitte(*TB_Vit_Mat_H_, c); });
  connect(TB_Vit_Mat_V_, &ChampNombre::Quitte, this, [this](bool c) { VitesseQuitte(*TB_Vit_Mat_V_, c); });
  return grille;
}

// The window comes back where it was, as far as a screen shows that place.
void F_Fraisage::RetablitPlace() {
  const auto place = LitPlaceFraisage();
  if (place) PlaceSurEcran(*this, {place->first, place->second});
}

void F_Fraisage::Form_Load() {
  if (!OperationCarte) ChargeFraisage();
  if (!fraise_ && TableReprise.empty()) Colore(Fond::Systeme);
  TB_Vit_Mat_H_->Montre(TexteNombre(Vitesse_Mat_H));
  TB_Vit_Mat_V_->Montre(TexteNombre(Vitesse_Mat_V));
  run_->MontreMode(ModeChoisi());
  nc_->MontreDialectes();
  Lbl_Virtuelle_->setVisible(LaCarte.genre == GenreCarte::Virtuelle);
  Suit();
}

// The drawing, its tool and its speeds can be changed in other windows while this one is open.
void F_Fraisage::Suit() {
  run_->MontreCarte();
  outil_->Suit();
  MontreRun();
  if (!PlanPermis() || empreinte_ == EmpreintePlan()) return;
  if (!TB_Vit_Mat_H_->hasFocus() && !TB_Vit_Mat_H_->EstRefuse()) TB_Vit_Mat_H_->Montre(TexteNombre(Vitesse_Mat_H));
  if (!TB_Vit_Mat_V_->hasFocus() && !TB_Vit_Mat_V_->EstRefuse()) TB_Vit_Mat_V_->Montre(TexteNombre(Vitesse_Mat_V));
  Planifie(false);
  run_->GriseTemps();
}

// --- the plan

void F_Fraisage::VitesseQuitte(ChampNombre& champ, bool change) {
  if (!change) return;
  const bool h = &champ == TB_Vit_Mat_H_;
  const auto refus = h ? EntreVit_Mat_H(champ.Texte()) : EntreVit_Mat_V(champ.Texte());
  if (refus) {
    champ.Refuse(TexteQt(*refus));
    return;
  }
  champ.Accepte();
  champ.Montre(TexteNombre(h ? Vitesse_Mat_H : Vitesse_Mat_V));
  Planifie(true);
}

void F_Fraisage::Pas(int index) {
  const std::string texte = PasVit_Mat_H(TB_Vit_Mat_H_->Texte(), index);
  TB_Vit_Mat_H_->Accepte();
  TB_Vit_Mat_H_->Montre(texte);
  EntreVit_Mat_H(texte);
  Planifie(true);
}

// What a warning names is mended by its button, and every field shows what is in force then; or its field is
// opened.
void F_Fraisage::Mende(const Remede& remede) {
  if (OperationCarte) return Svc.Bip();
  if (const char* nom = ChampDuRemede(remede)) {
    auto* champ = findChild<ChampNombre*>(QLatin1String(nom));
    champ->setFocus(Qt::OtherFocusReason);
    return champ->selectAll();
  }
  if (!Remedie(remede)) return;
  TB_Vit_Mat_H_->Accepte();
  TB_Vit_Mat_H_->Montre(TexteNombre(Vitesse_Mat_H));
  outil_->Suit();
  Planifie(true);
}

// AfficheTempsPrevu where `prevoit`. While the machine works the time on show only turns grey.
void F_Fraisage::Planifie(bool prevoit) {
  if (!PlanPermis()) return run_->GriseTemps();
  QGuiApplication::setOverrideCursor(Qt::WaitCursor);
  const ResumePlan resume = PlanifiePourFenetre(prevoit);
  QGuiApplication::restoreOverrideCursor();
  empreinte_ = EmpreintePlan();
  plan_->Montre(resume);
  nc_->MontrePlan(resume.figures);
  if (prevoit) run_->MontrePrevu(resume.prevu);
}

// --- the run

void F_Fraisage::Btn_Fraiser_Serie_Click() {
  vitesse_ = TB_Vit_Mat_H_->Texte();
  if (TableReprise.empty()) {
    Execute([this] { return LanceFraisage(vitesse_, static_cast<std::uint8_t>(ModeChoisi())); });
  } else {
    Execute([this] { return ReprendFraisage(vitesse_); });
  }
}

// The window lives on while the machine works: its buttons set flags, and closing it only hides it.
void F_Fraisage::Execute(const std::function<bool()>& quoi) {
  if (fraise_ || Ecrit()) return;
  Timer_MotorOff_.stop();
  fraise_ = true;
  touche_ = termine_ = false;
  PoseVue();
  const bool lance = quoi();
  Vue_Decoupe = VueDecoupe{};
  fraise_ = ecrit_ = false;
  termine_ = lance && StopDemande == Faux;
  if (termine_) {
    Colore(Fond::Vert);
    run_->CacheTemps();
    Timer_MotorOff_.start();
  }
  if (AttendCarte) Timer_Carte_.start();
  MontreRun();
  if (touche_) Planifie(true);
}

void F_Fraisage::PoseVue() {
  Vue_Decoupe.Debut = [this](double total) { run_->Debut(total); };
  Vue_Decoupe.Avance = [this](double reste, double ecoule) { run_->Avance(reste, ecoule); };
  Vue_Decoupe.Memorise = [this](bool ecrit) {
    ecrit_ = ecrit;
    run_->Memorise(ecrit);
    MontreRun();
  };
  Vue_Decoupe.Face = [this](FaceFraisage face) {
    if (face == FaceFraisage::Arret) {
      TB_Vit_Mat_H_->Montre(vitesse_);  // the question may have lowered it
      Colore(Fond::Rouge);
    }
    MontreRun();
  };
}

void F_Fraisage::Btn_Abandon_Click() {
  AbandonneFraisage();
  Timer_Carte_.stop();
  termine_ = false;
  run_->CacheTemps();
  Colore(Fond::Vert);
  MontreRun();
}

// What can be pressed, and what is said of the run.
void F_Fraisage::MontreRun() {
  const bool occupee = AvisRun::Unique().EnCours() || fraise_ || Ecrit();
  const bool reprise = !fraise_ && !TableReprise.empty();
  const FaceFraisage face = fraise_ && RunActif ? FaceFraisage::Arret
                            : reprise           ? FaceFraisage::Reprise
                                                : FaceFraisage::Depart;
  const bool libre = face == FaceFraisage::Arret || (!occupee && !AttendCarte && !PlacePerdue);
  run_->MontreFace(face, libre, reprise && !occupee);
  run_->Permet(!occupee && !reprise);
  run_->MontreEtat(TexteEtat());
  outil_->setEnabled(!occupee);
  plan_->Permet(!occupee);
  TB_Vit_Mat_V_->setEnabled(!occupee);
  nc_->setEnabled(!occupee || Ecrit());
  nc_->Bouton()->setEnabled(!occupee);
  Btn_Fermer_->setEnabled(!Ecrit());
  TB_Vit_Mat_H_->setEnabled(!Ecrit());
  for (QToolButton* bouton : CB_VitMat_) bouton->setEnabled(!Ecrit());
}

QString F_Fraisage::TexteEtat() const {
  if (fraise_ && RunActif) return TexteQt(ecrit_ ? Textes::RunEcrit : Textes::RunEnCours);
  if (AttendCarte) return TexteQt(Textes::RunAttente);
  if (PlacePerdue) return TexteQt(Textes::PlaceDeLaCartePerdue);
  if (AvisRun::Unique().EnCours()) return TexteQt(Textes::RunAutre);
  if (!TableReprise.empty()) return TexteQt(Textes::RunArrete);
  return termine_ ? TexteQt(Textes::RunTermine) : QString();
}

// Labels on a coloured ground are white; fields and buttons keep the colours of the system.
void F_Fraisage::Colore(Fond fond) {
  if (std::exchange(fond_, fond) == fond) return;
  // What is only shown has no ground of its own: it is written as labels are.
  run_->EcritTempsEn(fond == Fond::Systeme ? QColor() : QColor(Qt::white));
  for (const char* nom : {"TB_LongueurParcours_NC", "TB_TempsFraisage_NC"}) {
    auto* champ = findChild<QLineEdit*>(QLatin1String(nom));
    QPalette p = champ->palette();
    p.setColor(QPalette::Text, fond == Fond::Systeme ? QApplication::palette().color(QPalette::Text) : Qt::white);
    champ->setPalette(p);
  }
  if (fond == Fond::Systeme) return setPalette({});
  QPalette palette;
  palette.setColor(QPalette::Window, fond == Fond::Rouge ? Rouge : Vert);
  for (const auto groupe : {QPalette::Active, QPalette::Inactive}) {
    palette.setColor(groupe, QPalette::WindowText, Qt::white);
  }
  palette.setColor(QPalette::Disabled, QPalette::WindowText, QColor(225, 225, 225));
  setPalette(palette);
}

void F_Fraisage::AttendCarte_Timer() {
  if (!AttendCarte) return Timer_Carte_.stop();
  Timer_Carte_.stop();  // the question may take a while, and events run in it
  RetrouveCarte();
  if (AttendCarte) Timer_Carte_.start();
  MontreRun();
}

void F_Fraisage::Timer_MotorOff_Timer() {
  if (EteintMoteur()) Colore(Fond::Vert);
}

bool F_Fraisage::eventFilter(QObject* objet, QEvent* e) {
  if (e->type() != QEvent::KeyPress || !fraise_ || !RunActif || !objet->isWidgetType()) return false;
  if (static_cast<QWidget*>(objet)->window() != this || Saisit(static_cast<const QKeyEvent&>(*e))) return false;
  StopDemande = Vrai;
  ArretRampe = Faux;
  touche_ = true;
  return true;
}

void F_Fraisage::changeEvent(QEvent* e) {
  QDialog::changeEvent(e);
  if (e->type() == QEvent::ActivationChange && isActiveWindow() && isVisible() && !Ecrit()) Suit();
}

// --- file and end

bool F_Fraisage::Ecrit() const { return nc_->Ecrit(); }

void F_Fraisage::MontreAvancement() { nc_->MontreAvancement(); }

void F_Fraisage::done(int resultat) {
  if (Ecrit()) {  // the file is finished first
    Apres([moi = QPointer<F_Fraisage>(this), resultat] {
      if (moi != nullptr) moi->done(resultat);
    });
    return;
  }
  FermeFraisage(x(), y());
  QDialog::done(resultat);
}

}  // namespace ovelin
