#include "core/ChampsMachine.h"

#include "core/Nombres.h"

namespace ovelin {

std::string SectionTable(std::string_view nom) { return "table_" + std::string(nom); }

double LectureChamp::Nombre() const { return NombreDuTexte(defaut).value_or(0); }

const ChampMachine* ChercheChamp(FamilleChamp famille, int index) {
  for (const ChampMachine& champ : ChampsMachine::Tous) {
    if (champ.famille == famille && champ.index == index) return &champ;
  }
  return nullptr;
}

}  // namespace ovelin
