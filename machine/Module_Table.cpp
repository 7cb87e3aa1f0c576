#include "machine/Module_Table.h"

#include <algorithm>
#include <cmath>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "machine/GlobalesTable.h"
#include "machine/TableCourante.h"

namespace ovelin {

TableMachine Table;
void (*TableChargee)() = nullptr;

const std::array<float, 9> TempsDouble{0.021875F, 0.04375F, 0.0875F, 0.175F, 0.35F, 0.7F, 1.4F, 2.8F, 5.6F};

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] {
  Table = TableMachine{};
  TableChargee = nullptr;
});

// Whole steps of a motor, each divided by two to the power of the division.
double PasDivises(double pas, const LectureChamp& division) {
  return std::ldexp(std::nearbyint(pas), std::clamp(Arrondi32(LireNombreTable(division)), 0, DivisionMaxi));
}

struct AxeTable {
  ChampMachine transmission, pas, division;
};
constexpr std::array<AxeTable, 3> AxesTable{{
    {ChampsMachine::TransmissionX, ChampsMachine::PasParTourX, ChampsMachine::DivisionX},
    {ChampsMachine::TransmissionY, ChampsMachine::PasParTourY, ChampsMachine::DivisionY},
    {ChampsMachine::TransmissionZ, ChampsMachine::PasParTourZ, ChampsMachine::DivisionZ},
}};

}  // namespace

double LireNombreTable(const LectureChamp& lecture) {
  return LireNombreSection(SectionTable(TableDefaut), lecture.champ.Cle(), lecture.Nombre());
}

// Steps per turn are 200 for the board check, 48 here.
void ChargeGlobalesTable() {
  for (const GlobaleTable& g : GlobalesTable()) g.pose(Table, LireNombreTable(g.champ));
  using C = ChampsMachine;
  PasTourX = Arrondi32(PasDivises(LireNombreTable(C::GlobalePasX), C::GlobaleDivisionX));
  PasTourY = Arrondi32(PasDivises(LireNombreTable(C::GlobalePasY), C::GlobaleDivisionY));
  PasTourZ = Arrondi32(PasDivises(LireNombreTable(C::GlobalePasZ), C::GlobaleDivisionZ));
  if (TableChargee != nullptr) TableChargee();
}

double TenuHorsDeZero(double v, double mini, double maxi, double remplace) {
  return v == 0 ? remplace : std::copysign(std::clamp(std::fabs(v), mini, maxi), v);
}

std::array<double, 3> ResolutionsTable() {
  std::array<double, 3> resolutions{};
  for (std::size_t axe = 0; axe < resolutions.size(); ++axe) {
    const AxeTable& a = AxesTable[axe];
    const double transmission =
        TenuHorsDeZero(LireNombreTable(a.transmission), TransmissionMini, TransmissionMaxi, 1);
    const double pas = TenuHorsDeZero(LireNombreTable(a.pas), 1, PasMoteurMaxi, 200);
    resolutions[axe] = transmission / PasDivises(pas, a.division);
  }
  return resolutions;
}

double ResolutionFine() {
  const auto r = ResolutionsTable();
  return std::min(std::fabs(r[0]), std::fabs(r[1]));
}

// The decimals of the table's own width: 0.175 is shown as 0.18, not as the 0.17 that its 64-bit neighbour gives.
std::string TextePente(int curseur) {
  const auto rang = base::Indice(std::clamp(curseur, 1, base::Compte(TempsDouble.size())) - 1);
  const double temps = NombreDuTexte(TexteNombre(TempsDouble[rang])).value_or(0);
  return Traduire(Textes::VitesseDoubleEn) + " " + Formate(temps, "###0.00") + " " + Traduire(Textes::Secondes);
}

}  // namespace ovelin
