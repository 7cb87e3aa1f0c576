#include "workspace/ui/F_Representation.h"

#include <QApplication>
#include <QCloseEvent>
#include <QDragEnterEvent>
#include <QHBoxLayout>
#include <QMenu>
#include <QMimeData>
#include <QPointer>
#include <QScreen>
#include <QStandardPaths>
#include <QUrl>
#include <utility>

#include "controller/ChoixCarte.h"
#include "core/Cadence.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/DocumentCourant.h"
#include "core/Fichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "core/ui/AvisRun.h"
#include "core/ui/Fenetres.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "database/Module_BD.h"
#include "toolpath/Module_Nettoyage.h"
#include "toolpath/Module_Ordre.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"
#include "workspace/FinCycle.h"
#include "workspace/Formats.h"
#include "workspace/Module_Annulation.h"
#include "workspace/Module_Enregistrement.h"
#include "workspace/Module_Image.h"
#include "workspace/Module_Ouverture.h"
#include "workspace/Module_Recents.h"
#include "workspace/Module_Souris.h"
#include "workspace/Module_Travail.h"
#include "workspace/ui/PlaceACote.h"

namespace ovelin {

namespace {

constexpr const char* Section = "F_Representation";
constexpr int LargeurMin = 760, HauteurMin = 520;
constexpr int LargeurNeuve = 1280, HauteurNeuve = 800;
constexpr int CoteIcone = 22;
constexpr int PeriodeFin = 20;   // ms between two looks whether the machine stands
constexpr int DelaiCadre = 250;  // ms until the desktop has put its frame around the window

std::string FichierDepose(const QMimeData* donnees) {
  if (donnees == nullptr || donnees->urls().size() != 1) return "";
  const std::string chemin = donnees->urls().front().toLocalFile().toStdString();
  const std::string extension = ExtensionDe(chemin);
  return SeDepose(extension) || EstProgramme(extension) ? chemin : "";
}

std::int32_t EnTwips(int pixels) { return static_cast<std::int32_t>(Twips(pixels)); }
int EnPixels(std::int32_t twips) { return static_cast<int>(static_cast<float>(twips) / TwipsParPixel); }

}  // namespace

F_Representation::F_Representation(QWidget* parent) : QMainWindow(parent), avant_(Svc), avantPasse_(SvcPasse) {
  setObjectName(QString::fromLatin1(Section));
  setWindowTitle(QString::fromLatin1(NomProgramme));
  setMinimumSize(LargeurMin, HauteurMin);
  setAcceptDrops(true);
  DossierDocuments = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation).toStdString();
  executions_ = ToutesExecutions();
  Dispose();
  Relie();
  InstalleServices();
}

F_Representation::~F_Representation() {
  Svc = avant_;
  SvcPasse = avantPasse_;
}

// --- layout

void F_Representation::Dispose() {
  TB1_ = new QToolBar(this);
  TB1_->setObjectName(QStringLiteral("TB1"));
  TB1_->setMovable(false);
  TB1_->setContextMenuPolicy(Qt::PreventContextMenu);
  TB1_->setIconSize({CoteIcone, CoteIcone});
  addToolBar(TB1_);
  commandes_ = new CommandesPrincipales(menuBar(), TB1_, executions_, this);

  separateur_ = new QSplitter(Qt::Horizontal, this);
  separateur_->setObjectName(QStringLiteral("Separateur"));
  PB1_ = new ImagePB1(separateur_);
  PB1_->setMinimumWidth(240);
  PB1_->installEventFilter(this);
  vide_ = new Accueil(PB1_);
  panneau_ = new PanneauLateral(separateur_);
  separateur_->addWidget(PB1_);
  separateur_->addWidget(panneau_);
  separateur_->setStretchFactor(0, 1);
  separateur_->setStretchFactor(1, 0);
  separateur_->setCollapsible(0, false);
  separateur_->setSizes({1000, EtatFenetre{}.panneau});
  auto* milieu = new QWidget(this);
  auto* cote = new QHBoxLayout(milieu);
  cote->setContentsMargins(0, 0, 0, 0);
  cote->setSpacing(0);
  historique_ = new PanneauHistorique(milieu);
  cote->addWidget(historique_);
  cote->addWidget(separateur_, 1);
  setCentralWidget(milieu);

  SB1_ = new BarreEtat(this);
  setStatusBar(SB1_);
  cadre_ = new FrameAvancement(PB1_);
  alerte_ = new AlerteCourse(PB1_);
  suivi_ = new SuiviRun(*PB1_, this);
  Timer_Interro_ = new QTimer(this);
  Timer_Interro_->setObjectName(QStringLiteral("Timer_Interro"));
  Timer_Cadre_ = new QTimer(this);
  Timer_Cadre_->setObjectName(QStringLiteral("Timer_Cadre"));
  Timer_Cadre_->setSingleShot(true);
  Timer_Cadre_->setInterval(DelaiCadre);
  Timer_Fin_ = new QTimer(this);
  Timer_Fin_->setObjectName(QStringLiteral("Timer_Fin"));
  Timer_Fin_->setInterval(PeriodeFin);
}

void F_Representation::Relie() {
  connect(PB1_, &ImagePB1::Suite, this, &F_Representation::SuitSouris);
  connect(PB1_, &ImagePB1::Instantane, this, &F_Representation::SuitAnnulation);
  connect(historique_, &PanneauHistorique::Va, this, [this](int numero) {
    if (OperationCarte) return Svc.Bip();
    commandes_->Execute(
        [this, numero] { Annule([numero](const CrochetsAnnulation& c) { return VaAuPas(numero, c); }); });
  });
  connect(PB1_, &ImagePB1::MisEnPage, this, [this] {
    if (charge_ && !dechargee_) RetaillePlacement(EtatCourant());
  });
  connect(panneau_, &PanneauLateral::Clic, this, [this](const ResultatClic& clic) {
    if (clic.croix) PB1_->Croix(*clic.croix);
    if (clic.initSeq) {
      panneau_->InitSeq();
      PB1_->Dessin();
    }
  });
  connect(vide_, &Accueil::Ouvre, commandes_->Action("mnu_Ouvrir"), &QAction::trigger);
  connect(vide_, &Accueil::Choisit, this, [this](const QString& chemin) {
    if (OperationCarte) return Svc.Bip();
    commandes_->Execute([this, choisi = chemin.toStdString()] { OuvreChoisi(choisi); });
  });
  connect(panneau_, &PanneauLateral::MenuArbre, this, &F_Representation::MenuImage);
  connect(alerte_, &AlerteCourse::Place, this, [] {
    if (OperationCarte) return Svc.Bip();
    PlaceAuCoin();
  });
  connect(separateur_, &QSplitter::splitterMoved, this,
          [this] { commandes_->Coche("mnu_Panneau", separateur_->sizes().value(1) > 0); });
  connect(commandes_->CB_BD(), &QComboBox::activated, this, &F_Representation::ChoisitMateriau);
  connect(Timer_Interro_, &QTimer::timeout, this, &F_Representation::AfficheCarte);
  connect(Timer_Cadre_, &QTimer::timeout, this, &F_Representation::RentreDansEcran);
  connect(&AvisRun::Unique(), &AvisRun::Change, this, &F_Representation::EnRun);
  connect(Timer_Fin_, &QTimer::timeout, this, [this] {
    if (OperationCarte) return;
    Timer_Fin_->stop();
    close();
  });
  commandes_->Recent = [this](std::size_t index) {
    {
      const PendantOuverture pendant(*this);
      mnu_MRU(index, [this](const std::string& chemin) { return OuvreFichier(chemin); });
    }
    MontreRecents();  // one that has vanished leaves the menu
    ApresOuverture();
  };
  commandes_->RecentPresent = [](std::size_t index) { return RecentPresent(index); };
  commandes_->ChoixZoom = [this](const std::string& choix) { Redessine(Combo_Zoom(choix)); };
  commandes_->Zoome = [this](PasZoom pas) { Redessine(Combo_ZoomFleche(pas)); };
}

// What the procedures ask of the window that shows the document.
void F_Representation::InstalleServices() {
  Svc.Rafraichit = [this] { Rafraichit(); };
  SvcPasse.Jusque = [this](const PasseInterruptible& passe) { return MenePasse(passe); };
  SvcPasse.Lit = [this](const std::function<void()>& noyau, const std::function<void()>& arrete) {
    return MenePasse({noyau, [] {}, arrete, true, true});
  };
  SvcPasse.SePeut = [this] { return !PasseEnCours() && !ouverture_; };
  SvcPasse.MontreSansTrajet = [this] { MontreSansTrajet(); };
  SvcPasse.ChangementRepris = [this] { ChangementRepris(); };
  Svc.Timer_Interro = [this](bool actif) {
    if (actif) {
      RegleTimer_Interro();
    } else {
      Timer_Interro_->stop();
    }
  };
  Svc.RafraichitEtat = [this] { SB1_->repaint(); };
  Svc.DessinOuvert = [this](bool ouvert) { DessinOuvert(ouvert); };
  Svc.TitreDessin = [this](const std::string& titre) {
    titre_ = QString::fromStdString(titre);
    Titre();
  };
  Svc.FichierRecent = [this](const std::string& chemin) {
    AjouteRecent(chemin);
    MontreRecents();
  };
  Svc.Panneau = [this](PanneauEtat panneau, const std::string& texte) { SB1_->Panneau(panneau, texte); };
  // A pass that doesn't know its length, the writing of a file, has the frame; the others the status bar.
  Svc.AvancementDebut = [this](const std::string& texte, long total) {
    if (total <= 0) {
      cadre_->Montre(texte);
    } else {
      SB1_->SB_Avancement(texte, total);
    }
  };
  Svc.AvancementPlus = [this] { SB1_->SB_AvancementPlus(); };
  Svc.AvancementFin = [this] {
    cadre_->Cache();
    SB1_->SB_AvancementFin();
  };
  Svc.MontreStop = [this](bool visible) { SB1_->MontreStop(visible); };
  Svc.MarquePosition = [this](double x, double y) { suivi_->Marque(x, y); };
  Svc.LigneRun = [this](float x0, float y0, float x1, float y1) { suivi_->Ligne(x0, y0, x1, y1); };
  Svc.EffaceLigneRun = [this] { suivi_->Efface(); };
}

void F_Representation::Place() {
  const QRect ecran = screen()->availableGeometry();
  const Placement p = LitPlacement(Section, EnTwips(ecran.width()), EnTwips(ecran.height()));
  if (LireCle(std::string(Section) + cles::suffixe::Largeur, "").empty()) {
    resize(std::min(LargeurNeuve, ecran.width()), std::min(HauteurNeuve, ecran.height()));  // never placed yet
  } else {
    resize(std::min(EnPixels(p.largeur), ecran.width()), std::min(EnPixels(p.hauteur), ecran.height()));
  }
  move(ecran.left() + EnPixels(p.gauche), ecran.top() + EnPixels(p.haut));
  if (p.maximisee) setWindowState(windowState() | Qt::WindowMaximized);
  const int panneau =
      static_cast<int>(LireNombre(std::string(Section) + cles::suffixe::Panneau, EtatFenetre{}.panneau));
  separateur_->setSizes({std::max(width() - panneau, 1), std::max(panneau, 0)});
  commandes_->Coche("mnu_Panneau", panneau > 0);
}

// The window of moves by hand stands beside this one, where it has no place of its own yet and the screen has room
// for it, or else in the lower right corner of the picture: the side panel is for the drawing that comes next. Over
// the picture it is low until it is wanted, and the first screen keeps off it.
void F_Representation::PlaceFenetre(const char* nom, bool neuve) {
  const QRect image(PB1_->mapToGlobal(QPoint(0, 0)), PB1_->size());
  for (QWidget* fenetre : QApplication::topLevelWidgets()) {
    if (fenetre->objectName() != QLatin1String(nom) || !fenetre->isVisible()) continue;
    if (neuve) {
      fenetre->move(PlaceACote(screen()->availableGeometry(), frameGeometry(), image, fenetre->frameSize()));
    }
    if (!fenetre->frameGeometry().intersects(image)) continue;
    Svc.Pilotage(DemandePilotage::Plie);
    vide_->LaisseLibre(image.bottom() + 1 - fenetre->frameGeometry().top());
  }
}

// The frame that the desktop puts around the window is known a moment after it is shown.
void F_Representation::RentreDansEcran() {
  if (isMaximized() || isFullScreen()) return;
  const QRect ecran = screen()->availableGeometry();
  const QRect cadre = frameGeometry();
  resize(width() - std::max(cadre.width() - ecran.width(), 0),
         height() - std::max(cadre.height() - ecran.height(), 0));
  move(std::max(std::min(cadre.left(), ecran.right() + 1 - frameGeometry().width()), ecran.left()),
       std::max(std::min(cadre.top(), ecran.bottom() + 1 - frameGeometry().height()), ecran.top()));
}

void F_Representation::AppliqueTheme() {
  commandes_->DessineBoutonPrincipal();
  // The one command that stands out.
  TB1_->setStyleSheet(
      QStringLiteral("QToolButton[principal=\"true\"] { background: palette(highlight); "
                     "color: palette(highlighted-text); border-radius: 4px; padding: 3px 8px; "
                     "font-weight: bold; } "
                     "QToolButton[principal=\"true\"]:disabled { background: palette(mid); }"));
}

EtatFenetre F_Representation::EtatCourant() const {
  EtatFenetre etat;
  const QRect ecran = screen()->availableGeometry();
  etat.place.gauche = EnTwips(x() - ecran.left());
  etat.place.haut = EnTwips(y() - ecran.top());
  etat.place.largeur = EnTwips(width());
  etat.place.hauteur = EnTwips(height());
  etat.place.maximisee = isMaximized();
  etat.minimisee = isMinimized();
  etat.indexBD = commandes_->CB_BD()->currentIndex();
  etat.panneau = separateur_->sizes().value(1);
  return etat;
}

// --- load and end

void F_Representation::Form_Load(const std::string& ligneCommande) {
  panneau_->Couleurs();
  Cycle.RemiseDefauts = false;
  PrepareFenetre(*this, Section);
  ChoisitProprietaire(this);
  MargeVue = EtatVue{}.MargeVue;
  AppliqueTheme();
  ChargeTableEtFiches();
  RemplitCB_BD();
  SeqCourante = CodeAucun;
  Modifie = Faux;
  RemplitRecents();
  MontreRecents();
  Place();
  show();
  Timer_Cadre_->start();
  AfficheCarte();
  RegleTimer_Interro();
  charge_ = true;
  const SuiteCommande suite = [&] {
    const PendantOuverture pendant(*this);
    return OuvreLigneCommande(ligneCommande);
  }();
  if (suite != SuiteCommande::Ouverte) RetientTravail();
  ApresOuverture();
  Apres([moi = QPointer<F_Representation>(this)] {
    if (moi != nullptr) moi->OffreReprises();
  });
  if (FinChargement(suite)) {
    panneau_->Fraisage()->VideOutil();
    return;
  }
  if (!FenetreExiste || !FenetreExiste("F_PilMan")) return;
  const bool neuve = LireCle(std::string("F_PilMan") + cles::suffixe::Gauche, "").empty();
  Fenetre("F_PilMan");
  PlaceFenetre("F_PilMan", neuve);
  activateWindow();  // keys that are meant for the drawing move no machine
}

void F_Representation::closeEvent(QCloseEvent* e) {
  if (dechargee_) return;
  if (OperationCarte) {
    // A test is ended where it was begun: whoever measures would lose what he has found.
    if (TestEnCours) {
      Svc.Bip();
    } else {
      FermeApresRun();
    }
    return e->ignore();
  }
  if (RemetFermeture(*this, *e)) return;
  if (ouvre_) {
    fermetureDue_ = true;
    return e->ignore();
  }
  if (!finRepondue_ && !PeutLaisser()) {
    Cycle.RemiseDefauts = false;
    return e->ignore();
  }
  CrochetsFermeture crochets;
  crochets.FermeFenetres = [this] {
    for (QWidget* fenetre : QApplication::topLevelWidgets()) {
      if (fenetre != this && fenetre->isVisible() && fenetre->isWindow() && !fenetre->close()) return false;
    }
    return true;
  };
  crochets.Sauve = [] { mnu_Save(); };
  if (!DemandeFermeture(crochets, windowTitle().toStdString())) {
    Cycle.RemiseDefauts = false;
    e->ignore();
    return;
  }
  dechargee_ = true;
  Timer_Interro_->stop();
  DechargeFenetre(EtatCourant(), DossierDocuments);
}

// By the ramp, whatever the run would do at its own stop.
void F_Representation::FermeApresRun() {
  StopDemande = ArretRampe = Vrai;
  Timer_Fin_->start();
}

// A tool that changes the drawing at the next click is laid down, too.
void F_Representation::EnRun(bool enRun) {
  commandes_->EnRun(enRun);
  alerte_->EnRun(enRun);
  historique_->EnRun(enRun);
  vide_->EnRun(enRun);
  panneau_->EnRun(enRun);
  if (enRun && Souris.mnu_Lever) SuitSouris(mnu_Lever_Click());
}

void F_Representation::TermineSansQuestion() {
  if (std::exchange(dechargee_, true)) return;
  ovelin::TermineSansQuestion(EtatCourant(), DossierDocuments,
                              ouverture_ ? avantOuverture_.change : TravailChange());
}

bool F_Representation::PeutFinir() {
  if (!dechargee_ && !finRepondue_) finRepondue_ = PeutLaisser();
  return dechargee_ || finRepondue_;
}

void F_Representation::changeEvent(QEvent* e) {
  QMainWindow::changeEvent(e);
  if (e->type() == QEvent::ActivationChange && charge_ && isActiveWindow()) panneau_->Fraisage()->SuitOutil();
  if (e->type() != QEvent::PaletteChange || !charge_) return;
  AppliqueTheme();
}

// --- the board

void F_Representation::RegleTimer_Interro() {
  constexpr int Periode = 1000, PeriodeMin = 50;  // ms
  const double voulue = NombreDuTexte(LireCleIni(cles::PeriodeInterro, "")).value_or(Periode);
  Timer_Interro_->start(std::max(Arrondi32(voulue), PeriodeMin));
}

void F_Representation::AfficheCarte() {
  const CleTexte nom = NomCarte();
  if (carte_ == nom) return;
  carte_ = nom;
  SB1_->Carte(TexteQt(nom), TexteQt(Textes::BulleCarte));
  if (QAction* panneau = commandes_->Action("mnu_CarteVirtuelle")) {
    panneau->setVisible(LaCarte.genre == GenreCarte::Virtuelle);
  }
}

void F_Representation::MenuImage(const QPoint& ecran) {
  if (TraceInitial.empty()) return;
  auto* menu = new QMenu(this);
  menu->setObjectName(QStringLiteral("mnu_Contexte"));
  menu->setAttribute(Qt::WA_DeleteOnClose);
  commandes_->RemplitContexte(*menu);
  menu->popup(ecran);
}

// --- files dropped, keys

void F_Representation::dragEnterEvent(QDragEnterEvent* e) {
  if (!FichierDepose(e->mimeData()).empty()) e->acceptProposedAction();
}

void F_Representation::dropEvent(QDropEvent* e) {
  const std::string chemin = FichierDepose(e->mimeData());
  if (chemin.empty()) return;
  e->acceptProposedAction();
  Depose(chemin);
}

// The program that the file comes from waits for the answer: the opening, with its dialogs, comes after it. Not
// inside a pass that has begun meanwhile, either.
bool F_Representation::Depose(const std::string& chemin) {
  const std::string extension = ExtensionDe(chemin);
  if (EstProgramme(extension)) {
    Apres([moi = QPointer<F_Representation>(this), chemin] {
      if (moi == nullptr) return;
      FichierAMontrer = chemin;
      OuvreFenetre("F_Gcode", moi);
    });
    return true;
  }
  if (!SeDepose(extension)) return false;
  Apres([moi = QPointer<F_Representation>(this), chemin] {
    if (moi == nullptr) return;
    if (OperationCarte) return Svc.Bip();
    moi->Ouvre(chemin);
  });
  return true;
}

// Escape where no field has taken it: from the picture and the trees.
void F_Representation::keyPressEvent(QKeyEvent* e) {
  if (e->key() != Qt::Key_Escape) return QMainWindow::keyPressEvent(e);
  const SuiteSouris suite = Echappe();
  SuitSouris(suite);
  PB1_->update();
  Redessine(suite.redessine);
}

bool F_Representation::eventFilter(QObject* objet, QEvent* e) {
  if (objet == PB1_ && e->type() == QEvent::Resize) vide_->setGeometry(PB1_->rect());
  if (objet == PB1_ && e->type() == QEvent::KeyPress) {
    const auto* touche = static_cast<QKeyEvent*>(e);
    if (FlecheDeplace(touche->key(), touche->modifiers())) return true;
  }
  return QMainWindow::eventFilter(objet, e);
}

}  // namespace ovelin
