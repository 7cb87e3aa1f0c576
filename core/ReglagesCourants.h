// The settings in force, and their members under their own names. For shells alone: a kernel takes what it needs of
// them as values and never includes this.
#pragma once

#include <vector>

#include "base/SansCopie.h"
#include "core/Reglages.h"

namespace ovelin {

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
inline constinit auto& AngleRampe = Regl.AngleRampe;
inline constinit auto& PCPoche = Regl.PCPoche;
inline constinit auto& TableDefaut = Regl.TableDefaut;

// Each group read through the key store (project first, then the settings file, then the default).
void LitMateriau();  // Vitesse_Mat_H, Vitesse_Mat_V, HautDeg, ProfFraisage, ProfPasse, MiniEncoche, ModeZENIK;
                     // AngleRampe
void LitCouleurs();
void LitCouleursGcode();  // CouleurRapide, CouleurCoupe, CouleurPlongee, from the settings file alone
void LitOptions();   // PCPoche, ConfirmSuppr, TimerInterval, gMaxMRU; ToleranceSoudure from the settings file alone
void LitImage();     // DessinSobre, DessinSaignee and the colours of what only the quiet picture shows, likewise
void LitSortieNC();  // DialecteNC, VitesseBroche, AttenteBroche, likewise
void LitOutil();     // DecalageOutil, RayonFraise, LargeurEncoche

// The groups in the order in which an opening or an undo reads them.
void LitReglagesDocument();

// Each group written through the key store, in the order in which a project holds it.
void EcritMateriau();
void EcritCouleurs();
void EcritOptions();  // gMaxMRU with FichierProjet blanked for the moment
void EcritOutil();
// What EcritMateriau writes; what EcritOutil and EcritOptions do.
std::vector<std::string> ClesMateriau();
std::vector<std::string> ClesOutilEtOptions();
// AngleRampe. A file that never had an angle gets no line of 0: a project without ramps is the file that it always
// was, and opens without them whatever the settings have.
void EcritRampe();
void EcritSoudure();   // ToleranceSoudure, into the settings file alone
void EcritSortieNC();  // DialecteNC, VitesseBroche, AttenteBroche, likewise
void EcritImage();     // DessinSobre and DessinSaignee, likewise

// While one stands, EcritMateriau, EcritOptions, EcritOutil and EcritRampe write nothing: what is typed into a
// drawing that may yet be taken back reaches no file. One at a time.
class SursisReglages : base::SansCopie {
 public:
  SursisReglages();
  ~SursisReglages();
  // Ends it: the groups that were due are written with the values in force. Without it they are forgotten.
  void Ecrit();

  using Ecriture = void (*)();
  // True: one stands, and that writing is due.
  static bool Attend(Ecriture ecriture);

 private:
  std::vector<Ecriture> dues_;
};

// The six colours of the button that restores them: other values, partly under other keys than those read; kept so.
void EcritCouleursDefaut();

}  // namespace ovelin
