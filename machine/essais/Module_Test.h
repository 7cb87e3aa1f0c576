// One motion record sent by hand, with the bytes that it consists of.
#pragma once

#include <array>
#include <optional>
#include <string>

namespace ovelin {

// Texts as they are typed: mm and mm/s.
struct SaisieTest {
  std::array<std::string, 3> distances;
  std::string vitesse;
};
struct ResultatTest {
  std::string VDeb;    // mm/s at which the move may begin without a ramp, as a text
  std::string retour;  // the bytes in their groups; empty unless DebugZENIK is set
  std::string temps;   // s that the record lasts, as a text
  bool envoye = false;
};

// Every field holds a number.
bool SaisieComplete(const SaisieTest& saisie);
// TB_VDeb for these distances, "" while one is no number.
std::string VitesseDebutTest(const SaisieTest& saisie);
// CB_Envoi: opens a job and sends the one record, by the absolute distances. It is not told to go: nothing moves.
ResultatTest CB_Envoi(const SaisieTest& saisie);

}  // namespace ovelin
