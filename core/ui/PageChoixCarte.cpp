#include "core/ui/PageChoixCarte.h"

#include <QListWidget>
#include <QRegularExpression>

#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/ui/Fabrique.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

std::function<std::vector<AppareilPresent>()> AppareilsPresents;
std::function<void()> CarteReglee;

namespace {

// The values of the key in the order of the list; a path of a library stands behind them.
constexpr std::array<const char*, 4> Valeurs{"auto", "usb", "virtuelle", "aucune"};
constexpr int Automatique = 0, Usb = 1, Bibliotheque = 4;
constexpr int LignesAppareils = 4;

QString Francais(const char* texte) { return QString::fromUtf8(texte); }

bool EstIdentite(const QString& texte) {
  static const QRegularExpression motif(QStringLiteral("^[0-9A-Fa-f]{4}:[0-9A-Fa-f]{4}$"));
  return motif.match(texte.trimmed()).hasMatch();
}

}  // namespace

PageChoixCarte::PageChoixCarte(QWidget* parent) : QWidget(parent) {
  setObjectName(QStringLiteral("Page_Carte"));
  Construit();
  connect(Combo_Carte_, &QComboBox::currentIndexChanged, this, &PageChoixCarte::SuitChoix);
  connect(Btn_Parcourir_, &QPushButton::clicked, this, &PageChoixCarte::Parcourt);
  const auto prend = [this] {
    const QListWidgetItem* ligne = LB_Appareils_->currentItem();
    if (ligne != nullptr) TB_Usb_->setText(ligne->data(Qt::UserRole).toString());
  };
  connect(LB_Appareils_, &QListWidget::itemClicked, this, prend);
  connect(LB_Appareils_, &QListWidget::itemActivated, this, prend);
}

void PageChoixCarte::Construit() {
  auto* grille = new QGridLayout(this);
  grille->setContentsMargins(8, 10, 8, 8);
  Combo_Carte_ = Liste("Combo_Carte", Francais("Quelle carte le programme utilise"));
  for (const char* choix :
       {"Automatique : USB, sinon virtuelle", "Carte USB", "Carte virtuelle", "Aucune", "Bibliothèque"}) {
    Combo_Carte_->addItem(Francais(choix));
  }
  grille->addWidget(Etiquette("Label_Carte", "&Carte de commande :", Combo_Carte_), 0, 0);
  grille->addWidget(Combo_Carte_, 0, 1, 1, 2);
  LB_Appareils_ = Nomme(new QListWidget, "LB_Appareils",
                        Francais("Appareils USB présents ; un clic choisit celui de la carte"));
  LB_Appareils_->setFixedHeight(LignesAppareils * (fontMetrics().height() + 4));
  grille->addWidget(Etiquette("Label_Appareils", Francais("Appareils trouvés :"), LB_Appareils_), 1, 0,
                    Qt::AlignTop);
  grille->addWidget(LB_Appareils_, 1, 1, 1, 2);
  TB_Usb_ = Nomme(new QLineEdit, "TB_Usb", Francais("Carte USB en hexadécimal, comme 1A2B:3C4D"));
  grille->addWidget(Etiquette("Label_Usb", "Vendeur:produit :", TB_Usb_), 2, 0);
  grille->addWidget(TB_Usb_, 2, 1, 1, 2);
  TB_Bibliotheque_ =
      Nomme(new QLineEdit, "TB_Bibliotheque", Francais("Chemin complet de la bibliothèque de la carte"));
  Btn_Parcourir_ = Bouton("Btn_Parcourir", "P&arcourir...", Francais("Choisir le fichier de la bibliothèque"));
  Btn_Parcourir_->setAutoDefault(false);
  grille->addWidget(Etiquette("Label_Bibliotheque", Francais("Bibliothèque :"), TB_Bibliotheque_), 3, 0);
  grille->addWidget(TB_Bibliotheque_, 3, 1);
  grille->addWidget(Btn_Parcourir_, 3, 2);
  grille->addWidget(
      Phrase("Label_CarteNote", Francais("La carte choisie est prise quand la fenêtre se ferme par OK.")), 4, 0, 1,
      3);
  grille->setColumnStretch(1, 1);
  grille->setRowStretch(5, 1);
}

void PageChoixCarte::Montre() {
  const QString carte = QString::fromStdString(Rogne(LireCleIni(cles::CarteZENIK, Valeurs[Automatique])));
  int choix = carte.startsWith(QLatin1Char('/')) ? Bibliotheque : Automatique;
  for (std::size_t i = 0; i < Valeurs.size(); ++i) {
    if (carte.compare(QLatin1String(Valeurs[i]), Qt::CaseInsensitive) == 0) choix = static_cast<int>(i);
  }
  Combo_Carte_->setCurrentIndex(choix);
  TB_Bibliotheque_->setText(choix == Bibliotheque ? carte : QString());
  TB_Usb_->setText(QString::fromStdString(Rogne(LireCleIni(cles::CarteZENIK_USB, ""))));
  RemplitAppareils();
  SuitChoix();
}

void PageChoixCarte::RemplitAppareils() {
  LB_Appareils_->clear();
  if (!AppareilsPresents) return;
  for (const AppareilPresent& appareil : AppareilsPresents()) {
    const QString identite = QString::fromStdString(appareil.identite);
    auto* ligne =
        new QListWidgetItem(identite + QLatin1Char(' ') + QString::fromStdString(appareil.nom), LB_Appareils_);
    ligne->setData(Qt::UserRole, identite);
  }
}

// Fields that the choice does not look at can't be entered.
void PageChoixCarte::SuitChoix() {
  const int choix = Combo_Carte_->currentIndex();
  const bool usb = choix == Automatique || choix == Usb;
  LB_Appareils_->setEnabled(usb);
  TB_Usb_->setEnabled(usb);
  TB_Bibliotheque_->setEnabled(choix == Bibliotheque);
  Btn_Parcourir_->setEnabled(choix == Bibliotheque);
}

void PageChoixCarte::Parcourt() {
  DialogueFichier dialogue;
  dialogue.cle = "Btn_Parcourir";
  dialogue.titre = TexteQt(Textes::ChoisitBibliotheque).toStdString();
  dialogue.filtre = TexteQt(Textes::FichiersBibliotheque).toStdString();
  dialogue.motif = "*.so";
  dialogue.propose = TB_Bibliotheque_->text().toStdString();
  const std::string choisi = Svc.ChoisitFichier(dialogue);
  if (!choisi.empty()) TB_Bibliotheque_->setText(QString::fromStdString(choisi));
}

QWidget* PageChoixCarte::Refusee() const {
  const int choix = Combo_Carte_->currentIndex();
  const QString usb = TB_Usb_->text().trimmed();
  const bool sansUsb = choix == Automatique && usb.isEmpty();
  if ((choix == Automatique || choix == Usb) && !sansUsb && !EstIdentite(usb)) return TB_Usb_;
  if (choix == Bibliotheque && !TB_Bibliotheque_->text().trimmed().startsWith(QLatin1Char('/')))
    return TB_Bibliotheque_;
  return nullptr;
}

std::string PageChoixCarte::Carte() const {
  const int choix = Combo_Carte_->currentIndex();
  return choix == Bibliotheque ? TB_Bibliotheque_->text().trimmed().toStdString()
                               : Valeurs[static_cast<std::size_t>(choix)];
}

bool PageChoixCarte::Ecrit() const {
  const SansProjet reglages;
  const LotCles lot;
  const auto pose = [](const char* cle, const std::string& defaut, const std::string& valeur) {
    if (LireCleIni(cle, defaut) == valeur) return false;
    EcrireCle(cle, valeur);
    return true;
  };
  const bool carte = pose(cles::CarteZENIK, Valeurs[Automatique], Carte());
  return pose(cles::CarteZENIK_USB, "", TB_Usb_->text().trimmed().toStdString()) || carte;
}

}  // namespace ovelin
