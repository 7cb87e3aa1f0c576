// Turns what the prologue made Ghostscript print into paths, piece by piece as it arrives.
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "closed/pathwerk/lecture/Lecture.h"

namespace pathwerk::lecture::eps {

class EpsChemins {
 public:
  // `jeton` as given to the prologue. `pointsMax`: how many points may be held before the drawing is refused.
  EpsChemins(std::string_view jeton, const OptionsLecture& options, Lecture& lecture, std::size_t pointsMax);

  // Takes the next piece of the output. False when the drawing was refused and the rest is of no use.
  bool Recoit(std::string_view morceau);

  // The end was told: with a PostScript error or without. A program that ends by itself tells none.
  [[nodiscard]] bool FinDite() const { return finDite_; }
  // The drawing stopped with this PostScript error (empty: it did not).
  [[nodiscard]] const std::string& NomErreur() const { return nomErreur_; }
  // Byte of the drawing up to which it was read. -1: to its last, or unknown.
  [[nodiscard]] long Position() const { return position_; }

 private:
  void Ligne(std::string_view ligne);
  void Enregistrement(std::string_view texte);
  void LitPosition(std::string_view texte);
  void Chemin(std::string_view ligne);
  void Casse();
  void Depart(Vec2 p);
  void FinitSousChemin(bool ferme);
  void Emet(Trait&& trait);
  void Abandonne(Erreur numero, std::string_view detail);

  std::string marque_;
  double fleche_;
  Lecture& lecture_;
  std::size_t pointsMax_;
  std::size_t points_ = 0;

  std::string reste_;  // the line that has begun
  bool tropLongue_ = false;
  char sorte_ = 0;  // of the path being read; 0 outside
  std::vector<Vec2> courant_;
  bool bouge_ = false;      // the subpath has a line, even one of no length
  std::size_t lignes_ = 0;  // lines in it
  bool coinTriple_ = false;
  bool arrete_ = false;
  bool finDite_ = false;
  std::string nomErreur_;
  long position_ = -1;
};

}  // namespace pathwerk::lecture::eps
