// The board's communication library: three operations, one 37-byte buffer that holds request and reply in turn.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zenikcom {

inline constexpr std::size_t TailleTampon = 37;
using TamponOctets = std::array<std::uint8_t, TailleTampon>;

// Results of Envoie.
inline constexpr std::int32_t Reussi = 1;
inline constexpr std::int32_t NonVerrouille = -101;    // the array could not be locked
inline constexpr std::int32_t TropPetit = -102;        // the array is shorter than the library needs
inline constexpr std::int32_t Absente = -1;            // no board
inline constexpr std::int32_t SansDroit = -2;          // the board is there, this user may not open it
inline constexpr std::int32_t EcritureEchouee = -3;    // the request did not go out
inline constexpr std::int32_t LectureEchouee = -4;     // no reply within the time of an exchange
inline constexpr std::int64_t DureeMaxi = 50'000'000;  // ns: what one exchange lasts at most

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
  // `Reussi`, `NonVerrouille`, `TropPetit`, or another value: the exchange failed and `tampon` is as it was.
  virtual std::int32_t Envoie(TamponOctets& tampon, std::int32_t& modeEnvoi) = 0;
  // Lets the board go. A link that can opens it again when it is asked next.
  virtual void Ferme() = 0;
};

// No board: never connected, every exchange fails and leaves the buffer as it is.
std::unique_ptr<Liaison> LiaisonAbsente();

// Why a link could not be had.
enum class Refus {
  Aucun,
  CheminRelatif,    // a library is named by its absolute path alone, never looked for
  Illisible,        // the library can't be loaded; `detail` is the system's reason
  SymboleManquant,  // `detail` is the name that the library does not offer
  Occupee,          // another program holds the board
};
struct Ouverture {
  std::unique_ptr<Liaison> liaison;  // null when refused
  Refus refus = Refus::Aucun;
  std::string detail;
};

// A shared library of the user's that offers
//   int32_t ZENIK_IsConnected(void); int32_t ZENIK_Send(uint8_t t[37], int32_t *mode); void ZENIK_Close(void);
// `fichierVerrou` keeps a second program off the same board; empty: no lock.
Ouverture LiaisonBibliotheque(const std::string& chemin, const std::string& fichierVerrou);

struct IdentiteUsb {
  std::uint16_t vendeur = 0, produit = 0;
  bool operator==(const IdentiteUsb&) const = default;
};
// "1A2B:3c4d", four hexadecimal digits each; nothing for any other text and for 0000:0000.
std::optional<IdentiteUsb> LitIdentiteUsb(std::string_view texte);

struct AppareilUsb {
  IdentiteUsb identite;
  std::string chemin;                 // of the device node
  std::string fabricant, nom, serie;  // UTF-8, empty where the device names none
};
// The HID devices of this machine, sorted by identity and path.
std::vector<AppareilUsb> AppareilsUsb();
// The file of rules that lets the user of the seat open this device; its name sorts before the system's own rules
// for seats.
inline constexpr std::string_view NomRegleUdev = "70-zenik.rules";
std::string RegleUdev(IdentiteUsb identite);

// A board on USB as a HID device: report number 0, bytes 1 to 36 travel. While it is not open it is looked for once
// a second at most. `horloge`: ns, never goes back.
Ouverture LiaisonUsb(IdentiteUsb identite, const std::string& fichierVerrou, std::function<std::int64_t()> horloge);

}  // namespace zenikcom
