// The only road to the board: one exchange buffer, the status of the last reply, the position counters.
#pragma once

#include <array>
#include <cstdint>
#include <functional>
#include <initializer_list>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "closed/ZenikCom.h"
#include "controller/BlocsTable.h"
#include "controller/Mouvement.h"
#include "controller/ParametresZENIK.h"
#include "controller/ReponseEtat.h"
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
  // s for which every exchange has failed, counted from the first of them; 0 where the last one was answered.
  [[nodiscard]] double Silence() const;

  // mm per step. The position in mm stays, the steps are counted anew.
  void FixeResolutions(double x, double y, double z);
  [[nodiscard]] double MmParPasX() const { return mmParPas_[0]; }
  [[nodiscard]] double MmParPasY() const { return mmParPas_[1]; }
  [[nodiscard]] double MmParPasZ() const { return mmParPas_[2]; }
  // A position given in mm (the command line's --pos, CB_Origine): it stands as it is given, with the nearest whole
  // steps.
  void FixePosition(double x, double y, double z);

  // The resolutions and the counters of the machine are in force again, behind a plan that counted in steps of its
  // own (FixeResolutions).
  void PoseResolutions();

  // The parameters of the table in force (TableDefaut), resolutions and tick rates included. Needs no board, sends
  // nothing: at the start and at each change of table. The position in steps stays, the mm follow it; after a plan
  // that counted in steps of its own (FixeResolutions) the steps are those of before. What had to be held within
  // its range is told in one box, once for each table, key and value.
  void ChargeParametres();
  // Those loaded last; before the first load, those of a table without keys.
  [[nodiscard]] const ParametresZENIK& Parametres() const { return parametres_; }

  // --- Motion and outputs ------------------------------------------------------------------------------------
  // All arguments in steps, mm, mm/s and s. "Once" is one exchange whatever comes back. "For ever" is the exchange
  // again, with the events of the program between, until it succeeds; it ends without success when the link has
  // said for two seconds that nothing is there, or when the program is closing.

  // What is on the board is not known: an exchange of this job failed behind which it may have been taken (a
  // record, the end, the go), or the job could not be opened. Nothing of it is sent any more: records and the end
  // are refused until EnvoiUSB, EnvoiFLASH or ResetBuffer begins anew. Whoever repeats CommandeDATA or
  // CommandeDATAend looks here, and ends the job by its stop.
  Drapeau TravailIncertain = Faux;
  // A go has been sent in this job, whatever became of it: before that nothing can have moved.
  [[nodiscard]] bool GoDemande() const { return goDemande_; }
  // The board has said of this job that it has come to its end.
  Drapeau FinDite = Faux;

  // One straight move, relative, not yet a promise that it runs. True: accepted (or `Arret` shows in the reply).
  // False: the buffer is full, try again later, or TravailIncertain is set, then never again. `V` is lowered to
  // what the axes can do, `T` is the duration; NbTicks the ticks of the record. A move of nothing asks for the
  // status and counts as accepted, with the T that came in. With `simulation` nothing is sent, no counter moves,
  // the result is false. With ModeEnvoiTable 1 or 2 the record joins ListeFlash instead, with DebugZENIK the debug
  // log: true, no counter moves. At the seventh record the board is told to go. Outside a run (RunActif,
  // FraisageEnCours) the accepted records become the rows of TableDecoupe, from 1 on: the first behind EnvoiUSB
  // clears it. In a run the caller's table stands and the caller puts NbTicks into the row.
  bool CommandeDATA(std::int32_t dX, std::int32_t dY, std::int32_t dZ, float& V, float& T, bool simulation);
  bool CommandeDATAmm(float dX, float dY, float dZ, float& V, float& T);
  // The record of a move that is not nothing, by the parameters and resolutions in force; nothing is sent.
  [[nodiscard]] Mouvement Calcule(const std::array<std::int32_t, 3>& pas, float v);
  // The end of a streamed job, once. Tells a job of fewer than seven records to go. True: accepted.
  bool CommandeDATAend();

  // Forgets what the board has buffered; no job is open. Once; false: not answered.
  bool ResetBuffer();
  // Begins a streamed job, or the stored one in block `index` (`taille` bytes; 0: up to its end mark). Counters,
  // TempsBuffer and the end mark of the position begin anew, PasDebut is Pas, the resolutions are those of the
  // table. False: not answered, no job is open, TravailIncertain is set: tell the user and send nothing.
  bool EnvoiUSB();
  bool EnvoiFLASH(std::uint8_t index, std::int16_t taille);
  // The go, once; false: not answered. The board keeps it until the buffer is cleared, so it may be repeated.
  bool GoBuffer();
  // The go, for ever. False: nobody knows whether the board runs, TravailIncertain is set.
  bool RepeteGo();
  // Stops: `mode` 0 at once (`palier` 0), 1 by the ramp down to `palier` (Calc_FDEC), and waits until the board
  // stands. For ever. Behind it the position is that of the board, to the step.
  void StopResume(std::uint8_t mode, std::uint8_t palier);
  // The level below which the highest speeds of the table need no ramp.
  [[nodiscard]] std::uint8_t Calc_FDEC();

  // The status, once: all members of the last reply and the position. A reply that can't be true is left alone, as
  // a failed one is: one whose count lies below the last or beyond the records of this job, or whose ticks do not
  // lie within their record.
  void DemandeInformation();
  bool IsStepProcessed();  // once; the board is executing motion. Nothing else is taken from the reply
  bool Touche();           // once; a key of the board's keypad is down

  bool CommandePWM(std::uint8_t canal, std::uint8_t valeur);  // for ever; channel 0 off, 1 on; always true
  void ChauffeEcrire(std::uint8_t valeur);                    // once
  void ChauffeEcrirePC(std::int16_t& pourcent);               // once; held within 0 to 100 in the caller's variable
  std::string ChauffeLire();                                  // once; four characters
  void MotorOnOff(bool etat);                                 // once
  void IO1OnOff(bool etat);                                   // once
  // For ever; a text of more than 20 characters is cut, in the caller's variable, too.
  void DisplaySend(std::string& texte, std::uint8_t ligne, std::uint8_t colonne);
  void DisplayEnable(bool etat);  // once; cleared before it is switched on
  void DisplayClear();            // once

  [[nodiscard]] double Pas_mm_X(std::int32_t pas) const { return pas * mmParPas_[0]; }
  [[nodiscard]] double Pas_mm_Y(std::int32_t pas) const { return pas * mmParPas_[1]; }
  [[nodiscard]] double Pas_mm_Z(std::int32_t pas) const { return pas * mmParPas_[2]; }
  // -----------------------------------------------------------------------------------------------------------

  // One send. True exactly when the library answered 1; -101 and -102 show their box.
  bool EnvoiCommande(std::int32_t& modeEnvoi);
  // Shows the line and appends it to "debug.txt" of the current folder; no exchange takes place. A file that can't
  // be written is told, once until a line gets in.
  bool JournalDebug();

  zenikcom::TamponOctets Tampon{};  // request and reply at once

 private:
  std::unique_ptr<zenikcom::Liaison> liaison_;
  // --- Motion and outputs ------------------------------------------------------------------------------------
  enum class Travail { Aucun, Flux, Liste };  // the job that this object has opened

  static constexpr double PauseEssai = 0.005;             // s between two sends of a command that is tried for ever
  bool EnvoiUne();                                        // the buffer as it stands, mode 0
  bool EnvoiSansFin(const std::function<void()>& ecrit);  // for ever; `ecrit` fills the buffer before each send
  bool EnvoiTampon(std::uint8_t mode, std::uint8_t index = 0, std::uint16_t taille = 0);
  void SuitLiaison(bool repondu);
  [[nodiscard]] bool FinDesEssais() const;
  bool OuvreTravail(Travail travail, std::uint8_t index, std::uint16_t taille);
  void Perdu();

  CalculMouvement& Calcul();  // at the multiplier and slope in force
  bool SansMouvement(float& t, bool simulation);
  void AjouteListe();
  // A reply to `D`: whether the record was accepted; nothing when the reply can't be true.
  bool EnvoiRecord(std::int32_t mode, bool& accepte);
  void CompteBloc(float t);
  void AjouteLigne(const Mouvement& m);

  [[nodiscard]] bool Croyable(const ReponseEtat& etat, std::int32_t enPlus) const;
  void LectureEtat(const ReponseEtat& etat);
  void LitTouches(std::uint8_t touches);
  void SuitPosition(const ReponseEtat& etat);
  void AvanceSuivi();
  bool LitStop();

  CalculMouvement calcul_{2, 16'384};
  Travail travail_ = Travail::Aucun;
  bool goDemande_ = false;              // since the job was opened
  bool court_ = false;                  // the go is given, neither end nor stop has been seen
  bool ligneUne_ = false;               // the next record outside a run begins a table of its own
  bool vitesseDite_ = false;            // a speed that is none has been told in this job
  bool positionClose_ = false;          // a stop has been read: the position stays until the next job
  std::int64_t borneBlocs_ = 0;         // records that the board may count in this job
  double montree_ = -1;                 // s; the place was shown then
  double muetteDepuis_ = -1;            // s; no exchange has been answered since then
  double absenteDepuis_ = -1;           // s; the link has said since then that nothing is there
  Drapeau FinTravail = Faux;            // the position at the end of the job has been taken
  std::int32_t NbBlocsEnvoyes = 0;      // records accepted since the job was begun, moves of nothing among them
  std::array<double, 7> DureesBlocs{};  // s, of the last seven accepted records, whatever has run
  std::int16_t IndexDuree = 0;          // 1 to 7: where the last one stands
  // -----------------------------------------------------------------------------------------------------------

  std::array<double, 3> mmParPas_{1, 1, 1};
  ParametresZENIK parametres_;
  // mm per step at which the machine counts; a plan for a file puts others in force for its time. 0: none yet.
  std::array<double, 3> mmParPasMachine_{};
  // The steps of the machine while such a plan counts, with the place in mm at which it found them.
  struct PasMachine {
    std::array<std::int32_t, 3> pas{}, debut{};
    std::array<double, 3> mm{};
  };
  PasMachine machine_;
  bool debugRefuse_ = false;             // told that debug.txt can't be written
  std::set<std::string> tenuesDites_;    // values held within their ranges that have been told
  std::int16_t ProfondeurEnvoi = 0;      // sends in progress
  std::array<Drapeau, 6> EtatClavier{};  // keypad bits of the reply before

 public:
  // The record of a move by the parameters that are loaded; nothing is sent. `pas` are not all 0, v in mm/s.
  [[nodiscard]] Mouvement MouvementDe(const std::array<std::int32_t, 3>& pas, float v) { return Calcule(pas, v); }

  // --- memories of the board ---------------------------------------------------------------------------------
  // Flash memory (Flash.cpp): blocks 0 to 31 of 65,536 bytes, pages of 32. One send each, nothing is shown; of an
  // exchange that failed a text is read all the same, a yes never.
  std::string FlashModel();  // the four bytes of the chip's model, each with two digits or more
  bool Flash_Model();        // a chip is fitted
  // Always false: nobody learns whether it was erased but by writing.
  bool Flash_Erase(std::uint8_t bloc);
  // At most 32 bytes; true when the board confirms that they stand there.
  bool Flash_Write(std::uint8_t bloc, std::uint16_t adresse, std::span<const std::uint8_t> octets);
  // The 32 bytes from that address on. False: the exchange failed, and they are whatever the buffer held.
  bool Flash_Read(std::uint8_t bloc, std::uint16_t adresse, std::span<std::uint8_t, 32> octets);
  // The whole array from block 0 on, each block erased before, pending events between the pages. What has not been
  // confirmed stands in PagesNonConfirmees; then nothing may be run from there. A board that is gone ends it.
  void Flash_Tab(std::span<const std::uint8_t> octets);
  std::int32_t PagesNonConfirmees = 0;  // of the last Flash_Tab

  // Programming lines (KR4400.cpp), to a PIC 16F87x. Addresses: 0 to 8191 words of the program, from 8192 the
  // configuration, from 8448 the data memory. False: an exchange failed.
  bool KR4400_LVP(bool etat);    // enters the programming mode, or leaves it; the target counts from 0 again
  std::string KR4400_Version();  // "PIC 16F870 Rev 5"; "____" where nothing answers that is known
  bool KR4400_Erase_Program();
  bool KR4400_Erase_Data();
  bool KR4400_Increment();
  // True when the target then reads back `valeur`. 255 into the data memory is what an erased cell holds: skipped.
  bool KR4400_Send_Data(std::int32_t adresse, std::uint16_t valeur);
  std::uint16_t KR4400_Read_Data(std::int32_t adresse);
  bool KR4400_Send_CW(std::uint16_t valeur);
  std::uint16_t KR4400_Read_CW();

  // Tables of the machine on the board (TablesCarte.cpp), numbers 0 to 3. One send each.
  // The table in force stands on the board, is its default, and its parameters are loaded. False: there is no
  // board, it is too old, the name can't stand there, or an exchange was lost. Where the board's table differs the
  // user is asked, once for the same differences; with the answer no the board keeps its own values and this is
  // true.
  bool TableVerif();
  // The number of the table of that name, -1 for none. Blanks at both ends don't count; a name of more than eight
  // characters is never found.
  std::int16_t TableRecherche(const std::string& nom);
  std::string TableLectureNom(std::uint8_t table);
  // Reads that table from the settings; steps, travel and slope are those of the parameters in force. Values that
  // 16 bits don't hold are told first, once, and then cut.
  void TableEcrire(const std::string& nom, std::uint8_t table);
  void TableDefautEcrire(std::uint8_t table);
  std::uint8_t TableDefautLire();
  // What `avant` has told and been answered holds here, too.
  void Reprend(const ClsCdeZENIK& avant);
  // An exchange of the tables was lost since the last check or choice of a table began.
  [[nodiscard]] bool EchangePerdu() const { return echangePerdu_; }
  // Another table is in force: its parameters are loaded, and a board that has it takes it as its default.
  void SuitTable();
  std::string DemandeVersion();  // the bytes of the answer, "ZENIK v0.32" or later

 private:
  bool Ordre(char lettre, std::initializer_list<std::uint8_t> octets);  // the letter, then these bytes from 2 on
  bool OrdreMot(std::uint8_t commande, std::uint16_t mot);
  bool EffacePuce(std::uint8_t charge);
  bool VaA(std::int32_t adresse);  // the target's counter stands there
  std::optional<std::uint16_t> MotPuce(std::int32_t adresse);
  std::int32_t AdresseCourante = 0;  // of the target
  Drapeau ModeProgrammation = Faux;  // the target is addressed in its data memory

  [[nodiscard]] std::string TexteDe(std::size_t premier, std::size_t dernier) const;  // up to the first 0
  bool OrdreTable(std::uint8_t commande, std::uint8_t table);
  std::string NomSurCarte(std::uint8_t table);  // in the board's characters
  bool TableCompare(std::uint8_t table);        // leaves the differences of the first block that has any
  void EcritBloc(std::uint8_t commande, std::uint8_t table, const std::array<std::uint8_t, 33>& bloc);
  static void RefuseNom(const std::string& nom);
  void DitDebords(const std::string& nom, const ParametresZENIK& p);
  bool VeutEcrire(std::uint8_t table);
  void AccordeTable(std::uint8_t table);
  void PlaceTable();
  std::vector<EcartTable> ecarts_;
  bool echangePerdu_ = false;                   // of the tables, since the check began
  std::map<std::string, bool> reponsesTables_;  // to the question whether a table is to be written
  std::set<std::string> debordsDits_;
};

// The one board object; without a board until somebody installs a link.
extern std::unique_ptr<ClsCdeZENIK> CdeZENIK;

}  // namespace ovelin
