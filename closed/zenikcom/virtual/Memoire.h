// What lasts on the board: four tables, which of them is the default, 32 blocks of flash memory; and their file.
#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "closed/zenikcom/virtual/Cadences.h"

namespace zenikcom {

inline constexpr std::size_t NbTables = 4, NbPartiesTable = 3, OctetsPartie = 33, NbBlocsFlash = 32,
                             OctetsBloc = 65'536, OctetsPage = 32;

struct Memoire {
  using Partie = std::array<std::uint8_t, OctetsPartie>;  // bytes 4 to 36 of the exchange
  using Table = std::array<Partie, NbPartiesTable>;

  Memoire();

  std::uint8_t defaut = 0;
  std::array<Table, NbTables> tables;                         // 255 everywhere on a new board
  std::array<std::vector<std::uint8_t>, NbBlocsFlash> blocs;  // empty: erased, 255 everywhere

  bool operator==(const Memoire&) const = default;

  // Those of the default table; of an empty slot (no name) multiplier 1 and slope 5.
  [[nodiscard]] Cadences CadencesDuDefaut() const;

  void EffaceBloc(std::size_t bloc);
  // Flash memory can only clear bits: a page that was not erased before does not take everything. True when what
  // now stands there is what was to be written. Behind the block's end the address comes round to its beginning.
  bool EcritPage(std::size_t bloc, std::size_t adresse, std::span<const std::uint8_t> octets);
  [[nodiscard]] std::uint8_t Octet(std::size_t bloc, std::size_t adresse) const;

  // The file's bytes: a mark, the default, the tables, which blocks hold something, these blocks, a checksum.
  [[nodiscard]] std::string Octets() const;
  // Nothing, and why, for anything that Octets() can't have given.
  static std::optional<Memoire> Lit(std::string_view octets, std::string& raison);
};

// Reads a list of records from the flash memory, from the beginning of a block on.
class LecteurListe {
 public:
  // `taille`: bytes of the list; 0: up to its end mark.
  LecteurListe(const Memoire& memoire, std::uint8_t bloc, std::size_t taille);
  bool operator()(Record& record);

 private:
  const Memoire* memoire_;
  std::size_t adresse_, fin_;
};

}  // namespace zenikcom
