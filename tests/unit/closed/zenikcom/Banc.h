// A virtual board on a clock of the test's own, spoken to byte by byte.
#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <initializer_list>
#include <iterator>
#include <memory>
#include <string>

#include "closed/CarteVirtuelle.h"
#include "closed/ZenikCom.h"
#include "tests/support/DossierEssai.h"

namespace essai {

using zenikcom::TamponOctets;

inline constexpr std::int64_t Ms = 1'000'000, Us = 1'000, Seconde = 1'000'000'000;
// A new board runs by multiplier 1: 10,000 ticks a second.
inline constexpr std::int64_t Tick = 100 * Us;

struct Move {
  std::int32_t ticks = 0;
  std::int32_t x = 0, y = 0, z = 0;
  int depart = -1;  // level; -1: no ramp
  std::int32_t descente = 0;
};

inline void Pose32(TamponOctets& t, std::size_t i, std::int32_t v) {
  for (std::size_t n = 0; n < 4; ++n) t[i + n] = static_cast<std::uint8_t>(static_cast<std::uint32_t>(v) >> 8 * n);
}

inline TamponOctets Requete(char lettre, std::initializer_list<int> octets = {}) {
  TamponOctets t{};
  t[1] = static_cast<std::uint8_t>(lettre);
  std::size_t i = 2;
  for (const int o : octets) t[i++] = static_cast<std::uint8_t>(o);
  return t;
}

inline TamponOctets Motion(const Move& m) {
  TamponOctets t = Requete('D');
  t[2] = static_cast<std::uint8_t>((m.x >= 0 ? 1 : 0) + (m.y >= 0 ? 2 : 0) + (m.z >= 0 ? 4 : 0) +
                                   (m.depart >= 0 ? 32 : 0));
  Pose32(t, 3, m.ticks);
  Pose32(t, 7, 2 * (m.x < 0 ? -m.x : m.x));
  Pose32(t, 11, 2 * (m.y < 0 ? -m.y : m.y));
  Pose32(t, 15, 2 * (m.z < 0 ? -m.z : m.z));
  if (m.depart < 0) return t;
  t[27] = t[28] = static_cast<std::uint8_t>(m.depart);
  Pose32(t, 29, m.descente);
  return t;
}

struct Reponse {
  TamponOctets t{};
  [[nodiscard]] bool Pris() const { return t[2] == 1; }
  [[nodiscard]] int Numero() const { return t[4] | t[5] << 8 | t[6] << 16; }
  [[nodiscard]] bool EnCours() const { return (t[7] & 1) != 0; }
  [[nodiscard]] bool Arret() const { return (t[7] & 2) != 0; }
  [[nodiscard]] int Etat() const { return t[12]; }
  [[nodiscard]] std::int32_t Reste() const { return Lit32(13); }
  [[nodiscard]] std::int32_t Lit32(std::size_t i) const {
    return static_cast<std::int32_t>(static_cast<std::uint32_t>(t[i]) | static_cast<std::uint32_t>(t[i + 1]) << 8 |
                                     static_cast<std::uint32_t>(t[i + 2]) << 16 |
                                     static_cast<std::uint32_t>(t[i + 3]) << 24);
  }
  // The answer to a stop stands elsewhere.
  [[nodiscard]] int NumeroStop() const { return t[3] | t[4] << 8 | t[5] << 16; }
  [[nodiscard]] std::int32_t ResteStop() const { return Lit32(6); }
};

class Banc {
 public:
  explicit Banc(zenikcom::ConditionsCarte conditions = {}) {
    if (!conditions.horloge) conditions.horloge = [this] { return heure; };
    if (!conditions.attend) conditions.attend = [this](std::int64_t ns) { heure += ns; };
    carte = zenikcom::CreeCarteVirtuelle(std::move(conditions));
    if (carte) liaison = zenikcom::LiaisonVirtuelle(carte);
  }

  Reponse Envoie(const TamponOctets& requete) {
    Reponse r{requete};
    std::int32_t mode = requete[1] == 'D' ? 1 : 0;
    resultat = liaison->Envoie(r.t, mode);
    return r;
  }
  Reponse Envoie(char lettre, std::initializer_list<int> octets = {}) { return Envoie(Requete(lettre, octets)); }
  Reponse Envoie(const Move& m) { return Envoie(Motion(m)); }
  Reponse Etat() { return Envoie('I'); }
  void Ouvre() {
    Envoie('B', {0});
    Envoie('B', {1});
  }
  void Part() { Envoie('B', {128}); }
  Reponse Fin() { return Envoie('D', {128}); }

  // Writes the first part of a table: its name, multiplier and slope; and makes it the default.
  void Table(int numero, const char* nom, int multiplicateur, int pente) {
    TamponOctets t = Requete('T', {4, numero});
    for (std::size_t i = 0; i < 8; ++i) t[4 + i] = static_cast<std::uint8_t>(*nom != 0 ? *nom++ : ' ');
    t[27] = static_cast<std::uint8_t>(multiplicateur);
    t[28] = static_cast<std::uint8_t>(pente);
    Envoie(t);
    Envoie('T', {1, numero});
  }

  std::int64_t heure = 0;  // ns
  std::int32_t resultat = 0;
  std::shared_ptr<zenikcom::CarteVirtuelle> carte;
  std::unique_ptr<zenikcom::Liaison> liaison;
};

using essai::DossierEssai;

inline std::string LitFichier(const std::string& chemin) {
  std::ifstream f(chemin, std::ios::binary);
  return {std::istreambuf_iterator<char>(f), std::istreambuf_iterator<char>()};
}

inline void EcritFichier(const std::string& chemin, const std::string& octets) {
  std::ofstream(chemin, std::ios::binary) << octets;
}

}  // namespace essai
