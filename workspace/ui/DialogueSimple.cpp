#include "workspace/ui/DialogueSimple.h"

#include "core/Nombres.h"
#include "core/ui/Theme.h"
#include "core/ui/TraduitFenetre.h"

namespace ovelin {

namespace {

QPushButton* Bouton(QDialog& fenetre, const char* nom, const char* texte, const char* bulle) {
  auto* bouton = new QPushButton(QString::fromUtf8(texte), &fenetre);
  bouton->setObjectName(QString::fromLatin1(nom));
  bouton->setIcon(IconeProgramme(QString::fromLatin1(nom)));
  bouton->setToolTip(QString::fromUtf8(bulle));
  return bouton;
}

}  // namespace

BoutonsDialogue PoseBoutons(QDialog& fenetre, const char* bulleOk, const char* bulleAnnuler) {
  BoutonsDialogue b;
  b.rangee = new QHBoxLayout;
  b.rangee->setSpacing(6);
  b.ok = Bouton(fenetre, "Btn_OK", "OK", bulleOk);
  b.annuler = Bouton(fenetre, "Btn_Annuler", "Annuler", bulleAnnuler);
  b.ok->setDefault(true);
  b.annuler->setAutoDefault(false);
  b.rangee->addStretch();
  b.rangee->addWidget(b.ok);
  b.rangee->addWidget(b.annuler);
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

QLabel* EtiquetteDialogue(const char* nom, const char* texte, QWidget* controle) {
  auto* etiquette = new QLabel(QString::fromUtf8(texte));
  etiquette->setObjectName(QString::fromLatin1(nom));
  etiquette->setBuddy(controle);
  return etiquette;
}

std::optional<float> LitTolerance(ChampNombre& champ, const char* section) {
  const auto refuse = [&](const char* cle, const char* sinon) {
    champ.Refuse(TraduireOu(section, QString::fromLatin1(cle), QString::fromUtf8(sinon)));
    return std::nullopt;
  };
  const auto v = LitNombre(champ.Texte());
  if (!v) return refuse("lib001", "Ce n'est pas un nombre.");
  if (*v < 0) return refuse("lib002", "La tolérance ne peut pas être négative.");
  champ.Accepte();
  champ.Montre(TexteNombre(EnFloat(*v)));
  return EnFloat(*v);
}

}  // namespace ovelin
