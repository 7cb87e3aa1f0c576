#include "machine/essais/TableOuverte.h"

#include <algorithm>

#include "core/Cles.h"
#include "core/Etat.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "machine/ChampsTable.h"

namespace ovelin {

AccesTable TableOuverte;

namespace {
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { TableOuverte = AccesTable{}; });
}

std::string TexteTableOuverte(const ChampMachine& champ) {
  if (TableOuverte.Lit) return TableOuverte.Lit(champ);
  const ChampsTable champs = Chargt_Table(TableDefaut);
  const auto it = std::find_if(champs.begin(), champs.end(), [&](const auto& c) { return c.first == champ.Cle(); });
  return it == champs.end() ? "" : it->second;
}

std::optional<double> NombreTableOuverte(const ChampMachine& champ) {
  return NombreDuTexte(TexteTableOuverte(champ));
}

void PoseTableOuverte(const ChampMachine& champ, const std::string& texte) {
  if (TableOuverte.Pose) return TableOuverte.Pose(champ, texte);
  EcrireCleSection(SectionTable(TableDefaut), champ.Cle(), texte);
}

}  // namespace ovelin
