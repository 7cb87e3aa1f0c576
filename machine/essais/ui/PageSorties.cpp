#include "machine/essais/ui/PageSorties.h"

#include <QListWidget>
#include <QScrollBar>

#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"
#include "machine/essais/ui/ControlesTable.h"

namespace ovelin {

namespace {

using C = ChampsMachine;
constexpr int Interfaces = 10, Moitie = 5, Aucun = 6;

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

const ChampMachine& Signal(int sortie) {
  return *ChercheChamp(FamilleChamp::Combo_SAV, C::Sortie1.index + sortie - 1);
}
const ChampMachine& Inversion(int sortie) {
  return *ChercheChamp(FamilleChamp::CB_SAV, C::InverseSortie1.index + sortie - 1);
}

QStringList Numeros() {
  QStringList numeros;
  for (int n = 0; n < Interfaces; ++n) numeros += QString::number(n);
  return numeros;
}

}  // namespace

PageSorties::PageSorties(ControlesTable& controles, QWidget* parent) : QWidget(parent), controles_(controles) {
  setObjectName(QStringLiteral("Page_Sorties"));
  QVBoxLayout* colonne = ColonnePage(*this);
  colonne->addWidget(GroupeInterface());
  colonne->addWidget(GroupeSorties());
  colonne->addStretch();
  connect(Combo_SAV_0_, &QComboBox::currentIndexChanged, this, &PageSorties::SuitInterface);
  SuitInterface();
}

QWidget* PageSorties::GroupeInterface() {
  QGroupBox* groupe = Groupe("Frame_Interface", Francais("Interface puissance"), this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  Combo_SAV_0_ = controles_.Liste(C::InterfacePuissance, Numeros(),
                                  Francais("Genre d'interface de puissance, par son numéro"));
  grille->addWidget(Etiquette("Lbl_Interface", Francais("Interface n° :"), Combo_SAV_0_), 0, 0);
  grille->addWidget(Combo_SAV_0_, 0, 1, Qt::AlignLeft);
  LB_Interf_Gener_ =
      Nomme(new QListWidget(this), "LB_Interf_Gener", Francais("Remplit les dix sorties pour cette interface"));
  for (const std::string& nom : ListeInterfaces()) LB_Interf_Gener_->addItem(QString::fromStdString(nom));
  LB_Interf_Gener_->setFixedHeight(LB_Interf_Gener_->sizeHintForRow(0) * LB_Interf_Gener_->count() +
                                   2 * LB_Interf_Gener_->frameWidth());
  LB_Interf_Gener_->setMinimumWidth(LB_Interf_Gener_->sizeHintForColumn(0) + 2 * LB_Interf_Gener_->frameWidth());
  connect(LB_Interf_Gener_, &QListWidget::itemClicked, this, &PageSorties::LB_Interf_Gener_Click);
  connect(LB_Interf_Gener_, &QListWidget::itemActivated, this, &PageSorties::LB_Interf_Gener_Click);
  grille->addWidget(Etiquette("Lbl_Preset", Francais("Affectation connue :"), LB_Interf_Gener_), 1, 0,
                    Qt::AlignTop);
  grille->addWidget(LB_Interf_Gener_, 1, 1);
  grille->setColumnStretch(1, 1);
  return groupe;
}

// Two halves beside each other; the keyboard goes down the first one, then down the second: OUT1 to OUT5, OUT6 to
// OUT10.
QWidget* PageSorties::GroupeSorties() {
  QGroupBox* groupe = Groupe("Frame_Sorties", Francais("Sorties"), this);
  QGridLayout* grille = GrilleGroupe(*groupe);
  QStringList signaux;
  for (const char* axe : {"X", "Y", "Z"}) {
    signaux << QStringLiteral("Dir ") + QLatin1String(axe) << QStringLiteral("Step ") + QLatin1String(axe);
  }
  signaux << TexteQt(Textes::SignalAucun);
  for (int moitie = 0; moitie < 2; ++moitie) {
    for (int rang = 0; rang < Moitie; ++rang) {
      const int sortie = moitie * Moitie + rang + 1;
      const int colonne = 3 * moitie;
      QComboBox* signal =
          controles_.Liste(Signal(sortie), signaux, Francais("Signal de la sortie OUT%1").arg(sortie));
      QCheckBox* inversion =
          controles_.Coche(Inversion(sortie), {}, Francais("Inverser le signal de la sortie OUT%1").arg(sortie));
      QLabel* etiquette =
          Etiquette(QStringLiteral("Lbl_OUT_%1").arg(sortie), QStringLiteral("OUT%1").arg(sortie), signal);
      etiquette->setProperty("valeur", true);
      grille->addWidget(etiquette, rang + 1, colonne);
      grille->addWidget(signal, rang + 1, colonne + 1);
      grille->addWidget(inversion, rang + 1, colonne + 2, Qt::AlignHCenter);
      sorties_.push_back(signal);
      cachees_.insert(cachees_.end(), {etiquette, inversion});
    }
  }
  for (int moitie = 0; moitie < 2; ++moitie) {
    const QString rang = QString::number(moitie);
    QLabel* affectation = EnTete(QStringLiteral("Tete_Affectation_") + rang, Francais("Affectation"));
    QLabel* inverse = EnTete(QStringLiteral("Tete_Inversion_") + rang, Francais("Inv. signal"));
    grille->addWidget(affectation, 0, 3 * moitie + 1);
    grille->addWidget(inverse, 0, 3 * moitie + 2);
    cachees_.insert(cachees_.end(), {affectation, inverse});
  }
  grille->setColumnStretch(1, 1);
  grille->setColumnStretch(4, 1);
  return groupe;
}

void PageSorties::Traduit() {
  for (QComboBox* sortie : sorties_) sortie->setItemText(Aucun, TexteQt(Textes::SignalAucun));
}

void PageSorties::LB_Interf_Gener_Click() {
  const QListWidgetItem* choisi = LB_Interf_Gener_->currentItem();
  if (choisi == nullptr) return;
  ChampsTable champs = controles_.Lit();
  if (AppliqueInterface(choisi->text().toStdString(), champs)) controles_.Montre(champs);
}

// Without an interface there is nothing to invert; the speeds count as typed anew.
void PageSorties::SuitInterface() {
  const bool avec = Combo_SAV_0_->currentIndex() > 0;
  for (QWidget* w : cachees_) w->setVisible(avec);
  if (avec) return;
  for (const ChampMachine& champ : {C::VitesseSansRampeX, C::VitesseSansRampeY, C::VitesseSansRampeZ}) {
    SuitChamp(champ.index, controles_.Texte(champ));
  }
}

}  // namespace ovelin
