// The settings file of a first start.
#include "core/FichierDefaut.h"

#include <string>

#include "core/ChampsMachine.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "core/MagasinFichiers.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Textes.h"
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
  BoiteMessage boite = BoiteDe(Textes::DemandeInterface, Icone::Aucune, Boutons::OkAnnuler);
  boite.texte += "\n" + Traduire(Textes::DemandeInterfaceSuite);
  return Svc.Montre(boite) == Reponse::Ok ? Interface{"0", "20"} : Interface{"1", "0"};
}

void Ligne(std::string& s, const std::string& ligne) { s += ligne + "\r\n"; }

// The fields of a family that a delivered table holds, in their order.
void Famille(std::string& s, FamilleChamp famille, const char* nom, const Interface& choix) {
  for (const ChampMachine& champ : ChampsMachine::Tous) {
    if (champ.famille != famille || champ.livre == nullptr) continue;
    const char* valeur = std::string_view(champ.livre) == champ::Demande ? choix.combo : champ.livre;
    Ligne(s, std::string(nom) + "_" + std::to_string(champ.index) + "=" + valeur);
  }
}

// Letter case of the names as users' files have it; nothing tells them by it.
void TableMachine(std::string& s, const Interface& choix) {
  Ligne(s, "[" + SectionTable(NomProgramme) + "]");
  Famille(s, FamilleChamp::Combo_SAV, "COMBO_SAV", choix);
  Famille(s, FamilleChamp::CB_SAV, "CB_SAV", choix);
  Famille(s, FamilleChamp::TB_SAV, "TB_SAV", choix);
  Famille(s, FamilleChamp::Sld_SAV, "Sld_SAV", choix);
  Ligne(s, std::string("Combo_Table=") + NomProgramme);
  Ligne(s, std::string(CleOptionLPT) + "=" + choix.optionLPT);
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
  Ligne(s, std::string(cles::TableDefaut) + "=" + NomProgramme);
  Ligne(s, std::string(cles::MatDefaut) + "=D\xE9pron 3 mm");
  Ligne(s, std::string(cles::DebugZENIK) + "=Faux");
  Ligne(s, cles::MRUFiles + std::string("1=") + dossier + "\\Cercle.dxf");
  Ligne(s, cles::MRUFiles + std::string("2=") + dossier + "\\Carre.dxf");
  Ligne(s, cles::MRUFiles + std::string("3=") + dossier + "\\Octogone.dxf");
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
