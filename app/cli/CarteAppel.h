// The board of one call: opened by the settings and the options of the call, closed with what it has to keep.
#pragma once

#include <initializer_list>
#include <string>

#include "app/cli/Contexte.h"
#include "app/cli/JournalFil.h"
#include "base/SansCopie.h"

namespace ovelin::cli {

class CarteAppel : base::SansCopie {
 public:
  explicit CarteAppel(Contexte& contexte) : contexte_(contexte) {}
  ~CarteAppel();

  // Takes the board and its lock. 0, or 1 when there is none that answers, told with key and value. `entrees`: the
  // files of the call, which neither the log nor the board's file may be.
  int Ouvre(std::initializer_list<std::string> entrees = {});
  // `etat`, or 1 when the log or the board's file could not be written.
  int Ferme(int etat);

 private:
  int JugeFichiers(std::initializer_list<std::string> entrees) const;
  int JugeCarte() const;
  void PoseModele() const;
  // The path of --path, written while the board is still there, whatever came of the call. The system's reason, or
  // "".
  std::string EcritLeParcours() const;

  Contexte& contexte_;
  JournalFil journal_;
};

}  // namespace ovelin::cli
