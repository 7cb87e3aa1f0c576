#include "machine/Module_Table.h"

#include <algorithm>
#include <cmath>

#include "core/Cles.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Traduction.h"
#include "machine/TableCourante.h"

namespace ovelin {

TableMachine Table;

const std::array<float, 9> TempsDouble{0.021875F, 0.04375F, 0.0875F, 0.175F, 0.35F, 0.7F, 1.4F, 2.8F, 5.6F};

namespace {

[[maybe_unused]] const bool enregistree = EnregistreRemise([] { Table = TableMachine{}; });

std::string Cle(std::string_view famille, int index) { return std::string(famille) + "_" + std::to_string(index); }

// Steps per turn times two to the power of the division. The power is bounded where no machine reaches.
double PasParTour(int axe, double pasDefaut, double divisionDefaut) {
  const double pas = LireNombreTable(Cle("TB_SAV", 3 + axe), pasDefaut);
  const double division = LireNombreTable(Cle("Combo_SAV", 12 + axe), divisionDefaut);
  return std::ldexp(std::nearbyint(pas), std::clamp(Arrondi32(division), -30, 30));
}

}  // namespace

std::string SectionTable(std::string_view nom) { return "table_" + std::string(nom); }

std::string LireCleTable(std::string_view cle, std::string_view defaut) {
  return LireCleSection(SectionTable(TableDefaut), cle, defaut);
}

double LireNombreTable(std::string_view cle, double defaut) {
  return LireNombreSection(SectionTable(TableDefaut), cle, defaut);
}

// The same key has other defaults for other readers: steps per turn are 200 for the board check, 48 here; the Z
// travel is read from a key of its own, which no window writes.
void ChargeGlobalesTable() {
  BrocheAuto = Arrondi16(LireNombreTable("CB_SAV_16", 1));
  ClavierZENIK = Arrondi16(LireNombreTable("CB_SAV_17", 1));
  CourseX = EnFloat(LireNombreTable("TB_SAV_18", 1000));
  CourseY = EnFloat(LireNombreTable("TB_SAV_19", 500));
  CourseZ = EnFloat(LireNombreTable("TB_SAV_188888", 200));
  PasTourX = Arrondi32(PasParTour(0, 48, 0));
  PasTourY = Arrondi32(PasParTour(1, 48, 0));
  PasTourZ = Arrondi32(PasParTour(2, 48, 0));
  TransmissionX = LireNombreTable("TB_SAV_0", 1);
  TransmissionY = LireNombreTable("TB_SAV_1", 1);
  TransmissionZ = LireNombreTable("TB_SAV_2", 1);
  VitesseMaxX = EnFloat(LireNombreTable("TB_SAV_15", 5));
  VitesseMaxY = EnFloat(LireNombreTable("TB_SAV_16", 5));
  VitesseMaxZ = EnFloat(LireNombreTable("TB_SAV_17", 5));
}

std::array<double, 3> ResolutionsTable() {
  std::array<double, 3> resolutions{};
  for (int axe = 0; axe < 3; ++axe) {
    double transmission = LireNombreTable(Cle("TB_SAV", axe), 1);
    double pas = PasParTour(axe, 200, 1);
    if (transmission == 0) transmission = 1;
    if (pas == 0) pas = 400;
    resolutions[static_cast<std::size_t>(axe)] = transmission / pas;
  }
  return resolutions;
}

double ResolutionFine() {
  const auto r = ResolutionsTable();
  return std::min(std::fabs(r[0]), std::fabs(r[1]));
}

// The decimals of the table's own width: 0.175 is shown as 0.18, not as the 0.17 that its 64-bit neighbour gives.
std::string TextePente(int curseur) {
  const auto rang = static_cast<std::size_t>(std::clamp(curseur, 1, static_cast<int>(TempsDouble.size())) - 1);
  const double temps = LitNombre(TexteNombre(TempsDouble[rang])).value_or(0);
  return Traduire("F_ParamMachine", "lib004") + " " + Formate(temps, "###0.00") + " " +
         Traduire("F_ParamMachine", "lib005");
}

}  // namespace ovelin
