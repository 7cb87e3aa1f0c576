#include "workspace/ui/Saisie.h"

#include <QKeyEvent>
#include <utility>

#include "core/Textes.h"
#include "core/ui/TraduitFenetre.h"
namespace ovelin {

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

void Saisie::MontreApres(const std::string& entree, const std::string& texte) {
  if (champ_->Texte() == entree || champ_->Texte() == enVigueur_) return Montre(texte);
  enVigueur_ = texte;
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

QString RaisonNombre() { return TexteQt(Textes::ChampNonNombre); }

}  // namespace ovelin
