#include "manual/Module_Origine.h"

#include <algorithm>
#include <cstdint>

#include "controller/ClsCdeZENIK.h"
#include "core/ChampsMachine.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "machine/Module_Table.h"
#include "manual/Module_PilMan.h"
#include "manual/Module_PlaceMan.h"
#include "run/Module_Planificateur.h"

namespace ovelin {

namespace {

void Zero(std::int32_t& debut, std::int32_t& pas, double& mm) {
  debut = pas = 0;
  mm = 0;
}

// The first row of each way: whatever the height, the tool ends at clearance.
void MonteADegagement() {
  InitDecoupe();
  AjoutDeplacementZ(EnFloat(static_cast<double>(HautDeg) - CdeZENIK->PosZ), Faux, 0);
}

}  // namespace

void FixeOrigine(const AxesChoisis& axes) {
  ClsCdeZENIK& c = *CdeZENIK;
  if (OperationCarte || c.EnCours != Faux) {
    Svc.Bip();
    return;
  }
  c.PoseResolutions();
  if (axes.X) Zero(c.PasDebutX, c.PasX, c.PosX);
  if (axes.Y) Zero(c.PasDebutY, c.PasY, c.PosY);
  if (axes.Z) Zero(c.PasDebutZ, c.PasZ, c.PosZ);
  if (axes.X && axes.Y && axes.Z) PilMan.placeDouteuse = false;
  EcritPlace();
  Svc.MontrePosition(c.PosX, c.PosY, c.PosZ);
  Svc.MarquePosition(c.PosX, c.PosY);
}

bool RetourOrigine(const AxesChoisis& axes, bool vitesseTable) {
  StopDemande = Faux;
  if (!PretParMain()) return false;
  float v = PilMan.Vitesse;
  if (vitesseTable) {
    v = EnFloat(std::min(LireNombreTable(ChampsMachine::JogMaxX), LireNombreTable(ChampsMachine::JogMaxY)));
  }
  const float z = EnFloat(CdeZENIK->PosZ);
  MonteADegagement();
  AjoutDeplacementRelatif(axes.X ? -EnFloat(CdeZENIK->PosX) : 0, axes.Y ? -EnFloat(CdeZENIK->PosY) : 0, Faux, v);
  AjoutDeplacementZ(axes.Z ? -HautDeg : -HautDeg + z, Faux, 0);
  LanceParMain(PilMan.Vitesse, false);
  return true;
}

bool VaAuPoint(double x, double y) {
  if (!CdeZENIK->IsAvailable()) {
    Message(Textes::CarteNonConnectee, Icone::Critique);
    return false;
  }
  if (!PretParMain()) {
    Svc.Bip();
    return false;
  }
  MonteADegagement();
  AjoutDeplacementRelatif(EnFloat(x - CdeZENIK->PosX), EnFloat(y - CdeZENIK->PosY), Faux, PilMan.Vitesse);
  LanceParMain(PilMan.Vitesse, false);
  return true;
}

}  // namespace ovelin
