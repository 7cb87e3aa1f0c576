// The speed test: axes run back and forth at rising speed, until their user hears or sees them lose steps.
#pragma once

#include <functional>

#include "machine/essais/ReglageEssai.h"

namespace ovelin {

// What the window shows of a test.
struct VueEssai {
  std::function<void(bool enCours)> EnCours;  // it begins, it has ended, whatever the reason
  // A pass begins at V mm/s; `tenue` is the highest speed that the axes of the table let it reach.
  std::function<void(double v, double tenue)> Passe;
  std::function<void(double v)> Passee;  // there and back again, the last step done
};
extern VueEssai Vue_Essai;

enum class IssueEssai {
  Refusee,   // nothing has moved; why was told
  Terminee,  // up to the end speed
  Arretee,   // by the user, or by a board that is gone (told)
};

// The test of Cmd_GO, for fields that LitReglageEssai has taken. `pauses`: a question (lib008) behind each pass,
// whose No ends the test. The spindle is never switched, and Vitesse_Mat_H stays: the speed stands in the rows.
// While it runs TestEnCours is set. Returns when the last step is done.
IssueEssai Cmd_GO(const ReglageEssai& reglage, bool pauses);
// Stops at once.
void Cmd_Stop();

// The fields of the test as the settings file keeps them.
ChampsEssai LitChampsEssai();
void EcritChampsEssai(const ChampsEssai& champs);

}  // namespace ovelin
