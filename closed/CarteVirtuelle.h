// The operator's side of the virtual board: what a user does with his hands and sees with his eyes on a real one.
// The host's side is a `Liaison` (ZenikCom.h) like any other.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace zenikcom {

class Liaison;

inline constexpr std::int64_t NsParSeconde = 1'000'000'000;

// What a virtual board is made with.
struct ConditionsCarte {
  std::string fichier{};  // tables and flash memory; empty: in memory alone
  // ns, never goes back. The board runs by it, lazily: nothing happens between two questions, and each question
  // finds the board where it stands at that moment.
  std::function<std::int64_t()> horloge{};
  // Lets ns pass on that clock: the fault "late" alone.
  std::function<void(std::int64_t)> attend{};
  // As fast as it can: the clock is not asked. Time passes when the host waits: a record for which there is no room
  // and a question about the state each let the record that runs come to its end.
  bool rapide = false;
  int capacite = 64;  // records that the buffer holds, the one that runs among them
  std::string version = "ZENIK v0.32 virtuelle";
  bool flash = true;     // a flash chip is fitted
  bool pic = true;       // a programmable chip hangs on the programming lines
  bool journal = false;  // keep `Joues()`
};

// Faults, by the number of the exchange, counted from 1.
enum class GenreFaute {
  Refuse,     // answered, not taken
  Avant,      // failed before the board: it knows nothing of it
  Apres,      // failed behind the board: done, the reply is lost
  Retard,     // done, the reply comes after the exchange has been given up
  Bruit,      // done, the reply is garbage
  Debranche,  // unplugged from this exchange on
};
struct NomFaute {
  GenreFaute genre;
  std::string_view nom;
};
inline constexpr std::array<NomFaute, 6> NomsFautes{{{GenreFaute::Refuse, "refused"},
                                                     {GenreFaute::Avant, "before"},
                                                     {GenreFaute::Apres, "behind"},
                                                     {GenreFaute::Retard, "late"},
                                                     {GenreFaute::Bruit, "garbage"},
                                                     {GenreFaute::Debranche, "unplugged"}}};
struct Faute {
  std::int64_t echange = 0;
  GenreFaute genre = GenreFaute::Refuse;
  double secondes = 0;  // how long it stays unplugged; 0: for good
  bool operator==(const Faute&) const = default;
};
// "12:before", "40:unplugged:1.5" (a point, whatever the language); nothing for any other text.
std::optional<Faute> LitFaute(std::string_view texte);

// Keys of the keypad, as they stand in byte 11 of a status.
inline constexpr std::uint8_t ToucheHautZ = 1, ToucheBasZ = 2, ToucheGauche = 16, ToucheBas = 32, ToucheHaut = 64,
                              ToucheDroite = 128;

using Axes3 = std::array<std::int64_t, 3>;  // X, Y, Z in steps

struct SortiesCarte {
  bool moteur = false, auxiliaire = false, broche = false;
  std::uint8_t pwm = 0;  // value of spindle and heat
};

struct EcranCarte {
  bool allume = false;
  std::array<std::string, 2> lignes;  // 20 characters each
};

enum class EtatCarte { Repos, EnCours, Attente, Freine, Fini, Arretee };

struct CompteursCarte {
  EtatCarte etat = EtatCarte::Repos;
  std::int64_t echanges = 0;     // since it was made, failed ones too
  std::int64_t acceptes = 0;     // records since the last clearing of the buffer, the end record not among them
  std::int64_t commences = 0;    // of these, begun: the number of the record that runs
  std::int64_t malFormes = 0;    // records that are none (no tick, a negative count of edges), since it was made
  std::int64_t ticks = 0;        // done since the last clearing
  double secondes = 0;           // from the go to the end, the stop, or now
  std::int64_t ticksFamine = 0;  // ticks without a record between the go and the end record
  int remplissage = 0;           // records held, the one that runs among them
  int remplissageMini = 0;       // the least of it between the go and the end record
  Axes3 pas{};                   // steps sent to the motors since it was made, signed
  Axes3 pasPerdus{};             // edges that the machine could not follow
};

// One axis of the machine behind the board. The model sees nothing but edges in time.
struct ModeleAxe {
  double vitesseLibre = 0;  // steps/s at which an axis at rest may begin; 0: follows every edge
  double rampe = 0;         // steps/s^2 by which the rate may change beyond that
  std::int64_t jeu = 0;     // steps that move nothing after a reversal
};
using ModeleMachine = std::array<ModeleAxe, 3>;

// One record that has run, for who wants to hold times against a plan.
struct RecordJoue {
  std::int32_t ticks = 0;
  int depart = 0, sommet = 0;  // levels; 0 and 0 without ramp
  bool rampe = false;
  double secondes = 0;
};

struct FichierCarte {
  std::string chemin;     // empty: none
  std::string misDeCote;  // where a damaged file has gone
  std::string raison;     // why it was set aside, or why nothing can be read or written; empty: all is well
};

// Not safe for use from several threads.
class CarteVirtuelle {
 public:
  CarteVirtuelle() = default;
  CarteVirtuelle(const CarteVirtuelle&) = delete;
  CarteVirtuelle& operator=(const CarteVirtuelle&) = delete;
  virtual ~CarteVirtuelle() = default;

  // The host's side, for a link.
  virtual bool Branchee() = 0;
  virtual std::int32_t Echange(std::array<std::uint8_t, 37>& tampon) = 0;  // as Liaison::Envoie

  // Hands.
  virtual void Appuie(std::uint8_t touches) = 0;  // keys held down; 0: none
  virtual void FinDeCourse(bool enfonce) = 0;     // pressing it stops a movement at once
  virtual void Origine(bool enfonce) = 0;
  virtual void Analogiques(std::uint8_t premiere, std::uint8_t seconde) = 0;
  virtual void Debranche(bool debranchee) = 0;
  virtual void Place(const Axes3& lieu) = 0;  // the machine pushed by hand; the walked path begins anew there
  virtual void Modele(const ModeleMachine& modele) = 0;
  virtual void Fautes(std::vector<Faute> fautes) = 0;
  virtual void Rapide(bool rapide) = 0;

  // Eyes.
  virtual SortiesCarte Sorties() = 0;
  virtual EcranCarte Ecran() = 0;
  virtual Axes3 Lieu() = 0;  // where the machine stands, steps
  virtual ModeleMachine Modele() const = 0;
  virtual CompteursCarte Compteurs() = 0;
  // Where each record ended or was stopped, from the place at which the path began; the last point is `Lieu()`.
  // At most 4,000,000 points: then every second one goes.
  virtual std::vector<Axes3> Parcours() = 0;
  virtual const std::vector<RecordJoue>& Joues() const = 0;
  virtual FichierCarte Fichier() const = 0;
  // Writes the file if anything in it has changed. The board does so itself as soon as a run of writes is over.
  virtual bool Enregistre() = 0;
};

// Null when another program holds the board of this file. A damaged file is kept under another name, a missing one
// is made when there is something to keep.
std::shared_ptr<CarteVirtuelle> CreeCarteVirtuelle(ConditionsCarte conditions);
// The host's side of it.
std::unique_ptr<Liaison> LiaisonVirtuelle(std::shared_ptr<CarteVirtuelle> carte);

}  // namespace zenikcom
