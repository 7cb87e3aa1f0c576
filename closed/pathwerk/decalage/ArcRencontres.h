// Where stretches of raw parallels meet each other.
#pragma once

#include <cstdint>
#include <optional>
#include <span>
#include <vector>

#include "closed/pathwerk/decalage/ArcLibres.h"

namespace pathwerk::decalage {

// Of each stretch, which other ones it may meet.
class Rencontres {
 public:
  // All pairs of `nombre` stretches.
  struct Paire {
    std::uint32_t i, j;
  };
  Rencontres(std::size_t nombre, std::span<const Paire> paires);

  [[nodiscard]] std::span<const std::uint32_t> De(std::size_t k) const {
    return {autres_.data() + debuts_[k], autres_.data() + debuts_[k + 1]};
  }
  // The first stretch from k on that meets one; their number: none does.
  [[nodiscard]] std::size_t Prochaine(std::size_t k) const {
    while (k + 1 < debuts_.size() && debuts_[k] == debuts_[k + 1]) ++k;
    return k;
  }

 private:
  std::vector<std::uint32_t> debuts_;
  std::vector<std::uint32_t> autres_;
};

// The stretches that may meet another one in more than the place where one follows the other, linked in the order
// of the outline. None missing; some may be there that only come near. None at all: there are so many that it isn't
// worth knowing, or somebody wishes the end.
std::optional<Rencontres> ChercheRencontres(const ArcSource& source, std::span<const ArcLibre> libres, double d);

}  // namespace pathwerk::decalage
