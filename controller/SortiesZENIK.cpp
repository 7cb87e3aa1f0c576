// The small outputs: spindle and heat, motors, auxiliary output, display; the version.
#include <algorithm>
#include <cmath>

#include "base/Texte.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/Texte8.h"

namespace ovelin {

namespace {

constexpr std::size_t LargeurEcran = 20;

// The first `n` characters of UTF-8.
std::string Tronque(const std::string& utf8, std::size_t n) {
  std::size_t fin = 0, caracteres = 0;
  for (; fin < utf8.size(); ++fin) {
    const bool debut = (base::Octet(utf8[fin]) & 0xC0U) != 0x80U;
    if (debut && caracteres++ == n) break;
  }
  return utf8.substr(0, fin);
}

}  // namespace

bool ClsCdeZENIK::CommandePWM(std::uint8_t canal, std::uint8_t valeur) {
  EnvoiSansFin([&] {
    Tampon[1] = 'P';
    Tampon[2] = canal;
    Tampon[3] = valeur;
    std::fill(Tampon.begin() + 4, Tampon.begin() + 33, std::uint8_t{0});
  });
  return true;
}

void ClsCdeZENIK::ChauffeEcrire(std::uint8_t valeur) {
  Tampon[1] = 'P';
  Tampon[2] = 1;
  Tampon[3] = valeur;
  EnvoiUne();
}

void ClsCdeZENIK::ChauffeEcrirePC(std::int16_t& pourcent) {
  pourcent = std::clamp<std::int16_t>(pourcent, 0, 100);
  ChauffeEcrire(static_cast<std::uint8_t>(Arrondi32(pourcent * 255 / 100.0)));
}

std::string ClsCdeZENIK::ChauffeLire() {
  Tampon[1] = 'P';
  Tampon[2] = 2;
  EnvoiUne();
  return {Tampon.begin() + 2, Tampon.begin() + 6};
}

void ClsCdeZENIK::MotorOnOff(bool etat) {
  Tampon[1] = 'M';
  Tampon[2] = etat ? 1 : 0;
  EnvoiUne();
}

void ClsCdeZENIK::IO1OnOff(bool etat) {
  Tampon[1] = 'G';
  Tampon[2] = etat ? 1 : 0;
  EnvoiUne();
}

void ClsCdeZENIK::DisplaySend(std::string& texte, std::uint8_t ligne, std::uint8_t colonne) {
  texte = Tronque(texte, LargeurEcran);
  // A character that the set lacks is written in several bytes: the display still has its twenty places alone.
  const std::string octets = EnTexte8(texte).substr(0, LargeurEcran);
  EnvoiSansFin([&] {
    Tampon[1] = 'L';
    Tampon[2] = ligne;
    Tampon[3] = colonne;
    Tampon[4] = static_cast<std::uint8_t>(octets.size());
    std::transform(octets.begin(), octets.end(), Tampon.begin() + 5, [](char c) { return base::Octet(c); });
  });
}

void ClsCdeZENIK::DisplayEnable(bool etat) {
  if (etat) DisplayClear();
  Tampon[1] = 'L';
  Tampon[2] = etat ? 3 : 2;
  EnvoiUne();
}

void ClsCdeZENIK::DisplayClear() {
  Tampon[1] = 'L';
  Tampon[2] = 5;
  EnvoiUne();
}

}  // namespace ovelin
