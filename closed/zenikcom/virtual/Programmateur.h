// The chip on the board's programming lines: a small PIC 16F877A, as its family's programming commands see it.
#pragma once

#include <array>
#include <cstdint>
#include <vector>

namespace zenikcom {

class Programmateur {
 public:
  Programmateur();

  void Entre();  // programming mode: the address counter begins anew
  void Sort();
  // A command alone, one with a data word, one that answers a word. Outside the programming mode nothing happens
  // and every word reads as ones.
  void Commande(std::uint8_t code);
  void CommandeAvecMot(std::uint8_t code, std::uint16_t mot);
  [[nodiscard]] std::uint16_t CommandeLit(std::uint8_t code) const;

 private:
  [[nodiscard]] bool EnConfiguration() const { return compteur_ >= DebutConfiguration; }
  [[nodiscard]] std::uint16_t Programme() const;
  void Graver(bool efface);

  static constexpr std::uint32_t DebutConfiguration = 8192, MotIdentite = DebutConfiguration + 6,
                                 FinConfiguration = DebutConfiguration + 8;
  std::vector<std::uint16_t> programme_;          // 8192 words of 14 bits
  std::array<std::uint16_t, 8> configuration_{};  // four of the user's, two without use, identity, configuration
  std::array<std::uint8_t, 256> donnees_{};
  bool mode_ = false;
  std::uint32_t compteur_ = 0;
  std::uint16_t charge_ = 0;    // what the last load command brought
  bool chargeDonnees_ = false;  // for the data memory
  bool premierPas_ = false;     // the first of the two commands that switch the erasing of everything has come
  bool effacement_ = false;     // it is on
};

}  // namespace zenikcom
