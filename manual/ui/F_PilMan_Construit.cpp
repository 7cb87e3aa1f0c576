// The window of manual control, laid out.
#include <QListWidget>
#include <QStackedWidget>

#include "core/Textes.h"
#include "core/ui/ChampNombre.h"
#include "core/ui/Equivalent.h"
#include "core/ui/Fabrique.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"
#include "manual/ui/F_PilMan.h"
#include "manual/ui/ImageClavier.h"

namespace ovelin {

namespace {

constexpr int DelaiFlash = 200, DelaiCarre = 400, PeriodeLiaison = 20;  // ms
constexpr int LignesAide = 19;      // of the help where the window is narrow: three a sentence, and their distances
constexpr double TailleLieu = 1.6;  // of the window's letters
constexpr int EcartAxes = 2;        // pixels around an axis in its list
constexpr std::array Axes{"X", "Y", "Z"};

// White on a red that stands out from both themes.
constexpr const char* Rouge =
    "QPushButton { background: #c01818; color: white; font-weight: bold; border: 1px solid #801010;"
    " border-radius: 3px; padding: 4px 12px; }"
    "QPushButton:pressed { background: #801010; }";

// Keys of a jog go to the window whichever button has the keyboard; Enter presses none by itself.
QPushButton* BoutonPilotage(const QString& nom, const QString& texte, const QString& bulle, QWidget* parent) {
  QPushButton* bouton = Bouton(nom, texte, bulle, parent);
  bouton->setAutoDefault(false);
  return bouton;
}

QListWidget* ListeAxes(const QString& nom, const QString& bulle, QWidget* parent) {
  auto* liste = Nomme(new QListWidget(parent), nom, bulle);
  for (const char* axe : Axes) {
    auto* ligne = new QListWidgetItem(QString::fromLatin1(axe), liste);
    ligne->setFlags(Qt::ItemIsEnabled | Qt::ItemIsSelectable | Qt::ItemIsUserCheckable);
    ligne->setCheckState(Qt::Unchecked);
  }
  liste->setCurrentRow(0);
  liste->setProperty("texteLibre", true);
  liste->setAccessibleName(TexteQt(Textes::NomListeAxes));
  liste->setMinimumWidth(90);
  liste->setSpacing(EcartAxes);
  liste->setFixedHeight(3 * (liste->sizeHintForRow(0) + 2 * EcartAxes) + 2 * liste->frameWidth());
  return liste;
}

}  // namespace

void F_PilMan::Construit() {
  setWindowTitle(QStringLiteral("Pilotage clavier"));
  QVBoxLayout* boite = ColonneFenetre(*this);
  boite->addWidget(ConstruitHaut());
  bas_ = ConstruitBas();
  boite->addWidget(bas_, 1);
  SB_ = Valeur("SB", QStringLiteral("Distance d'un déplacement"), this);
  SB_->setFrameStyle(QFrame::StyledPanel | QFrame::Sunken);
  boite->addWidget(SB_);
  ConstruitTimers();
  OrdreTab({Lbl_Stop_, Lbl_Motor_, Lbl_Broche_, Btn_Place_, Img_Fleche_[0], Img_Fleche_[1], clavier_, TB_Valeur_[0],
            TB_Valeur_[1], TB_Valeur_[2], Btn_OKValeurs_, List_Origine_, Btn_OKOrigine_, List_R_Origine_,
            Btn_OKR_Origine_[0], Btn_OKR_Origine_[1], Lbl_RAZ_, Lbl_Origine_, Lbl_Palpeur_});
}

QWidget* F_PilMan::ConstruitHaut() {
  auto* haut = new QWidget(this);
  auto* colonne = new QVBoxLayout(haut);
  colonne->setContentsMargins(0, 0, 0, 0);
  Lbl_Carte_ = Valeur("Lbl_Carte", {}, this);
  Lbl_Carte_->setAlignment(Qt::AlignRight);
  colonne->addWidget(Lbl_Carte_);
  auto* lieu = new QHBoxLayout;
  QFont grande = font();
  grande.setPointSizeF(grande.pointSizeF() * TailleLieu);
  for (std::size_t i = 0; i < Axes.size(); ++i) {
    const QString axe = QString::fromLatin1(Axes[i]);
    QLabel* nom = Valeur("Lbl_" + axe, {}, this);
    nom->setText(axe);
    Lbl_Pos_[i] = Valeur("Lbl_Pos" + axe, QStringLiteral("Place de la machine en mm"), this);
    Lbl_Pos_[i]->setFont(grande);
    Lbl_Pos_[i]->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    Lbl_Pos_[i]->setMinimumWidth(QFontMetrics(grande).horizontalAdvance(QStringLiteral("-0000.0")));
    lieu->addWidget(nom);
    lieu->addWidget(Lbl_Pos_[i], 1);
  }
  colonne->addLayout(lieu);
  auto* marche = new QHBoxLayout;
  Lbl_Stop_ = BoutonPilotage("Lbl_Stop", "STOP", "Arrêter aussitôt la machine (Échap)", this);
  Lbl_Stop_->setStyleSheet(QString::fromLatin1(Rouge));
  Lbl_Motor_ = BoutonPilotage("Lbl_Motor", "Moteurs libres", "Bloquer les moteurs pour un moment", this);
  Lbl_Broche_ = BoutonPilotage("Lbl_Broche", "Broche arrêtée", "Mettre la broche en marche, ou l'arrêter", this);
  for (QPushButton* b : {Lbl_Stop_, Lbl_Motor_, Lbl_Broche_}) marche->addWidget(b, 1);
  colonne->addLayout(marche);
  auto* doute = new QHBoxLayout;
  Lbl_Place_ =
      Phrase("Lbl_Place",
             "Le programme ne s'est pas terminé normalement, ou la carte a été perdue : vérifiez la place de la "
             "machine.",
             this);
  Btn_Place_ = BoutonPilotage("Btn_Place", "Place vérifiée", "La place affichée est celle de la machine", this);
  doute->addWidget(Lbl_Place_, 1);
  doute->addWidget(Btn_Place_);
  colonne->addLayout(doute);
  return haut;
}

QWidget* F_PilMan::ConstruitBas() {
  auto* bas = new QWidget(this);
  auto* colonne = new QVBoxLayout(bas);
  colonne->setContentsMargins(0, 0, 0, 0);
  colonne->addLayout(ConstruitVitesse());
  colonne->addWidget(ConstruitPages(), 1);
  colonne->addLayout(ConstruitOrigines());
  return bas;
}

QLayout* F_PilMan::ConstruitVitesse() {
  auto* rangee = new QHBoxLayout;
  TB_Vitesse_Manuel_ = Nomme(new QLineEdit(this), "TB_Vitesse_Manuel", "Vitesse d'un déplacement à la main");
  MontreSeulement(*TB_Vitesse_Manuel_);
  TB_Vitesse_Manuel_->setFocusPolicy(Qt::NoFocus);
  Lbl_Vitesse_ = Etiquette("Lbl_Vitesse", "Vitesse :");
  Img_Fleche_ = {BoutonIcone("Img_Fleche_0", "Moins vite (touche -)"),
                 BoutonIcone("Img_Fleche_1", "Plus vite (touche +)")};
  rangee->addWidget(Lbl_Vitesse_);
  rangee->addWidget(AvecEquivalent(TB_Vitesse_Manuel_, SorteEquivalent::ParMinute), 1);
  for (QToolButton* b : Img_Fleche_) rangee->addWidget(b);
  return rangee;
}

QWidget* F_PilMan::ConstruitPages() {
  pages_ = Nomme(new QStackedWidget(this), "Pages");
  clavier_ = Nomme(new ImageClavier(this), "Img_Clavier",
                   "Les touches qui déplacent la machine ; elles s'enfoncent aussi avec le pointeur");
  clavier_->setAccessibleName(TexteQt(Textes::NomImageClavier));
  Frame_Aide_ = ConstruitAide();
  Frame_Valeurs_ = ConstruitValeurs();
  FrameOrigine_ = ConstruitOrigine();
  FrameR_Origine_ = ConstruitRetour();
  for (QWidget* page :
       std::initializer_list<QWidget*>{clavier_, Frame_Aide_, Frame_Valeurs_, FrameOrigine_, FrameR_Origine_}) {
    pages_->addWidget(page);
  }
  return pages_;
}

QGroupBox* F_PilMan::ConstruitAide() {
  QGroupBox* cadre = Groupe("Frame_Aide", "Aide (F1 =retour)", this);
  auto* colonne = new QVBoxLayout(cadre);
  colonne->addWidget(Phrase("Lbl_Aide_0",
                            "Flèches et pavé numérique : X et Y, en diagonale avec 7, 9, 1, 3, Début et Fin. "
                            "Page haut et Page bas : Z."));
  colonne->addWidget(Phrase("Lbl_Aide_1",
                            "F5 : jusqu'au relâchement de la touche. F6, F7, F8 : 10, 1 et 0,1 mm. V : distances à "
                            "donner."));
  colonne->addWidget(Phrase("Lbl_Aide_2",
                            "- et + : vitesse, * : vitesse maximale. Maj : vingt fois moins vite, Ctrl : deux fois "
                            "plus vite, même avec Maj."));
  colonne->addWidget(Phrase("Lbl_Aide_3", "Échap et STOP arrêtent aussitôt, une touche relâchée par la rampe."));
  colonne->addStretch();
  cadre->setMinimumHeight(fontMetrics().lineSpacing() * LignesAide);
  return cadre;
}

QGroupBox* F_PilMan::ConstruitValeurs() {
  QGroupBox* cadre = Groupe("Frame_Valeurs", "Distances (touche V)", this);
  auto* colonne = new QVBoxLayout(cadre);
  QGridLayout* grille = GrilleFenetre();
  for (std::size_t i = 0; i < Axes.size(); ++i) {
    const QString axe = QString::fromLatin1(Axes[i]);
    TB_Valeur_[i] = Champ("TB_Valeur" + axe, "mm", "Distance d'un déplacement sur cet axe", this);
    QLabel* nom = Valeur("Lbl_Valeur" + axe, {}, this);
    nom->setText(axe);
    nom->setBuddy(TB_Valeur_[i]);
    grille->addWidget(nom, static_cast<int>(i), 0);
    grille->addWidget(TB_Valeur_[i], static_cast<int>(i), 1);
  }
  colonne->addLayout(grille);
  Btn_OKValeurs_ = BoutonPilotage("Btn_OKValeurs", "OK", "Prendre ces distances", this);
  colonne->addLayout(RangeeBoutons({Btn_OKValeurs_}));
  colonne->addStretch();
  return cadre;
}

QGroupBox* F_PilMan::ConstruitOrigine() {
  QGroupBox* cadre = Groupe("FrameOrigine", "Origine ici", this);
  auto* colonne = new QVBoxLayout(cadre);
  List_Origine_ = ListeAxes("List_Origine", "Axes dont la place présente devient zéro", this);
  colonne->addWidget(List_Origine_);
  Btn_OKOrigine_ = BoutonPilotage("Btn_OKOrigine", "OK", "Mettre ces axes à zéro", this);
  colonne->addLayout(RangeeBoutons({Btn_OKOrigine_}));
  colonne->addStretch();
  return cadre;
}

QGroupBox* F_PilMan::ConstruitRetour() {
  QGroupBox* cadre = Groupe("FrameR_Origine", "Retour à l'origine", this);
  auto* colonne = new QVBoxLayout(cadre);
  List_R_Origine_ = ListeAxes("List_R_Origine", "Axes qui reviennent à zéro", this);
  colonne->addWidget(List_R_Origine_);
  Btn_OKR_Origine_ = {
      BoutonPilotage("Btn_OKR_Origine_0", "mm/s", "Revenir à la vitesse des déplacements à la main", this),
      BoutonPilotage("Btn_OKR_Origine_1", "Vitesse", "Revenir à la vitesse de la table", this)};
  colonne->addLayout(RangeeBoutons({Btn_OKR_Origine_[0], Btn_OKR_Origine_[1]}));
  colonne->addStretch();
  return cadre;
}

QLayout* F_PilMan::ConstruitOrigines() {
  auto* rangee = new QHBoxLayout;
  Lbl_RAZ_ = BoutonPilotage("Lbl_RAZ", "Origine ici", "Mettre à zéro les axes choisis, sans rien déplacer", this);
  Lbl_Origine_ = BoutonPilotage("Lbl_Origine", "Retour", "Revenir à l'origine sur les axes choisis", this);
  Lbl_Palpeur_ = BoutonPilotage("Lbl_Palpeur", "Zéro outil", "Pour les machines à fins de course", this);
  Lbl_Palpeur_->setEnabled(false);  // until the table says otherwise
  for (QPushButton* b : {Lbl_RAZ_, Lbl_Origine_, Lbl_Palpeur_}) rangee->addWidget(b, 1);
  return rangee;
}

void F_PilMan::ConstruitTimers() {
  const auto nomme = [this](QTimer& timer, const char* nom, int periode, bool unique) {
    timer.setParent(this);
    timer.setObjectName(QString::fromLatin1(nom));
    timer.setInterval(periode);
    timer.setSingleShot(unique);
  };
  nomme(TimerPosition_, "TimerPosition", 0, false);
  nomme(TimerFleche_, "TimerFleche", 0, false);
  nomme(TimerFlash_, "TimerFlash", DelaiFlash, true);
  nomme(TimerCarre_, "TimerCarre", DelaiCarre, true);
  nomme(TimerMotorOn_, "TimerMotorOn", 0, true);
  nomme(TimerLiaison_, "TimerLiaison", PeriodeLiaison, false);
}

}  // namespace ovelin
