// The settings file of a first start.
#include <array>
#include <string>

#include "core/Cles.h"
#include "core/Fichiers.h"
#include "core/MagasinFichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Traduction.h"
#include "core/Types.h"
#include "core/Verrou.h"

namespace ovelin {

namespace {

// Kind of the power interface, as the first-run question gives it.
struct Interface {
  const char* combo;
  const char* optionLPT;
};

Interface DemandeInterface() {
  Boite boite;
  boite.section = "erreurs";
  boite.cle = "401";
  boite.texte = Traduire("erreurs", "401") + "\n" + Traduire("erreurs", "402");
  boite.titre = NomProgramme;
  boite.boutons = Boutons::OkAnnuler;
  return Svc.Montre(boite) == Reponse::Ok ? Interface{"0", "20"} : Interface{"1", "0"};
}

void Ligne(std::string& s, const std::string& ligne) { s += ligne + "\r\n"; }

template <std::size_t N>
void Serie(std::string& s, const char* famille, int premier, const std::array<const char*, N>& valeurs) {
  for (std::size_t i = 0; i < N; ++i) {
    Ligne(s, std::string(famille) + std::to_string(premier + static_cast<int>(i)) + "=" + valeurs[i]);
  }
}

void TableMachine(std::string& s, const Interface& choix) {
  Ligne(s, "[table_OVELIN]");
  Ligne(s, std::string("COMBO_SAV_0=") + choix.combo);
  Serie<14>(s, "COMBO_SAV_", 1, {"2", "3", "0", "1", "4", "5", "0", "1", "6", "6", "5", "1", "1", "1"});
  Serie<4>(s, "CB_SAV_", 0, {"0", "1", "0", "0"});
  Ligne(s, "CB_SAV_13=0");
  Serie<10>(s, "CB_SAV_", 101, {"0", "0", "0", "0", "0", "0", "0", "0", "0", "0"});
  Serie<12>(s, "TB_SAV_", 0, {"1", "1", "1", "100", "100", "100", "3.6", "3.6", "3.6", "0", "0", "0"});
  Serie<9>(s, "TB_SAV_", 12, {"6", "6", "6", "15", "15", "15", "1000", "500", "2"});
  Serie<10>(s, "TB_SAV_", 21, {"0", "0", "0", "0", "600", "10", "10", "100", "0", "30"});
  Ligne(s, "Sld_SAV_0=5");
  Ligne(s, "Combo_Table=OVELIN");
  Ligne(s, std::string("OptionLPT=") + choix.optionLPT);
}

// True where there is no reason.
bool Refuse(const ErreurSysteme& raison) {
  if (Magasin.DerniereErreur.empty()) Magasin.DerniereErreur = raison;
  return raison.empty();
}

}  // namespace

bool EcritFichierDefaut() {
  if (FichierExiste(CheminIni())) return true;
  if (const std::string raison = magasin::RaisonIni(CheminIni()); !raison.empty()) return Refuse(raison);
  const std::string dossier = EnTexte8(DossierProgramme);
  const Interface choix = DemandeInterface();
  std::string s;
  Ligne(s, "[OVELIN]");
  Ligne(s, "TableDefaut=OVELIN");
  Ligne(s, "MatDefaut=D\xE9pron 3 mm");
  Ligne(s, "DebugZENIK=Faux");
  Ligne(s, "MRUFiles1=" + dossier + "\\Cercle.dxf");
  Ligne(s, "MRUFiles2=" + dossier + "\\Carre.dxf");
  Ligne(s, "MRUFiles3=" + dossier + "\\Octogone.dxf");
  Ligne(s, "F_Representation_Left = 1860");
  Ligne(s, "F_Representation_Top = 1035");
  Ligne(s, "F_Representation_Width = 18750");
  Ligne(s, "F_Representation_Height = 13560");
  TableMachine(s, choix);
  Ligne(s, "");
  Verrou verrou;
  if (const ErreurSysteme tenu = verrou.Prend(CheminIni(), Magasin.AttenteVerrou); !tenu.empty())
    return Refuse(tenu);
  if (FichierExiste(CheminIni())) return true;  // another process was quicker, and may have written keys already
  return Refuse(EcritFichierEntier(CheminIni(), s));
}

}  // namespace ovelin
