// The settings in force: tool, material, colours, options. Read from the settings file with the project's
// overrides, written back by group.
#pragma once

#include <cstdint>
#include <string>

#include "core/Types.h"

namespace ovelin {

// Colours are red + 256 x green + 65536 x blue.
constexpr std::int32_t Couleur(int rouge, int vert, int bleu) { return rouge + 256 * vert + 65536 * bleu; }

struct Reglages {
  // tool dimensions
  double RayonFraise = 3;          // mm, never negative but for the moment of a refused entry
  std::int16_t DecalageOutil = 1;  // default side; 2: no offset
  double LargeurEncoche = 5;       // mm, width of the bridge left in the material
  // material
  double Vitesse_Mat_H = 2;  // mm/s
  double Vitesse_Mat_V = 2;  // mm/s
  float HautDeg = 10;        // clearance height, mm above the surface
  double ProfFraisage = -3;  // total depth, mm
  double ProfPasse = -1;     // depth of a pass, mm, negative
  double MiniEncoche = 0;    // mm, height of the bridge above the bottom of the cut
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
  // start-up
  std::string TableDefaut = "KR4400";  // machine table in use
  std::string Langue = "fr";           // two letters
  bool DebugZENIK = false;
  float Resolution = 0;            // mm, clean-up tolerance chosen; 0: none
  float ToleranceSoudure = 0.01F;  // mm, ends nearer than this are joined on reading
};

extern Reglages Regl;

inline constinit auto& RayonFraise = Regl.RayonFraise;
inline constinit auto& DecalageOutil = Regl.DecalageOutil;
inline constinit auto& LargeurEncoche = Regl.LargeurEncoche;
inline constinit auto& Vitesse_Mat_H = Regl.Vitesse_Mat_H;
inline constinit auto& Vitesse_Mat_V = Regl.Vitesse_Mat_V;
inline constinit auto& HautDeg = Regl.HautDeg;
inline constinit auto& ProfFraisage = Regl.ProfFraisage;
inline constinit auto& ProfPasse = Regl.ProfPasse;
inline constinit auto& MiniEncoche = Regl.MiniEncoche;
inline constinit auto& PCPoche = Regl.PCPoche;
inline constinit auto& TableDefaut = Regl.TableDefaut;

// Each group read through the key store (project first, then the settings file, then the default).
void LitMateriau();  // Vitesse_Mat_H, Vitesse_Mat_V, HautDeg, ProfFraisage, ProfPasse, MiniEncoche, ModeZENIK
void LitCouleurs();
void LitOptions();  // PCPoche, ConfirmSuppr, TimerInterval, gMaxMRU; ToleranceSoudure from the settings file alone
void LitOutil();    // DecalageOutil, RayonFraise, LargeurEncoche

// All four groups in the order in which an opening or an undo reads them.
void LitReglagesDocument();

// Each group written through the key store, in the order in which a project holds it.
void EcritMateriau();
void EcritCouleurs();
void EcritOptions();  // gMaxMRU with FichierProjet blanked for the moment
void EcritOutil();
void EcritSoudure();  // ToleranceSoudure, into the settings file alone

// The six colours of the button that restores them: other values, partly under other keys than those read; kept so.
void EcritCouleursDefaut();

// First start: TableDefaut, Langue, DebugZENIK from the settings file with their built-in defaults.
void LitReglagesDemarrage();

// Writes the default settings file when there is none. The question of the power interface is asked through the
// services (keys "401" and "402" of "erreurs"): OK gives 0 and 20, Cancel 1 and 0. False when the file can't be
// written; nothing is left behind then, and the reason stands in `Magasin.DerniereErreur`.
bool EcritFichierDefaut();

}  // namespace ovelin
