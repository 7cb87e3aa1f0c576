// A user's dialect: whatever the bytes, the file is refused with a fault that names a line of it, or read; what was
// read writes and reads back the same, and a job in it has no line beyond its limit and no byte that it must not.
#include <algorithm>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>
#include <vector>

#include "base/Texte.h"
#include "run/NoyauNC.h"
#include "run/TexteDialecte.h"

namespace {

using namespace ovelin;

void Exige(bool condition) {
  if (!condition) std::abort();
}

Deplacement Rang(float x, float y, float z) {
  Deplacement d;
  d.X = x;
  d.Y = y;
  d.Z = z;
  d.Vitesse = z > 0 ? 50 : 2.5F;
  return d;
}

// Up, out, down, three quarters round, a corner, up, home, down.
std::vector<Deplacement> Travail() {
  std::vector<Deplacement> lignes{Rang(0, 0, 0), Rang(0, 0, 5), Rang(40, 20, 5), Rang(40, 20, -1)};
  for (int k = 1; k <= 72; ++k) {
    const double a = k * 0.065;
    lignes.push_back(
        Rang(static_cast<float>(20 + 20 * std::cos(a)), static_cast<float>(20 + 20 * std::sin(a)), -1));
  }
  for (const Deplacement& d : {Rang(50, -3, -1), Rang(50, -3, 5), Rang(0, 0, 5), Rang(0, 0, 0)})
    lignes.push_back(d);
  return lignes;
}

void JugeFichier(const Dialecte& d) {
  static const std::vector<Deplacement> Lignes = Travail();
  CadreNC cadre{{"Généré par un essai (1)", ""}, "mm", "absolu", "marche", "arrêt", "fin"};
  cadre.vitesseBroche = 18'000;
  cadre.attenteBroche = 1.5;
  EcritureNC r;
  const std::string texte = ComposeNC(Lignes, cadre, d, r);
  Exige(r.tropLongues == 0);
  Exige(r.deplacements == static_cast<long>(Lignes.size()) - 1);
  Exige(d.arcs ? r.arcs > 0 : r.arcs == 0);
  base::Lignes lignes(texte);
  for (std::string_view ligne; lignes.Suivante(ligne);) {
    Exige(!ligne.empty());
    Exige(d.longueur == 0 || ligne.size() <= static_cast<std::size_t>(d.longueur));
    if (d.jeu == JeuCommentaire::Ascii) {
      Exige(std::ranges::all_of(ligne, [](char c) { return base::Octet(c) >= 32 && base::Octet(c) < 127; }));
    }
  }
  Exige(lignes.Numero() == r.lignes);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  const std::string_view octets(reinterpret_cast<const char*>(donnees), taille);
  const DialecteLu lu = LitDialecte(octets, "essai");
  if (lu.refus) {
    base::Lignes lignes(octets);
    for (std::string_view ligne; lignes.Suivante(ligne);) continue;
    Exige(lu.refus->ligne >= 0 && lu.refus->ligne <= lignes.Numero());
    Exige(lu.refus->ligne > 0 || taille > TailleDialecte);
    return 0;
  }
  const DialecteLu relu = LitDialecte(EcritDialecte(lu.dialecte), "essai");
  Exige(!relu.refus && relu.dialecte == lu.dialecte);
  JugeFichier(lu.dialecte);
  return 0;
}
