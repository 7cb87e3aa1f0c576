#include "workspace/ui/CadreDeplacement.h"

#include <QEvent>
#include <QScopedValueRollback>
#include <QSignalBlocker>
#include <algorithm>

#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "workspace/Module_PanneauChamps.h"

namespace ovelin {

namespace {

constexpr double PasFleche = 0.1;     // mm
constexpr double ParMillimetre = 10;  // steps of a scroll bar
constexpr int Course = 1000;          // steps to each side of the middle

}  // namespace

CadreDeplacement::CadreDeplacement(QWidget* parent) : QGroupBox(QStringLiteral("Déplacement"), parent) {
  setObjectName(QStringLiteral("FRAME1_DEPLACEMENT"));
  x_ = CreeAxe(Direction::X, "TB_X", "Déplacement en X depuis le choix des séquences", "HScroll_Sequence",
               Qt::Horizontal);
  y_ = CreeAxe(Direction::Y, "TB_Y", "Déplacement en Y depuis le choix des séquences", "VScroll_Sequence",
               Qt::Vertical);
  x_.barre->setToolTip(QStringLiteral("Déplacer vers la gauche ou la droite"));
  y_.barre->setToolTip(QStringLiteral("Déplacer vers le bas ou le haut"));
  x_.barre->setInvertedControls(false);  // the right arrow key goes to the right

  QGridLayout* grille = GrilleGroupe(*this);
  grille->addWidget(Etiquette("Lbl_X", "X", x_.champ->Champ()), 0, 0);
  grille->addWidget(x_.champ->Champ(), 0, 1);
  grille->addWidget(Etiquette("Lbl_Y", "Y", y_.champ->Champ()), 1, 0);
  grille->addWidget(y_.champ->Champ(), 1, 1);
  Flechette("CB_Haut", "0,1 mm vers le haut", y_, PasFleche, grille, 0, 4);
  Flechette("CB_Gauche", "0,1 mm vers la gauche", x_, -PasFleche, grille, 1, 3);
  Flechette("CB_Droite", "0,1 mm vers la droite", x_, PasFleche, grille, 1, 5);
  Flechette("CB_Bas", "0,1 mm vers le bas", y_, -PasFleche, grille, 2, 4);
  grille->addWidget(x_.barre, 2, 0, 1, 2);
  grille->addWidget(y_.barre, 0, 6, 3, 1);
  grille->setColumnStretch(1, 1);
  grille->setColumnMinimumWidth(2, 8);
}

CadreDeplacement::Axe CadreDeplacement::CreeAxe(Direction direction, const char* champ, const char* bulle,
                                                const char* barre, Qt::Orientation sens) {
  Axe& axe = direction == Direction::X ? x_ : y_;
  Axe neuf;
  neuf.direction = direction;
  // A vertical bar counts downward, the drawing upward.
  neuf.parPas = (direction == Direction::X ? 1 : -1) / ParMillimetre;
  neuf.champ = new Saisie(Champ(champ, "mm", bulle), [this, &axe](const std::string& texte) { Entre(axe, texte); });
  neuf.barre = Nomme(new QScrollBar(sens), barre);
  neuf.barre->setRange(-Course, Course);
  neuf.barre->setPageStep(static_cast<int>(ParMillimetre));
  neuf.barre->setFocusPolicy(Qt::StrongFocus);
  neuf.barre->installEventFilter(this);
  connect(neuf.barre, &QScrollBar::valueChanged, this, [this, &axe](int valeur) { Defile(axe, valeur); });
  return neuf;
}

void CadreDeplacement::Flechette(const char* nom, const char* bulle, Axe& axe, double pas, QGridLayout* grille,
                                 int ligne, int colonne) {
  QToolButton* bouton = BoutonIcone(nom, bulle);
  bouton->setAutoRepeat(true);
  fleches_.push_back(bouton);
  connect(bouton, &QToolButton::clicked, this, [this, &axe, pas] { Ajoute(axe, pas); });
  grille->addWidget(bouton, ligne, colonne);
}

// The wheel over a scroll bar scrolls the page; it moves the selection only where the bar has the keyboard.
bool CadreDeplacement::eventFilter(QObject* objet, QEvent* e) {
  const auto* barre = qobject_cast<QScrollBar*>(objet);
  if (barre != nullptr && e->type() == QEvent::Wheel && !barre->hasFocus()) {
    e->ignore();
    return true;
  }
  return QGroupBox::eventFilter(objet, e);
}

// The settings may have changed with the settings window, a project, an undo.
void CadreDeplacement::RegleRepetition() {
  constexpr int Minimum = 25;  // ms; below, a held arrow runs away
  const int periode = std::max(Regl.TimerInterval, Minimum);
  for (QToolButton* fleche : fleches_) fleche->setAutoRepeatInterval(periode);
}

void CadreDeplacement::Montre(const std::string& x, const std::string& y) {
  RegleRepetition();
  if (enMouvement_) return;
  const auto montre = [this](Axe& axe, const std::string& texte) {
    const auto v = NombreDuTexte(texte);
    const std::string neuf = v ? TexteDeplacement(*v) : texte;
    if (neuf != axe.champ->EnVigueur()) Regle(axe, 0);
    axe.champ->Montre(neuf);
  };
  montre(x_, x);
  montre(y_, y);
}

void CadreDeplacement::Remet() {
  Montre("0", "0");
  Regle(x_, 0);
  Regle(y_, 0);
}

void CadreDeplacement::MontrePoint(const std::string& x, const std::string& y) {
  x_.champ->Montre(x);
  y_.champ->Montre(y);
}

// The refresh that comes with a move leaves the fields to it.
// A move that was taken back takes those along that have come while its tool path was computed.
ChampEntre CadreDeplacement::Bouge(const std::function<ChampEntre()>& mouvement) {
  if (enMouvement_) return mouvement();
  const std::string x = x_.champ->EnVigueur();
  const std::string y = y_.champ->EnVigueur();
  const QScopedValueRollback<bool> pendant(enMouvement_, true);
  ChampEntre r = mouvement();
  if (r.fait) return r;
  if (x_.champ->EnVigueur() != x) x_.champ->Montre(x);
  if (y_.champ->EnVigueur() != y) y_.champ->Montre(y);
  return r;
}

void CadreDeplacement::Entre(Axe& axe, const std::string& texte) {
  const ChampEntre r = Bouge([&] { return EntreDeplacement(axe.direction, axe.champ->EnVigueur(), texte); });
  if (r.fait) {
    axe.champ->Montre(r.texte);
  } else if (!EstNumerique(texte)) {
    axe.champ->Refuse(RaisonNombre());
  } else {
    axe.champ->Montre(axe.champ->EnVigueur());
  }
}

bool CadreDeplacement::Ajoute(Axe& axe, double pas) {
  const ChampEntre r = Bouge([&] { return AjouteDeplacement(axe.direction, axe.champ->EnVigueur(), pas); });
  axe.champ->Montre(r.fait ? r.texte : axe.champ->EnVigueur());
  return r.fait;
}

void CadreDeplacement::Deplace(Direction direction, double pas) {
  Ajoute(direction == y_.direction ? y_ : x_, pas);
}

// The bar of a refused move goes back to where it was.
void CadreDeplacement::Defile(Axe& axe, int valeur) {
  const int avant = axe.memoire;
  axe.memoire = valeur;
  if (Ajoute(axe, (valeur - avant) * axe.parPas)) return;
  Regle(axe, avant);
}

void CadreDeplacement::Regle(Axe& axe, int valeur) {
  const QSignalBlocker silence(axe.barre);
  axe.barre->setValue(valeur);
  axe.memoire = valeur;
}

}  // namespace ovelin
