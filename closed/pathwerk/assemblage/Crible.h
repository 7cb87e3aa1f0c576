// Which of very many keys come more than once.
#pragma once

#include <atomic>
#include <bit>
#include <cstddef>
#include <cstdint>
#include <vector>

namespace pathwerk::assemblage {

// A set of keys, each a bit: it may take a key for another one, and so tells of some that are not there, but never
// misses one that is. Several threads may note at once; what they have noted is asked for when they are done.
class Crible {
 public:
  // For that many keys: one in sixteen others is taken for one of them.
  explicit Crible(std::size_t nombre)
      : mots_(std::bit_ceil(nombre / 4 + 16)),
        rang_(64U - static_cast<unsigned>(std::bit_width(64 * mots_.size() - 1))) {}

  // False when it was noted before.
  bool Note(std::uint64_t cle) {
    std::atomic<std::uint64_t>& mot = mots_[Place(cle)];
    if ((mot.load(std::memory_order_relaxed) & Bit(cle)) != 0) return false;
    return (mot.fetch_or(Bit(cle), std::memory_order_relaxed) & Bit(cle)) == 0;
  }
  [[nodiscard]] bool Vu(std::uint64_t cle) const {
    return (mots_[Place(cle)].load(std::memory_order_relaxed) & Bit(cle)) != 0;
  }

 private:
  // Keys differ most in their highest bits behind a multiplication.
  [[nodiscard]] std::uint64_t Rang(std::uint64_t cle) const { return cle * 0x9e3779b97f4a7c15ULL >> rang_; }
  [[nodiscard]] std::size_t Place(std::uint64_t cle) const { return Rang(cle) / 64; }
  [[nodiscard]] std::uint64_t Bit(std::uint64_t cle) const { return std::uint64_t{1} << Rang(cle) % 64; }

  std::vector<std::atomic<std::uint64_t>> mots_;
  unsigned rang_;
};

// The keys that come once, and those that come again.
class CribleDeDoubles {
 public:
  explicit CribleDeDoubles(std::size_t nombre) : premieres_(nombre), doubles_(nombre) {}
  void Note(std::uint64_t cle) {
    if (!premieres_.Note(cle)) doubles_.Note(cle);
  }
  [[nodiscard]] bool Vu(std::uint64_t cle) const { return premieres_.Vu(cle); }
  [[nodiscard]] bool Double(std::uint64_t cle) const { return doubles_.Vu(cle); }

 private:
  Crible premieres_, doubles_;
};

}  // namespace pathwerk::assemblage
