// A G-code file in memory: its lines, each with its judgement. The bytes are held once, a line is a place in them.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "gcode/Mots.h"

namespace ovelin {

struct ComptesProgramme {
  std::size_t valides = 0;  // doubtful ones among them
  std::size_t douteuses = 0;
  std::size_t commentaires = 0;
  std::size_t refusees = 0;         // neither valid nor comments
  std::size_t premiereRefusee = 0;  // number of the line, from 1; 0: none
  bool operator==(const ComptesProgramme&) const = default;
};

class Programme {
 public:
  Programme() = default;
  // Takes the bytes of a file. A byte order mark and the line ends (CR LF, LF, CR) are no part of a line; a text
  // that ends with a line end has no empty line behind it.
  explicit Programme(std::string octets);

  [[nodiscard]] std::size_t NombreLignes() const { return lignes_.size(); }
  [[nodiscard]] bool Vide() const { return lignes_.empty(); }
  // Bytes of the line `i`, from 0, as they stand in the file.
  [[nodiscard]] std::string_view Ligne(std::size_t i) const {
    return std::string_view(octets_).substr(lignes_[i].debut, lignes_[i].longueur);
  }
  // The same for people: Windows-1252 or UTF-8 as the bytes say.
  [[nodiscard]] std::string Texte(std::size_t i) const;
  [[nodiscard]] Jugement JugementDe(std::size_t i) const { return static_cast<Jugement>(lignes_[i].jugement); }
  [[nodiscard]] const ComptesProgramme& Comptes() const { return comptes_; }

 private:
  // 8 bytes a line: a program has millions of them.
  struct Rang {
    std::uint64_t debut : 31 = 0;
    std::uint64_t longueur : 31 = 0;
    std::uint64_t jugement : 2 = 0;
  };
  void Juge();

  std::string octets_;
  std::vector<Rang> lignes_;
  ComptesProgramme comptes_;
};

// Longest file that is read, in bytes: 2 GB.
inline constexpr std::size_t TailleMaxiProgramme = (std::size_t{1} << 31) - 1;

struct ProgrammeLu {
  Programme programme;
  std::string refus;  // the system's reason why the file can't be read; empty: it has been
};
ProgrammeLu LitProgramme(const std::string& chemin);

}  // namespace ovelin
