#include "core/ui/Fabrique.h"

#include <QPainter>
#include <QWheelEvent>

#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

constexpr int CoteIconePage = 20;  // logical pixels
constexpr int LargeurChampMin = 56;

void HabillePage(QAbstractButton& bouton) {
  bouton.setIcon(IconeProgramme(bouton.objectName()));
  bouton.setIconSize({CoteIconePage, CoteIconePage});
  bouton.setFocusPolicy(Qt::StrongFocus);
}

// Margins in the order of the toolkit: left, top, right, bottom.
template <class Disposition>
Disposition* Marges(Disposition* disposition, const QMargins& marges, int ecart) {
  disposition->setContentsMargins(marges);
  disposition->setSpacing(ecart);
  return disposition;
}

constexpr QMargins MargesGroupe(6, 4, 6, 6);

}  // namespace

QLabel* Etiquette(const QString& nom, const QString& texte, QWidget* controle) {
  auto* etiquette = Nomme(new QLabel(texte), nom);
  etiquette->setBuddy(controle);
  return etiquette;
}

QLabel* EnTete(const QString& nom, const QString& texte) {
  QLabel* tete = Etiquette(nom, texte);
  tete->setAlignment(Qt::AlignHCenter | Qt::AlignBottom);
  return tete;
}

QLabel* Valeur(const QString& nom, const QString& bulle, QWidget* parent) {
  auto* valeur = Nomme(new QLabel(parent), nom, bulle);
  valeur->setProperty("valeur", true);
  return valeur;
}

QLabel* Phrase(const QString& nom, const QString& texte, QWidget* parent) {
  auto* phrase = Nomme(new QLabel(texte, parent), nom);
  phrase->setWordWrap(true);
  return phrase;
}

ChampNombre* Champ(const QString& nom, const QString& unite, const QString& bulle, QWidget* parent) {
  auto* champ = new ChampNombre(nom, unite, parent);
  champ->setToolTip(bulle);
  champ->setMinimumWidth(LargeurChampMin);
  return champ;
}

QComboBox* Liste(const QString& nom, const QString& bulle, QWidget* parent) {
  class SansRoue : public QComboBox {
   public:
    using QComboBox::QComboBox;

   protected:
    void wheelEvent(QWheelEvent* e) override { e->ignore(); }
  };
  return Nomme(new SansRoue(parent), nom, bulle);
}

QCheckBox* Coche(const QString& nom, const QString& texte, const QString& bulle, QWidget* parent) {
  return Nomme(new QCheckBox(texte, parent), nom, bulle);
}

QGroupBox* Groupe(const QString& nom, const QString& titre, QWidget* parent) {
  return Nomme(new QGroupBox(titre, parent), nom);
}

QPushButton* Bouton(const QString& nom, const QString& texte, const QString& bulle, QWidget* parent) {
  auto* bouton = Nomme(new QPushButton(texte, parent), nom, bulle);
  bouton->setIcon(IconeProgramme(nom));
  return bouton;
}

QToolButton* BoutonIcone(const QString& nom, const QString& bulle) {
  auto* bouton = Nomme(new QToolButton, nom, bulle);
  HabillePage(*bouton);
  return bouton;
}

QPushButton* BoutonTexte(const QString& nom, const QString& texte, const QString& bulle) {
  auto* bouton = Nomme(new QPushButton(texte), nom, bulle);
  HabillePage(*bouton);
  return bouton;
}

namespace {

class BoutonSouligne : public QToolButton {
 public:
  using QToolButton::QToolButton;

 protected:
  void paintEvent(QPaintEvent* e) override {
    constexpr int Trait = 2, Retrait = 2;  // logical pixels
    QToolButton::paintEvent(e);
    if (!isChecked()) return;
    const QColor couleur =
        isEnabled() ? palette().color(QPalette::Highlight) : palette().color(QPalette::ButtonText);
    QPainter peintre(this);
    peintre.fillRect(Retrait, height() - Retrait - Trait, width() - 2 * Retrait, Trait,
                     CouleurLisible(couleur, palette().color(QPalette::Button)));
  }
};

}  // namespace

QToolButton* BoutonChoix(const QString& nom, const QString& texte, QWidget* parent) {
  auto* bouton = Nomme(new BoutonSouligne(parent), nom);
  bouton->setText(texte);
  bouton->setCheckable(true);
  bouton->setFocusPolicy(Qt::StrongFocus);
  return bouton;
}

QVBoxLayout* ColonneFenetre(QWidget& fenetre) { return Marges(new QVBoxLayout(&fenetre), {8, 8, 8, 8}, 8); }

QGridLayout* GrilleFenetre() {
  auto* grille = new QGridLayout;
  grille->setHorizontalSpacing(8);
  grille->setVerticalSpacing(6);
  return grille;
}

QVBoxLayout* ColonnePage(QWidget& page) { return Marges(new QVBoxLayout(&page), {6, 6, 6, 6}, 6); }

QGridLayout* GrilleGroupe(QWidget& groupe) { return Marges(new QGridLayout(&groupe), MargesGroupe, 4); }

QHBoxLayout* RangeeGroupe(QWidget& groupe) { return Marges(new QHBoxLayout(&groupe), MargesGroupe, 4); }

QHBoxLayout* RangeeBoutons(std::initializer_list<QPushButton*> boutons) {
  auto* rangee = new QHBoxLayout;
  rangee->setSpacing(6);
  rangee->addStretch();
  for (QPushButton* bouton : boutons) rangee->addWidget(bouton);
  return rangee;
}

BoutonsDialogue PoseBoutons(QDialog& fenetre, const QString& bulleOk, const QString& bulleAnnuler) {
  BoutonsDialogue b;
  b.ok = Bouton(QStringLiteral("Btn_OK"), QStringLiteral("OK"), bulleOk, &fenetre);
  b.annuler = Bouton(QStringLiteral("Btn_Annuler"), QStringLiteral("Annuler"), bulleAnnuler, &fenetre);
  b.ok->setDefault(true);
  b.annuler->setAutoDefault(false);
  b.rangee = RangeeBoutons({b.ok, b.annuler});
  QObject::connect(b.annuler, &QPushButton::clicked, &fenetre, &QDialog::reject);
  return b;
}

void OrdreTab(std::initializer_list<QWidget*> controles) {
  QWidget* avant = nullptr;
  for (QWidget* controle : controles) {
    if (avant != nullptr) QWidget::setTabOrder(avant, controle);
    avant = controle;
  }
}

void OrdreTab(QWidget& parent, std::initializer_list<const char*> noms) {
  QWidget* avant = nullptr;
  for (const char* nom : noms) {
    auto* controle = parent.findChild<QWidget*>(QString::fromLatin1(nom));
    if (avant != nullptr) QWidget::setTabOrder(avant, controle);
    avant = controle;
  }
}

}  // namespace ovelin
