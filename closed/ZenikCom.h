// The board's communication library: three operations, one 37-byte buffer that holds request and reply in turn.
#pragma once

#include <array>
#include <cstdint>
#include <memory>

namespace zenikcom {

inline constexpr std::size_t TailleTampon = 37;
using TamponOctets = std::array<std::uint8_t, TailleTampon>;

// Results of Envoie.
inline constexpr std::int32_t Reussi = 1;
inline constexpr std::int32_t NonVerrouille = -101;  // the array could not be locked
inline constexpr std::int32_t TropPetit = -102;      // the array is shorter than the library needs
inline constexpr std::int32_t Absente = -1;          // no board

// One way to a board. Byte 0 of the buffer is 0 on sending, byte 1 the letter of the command; multi-byte values are
// little-endian. Not safe for use from several threads.
class Liaison {
 public:
  Liaison() = default;
  Liaison(const Liaison&) = delete;
  Liaison& operator=(const Liaison&) = delete;
  virtual ~Liaison() = default;

  // 1: the board is there; any other value: it isn't. Cheap.
  virtual std::int32_t EstConnectee() = 0;
  // Sends `tampon` and leaves the reply in it. `modeEnvoi` is 1 for motion records, otherwise 0.
  // `Reussi`, `NonVerrouille`, `TropPetit`, or another value: the exchange failed.
  virtual std::int32_t Envoie(TamponOctets& tampon, std::int32_t& modeEnvoi) = 0;
  virtual void Ferme() = 0;
};

// No board: never connected, every exchange fails and leaves the buffer as it is.
std::unique_ptr<Liaison> LiaisonAbsente();

}  // namespace zenikcom
