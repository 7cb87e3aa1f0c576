// A settings file: whatever the bytes, a key that is written reads back, other sections keep their lines, and the
// file that comes out reads as the one in memory.
#include <cstdint>
#include <cstdlib>
#include <string>
#include <string_view>

#include "core/FichierIni.h"
#include "core/Nombres.h"
#include "core/Texte8.h"

namespace {
void Exige(bool condition) {
  if (!condition) std::abort();
}
}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* donnees, std::size_t taille) {
  using namespace ovelin;
  const std::string_view texte(reinterpret_cast<const char*>(donnees), taille);
  Exige(DeTexte8(EnTexte8(DeTexte8(texte))) == DeTexte8(texte));
  FichierIni ini(texte);
  for (const std::string& section : ini.Sections()) {
    for (const auto& [cle, valeur] : ini.Lignes(section)) Exige(ini.Lit(section, cle).has_value());
  }
  const auto avant = ini.Lignes("OVELIN");
  ini.Ecrit("table_Essai", "TB_SAV_1", "3,6");
  Exige(ini.Lit("TABLE_ESSAI", "tb_sav_1") == "3,6");
  Exige(ini.Lignes("OVELIN") == avant);
  const FichierIni relu(ini.Octets());
  Exige(relu.Sections() == ini.Sections());
  Exige(relu.Lit("table_Essai", "TB_SAV_1") == "3,6");
  ini.Supprime("table_Essai", "TB_SAV_1");
  Exige(!ini.Lit("table_Essai", "TB_SAV_1"));
  ini.SupprimeSection("table_Essai");
  Exige(ini.Lignes("table_Essai").empty());

  // Numbers: what is a whole number has the same value as a leading one.
  if (const auto v = NombreDuTexte(texte.substr(0, 64))) {
    std::string point(texte.substr(0, 64));
    for (char& c : point) c = c == ',' ? '.' : c;
    Exige(ValeurDebut(point) == *v);
    Exige(NombreDuTexte(TexteNombre(*v)) == *v);
    Formate(*v, "###0.00");
  }
  return 0;
}
