// The presets as the cells of a grid: what is edited before it is written.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "database/Module_BD.h"

namespace ovelin {

// Columns count from 0: column c holds field c + 1 of a row. The last row is always the empty one for new entries.
class GrilleBD {
 public:
  static constexpr std::size_t Colonnes = 9;

  GrilleBD() : lignes_(1) {}
  explicit GrilleBD(const std::vector<FicheMateriau>& fiches);

  [[nodiscard]] std::size_t Lignes() const { return lignes_.size(); }  // with the empty one
  [[nodiscard]] const std::string& Cellule(std::size_t ligne, std::size_t colonne) const;
  // A text typed or pasted: "." of a numeric column becomes ",", a line end a blank. Text in the last row adds an
  // empty one behind it.
  void Pose(std::size_t ligne, std::size_t colonne, const std::string& texte);

  // A row of the presets: it can be taken away and another put before it. The empty row is none.
  [[nodiscard]] bool EstFiche(std::size_t ligne) const { return ligne + 1 < lignes_.size(); }
  bool Insere(std::size_t ligne);
  bool Supprime(std::size_t ligne);

  // All rows but the empty one, in order.
  [[nodiscard]] std::vector<FicheMateriau> Fiches() const;

  [[nodiscard]] static bool Numerique(std::size_t colonne) { return colonne != 0 && colonne != 2; }
  // The cell behind this one, along the rows; itself at the very end.
  [[nodiscard]] std::pair<std::size_t, std::size_t> Suivante(std::size_t ligne, std::size_t colonne) const;
  [[nodiscard]] std::pair<std::size_t, std::size_t> Precedente(std::size_t ligne, std::size_t colonne) const;

 private:
  std::vector<FicheMateriau> lignes_;
};

}  // namespace ovelin
