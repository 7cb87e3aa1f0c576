// Numbers, lengths and maps as attributes write them.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "closed/pathwerk/lecture/svg/Matrice.h"

namespace pathwerk::lecture::svg {

constexpr bool EstBlancXml(char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r' || c == '\f'; }

// Goes along a list of numbers. Nothing need stand between two of them where the second can't belong to the first:
// "1-2", "1.5.5", "1e2-3".
class LecteurValeurs {
 public:
  explicit LecteurValeurs(std::string_view texte) : reste_(texte) {}

  // Past blanks and commas. False at the end.
  bool Suite();
  [[nodiscard]] std::string_view Reste() const { return reste_; }
  void Avance(std::size_t n) { reste_.remove_prefix(n); }
  // The next number; too large comes back infinite, too small as 0. False, and nothing read, for anything else.
  bool Nombre(double& v);
  // One character, 0 or 1, which the next number may touch.
  bool Drapeau(double& v);
  // The run of letters that comes next, perhaps none.
  std::string_view Mot();

 private:
  std::string_view reste_;
};

enum class UniteLongueur : std::uint8_t { Aucune, Px, Pt, Pc, Mm, Cm, In, Q, Em, Ex, Rem, Pourcent };

struct Longueur {
  double valeur = 0;
  UniteLongueur unite = UniteLongueur::Aucune;
  // Says how large it is without anything around it.
  [[nodiscard]] bool Absolue() const { return unite >= UniteLongueur::Px && unite <= UniteLongueur::Q; }
};

// Nothing for what is no length ("auto", a unit that nobody knows, more behind it).
std::optional<Longueur> LitLongueur(std::string_view texte);
// In user units, 96 to the inch. `em`: the font's size; `tout`: what 100 % is; both in user units.
double EnPixels(const Longueur& l, double em, double tout);

// All numbers up to the first thing that is none, and no more than `max` of them.
std::vector<double> LitNombres(std::string_view texte, std::size_t max);

// A list of transforms, the outermost first. Nothing when it can't be read, and then it doesn't count.
std::optional<Matrice> LitTransformation(std::string_view texte);

}  // namespace pathwerk::lecture::svg
