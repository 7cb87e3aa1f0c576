// The interpreter of a G-code program, one line at a time, with one set of rules for measuring and for running.
// Where the line leads is told to a receiver; the interpreter itself moves nothing and shows nothing.
#pragma once

#include <cstdint>
#include <optional>
#include <span>

#include "core/Types.h"
#include "gcode/Arc.h"
#include "gcode/Mots.h"

namespace ovelin {

struct Lieu {
  double X = 0, Y = 0, Z = 0;  // mm
  bool operator==(const Lieu&) const = default;
};

// What the interpreter carries from line to line, as it is at the start of each pass.
struct EtatModal {
  std::int16_t ModeG = 0;  // last motion word: 0, 1, 2, 3
  Drapeau Rapide = Faux;
  Drapeau Absolu = Vrai;
  double Echelle = 1.0;                          // on X, Y, Z, I, J, R
  double VitesseF = 0;                           // mm/s; 0: no F yet
  double ActuelX = 0, ActuelY = 0, ActuelZ = 0;  // mm
  double CibleX = 0, CibleY = 0, CibleZ = 0;     // mm; kept from line to line in absolute mode
  double ArcI = 0, ArcJ = 0;                     // mm; kept from line to line
  double ArcR = 0;                               // mm; of this line alone

  [[nodiscard]] Lieu Actuel() const { return {ActuelX, ActuelY, ActuelZ}; }
  [[nodiscard]] Lieu Cible() const { return {CibleX, CibleY, CibleZ}; }
};

// Speed of a rapid move, mm/s: more than any axis can do, which the motion record holds within the axes' own.
inline constexpr double VitesseRapide = 9999.0;

struct MouvementLigne {
  Lieu depart, arrivee;  // mm in the program's coordinates, also in relative mode
  double vitesse = 0;    // mm/s; 0: no speed is in force
  bool rapide = false;
  bool arc = false;  // to a point of an arc
};

enum class MotMachine : std::uint8_t { M03, M05, M06, M07, M09 };

// Each call comes in the order of the words, the moves behind the words of their line.
class Recepteur {
 public:
  Recepteur() = default;
  Recepteur(const Recepteur&) = delete;
  Recepteur& operator=(const Recepteur&) = delete;
  virtual ~Recepteur() = default;

  virtual void Deplace(const MouvementLigne& mouvement) = 0;
  virtual void Machine(MotMachine mot) = 0;
  virtual void Pause(double secondes) = 0;  // above 0
  virtual void Broche(double tours) = 0;    // S: nothing is sent for it
  virtual void Rejete(const Mot& mot) = 0;  // a word that the interpreter doesn't know; the next one is taken
  virtual void Arc(DefautArc defaut) = 0;   // told; the program goes on
};

// The speed of an S word as a share of the spindle's top speed (both turns a minute), 0 to 100 per cent. Nothing
// where no top speed is known.
std::optional<double> PartBroche(double tours, double maxi);

// Interprets the words of one line. False when the line failed in the middle (an arc without a usable radius): what
// came before it stands.
bool InterpreteMots(std::span<const Mot> mots, EtatModal& etat, Recepteur& recepteur);

}  // namespace ovelin
