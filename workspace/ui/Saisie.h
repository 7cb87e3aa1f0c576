// A numeric field with the rule of its entries, and the small parts that the pages of the panel are made of.
#pragma once

#include <QLabel>
#include <QPushButton>
#include <QToolButton>
#include <functional>
#include <initializer_list>
#include <string>

#include "core/ui/ChampNombre.h"

namespace ovelin {

// Runs the rule of a field when an entry has been made: the field is left with another text than the one in force,
// or Enter is pressed. Going through a field with the tab key changes nothing, Escape brings the value in force
// back.
class Saisie : public QObject {
 public:
  Saisie(ChampNombre* champ, std::function<void(const std::string& texte)> regle);

  [[nodiscard]] ChampNombre* Champ() const { return champ_; }
  [[nodiscard]] const std::string& EnVigueur() const { return enVigueur_; }
  // The value in force.
  void Montre(const std::string& texte);
  // The entry is refused. `stocke`: its value is in force all the same, and leaving the field doesn't ask again.
  void Refuse(const QString& raison, bool stocke = false);
  // Leaving the field runs the rule although nothing was typed.
  std::function<bool()> memeInchange;

 protected:
  bool eventFilter(QObject* objet, QEvent* e) override;

 private:
  void Quitte();
  ChampNombre* champ_;
  std::function<void(const std::string&)> regle_;
  std::string enVigueur_;
};

// Texts of the panel's section; UTF-8 French text as the fallback.
QString TextePanneau(const char* cle, const char* sinon);
// "Not a number", for every field.
QString RaisonNombre();

// A button with the icon of its name, and one with a text beside it.
QToolButton* BoutonPanneau(const char* nom, const char* bulle);
QPushButton* BoutonTexte(const char* nom, const char* texte, const char* bulle);
// A field with its tool tip and its name for those who hear it.
ChampNombre* ChampPanneau(const char* nom, const char* unite, const char* bulle);
// The label in front of a field.
QLabel* EtiquettePanneau(const char* nom, const char* texte, QWidget* champ);

// The order in which the tab key goes through the controls of these names.
void OrdreTabulation(QWidget& page, std::initializer_list<const char*> noms);

}  // namespace ovelin
