#include "workspace/ui/Saisie.h"

#include <QKeyEvent>
#include <utility>

#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

void Habille(QAbstractButton* bouton, const char* nom, const char* bulle) {
  bouton->setObjectName(QString::fromLatin1(nom));
  bouton->setToolTip(QString::fromUtf8(bulle));
  bouton->setIcon(IconeProgramme(bouton->objectName()));
  bouton->setIconSize({20, 20});
  // A press takes the keyboard, so that an entry in a field is taken over first.
  bouton->setFocusPolicy(Qt::StrongFocus);
}

}  // namespace

Saisie::Saisie(ChampNombre* champ, std::function<void(const std::string&)> regle)
    : QObject(champ), champ_(champ), regle_(std::move(regle)) {
  connect(champ, &ChampNombre::Quitte, this, &Saisie::Quitte);
  champ->installEventFilter(this);
}

void Saisie::Montre(const std::string& texte) {
  enVigueur_ = texte;
  champ_->Accepte();
  champ_->Montre(texte);
}

void Saisie::Refuse(const QString& raison, bool stocke) {
  if (stocke) enVigueur_ = champ_->Texte();
  champ_->Refuse(raison);
}

// An Enter is told from a leaving by the keyboard, which the field still has.
void Saisie::Quitte() {
  const std::string texte = champ_->Texte();
  if (texte == enVigueur_ && !champ_->hasFocus() && !(memeInchange && memeInchange())) return;
  regle_(texte);
}

bool Saisie::eventFilter(QObject* objet, QEvent* e) {
  const bool touche = objet == champ_ && e->type() == QEvent::KeyPress;
  if (!touche || static_cast<QKeyEvent*>(e)->key() != Qt::Key_Escape || champ_->Texte() == enVigueur_) return false;
  Montre(enVigueur_);
  champ_->selectAll();
  return true;
}

QString TextePanneau(const char* cle, const char* sinon) {
  return TraduireOu("F_Representation", QString::fromLatin1(cle), QString::fromUtf8(sinon));
}

QString RaisonNombre() { return TextePanneau("champ_nombre", "Ce n'est pas un nombre."); }

QToolButton* BoutonPanneau(const char* nom, const char* bulle) {
  auto* bouton = new QToolButton;
  Habille(bouton, nom, bulle);
  return bouton;
}

QPushButton* BoutonTexte(const char* nom, const char* texte, const char* bulle) {
  auto* bouton = new QPushButton(QString::fromUtf8(texte));
  Habille(bouton, nom, bulle);
  return bouton;
}

ChampNombre* ChampPanneau(const char* nom, const char* unite, const char* bulle) {
  auto* champ = new ChampNombre(QString::fromLatin1(nom), QString::fromUtf8(unite));
  champ->setToolTip(QString::fromUtf8(bulle));
  champ->setMinimumWidth(56);
  return champ;
}

QLabel* EtiquettePanneau(const char* nom, const char* texte, QWidget* champ) {
  auto* etiquette = new QLabel(QString::fromUtf8(texte));
  etiquette->setObjectName(QString::fromLatin1(nom));
  etiquette->setBuddy(champ);
  return etiquette;
}

void OrdreTabulation(QWidget& page, std::initializer_list<const char*> noms) {
  QWidget* avant = nullptr;
  for (const char* nom : noms) {
    auto* w = page.findChild<QWidget*>(QString::fromLatin1(nom));
    if (avant != nullptr) QWidget::setTabOrder(avant, w);
    avant = w;
  }
}

}  // namespace ovelin
