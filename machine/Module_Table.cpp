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

// Steps per turn times two to the power of the division. The power is bounded where no machine reaches.
double PasParTour(const LectureChamp& pas, const LectureChamp& division) {
  const double puissance = LireNombreTable(division);
  return std::ldexp(std::nearbyint(LireNombreTable(pas)), std::clamp(Arrondi32(puissance), -30, 30));
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
  PasTourX = Arrondi32(PasParTour(C::GlobalePasX, C::GlobaleDivisionX));
  PasTourY = Arrondi32(PasParTour(C::GlobalePasY, C::GlobaleDivisionY));
  PasTourZ = Arrondi32(PasParTour(C::GlobalePasZ, C::GlobaleDivisionZ));
  if (TableChargee != nullptr) TableChargee();
}

std::array<double, 3> ResolutionsTable() {
  std::array<double, 3> resolutions{};
  for (std::size_t axe = 0; axe < resolutions.size(); ++axe) {
    double transmission = LireNombreTable(AxesTable[axe].transmission);
    double pas = PasParTour(AxesTable[axe].pas, AxesTable[axe].division);
    if (transmission == 0) transmission = 1;
    if (pas == 0) pas = 400;
    resolutions[axe] = transmission / pas;
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
