#include "workspace/ui/Accueil.h"

#include <QElapsedTimer>
#include <QEvent>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <algorithm>
#include <iterator>
#include <utility>

#include "base/Indices.h"
#include "core/Fichiers.h"
#include "core/ReglagesCourants.h"
#include "core/ui/Fabrique.h"
#include "core/ui/ServicesQt.h"
#include "core/ui/Theme.h"
#include "image/ui/Vignette.h"
#include "workspace/ApercuFichier.h"

namespace ovelin {

namespace {

constexpr QSize TailleVignette(120, 84);
constexpr int LargeurCarte = 136, HauteurCarte = 122;
constexpr std::size_t CartesMax = 6;
constexpr int Ecart = 10, Marge = 16;

}  // namespace

Accueil::Accueil(QWidget* parent) : QFrame(parent) {
  setObjectName(QStringLiteral("Frame_Accueil"));
  setAutoFillBackground(true);
  auto* colonne = new QVBoxLayout(this);
  colonne->setContentsMargins(Marge, Marge, Marge, Marge);
  colonne->setSpacing(Ecart);
  // From the top: the window of moves by hand begins in the lower corner where it finds no room beside.
  phrase_ = Phrase("Lbl_Vide", "Ouvrez un dessin (Ctrl+O) ou déposez un fichier ici", this);
  phrase_->setAlignment(Qt::AlignCenter);
  QFont police = phrase_->font();
  police.setPointSizeF(police.pointSizeF() * 1.3);
  phrase_->setFont(police);
  ouvrir_ = Bouton("CB_OuvrirDessin", "Ouvrir un dessin...", "Choisir un dessin ou un projet sur le disque", this);
  ouvrir_->setIcon(IconeProgramme(QStringLiteral("mnu_Ouvrir")));
  ouvrir_->setAutoDefault(false);
  connect(ouvrir_, &QPushButton::clicked, this, &Accueil::Ouvre);
  colonne->addWidget(phrase_);
  colonne->addWidget(ouvrir_, 0, Qt::AlignHCenter);
  rangees_.push_back(FaitRangee("Recents", QStringLiteral("Fichiers récents")));
  rangees_.push_back(FaitRangee("Exemples", QStringLiteral("Exemples")));
  colonne->addStretch();
  lecture_ = new QTimer(this);
  lecture_->setObjectName(QStringLiteral("Timer_Accueil"));
  lecture_->setSingleShot(true);
  connect(lecture_, &QTimer::timeout, this, &Accueil::LitSuivantes);
  Colore();
}

Accueil::Rangee Accueil::FaitRangee(const char* nom, const QString& titre) {
  Rangee r;
  r.titre = Etiquette(QStringLiteral("Lbl_") + QLatin1String(nom), titre);
  r.titre->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  r.cadre = new QWidget(this);
  auto* rangee = new QHBoxLayout(r.cadre);
  rangee->setContentsMargins(0, 0, 0, 0);
  rangee->setSpacing(Ecart);
  rangee->addStretch();
  for (std::size_t i = 0; i < CartesMax; ++i) {
    auto* bouton = Nomme(new QToolButton(r.cadre), QStringLiteral("Carte_%1_%2").arg(QLatin1String(nom)).arg(i));
    bouton->setToolButtonStyle(Qt::ToolButtonTextUnderIcon);
    bouton->setAutoRaise(true);
    bouton->setIconSize(TailleVignette);
    bouton->setFixedSize(LargeurCarte, HauteurCarte);
    bouton->setFocusPolicy(Qt::StrongFocus);
    bouton->setProperty("texteLibre", true);
    rangee->addWidget(bouton);
    r.cartes.push_back({bouton, "", false, {}});
    const std::size_t place = rangees_.size();
    connect(bouton, &QToolButton::clicked, this,
            [this, place, i] { Q_EMIT Choisit(QString::fromStdString(rangees_[place].cartes[i].chemin)); });
  }
  rangee->addStretch();
  layout()->addWidget(r.titre);
  layout()->addWidget(r.cadre);
  return r;
}

void Accueil::Montre(const std::vector<std::string>& recents, const std::vector<std::string>& exemples) {
  std::vector<std::string> presents;
  std::ranges::copy_if(recents, std::back_inserter(presents), FichierExiste);
  std::vector<std::string> autres;
  std::ranges::copy_if(exemples, std::back_inserter(autres), [&presents](const std::string& chemin) {
    return std::ranges::find(presents, chemin) == presents.end();
  });
  Remplit(rangees_[0], presents);
  Remplit(rangees_[1], autres);
  Dispose();
}

void Accueil::Remplit(Rangee& rangee, const std::vector<std::string>& chemins) {
  for (std::size_t i = 0; i < rangee.cartes.size(); ++i) {
    Carte& carte = rangee.cartes[i];
    std::string chemin = i < chemins.size() ? chemins[i] : "";
    if (carte.chemin == chemin) continue;
    carte.lue = false;
    carte.points.clear();
    carte.chemin = std::move(chemin);
    if (carte.chemin.empty()) continue;
    const QString nom = QString::fromStdString(NomDe(carte.chemin));
    carte.bouton->setText(carte.bouton->fontMetrics().elidedText(nom, Qt::ElideMiddle, LargeurCarte - 12));
    carte.bouton->setToolTip(QString::fromStdString(carte.chemin));
    carte.bouton->setAccessibleName(nom);
    Peint(carte);
  }
}

void Accueil::LaisseLibre(int pied) {
  pied_ = pied;
  Dispose();
}

void Accueil::EnRun(bool enRun) {
  ouvrir_->setEnabled(!enRun);
  for (const Rangee& r : rangees_) r.cadre->setEnabled(!enRun);
}

// As many files beside each other as there is room for, and the rows that still fit under the words.
void Accueil::Dispose() {
  const int colonnes = std::max(1, (width() - 2 * Marge + Ecart) / (LargeurCarte + Ecart));
  const int pied = pied_ > Marge && pied_ <= height() / 2 ? pied_ - Marge : 0;
  int reste = height() - pied - 2 * Marge - phrase_->heightForWidth(width() - 2 * Marge) -
              ouvrir_->sizeHint().height() - 2 * Ecart;
  for (Rangee& r : rangees_) {
    const int haut = r.titre->sizeHint().height() + HauteurCarte + 2 * Ecart;
    const bool montre = !r.cartes.front().chemin.empty() && reste >= haut;
    r.titre->setVisible(montre);
    r.cadre->setVisible(montre);
    for (std::size_t i = 0; i < r.cartes.size(); ++i) {
      r.cartes[i].bouton->setVisible(base::Compte(i) < colonnes && !r.cartes[i].chemin.empty());
    }
    if (montre) reste -= haut;
  }
  if (isVisible()) lecture_->start(0);
}

// A few files at a time, from the event loop: the window is there before its pictures.
void Accueil::LitSuivantes() {
  constexpr qint64 Tranche = 40;  // ms
  QElapsedTimer temps;
  temps.start();
  if (!isVisible()) return;
  if (PasseEnCours()) {
    return Apres([moi = QPointer<Accueil>(this)] {
      if (moi != nullptr) moi->lecture_->start(0);
    });
  }
  for (Rangee& r : rangees_) {
    for (Carte& carte : r.cartes) {
      if (carte.lue || !carte.bouton->isVisible()) continue;
      carte.lue = true;
      carte.points = PointsDuFichier(carte.chemin, Regl);
      Peint(carte);
      if (temps.elapsed() > Tranche) return lecture_->start(0);
    }
  }
}

void Accueil::Peint(const Carte& carte) { carte.bouton->setIcon(Vignette(carte.points, TailleVignette, *this)); }

// On the paper of the picture that will stand here.
void Accueil::Colore() {
  QPalette couleurs = palette();
  couleurs.setColor(QPalette::Window, Papier(*parentWidget()));
  setPalette(couleurs);
}

void Accueil::resizeEvent(QResizeEvent* e) {
  QFrame::resizeEvent(e);
  Dispose();
}

void Accueil::showEvent(QShowEvent* e) {
  QFrame::showEvent(e);
  Dispose();
}

void Accueil::changeEvent(QEvent* e) {
  QFrame::changeEvent(e);
  if (e->type() != QEvent::PaletteChange || rangees_.size() < 2) return;
  if (palette().color(QPalette::Window) != Papier(*parentWidget())) Colore();
  for (const Rangee& r : rangees_) {
    for (const Carte& carte : r.cartes) {
      if (!carte.chemin.empty()) Peint(carte);
    }
  }
}

}  // namespace ovelin
