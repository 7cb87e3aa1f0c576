// A project file: whatever the bytes, the two passes agree on the number of points, the table of paths is never
// empty nor larger than the lines allow, and what is written from the result reads back the same.
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/Lignes.h"
#include "core/ProjetTexte.h"

namespace {
void Exige(bool condition) {
  if (!condition) std::abort();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  using namespace ovelin;
  const std::string_view texte(reinterpret_cast<const char*>(donnees), taille);
  const RecensementProjet r = RecenseProjet(texte);
  ContenuProjet lu = LitTexteProjet(texte);
  Exige(lu.Points.size() == r.NbPoints && lu.Recensement.NbPoints == r.NbPoints);
  Exige(lu.Recensement.Xmin == r.Xmin && lu.Recensement.Ymax == r.Ymax);
  Exige(!lu.Sequences.empty() && lu.Sequences.size() <= taille + 1);
  for (const PointTrace& p : lu.Points) {
    Exige(p.X >= r.Xmin && p.X <= r.Xmax && p.Y >= r.Ymin && p.Y <= r.Ymax);
    Exige(std::isfinite(p.X) && std::isfinite(p.Y) && p.Cde != CodePE);
  }
  CompleteSequences(lu.Sequences, lu.Points, -3);

  std::string ecrit;
  ComposeSequences(ecrit, lu.Points, lu.Sequences, lu.Complements);
  ComposePoints(ecrit, lu.Points);
  ComposeEncoches(ecrit, lu.LargeurEncoche.value_or(5), lu.MiniEncoche.value_or(0));
  const ContenuProjet relu = LitTexteProjet(ecrit);
  Exige(relu.Points == lu.Points);
  for (const PointTrace& p : lu.Points) Exige(relu.Complements.De(p.Seq) == lu.Complements.De(p.Seq));

  // A key placed into it is found again, and the next one does not disturb it.
  std::string place(texte);
  PlaceLigne(place, "Cle", "valeur");
  PlaceLigne(place, "Cle2", "autre");
  Exige(place.find("$$Cle=valeur") != std::string::npos && place.find("$$Cle2=autre") != std::string::npos);
  IndexeReglages(place);
  return 0;
}
