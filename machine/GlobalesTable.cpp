#include "machine/GlobalesTable.h"

#include "core/Nombres.h"

namespace ovelin {

namespace {

// A number as the member holds it.
void Pose(std::int16_t& membre, double v) { membre = Arrondi16(v); }
void Pose(float& membre, double v) { membre = EnFloat(v); }
void Pose(double& membre, double v) { membre = v; }

// One row of the table of fields, from which the member's name comes.
#define CHAMP(nom, famille, index, fenetre, format, jumeau, livre, defaut)
#define LECTEUR(nom, lu, defaut)
#define GLOBALE(nom, suit, membre) {ChampsMachine::nom, suit, [](TableMachine& t, double v) { Pose(t.membre, v); }},
#define CHAMP_GLOBAL(nom, famille, index, fenetre, format, jumeau, livre, defaut, membre) \
  GLOBALE(nom, false, membre)
#define CHAMP_SUIVI(nom, famille, index, fenetre, format, jumeau, livre, defaut, membre) GLOBALE(nom, true, membre)
constexpr GlobaleTable Globales[] = {
#include "core/ChampsMachine.def"
};
#undef CHAMP_SUIVI
#undef CHAMP_GLOBAL
#undef GLOBALE
#undef LECTEUR
#undef CHAMP

}  // namespace

std::span<const GlobaleTable> GlobalesTable() { return Globales; }

}  // namespace ovelin
