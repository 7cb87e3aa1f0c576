// Settings as values: tool, material, colours, options. ReglagesCourants.h holds those in force, and reads and
// writes them.
#pragma once

#include <cstdint>
#include <string>

#include "core/Couleurs.h"
#include "core/Types.h"

namespace ovelin {

// Steepest angle of a way down along the path, degrees to the surface; what isn't above 0 or is steeper means:
// straight down.
inline constexpr double AngleRampeMax = 45;
constexpr bool EstRampe(double angle) { return angle > 0 && angle <= AngleRampeMax; }

struct Reglages {
  // tool dimensions
  double RayonFraise = 3;          // mm, never negative but for the moment of a refused entry
  std::int16_t DecalageOutil = 1;  // default side; 2: no offset
  double LargeurEncoche = 5;       // mm, width of the bridge left in the material
  // material
  double Vitesse_Mat_H = 2;    // mm/s
  double Vitesse_Mat_V = 2;    // mm/s
  float HautDeg = 10;          // clearance height, mm above the surface
  bool HautDegSaisie = false;  // typed by the user since the settings were read
  double ProfFraisage = -3;    // total depth, mm
  double ProfPasse = -1;       // depth of a pass, mm, negative
  double MiniEncoche = 0;      // mm, height of the bridge above the bottom of the cut
  double AngleRampe = 0;       // degrees to the surface of the way down into a closed path, 0: straight
  std::int16_t ModeZENIK = 0;
  // options
  std::int16_t PCPoche = 15;  // overlap of pockets, per cent
  bool ConfirmSuppr = true;
  std::int32_t TimerInterval = 275;  // ms
  std::int32_t gMaxMRU = 4;
  // colours
  std::int32_t CouleurNumero = Couleur(0, 0, 0);
  std::int32_t CouleurSequence = Couleur(0, 0, 255);
  std::int32_t CouleurInitial = Couleur(0, 0, 0);
  std::int32_t Couleurselectionne = Couleur(100, 0, 0);
  std::int32_t CouleurDecalage = Couleur(255, 0, 0);
  std::int32_t CouleurEncoche = Couleur(0, 0, 100);
  // colours of a G-code program
  std::int32_t CouleurRapide = Couleur(150, 150, 150);
  std::int32_t CouleurCoupe = Couleur(0, 90, 200);
  std::int32_t CouleurPlongee = Couleur(200, 60, 0);
  // picture of the drawing
  bool DessinSobre = true;    // with what is cut, sheet, grid and selection; otherwise lines alone
  bool DessinSaignee = true;  // what the tool takes away is shown
  std::int32_t CouleurSaignee = Couleur(130, 95, 50);
  std::int32_t CouleurEtroit = Couleur(235, 150, 0);    // too narrow for the tool
  std::int32_t CouleurHalo = Couleur(0, 110, 255);      // around the selection
  std::int32_t CouleurCourse = Couleur(120, 130, 145);  // travel of the machine, grid
  std::int32_t CouleurHors = Couleur(225, 0, 90);       // beyond the travel
  // G-code files
  std::string DialecteNC = "own";  // by name
  double VitesseBroche = 10'000;   // turns a minute, 0: not told
  double AttenteBroche = 3;        // s until the spindle turns, 0: none
  // start-up
  std::string TableDefaut = "KR4400";  // machine table in use
  std::string Langue = "fr";           // two letters
  bool DebugZENIK = false;
  float Resolution = 0;            // mm, clean-up tolerance chosen; 0: none
  float ToleranceSoudure = 0.01F;  // mm, ends nearer than this are joined on reading
  bool operator==(const Reglages&) const = default;
};

}  // namespace ovelin
