// The pages with what is done to the board: keypad, switches, inputs, model, faults.
#include <QFontDatabase>
#include <QSlider>

#include "controller/ChoixCarte.h"
#include "controller/ui/F_CarteVirtuelle.h"
#include "core/Nombres.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr std::array<const char*, 3> Axes{"X", "Y", "Z"};
constexpr int AnalogMax = 255, ColonnesEcran = 20;

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

struct ToucheCarte {
  std::uint8_t bit;
  const char* texte;
  int rangee, colonne;  // in the grid of the keypad
};
constexpr std::array<ToucheCarte, 6> Touches{{{zenikcom::ToucheHautZ, "Z +", 0, 3},
                                              {zenikcom::ToucheBasZ, "Z -", 2, 3},
                                              {zenikcom::ToucheGauche, "Gauche", 1, 0},
                                              {zenikcom::ToucheBas, "Bas", 2, 1},
                                              {zenikcom::ToucheHaut, "Haut", 0, 1},
                                              {zenikcom::ToucheDroite, "Droite", 1, 2}}};

struct RangeeModele {
  const char* champ;
  const char* etiquette;
  const char* texte;
  const char* bulle;
};
constexpr std::array<RangeeModele, 3> RangeesModele{
    {{"TB_Libre_", "Lbl_Libre",
      "Vitesse libre (pas/s) :", "Vitesse à laquelle l'axe %1 part de l'arrêt ; 0 : il suit toujours"},
     {"TB_Rampe_", "Lbl_Rampe",
      "Rampe (pas/s²) :", "Ce que la vitesse de l'axe %1 peut gagner par seconde au-delà"},
     {"TB_Jeu_", "Lbl_Jeu", "Jeu (pas) :", "Pas que l'axe %1 perd quand il change de sens"}}};

constexpr std::array<const char*, zenikcom::NomsFautes.size()> Fautes{
    "refusé", "perdu à l'aller", "perdu au retour", "réponse trop tardive", "réponse faussée", "débranchée"};

}  // namespace

QWidget* F_CarteVirtuelle::PageCommandes() {
  auto* page = Nomme(new QWidget, "Page_Commandes");
  QVBoxLayout* colonne = ColonnePage(*page);
  colonne->addWidget(GroupeClavier());
  colonne->addWidget(GroupeInterrupteurs());
  colonne->addWidget(GroupeSorties());
  colonne->addWidget(GroupeEcran());
  colonne->addStretch();
  return page;
}

// A key is down as long as its button is, and no longer.
QWidget* F_CarteVirtuelle::GroupeClavier() {
  QGroupBox* groupe = Groupe("Frame_Clavier", "Clavier", this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  for (std::size_t i = 0; i < Touches.size(); ++i) {
    QPushButton* touche = Bouton(QStringLiteral("Btn_Touche_%1").arg(i), Francais(Touches[i].texte),
                                 Francais("Cette touche du clavier est enfoncée tant que le bouton l'est"), this);
    touche->setAutoDefault(false);
    connect(touche, &QPushButton::pressed, this, &F_CarteVirtuelle::Appuie);
    connect(touche, &QPushButton::released, this, &F_CarteVirtuelle::Appuie);
    grille->addWidget(touche, Touches[i].rangee, Touches[i].colonne);
    Btn_Touche_[i] = touche;
  }
  OrdreTab({Btn_Touche_[4], Btn_Touche_[0], Btn_Touche_[2], Btn_Touche_[5], Btn_Touche_[3], Btn_Touche_[1]});
  return groupe;
}

QWidget* F_CarteVirtuelle::GroupeInterrupteurs() {
  QGroupBox* groupe = Groupe("Frame_Interrupteurs", Francais("Interrupteurs et entrées"), this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  CB_FinDeCourse_ = Coche("CB_FinDeCourse", "&Fin de course",
                          Francais("Le fin de course est enfoncé : le mouvement s'arrête"), this);
  CB_Origine_ = Coche("CB_Origine", "&Origine", Francais("L'interrupteur d'origine est enfoncé"), this);
  CB_Debranche_ = Coche("CB_Debranche", Francais("&Débranchée"), Francais("La carte ne répond plus"), this);
  int colonne = 0;
  for (QCheckBox* coche : {CB_FinDeCourse_, CB_Origine_, CB_Debranche_}) {
    grille->addWidget(coche, 0, colonne++);
    connect(coche, &QCheckBox::toggled, this, &F_CarteVirtuelle::PoseEntrees);
  }
  for (int i = 0; i < 2; ++i) {
    auto* entree = Nomme(new QSlider(Qt::Horizontal, this), QStringLiteral("Sld_Analog_%1").arg(i),
                         Francais("Valeur de cette entrée"));
    entree->setRange(0, AnalogMax);
    connect(entree, &QSlider::valueChanged, this, &F_CarteVirtuelle::PoseEntrees);
    Sld_Analog_[static_cast<std::size_t>(i)] = entree;
    grille->addWidget(
        Etiquette(QStringLiteral("Lbl_Analog_%1").arg(i), Francais("Entrée analogique %1 :").arg(i + 1), entree),
        i + 1, 0);
    grille->addWidget(entree, i + 1, 1, 1, 2);
  }
  grille->setColumnStretch(2, 1);
  return groupe;
}

QWidget* F_CarteVirtuelle::GroupeSorties() {
  QGroupBox* groupe = Groupe("Frame_Sorties", "Sorties", this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  const std::array<std::pair<const char*, const char*>, 4> rangees{{{"Lbl_Moteur", "Moteurs tenus :"},
                                                                    {"Lbl_Aux", "Sortie auxiliaire :"},
                                                                    {"Lbl_Broche", "Broche :"},
                                                                    {"Lbl_Pwm", "Valeur (0 à 255) :"}}};
  for (int i = 0; i < 4; ++i) {
    const auto rang = static_cast<std::size_t>(i);
    sorties_[rang] = Valeur(QLatin1String(rangees[rang].first) + QStringLiteral("_Valeur"));
    grille->addWidget(Etiquette(QLatin1String(rangees[rang].first), Francais(rangees[rang].second)), i / 2,
                      i % 2 * 2);
    grille->addWidget(sorties_[rang], i / 2, i % 2 * 2 + 1);
  }
  grille->setColumnStretch(1, 1);
  grille->setColumnStretch(3, 1);
  return groupe;
}

QWidget* F_CarteVirtuelle::GroupeEcran() {
  QGroupBox* groupe = Groupe("Frame_Ecran", "Affichage", this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  for (int i = 0; i < 2; ++i) {
    QLabel* ligne = Valeur(QStringLiteral("Lbl_Ecran_%1").arg(i));
    ligne->setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    ligne->setFrameStyle(QFrame::Box | QFrame::Plain);
    ligne->setTextFormat(Qt::PlainText);
    ligne->setMinimumWidth(ligne->fontMetrics().horizontalAdvance(QString(ColonnesEcran + 1, QLatin1Char('0'))));
    grille->addWidget(ligne, i, 0);
    Lbl_Ecran_[static_cast<std::size_t>(i)] = ligne;
  }
  grille->setColumnStretch(1, 1);
  return groupe;
}

void F_CarteVirtuelle::MontreSorties(const VueCarte& vue) {
  const auto dit = [](bool oui) { return TexteQt(oui ? Textes::Oui : Textes::Non); };
  sorties_[0]->setText(dit(vue.sorties.moteur));
  sorties_[1]->setText(dit(vue.sorties.auxiliaire));
  sorties_[2]->setText(dit(vue.sorties.broche));
  sorties_[3]->setText(QString::number(vue.sorties.pwm));
  for (std::size_t i = 0; i < Lbl_Ecran_.size(); ++i) {
    Lbl_Ecran_[i]->setText(QString::fromLatin1(vue.ecran.lignes[i].c_str()));
    Lbl_Ecran_[i]->setEnabled(vue.ecran.allume);
  }
}

void F_CarteVirtuelle::Appuie() {
  std::uint8_t touches = 0;
  for (std::size_t i = 0; i < Touches.size(); ++i) {
    if (Btn_Touche_[i]->isDown()) touches = static_cast<std::uint8_t>(touches | Touches[i].bit);
  }
  if (LaCarte.virtuelle) LaCarte.virtuelle->Appuie(touches);
}

// The board as the panel shows it at its opening: nothing pressed, plugged in.
void F_CarteVirtuelle::RelacheTout() {
  for (QCheckBox* coche : {CB_FinDeCourse_, CB_Origine_, CB_Debranche_}) coche->setChecked(false);
  PoseEntrees();
  Appuie();
}

void F_CarteVirtuelle::PoseEntrees() {
  if (!LaCarte.virtuelle) return;
  LaCarte.virtuelle->FinDeCourse(CB_FinDeCourse_->isChecked());
  LaCarte.virtuelle->Origine(CB_Origine_->isChecked());
  LaCarte.virtuelle->Debranche(CB_Debranche_->isChecked());
  LaCarte.virtuelle->Analogiques(static_cast<std::uint8_t>(Sld_Analog_[0]->value()),
                                 static_cast<std::uint8_t>(Sld_Analog_[1]->value()));
}

QWidget* F_CarteVirtuelle::PageModele() {
  auto* page = Nomme(new QWidget, "Page_Modele");
  QVBoxLayout* colonne = ColonnePage(*page);
  colonne->addWidget(GroupeModele());
  colonne->addWidget(GroupeFautes());
  colonne->addStretch();
  return page;
}

QWidget* F_CarteVirtuelle::GroupeModele() {
  QGroupBox* groupe = Groupe("Frame_Modele", Francais("Modèle de la machine"), this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  for (int rangee = 0; rangee < 3; ++rangee) {
    const RangeeModele& r = RangeesModele[static_cast<std::size_t>(rangee)];
    grille->addWidget(Etiquette(QLatin1String(r.etiquette), Francais(r.texte)), rangee + 1, 0);
    for (int axe = 0; axe < 3; ++axe) {
      const QString nom = QLatin1String(Axes[static_cast<std::size_t>(axe)]);
      ChampNombre* champ =
          Champ(QLatin1String(r.champ) + QString::number(axe), "", Francais(r.bulle).arg(nom), this);
      connect(champ, &ChampNombre::Quitte, this, [this](bool change) {
        if (change) PoseModele();
      });
      modele_[static_cast<std::size_t>(axe)][static_cast<std::size_t>(rangee)] = champ;
      grille->addWidget(champ, rangee + 1, axe + 1);
    }
  }
  for (int axe = 0; axe < 3; ++axe) {
    QLabel* tete =
        EnTete(QStringLiteral("Tete_Modele_%1").arg(axe), QLatin1String(Axes[static_cast<std::size_t>(axe)]));
    tete->setProperty("valeur", true);
    grille->addWidget(tete, 0, axe + 1);
    grille->setColumnStretch(axe + 1, 1);
  }
  return groupe;
}

QWidget* F_CarteVirtuelle::GroupeFautes() {
  QGroupBox* groupe = Groupe("Frame_Fautes", "Fautes de la liaison", this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  Combo_Faute_ = Liste("Combo_Faute", Francais("Ce qui arrive à un échange avec la carte"), this);
  for (const char* faute : Fautes) Combo_Faute_->addItem(Francais(faute));
  TB_Apres_ = Champ("TB_Apres", "", "1 : le prochain échange", this);
  TB_Apres_->setToolTip(Francais("1 : le prochain échange"));
  TB_Apres_->Montre("1");
  TB_Duree_ = Champ("TB_Duree", "", "0 : pour de bon", this);
  TB_Duree_->Montre("0");
  const std::array<std::pair<QWidget*, std::pair<const char*, const char*>>, 3> rangees{
      {{Combo_Faute_, {"Lbl_Faute", "Faute :"}},
       {TB_Apres_, {"Lbl_Apres", "Dans combien d'échanges :"}},
       {TB_Duree_, {"Lbl_Duree", "Débranchée pendant (s) :"}}}};
  for (int i = 0; i < 3; ++i) {
    const auto& [champ, textes] = rangees[static_cast<std::size_t>(i)];
    grille->addWidget(Etiquette(QLatin1String(textes.first), Francais(textes.second), champ), i, 0);
    grille->addWidget(champ, i, 1, 1, 2);
  }
  auto* ajoute = Bouton("Btn_Faute", "&Ajouter", Francais("Prévoir cette faute"), this);
  auto* efface =
      Bouton("Btn_SansFaute", Francais("&Toutes effacées"), Francais("Plus aucune faute n'est prévue"), this);
  for (QPushButton* bouton : {ajoute, efface}) bouton->setAutoDefault(false);
  connect(ajoute, &QPushButton::clicked, this, &F_CarteVirtuelle::AjouteFaute);
  connect(efface, &QPushButton::clicked, this, [this] {
    fautes_.clear();
    if (LaCarte.virtuelle) LaCarte.virtuelle->Fautes({});
    MontreFautes();
  });
  grille->addWidget(ajoute, 3, 1);
  grille->addWidget(efface, 3, 2);
  Lbl_Fautes_ = Phrase("Lbl_Fautes", "");
  Lbl_Fautes_->setProperty("valeur", true);
  grille->addWidget(Lbl_Fautes_, 4, 0, 1, 3);
  grille->setColumnStretch(2, 1);
  return groupe;
}

void F_CarteVirtuelle::MontreModele() {
  const ChampsModele champs = TextesModele(LaCarte.virtuelle->Modele());
  for (std::size_t axe = 0; axe < 3; ++axe) {
    for (std::size_t i = 0; i < 3; ++i) {
      modele_[axe][i]->Accepte();
      modele_[axe][i]->Montre(champs[axe][i]);
    }
  }
}

void F_CarteVirtuelle::PoseModele() {
  ChampsModele champs;
  for (std::size_t axe = 0; axe < 3; ++axe) {
    for (std::size_t i = 0; i < 3; ++i) {
      champs[axe][i] = modele_[axe][i]->Texte();
      const auto v = NombreDuTexte(champs[axe][i]);
      if (!v || *v < 0) return modele_[axe][i]->Refuse(TexteQt(Textes::ModeleRefuse));
      modele_[axe][i]->Accepte();
    }
  }
  const auto modele = LitModele(champs);
  if (modele && LaCarte.virtuelle) LaCarte.virtuelle->Modele(*modele);
}

void F_CarteVirtuelle::AjouteFaute() {
  const auto vue = RegardeCarte();
  if (!vue) return;
  const auto faute =
      LitFautePrevue(Combo_Faute_->currentIndex(), TB_Apres_->Texte(), TB_Duree_->Texte(), vue->echanges);
  if (!faute) {
    const bool apres = NombreDuTexte(TB_Apres_->Texte()).value_or(0) < 1;
    return (apres ? TB_Apres_ : TB_Duree_)->Refuse(TexteQt(Textes::ModeleRefuse));
  }
  TB_Apres_->Accepte();
  TB_Duree_->Accepte();
  fautes_.push_back(*faute);
  fautes_ = FautesAVenir(fautes_, vue->echanges);
  LaCarte.virtuelle->Fautes(fautes_);
  MontreFautes();
}

// "12 unplugged": in how many exchanges, and what.
void F_CarteVirtuelle::MontreFautes() {
  const auto vue = RegardeCarte();
  QStringList lignes;
  for (const zenikcom::Faute& f : fautes_) {
    lignes += QStringLiteral("%1 : %2")
                  .arg(f.echange - (vue ? vue->echanges : 0))
                  .arg(Combo_Faute_->itemText(static_cast<int>(f.genre)));
  }
  Lbl_Fautes_->setText(lignes.join(QStringLiteral(", ")));
}

}  // namespace ovelin
