#include "run/LigneNC.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <cstdint>

#include "base/Indices.h"
#include "base/Texte.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::array<double, 10> Puissances{1, 1e1, 1e2, 1e3, 1e4, 1e5, 1e6, 1e7, 1e8, 1e9};

// Words of a move line. Values are compared in the width of a row, so a number that was only widened to be kept
// doesn't count as changed.
char* EcritMot(char* place, char lettre, float v, double dernier) {
  if (v == static_cast<float>(dernier)) return place;
  *place++ = ' ';
  *place++ = lettre;
  return EcritNombreNC(place, v, 3);
}

}  // namespace

// A row's value is a 32-bit float, so its product with the power of ten is exact in 64 bits and the rounding sees
// the true digits. Digits of a whole number are several times as fast as a general conversion.
char* EcritNombreNC(char* place, double v, int decimales) {
  constexpr double borne = 3.5e38;  // beyond every 32-bit float, within TailleNombreNC
  v = std::isfinite(v) ? std::clamp(v, -borne, borne) : 0;
  const double echelle = Puissances[base::Indice(decimales)];
  const double grandeur = std::abs(v) * echelle;
  if (grandeur >= 9e15) {  // beyond whole numbers of 64-bit floats; such a value has no fraction left
    return std::to_chars(place, place + TailleNombreNC, v, std::chars_format::fixed, decimales).ptr;
  }
  auto entier = static_cast<std::uint64_t>(grandeur);
  if (grandeur - static_cast<double>(entier) >= 0.5) ++entier;
  if (v < 0 && entier != 0) *place++ = '-';

  std::array<char, 20> chiffres{};  // from the right
  int n = 0;
  while (entier != 0 || n <= decimales) {
    chiffres[base::Indice(n++)] = static_cast<char>('0' + entier % 10);
    entier /= 10;
  }
  while (n > decimales) *place++ = chiffres[base::Indice(--n)];
  if (decimales > 0) *place++ = '.';
  while (n > 0) *place++ = chiffres[base::Indice(--n)];
  return place;
}

void EcritLigneNC(std::string& texte, EtatNC& etat, float vitesse, float x, float y, float z) {
  std::array<char, 4 * (TailleNombreNC + 4) + 16> tampon;
  char* place = tampon.data();
  if (vitesse != static_cast<float>(etat.DernierF)) {
    *place++ = 'F';
    place = EcritNombreNC(place, vitesse * 60.0F, 5);  // mm/min, in the width of the row
    *place++ = '\n';
  }
  *place++ = 'G';
  *place++ = '0';
  *place++ = z > 0 ? '0' : '1';  // the height alone decides; the F in force is what the row asks
  *place++ = ' ';
  place = EcritMot(place, 'X', x, etat.DernierX);
  place = EcritMot(place, 'Y', y, etat.DernierY);
  place = EcritMot(place, 'Z', z, etat.DernierZ);
  *place++ = '\n';
  PasseLigneNC(etat, vitesse, x, y, z);
  texte.append(tampon.data(), place);
}

void PasseLigneNC(EtatNC& etat, float vitesse, float x, float y, float z) {
  if (vitesse != static_cast<float>(etat.DernierF)) {
    etat.DernierF = vitesse;
    ++etat.lignes;
  }
  etat.Va(x, y, z, vitesse);
  ++etat.lignes;
}

void EcritCommentaireNC(std::string& texte, EtatNC& etat, std::string_view contenu) {
  std::string propre(contenu);
  for (char& c : propre) {
    if (c == '(') c = '[';
    if (c == ')') c = ']';
    if (base::Octet(c) < 32) c = ' ';
  }
  EcritMotNC(texte, etat, "(" + EnTexte8(propre) + ")");
}

void EcritMotNC(std::string& texte, EtatNC& etat, std::string_view ligne) {
  texte.append(ligne);
  texte += '\n';
  ++etat.lignes;
}

}  // namespace ovelin
