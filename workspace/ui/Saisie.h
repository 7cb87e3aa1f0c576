// A numeric field with the rule of its entries, and the texts of the panel.
#pragma once

#include <functional>
#include <string>

#include "core/ui/Fabrique.h"

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
  // The value in force behind that entry; what has been typed since the entry stays.
  void MontreApres(const std::string& entree, const std::string& texte);
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

// "Not a number", for every field.
QString RaisonNombre();

}  // namespace ovelin
