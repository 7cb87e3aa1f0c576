// Decoder of the encoded polyline.
//
// A number v is written as 2|v|, plus 1 when negative, in base 64, lowest digit first. A digit is the byte 63 + d,
// or 191 + d when it is the last of its number. After the flag "7" the base is 32, the digits 63 + d and, for the
// last, 95 + d, and the eighth bit means nothing. Flags lie below 63, and their eighth bit means nothing either:
//
//   7 base 32    : a pen number follows    < pen up to the next pair    = next pair is absolute
//   > number of binary digits behind the point follows
//
// Every other byte is nothing.
#include "closed/pathwerk/lecture/hpgl/Encode.h"

#include <algorithm>
#include <cmath>

#include "base/Texte.h"

namespace pathwerk::lecture::hpgl {

bool HpglDecodeur::Suivant(HpglElement& element) {
  element = {};
  bool xLu = false;
  double nombre = 0;
  enum class Attendu { Coordonnee, Plume, Fraction } attendu = Attendu::Coordonnee;
  while (pos_ < texte_.size()) {
    const int signe = base::Octet(texte_[pos_]) & 0x7F;
    const bool drapeau = signe == '7' || signe == ':' || signe == '<' || signe == '=' || signe == '>';
    if (drapeau) {
      ++pos_;
      if (signe == '7') septBits_ = true;
      if (signe == '<') element.leve = true;
      if (signe == '=') element.absolu = true;
      if (signe == ':') attendu = Attendu::Plume;
      if (signe == '>') attendu = Attendu::Fraction;
      continue;
    }
    if (!PrendNombre(nombre)) continue;
    if (attendu == Attendu::Fraction) {
      fraction_ = static_cast<int>(std::clamp(nombre, -26.0, 26.0));
    } else if (attendu == Attendu::Plume) {
      element.genre = HpglElement::Genre::Plume;
      element.valeur = {nombre, 0};
      return true;
    } else if (!xLu) {
      element.valeur.x = std::ldexp(nombre, -fraction_);
      xLu = true;
    } else {
      element.valeur.y = std::ldexp(nombre, -fraction_);
      return true;
    }
    attendu = Attendu::Coordonnee;
  }
  return false;
}

// Reads digits up to the last of the number. False: a flag or the end came first, or one byte that is no digit was
// passed over before the first. Beyond 2^53 the value is not exact; such places are refused later anyway.
bool HpglDecodeur::PrendNombre(double& valeur) {
  const int base = septBits_ ? 32 : 64;
  double total = 0;
  double poids = 1;
  int signe = 0;
  bool premier = true;
  while (pos_ < texte_.size()) {
    int c = base::Octet(texte_[pos_]);
    if (septBits_) c &= 0x7F;
    const int bas = c & 0x7F;
    if (bas == '7' || bas == ':' || bas == '<' || bas == '=' || bas == '>') return false;
    ++pos_;
    int chiffre = 0;
    bool dernier = false;
    if (septBits_) {
      if (c < 63 || c > 126) continue;
      dernier = c >= 95;
      chiffre = dernier ? c - 95 : c - 63;
    } else {
      dernier = c >= 191;
      chiffre = dernier ? c - 191 : c - 63;
      if (chiffre < 0 || chiffre > 63) continue;
    }
    if (premier) signe = chiffre & 1;
    premier = false;
    total += chiffre * poids;
    poids = std::min(poids * base, 1e200);
    if (!dernier) continue;
    valeur = (total - signe) / 2;
    if (signe != 0) valeur = -valeur;
    return true;
  }
  return false;
}

}  // namespace pathwerk::lecture::hpgl
