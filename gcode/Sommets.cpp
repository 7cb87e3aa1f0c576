#include "gcode/Sommets.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "core/Nombres.h"

namespace ovelin {

namespace {

constexpr double CanalPlein = 255;

std::uint32_t Canal(std::int16_t valeur, std::uint32_t masque) {
  const double part = std::clamp(static_cast<double>(valeur), 0.0, CanalPlein) / CanalPlein;
  return static_cast<std::uint32_t>(std::nearbyint(part * masque)) & masque;
}

Vertex Sommet(const Lieu& lieu, std::uint32_t couleur) {
  Vertex v;
  v.X = EnFloat(lieu.X);
  v.Y = EnFloat(lieu.Y);
  v.Z = EnFloat(lieu.Z);
  v.Couleur = couleur;
  return v;
}

}  // namespace

Vector3 MakeVector(float X, float Y, float Z) { return {X, Y, Z}; }

std::uint32_t RGBtoDXCOLOR(std::int16_t Rouge, std::int16_t Vert, std::int16_t Bleu,
                           const MasquesCouleur& masques) {
  return Canal(Rouge, masques.rouge) | Canal(Vert, masques.vert) | Canal(Bleu, masques.bleu);
}

void CreationVertex(std::vector<Vertex>& strip, const Lieu& lieu, std::uint32_t couleur, GenreMouvement genre,
                    std::uint32_t ligne) {
  Vertex v = Sommet(lieu, couleur);
  v.Reserve = ligne;
  v.Speculaire = static_cast<std::uint32_t>(genre);
  strip.push_back(v);
}

// Corners by number: bit 0 X, bit 1 Y, bit 2 Z. An edge joins two that differ in one bit.
void Cube(std::vector<Vertex>& lignes, const Lieu& coin, const Lieu& taille, std::uint32_t couleur) {
  const auto sommet = [&](unsigned n) {
    return Sommet({coin.X + ((n & 1U) != 0 ? taille.X : 0), coin.Y + ((n & 2U) != 0 ? taille.Y : 0),
                   coin.Z + ((n & 4U) != 0 ? taille.Z : 0)},
                  couleur);
  };
  for (unsigned n = 0; n < 8; ++n) {
    for (const unsigned bit : {1U, 2U, 4U}) {
      if ((n & bit) != 0) continue;
      lignes.push_back(sommet(n));
      lignes.push_back(sommet(n | bit));
    }
  }
}

}  // namespace ovelin
