#include "workspace/ui/PanneauLateral.h"

#include <QEvent>
#include <QLineEdit>
#include <QScrollArea>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/FiltreStop.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "toolpath/Module_Sequence.h"

namespace ovelin {

namespace {

// A switch of a row of names; what it shows is the stack below it.
QTabBar* Choix(const char* nom, const std::vector<QString>& textes, QStackedWidget* pile) {
  auto* choix = new QTabBar;
  choix->setObjectName(QString::fromLatin1(nom));
  choix->setDrawBase(true);
  choix->setExpanding(true);
  choix->setDocumentMode(true);
  choix->setUsesScrollButtons(false);
  for (const QString& texte : textes) {
    const QString icone = QString::fromLatin1(nom) + "_" + QString::number(choix->count());
    choix->addTab(IconeProgramme(icone), texte);
  }
  QObject::connect(choix, &QTabBar::currentChanged, pile, &QStackedWidget::setCurrentIndex);
  return choix;
}

QWidget* Empile(QTabBar* choix, QStackedWidget* pile, const char* nom) {
  auto* cadre = new QFrame;
  cadre->setObjectName(QString::fromLatin1(nom));
  auto* colonne = new QVBoxLayout(cadre);
  colonne->setContentsMargins(0, 0, 0, 0);
  colonne->setSpacing(0);
  colonne->addWidget(choix);
  colonne->addWidget(pile, 1);
  return cadre;
}

// A page scrolls when the window is lower than it needs.
QScrollArea* Defilant(QWidget* page) {
  auto* zone = new QScrollArea;
  zone->setFrameShape(QFrame::NoFrame);
  zone->setWidgetResizable(true);
  zone->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  zone->setFocusPolicy(Qt::NoFocus);
  zone->setWidget(page);
  return zone;
}

}  // namespace

PanneauLateral::PanneauLateral(QWidget* parent) : QSplitter(Qt::Vertical, parent) {
  setObjectName(QStringLiteral("Panneau"));
  setChildrenCollapsible(false);
  addWidget(HautArbres());
  addWidget(BasPages());
  setStretchFactor(0, 1);
  setStretchFactor(1, 0);
  points_->PointsChoisis = [this] { return TreeView1()->PointsChoisis(); };
  points_->AvantPosition = [this](Code2 code) { place_ = code; };
  points_->ApresPosition = [this] { place_.reset(); };
  for (ArbreDocument* arbre : arbres_) {
    connect(arbre, &ArbreDocument::Clic, this, &PanneauLateral::ClicArbre);
    connect(arbre, &ArbreDocument::MenuContexte, this, &PanneauLateral::MenuArbre);
  }
  for (QWidget* page : Pages()) {
    for (QWidget* controle : page->findChildren<QWidget*>()) controle->installEventFilter(this);
  }
  Traduit();
  connect(this, &QSplitter::splitterMoved, this, [this] { regle_ = true; });
  Option1(PageSequence::Fraisage);
}

QWidget* PanneauLateral::HautArbres() {
  pileArbres_ = new QStackedWidget;
  arbres_ = {new ArbreDocument(SorteArbre::Initial), new ArbreDocument(SorteArbre::Decale)};
  arbres_[0]->setObjectName(QStringLiteral("TreeView1"));
  arbres_[1]->setObjectName(QStringLiteral("TreeView2"));
  for (ArbreDocument* arbre : arbres_) pileArbres_->addWidget(arbre);
  choixArbre_ = Choix("Option_DI", {QStringLiteral("Dessin"), QStringLiteral("Trajet de l'outil")}, pileArbres_);
  QWidget* cadre = Empile(choixArbre_, pileArbres_, "Frame_Arbres");
  cadre->setMinimumHeight(120);
  return cadre;
}

QWidget* PanneauLateral::BasPages() {
  pilePages_ = new QStackedWidget;
  points_ = new PagePoints;
  fraisage_ = new PageFraisage;
  sequences_ = new PageSequences;
  for (QWidget* page : Pages()) pilePages_->addWidget(Defilant(page));
  choixPage_ = Choix("Option1", {QStringLiteral("Points"), QStringLiteral("Fraisage"), QStringLiteral("Séquences")},
                     pilePages_);
  return Empile(choixPage_, pilePages_, "Frame_Sequence");
}

std::array<QWidget*, 3> PanneauLateral::Pages() const { return {points_, fraisage_, sequences_}; }

void PanneauLateral::EnRun(bool enRun) {
  for (QWidget* page : Pages()) page->setEnabled(!enRun);
}

bool PanneauLateral::eventFilter(QObject* objet, QEvent* e) {
  const bool geste = e->type() == QEvent::MouseButtonPress || e->type() == QEvent::MouseButtonDblClick ||
                     e->type() == QEvent::KeyPress || e->type() == QEvent::Wheel;
  if (!geste || !OperationCarte || EstUnArret(*objet, *e)) return QSplitter::eventFilter(objet, e);
  Svc.Bip();
  return true;
}

// The pages have the height that they need and the trees take what is left, until the user moves the line between.
void PanneauLateral::resizeEvent(QResizeEvent* e) {
  QSplitter::resizeEvent(e);
  if (!regle_) Repartit();
}

void PanneauLateral::Repartit() {
  int hauteur = 0;
  for (const QWidget* page : Pages()) {
    hauteur = std::max(hauteur, page->sizeHint().height());
  }
  hauteur += choixPage_->sizeHint().height();
  const int arbres = std::max(height() - hauteur - handleWidth(), widget(0)->minimumHeight());
  setSizes({arbres, std::max(height() - arbres - handleWidth(), 1)});
}

void PanneauLateral::Option1(PageSequence page) { choixPage_->setCurrentIndex(static_cast<int>(page)); }

void PanneauLateral::Couleurs() {
  const QColor fond = palette().color(QPalette::Window);
  choixArbre_->setTabTextColor(0, TexteLisible(EnCouleur(Regl.CouleurInitial), fond));
  choixArbre_->setTabTextColor(1, TexteLisible(EnCouleur(Regl.CouleurDecalage), fond));
}

// Its own change of palette, not the window's: that one comes before the parts of the window have theirs.
void PanneauLateral::changeEvent(QEvent* e) {
  QSplitter::changeEvent(e);
  if (e->type() == QEvent::PaletteChange && choixArbre_ != nullptr) Couleurs();
}

void PanneauLateral::Traduit() {
  choixArbre_->setAccessibleName(TexteQt(Textes::NomChoixArbre));
  choixPage_->setAccessibleName(TexteQt(Textes::NomChoixPage));
  for (ArbreDocument* arbre : arbres_) arbre->Traduit();
}

// A point that has only moved leaves the lines of the drawing where they are.
void PanneauLateral::RemplitArbres() {
  if (place_) {
    TreeView1()->RefaitTitres(*place_);
  } else {
    TreeView1()->Remplit();
  }
  TreeView2()->Remplit();
}

void PanneauLateral::InitSeq() { SuitDocument(true); }

void PanneauLateral::Retrouve() { SuitDocument(CodesSelectionnes() != selection_); }

void PanneauLateral::SuitDocument(bool arbres) {
  ChampsPanneau champs = ovelin::InitSeq(&TreeView1()->Donnees(), &TreeView2()->Donnees());
  if (arbres) {
    for (ArbreDocument* arbre : arbres_) arbre->SuitSelection();
  }
  std::vector<Code2> selection = CodesSelectionnes();
  if (!selection.empty() && selection == selection_) {
    champs.TB_X = sequences_->findChild<QLineEdit*>(QStringLiteral("TB_X"))->text().toStdString();
    champs.TB_Y = sequences_->findChild<QLineEdit*>(QStringLiteral("TB_Y"))->text().toStdString();
  }
  selection_ = std::move(selection);
  points_->Remplit(champs);
  fraisage_->Remplit(champs);
  sequences_->Remplit(champs);
}

void PanneauLateral::ClicArbre(const ResultatClic& resultat) {
  if (resultat.croix) {
    points_->MontrePoint(resultat);
    sequences_->MontrePoint(resultat);
  }
  Q_EMIT Clic(resultat);
}

}  // namespace ovelin
