// The only road to the board: one exchange buffer, the status of the last reply, the position counters.
#pragma once

#include <array>
#include <cstdint>
#include <memory>
#include <set>
#include <string>

#include "closed/ZenikCom.h"
#include "controller/ParametresZENIK.h"
#include "core/Types.h"

namespace ovelin {

class ClsCdeZENIK {
 public:
  ClsCdeZENIK();
  explicit ClsCdeZENIK(std::unique_ptr<zenikcom::Liaison> liaison);
  ~ClsCdeZENIK();
  ClsCdeZENIK(const ClsCdeZENIK&) = delete;
  ClsCdeZENIK& operator=(const ClsCdeZENIK&) = delete;

  // Last status reply.
  Drapeau EtatOctet2 = Faux;  // byte 2 differs from 0
  std::uint8_t EtatOctet3 = 0;
  std::int32_t NbBlocsTraites = 0;  // motion records that the board has finished
  std::int32_t NbTicks = 0;         // ticks of the motion record computed last
  std::int32_t TicksRestants = 0;   // ticks left in the running record
  Drapeau EnCours = Faux;           // the board is executing motion
  Drapeau Arret = Faux;
  Drapeau EtatBit3 = Faux, BrocheActive = Faux, EtatBit6 = Faux, EtatBit5 = Faux;
  Drapeau EtatB8Bit0 = Faux, FinDeCourse = Faux, Origine = Faux, EtatB8Bit5 = Faux;
  std::uint8_t Analog1 = 0, Analog2 = 0;  // per cent
  Drapeau ToucheHautZ = Faux, ToucheBasZ = Faux, ToucheGauche = Faux, ToucheBas = Faux, ToucheHaut = Faux,
          ToucheDroite = Faux;
  double TempsBuffer = 0;  // s of motion in the last seven accepted records
  std::string DebugTexte;  // dump of the last record in debug mode
  // Position: steps at the start of the running record, estimated steps, estimated mm. Steps are
  // the whole ones nearest to the mm at the resolution in force.
  std::int32_t PasDebutX = 0, PasDebutY = 0, PasDebutZ = 0;
  std::int32_t PasX = 0, PasY = 0, PasZ = 0;
  double PosX = 0, PosY = 0, PosZ = 0;              // mm
  double OrigineX = 0, OrigineY = 0, OrigineZ = 0;  // kept here for the windows

  bool IsAvailable();
  void Reset();

  // mm per step. The position in mm stays, the steps are counted anew.
  void FixeResolutions(double x, double y, double z);
  [[nodiscard]] double MmParPasX() const { return mmParPas_[0]; }
  [[nodiscard]] double MmParPasY() const { return mmParPas_[1]; }
  [[nodiscard]] double MmParPasZ() const { return mmParPas_[2]; }
  // A position given in mm (the command line's --pos, CB_Origine): it stands as it is given, with the nearest whole
  // steps.
  void FixePosition(double x, double y, double z);

  // The parameters of the table in force (TableDefaut), resolutions and tick rates included. Needs no board, sends
  // nothing: at the start and at each change of table. The position in steps stays, the mm follow it; after a plan
  // that counted in steps of its own (FixeResolutions) the steps are those of before. What had to be held within
  // its range is told in one box, once for each table, key and value.
  void ChargeParametres();
  // Those loaded last; before the first load, those of a table without keys.
  [[nodiscard]] const ParametresZENIK& Parametres() const { return parametres_; }

  // One send. True exactly when the library answered 1; -101 and -102 show their box.
  bool EnvoiCommande(std::int32_t& modeEnvoi);
  // Appends the line to "debug.txt" of the current folder and shows it; no exchange takes place.
  bool JournalDebug();

  zenikcom::TamponOctets Tampon{};  // request and reply at once

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
  // The resolutions of the machine are in force again: those of parametres_.
  void PoseResolutions();

  std::array<double, 3> mmParPas_{1, 1, 1};
  ParametresZENIK parametres_;
  // mm per step at which the machine counts; a plan for a file puts others in force for its time. 0: none yet.
  std::array<double, 3> mmParPasMachine_{};
  std::set<std::string> tenuesDites_;  // values held within their ranges that have been told
  std::int16_t ProfondeurEnvoi = 0;    // sends in progress
  [[maybe_unused]] Drapeau ModeProgrammation = Faux;
  [[maybe_unused]] std::array<Drapeau, 6> EtatClavier{};  // keypad bits of the reply before
};

// The one board object; without a board until somebody installs a link.
extern std::unique_ptr<ClsCdeZENIK> CdeZENIK;

}  // namespace ovelin
