#include "workspace/Module_PanneauChamps.h"

#include <cmath>

#include "controller/ClsCdeZENIK.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "manual/Module_Origine.h"
#include "manual/Module_PlaceMan.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/Module_Transforme.h"

namespace ovelin {

namespace {

double Arrondi(double v, double parUnite) { return std::nearbyint(v * parUnite) / parUnite; }

double Valeur(const std::string& texte) { return NombreDuTexte(texte).value_or(0); }

}  // namespace

std::string TexteDeplacement(double mm) {
  const double net = Arrondi(mm, 1e4);
  return Arrondi(net, 10) == net ? Formate(net, "0.0") : TexteNombre(net);
}

ChampEntre AjouteDeplacement(Direction direction, const std::string& texte, double pas) {
  if (!Deplacement_Selection(direction, EnFloat(pas))) return {false, texte};
  return {true, TexteDeplacement(Valeur(texte) + pas)};
}

ChampEntre EntreDeplacement(Direction direction, const std::string& entree, const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  if (!v) return {false, texte};
  const float valeur = EnFloat(*v);
  if (!Deplacement_Selection(direction, valeur - EnFloat(Valeur(entree)))) return {false, texte};
  return {true, TexteDeplacement(valeur)};
}

bool CB_Rotation(int index, const std::string& angle) {
  const auto degres = NombreDuTexte(angle);
  if (!degres) return false;
  const double radians = *degres * Pi / 180;
  Statut(Textes::CalculTrajetOutil);
  const bool faite = TourneSelectionEtTraces(index == 0 ? radians : -radians, CentreSelection());
  EffaceStatut();
  return faite;
}

bool CB_Miroir(int index) {
  const bool faite = MiroirSelectionEtTraces(index == 0 ? AxeMiroir::X : AxeMiroir::Y);
  EffaceStatut();
  return faite;
}

ChampsDimension TaillesPanneau(const std::array<std::string, 2>& TB_Initial, bool proportions) {
  ChampsDimension champs;
  champs.proportions = proportions;
  for (std::size_t i = 0; i < 2; ++i) {
    champs.axes[i].initial = champs.axes[i].resultat = Valeur(TB_Initial[i]);
  }
  return champs;
}

std::string TexteResultat(double mm) { return TexteNombre(Arrondi(mm, 1e3)); }

bool CB_OK_Dimension(const ChampsDimension& champs) {
  return Dimensionne_Selection(champs.axes[0].rapport, champs.axes[1].rapport, champs.proportions);
}

bool CB_Origine() {
  const double dx = OrigineX;
  const double dy = OrigineY;
  if (!PlaceOrigine()) return false;
  CdeZENIK->FixePosition(CdeZENIK->PosX - dx, CdeZENIK->PosY - dy, CdeZENIK->PosZ);
  EcritPlace();
  return true;
}

bool CB_OKRecalage(const std::string& x, const std::string& y) {
  const auto vx = NombreDuTexte(x);
  const auto vy = NombreDuTexte(y);
  return vx && vy && Recale(*vx, *vy);
}

bool CB_Goto(std::int32_t index) {
  if (index < 0 || static_cast<std::size_t>(index) >= TraceInitial.size()) return false;
  const PointTrace& p = TraceInitial[static_cast<std::size_t>(index)];
  return VaAuPoint(static_cast<double>(p.X), static_cast<double>(p.Y));
}

bool CB_PositionOK(std::int32_t index, const std::string& x, const std::string& y) {
  const auto vx = NombreDuTexte(x);
  const auto vy = NombreDuTexte(y);
  return vx && vy && ChangePosition(index, EnFloat(*vx), EnFloat(*vy));
}

std::string TexteProfondeur(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  return v ? Formate(*v, "0.00") : texte;
}

bool EntreProfondeur(const std::string& texte) {
  const auto v = NombreDuTexte(texte);
  return v && ProfondeurSelection(*v > 0 ? -*v : *v);
}

}  // namespace ovelin
