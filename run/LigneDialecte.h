// The lines of a G-code file in any dialect but the program's own (LigneNC.h): values in, text out.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "core/TableDecoupe.h"
#include "run/ArcNC.h"
#include "run/Dialecte.h"
#include "run/LigneNC.h"

namespace ovelin {

// Text in ASCII letters, digits and marks on which no control acts; letters with accents lose them, what is left is
// "-".
std::string EnAscii(std::string_view utf8);

// `modele` with the speed of the spindle, turns a minute, in place of "{S}"; at speed 0 the word that holds it is
// left out.
std::string MotBroche(std::string_view modele, double tours);
// `modele` with the seconds of a dwell in place of "{s}", or its milliseconds in place of "{ms}"; "" for no dwell.
std::string MotAttente(std::string_view modele, double secondes);

class LigneDialecte {
 public:
  // All three stay the caller's. `x`, `y`: where the plan starts, mm; a machine may stand elsewhere, so the first
  // cut is never begun without both of them said.
  LigneDialecte(std::string& texte, EtatNC& etat, const Dialecte& dialecte, double x, double y);

  void Commentaire(std::string_view utf8);  // cut at blanks into lines as long as they may be
  void Mot(std::string_view ligne);         // a line as it stands, with its number; none for ""
  void Marque(std::string_view ligne);      // a line without a number
  // A row: nothing where it changes nothing as it is written.
  void Rang(const Deplacement& ligne);
  // The arc that ends where `ligne` does.
  void Arc(const ArcNC& arc, const Deplacement& ligne);
  // The next row says its own word again: something else stands between.
  void Interrompt() { mouvement_ = -1; }
  // Lines that came out longer than they may be.
  [[nodiscard]] long TropLongues() const { return tropLongues_; }

 private:
  using Unites = std::int64_t;  // of the last decimal

  [[nodiscard]] Unites EnUnites(double v) const;
  bool Avance(float vitesse);
  void Debute(int mouvement);
  void Ajoute(char lettre, double v, int decimales);
  void Place(double x, double y);
  void Finit();

  std::string& texte_;
  EtatNC& etat_;
  const Dialecte& d_;
  double departX_, departY_;
  double echelle_, echelleAvance_;
  std::optional<Unites> x_, y_, z_;  // as last written
  Unites avance_ = 0;
  int mouvement_ = -1;  // G word in force as it was written: 0 to 3
  long numero_ = 0;
  long tropLongues_ = 0;
  std::string ligne_;  // being made, without its number
};

}  // namespace ovelin
