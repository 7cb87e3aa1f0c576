// Where the memory of the virtual board lasts: one file, written whole or not at all, held by one program.
#pragma once

#include <string>

#include "closed/zenikcom/Verrou.h"
#include "closed/zenikcom/virtual/Memoire.h"

namespace zenikcom {

class Rangement {
 public:
  // Takes the lock, reads the file if there is one. A damaged file is renamed, so that it is neither lost nor
  // written over. False: another program holds it.
  bool Ouvre(const std::string& chemin, Memoire& memoire);
  // False, with the reason in Etat(), when it can't be written.
  bool Ecrit(const Memoire& memoire);
  [[nodiscard]] const FichierCarte& Etat() const { return etat_; }

 private:
  void MetDeCote(const std::string& raison);

  FichierCarte etat_;
  Verrou verrou_;
  bool ecrire_ = true;  // what can't be read and can't be set aside must not be written over
};

}  // namespace zenikcom
