#include "gcode/Interprete.h"

#include <algorithm>

namespace ovelin {

namespace {

constexpr double SecondesParMinute = 60;
constexpr double EchellePouces = 2.54;  // a tenth of an inch: programs in inches are read at that size, on purpose
constexpr double EchelleMillimetres = 1.0;

// What one line has said so far.
struct Ligne {
  bool x = false, y = false, z = false;  // words that stand on it
  bool mouvement = false;                // G00, G01
  bool arc = false;                      // G02, G03
  [[nodiscard]] bool Cible() const { return x || y || z; }
};

class Passage {
 public:
  Passage(EtatModal& etat, Recepteur& recepteur) : etat_(etat), recepteur_(recepteur) { etat_.ArcR = 0; }

  void Prend(const Mot& mot);
  bool Finit();

 private:
  void PrendG(const Mot& mot);
  void PrendM(const Mot& mot);
  void Origine();
  void ReprendCibles();
  bool FaitArc();
  void Va(const Lieu& arrivee, bool arc);

  EtatModal& etat_;
  Recepteur& recepteur_;
  Ligne ligne_;
  bool change_ = false;  // between absolute and relative
};

void Passage::Prend(const Mot& mot) {
  const double mesure = mot.nombre * etat_.Echelle;
  switch (mot.lettre) {
    case 'N':
    case 'T':
      return;
    case 'F':
      etat_.VitesseF = mot.nombre / SecondesParMinute;
      return;
    case 'X':
      etat_.CibleX = mesure;
      ligne_.x = true;
      return;
    case 'Y':
      etat_.CibleY = mesure;
      ligne_.y = true;
      return;
    case 'Z':
      etat_.CibleZ = mesure;
      ligne_.z = true;
      return;
    case 'I':
      etat_.ArcI = mesure;
      return;
    case 'J':
      etat_.ArcJ = mesure;
      return;
    case 'R':
      etat_.ArcR = mesure;
      return;
    case 'S':
      return recepteur_.Broche(mot.nombre);
    case 'P':
      if (mot.nombre > 0) recepteur_.Pause(mot.nombre);
      return;
    case 'G':
      return PrendG(mot);
    case 'M':
      return PrendM(mot);
    default:
      return recepteur_.Rejete(mot);
  }
}

void Passage::PrendG(const Mot& mot) {
  switch (const std::int32_t numero = NumeroMot(mot)) {
    case 0:
    case 1:
      etat_.Rapide = EnDrapeau(numero == 0);
      etat_.ModeG = static_cast<std::int16_t>(numero);
      ligne_.mouvement = true;
      return;
    case 2:
    case 3:
      etat_.ModeG = static_cast<std::int16_t>(numero);
      ligne_.arc = true;
      return;
    case 4:
      return;
    case 20:
    case 70:
      etat_.Echelle = EchellePouces;
      return;
    case 21:
    case 71:
      etat_.Echelle = EchelleMillimetres;
      return;
    case 90:
      change_ = change_ || etat_.Absolu == Faux;
      etat_.Absolu = Vrai;
      return;
    case 91:
      etat_.Absolu = Faux;
      return;
    case 92:
      return Origine();
    default:
      return recepteur_.Rejete(mot);
  }
}

void Passage::PrendM(const Mot& mot) {
  switch (NumeroMot(mot)) {
    case 2:
    case 30:
      return;
    case 3:
      return recepteur_.Machine(MotMachine::M03);
    case 5:
      return recepteur_.Machine(MotMachine::M05);
    case 6:
      return recepteur_.Machine(MotMachine::M06);
    case 7:
      return recepteur_.Machine(MotMachine::M07);
    case 9:
      return recepteur_.Machine(MotMachine::M09);
    default:
      return recepteur_.Rejete(mot);
  }
}

// The present place becomes the origin; words behind it on the line count from there.
void Passage::Origine() {
  etat_.ActuelX = etat_.ActuelY = etat_.ActuelZ = 0;
  etat_.CibleX = etat_.CibleY = etat_.CibleZ = 0;
}

// An axis that the line doesn't name moves by nothing in relative mode, and stays where it is behind a change back.
void Passage::ReprendCibles() {
  const bool relatif = etat_.Absolu == Faux;
  if (!relatif && !change_) return;
  if (!ligne_.x) etat_.CibleX = relatif ? 0 : etat_.ActuelX;
  if (!ligne_.y) etat_.CibleY = relatif ? 0 : etat_.ActuelY;
  if (!ligne_.z) etat_.CibleZ = relatif ? 0 : etat_.ActuelZ;
}

void Passage::Va(const Lieu& arrivee, bool arc) {
  const bool rapide = etat_.Rapide != Faux;
  recepteur_.Deplace({etat_.Actuel(), arrivee, rapide ? VitesseRapide : etat_.VitesseF, rapide, arc});
  etat_.ActuelX = arrivee.X;
  etat_.ActuelY = arrivee.Y;
  etat_.ActuelZ = arrivee.Z;
}

bool Passage::FaitArc() {
  // The step comes first: without a radius on the line, as in the centre form, there is none.
  const auto pas = PasAngulaire(etat_.ArcR);
  if (!pas) return false;
  const Arc arc = TraceArc({etat_.ActuelX, etat_.ActuelY}, {etat_.CibleX, etat_.CibleY}, etat_.ArcI, etat_.ArcJ,
                           etat_.ArcR, *pas);
  if (arc.defaut != DefautArc::Aucun) recepteur_.Arc(arc.defaut);
  for (const PointArc& p : arc.points) Va({p.X, p.Y, etat_.CibleZ}, true);
  return true;
}

bool Passage::Finit() {
  ReprendCibles();
  if (ligne_.arc && !FaitArc()) return false;
  if (!ligne_.mouvement && !ligne_.Cible()) return true;
  const Lieu cible = etat_.Cible();
  if (etat_.Absolu != Faux) {
    Va(cible, false);
  } else {
    Va({etat_.ActuelX + cible.X, etat_.ActuelY + cible.Y, etat_.ActuelZ + cible.Z}, false);
  }
  return true;
}

}  // namespace

std::optional<double> PartBroche(double tours, double maxi) {
  if (!(maxi > 0)) return std::nullopt;
  return std::clamp(tours / maxi, 0.0, 1.0) * 100;
}

bool InterpreteMots(std::span<const Mot> mots, EtatModal& etat, Recepteur& recepteur) {
  Passage passage(etat, recepteur);
  for (const Mot& mot : mots) passage.Prend(mot);
  return passage.Finit();
}

}  // namespace ovelin
