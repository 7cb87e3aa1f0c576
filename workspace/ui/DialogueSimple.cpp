#include "workspace/ui/DialogueSimple.h"

#include "core/ui/Theme.h"

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

}  // namespace ovelin
