#include "workspace/Module_Recents.h"

#include <algorithm>
#include <charconv>
#include <string_view>
#include <utility>

#include "base/Indices.h"
#include "core/Cles.h"
#include "core/ClesReglages.h"
#include "core/Document.h"
#include "core/Dossiers.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/MagasinFichiers.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Texte8.h"
#include "core/Textes.h"

namespace ovelin {

ListeRecents Recents;

namespace {

[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Recents = ListeRecents{}; });

constexpr std::size_t LongueurValeur = 255;

std::string Cle(std::size_t numero) { return cles::MRUFiles + std::to_string(numero); }

std::size_t Maximum() { return base::Indice(std::max(Regl.gMaxMRU, 0)); }

bool Relisible(const std::string& chemin) {
  return !chemin.empty() && EnTexte8(chemin).size() <= LongueurValeur && chemin == Rogne(chemin) &&
         chemin.find("&&") == std::string::npos && chemin.find_first_of("\r\n") == std::string::npos;
}

// The path as this system reads it: the settings file of a first start names the drawings that come with the
// product with "\\" behind its own folder. One that is there as it stands is left alone.
std::string CheminPresent(std::string chemin) {
  if (chemin.find('\\') == std::string::npos || FichierExiste(chemin)) return chemin;
  std::replace(chemin.begin(), chemin.end(), '\\', '/');
  if (FichierExiste(chemin) || DossierDe(chemin) != DossierProgramme) return chemin;
  const std::string livre = TrouveFichierProduit(NomDe(chemin));
  return livre.empty() ? chemin : livre;
}

// Number of a key "MRUFiles" + n, 0 for another key.
std::size_t NumeroDe(const std::string& cle) {
  const std::string nom = Majuscules(cle);
  const std::string prefixe = Majuscules(cles::MRUFiles);
  std::size_t n = 0;
  if (!nom.starts_with(prefixe)) return 0;
  const char* fin = nom.data() + nom.size();
  const auto lu = std::from_chars(nom.data() + prefixe.size(), fin, n);
  return lu.ec == std::errc{} && lu.ptr == fin ? n : 0;
}

}  // namespace

void RemplitRecents() {
  Recents.chemins.clear();
  for (std::size_t n = 1; n <= Maximum(); ++n) {
    std::string chemin = LireCleIni(Cle(n), "");
    if (chemin.empty()) break;
    Recents.chemins.push_back(CheminPresent(std::move(chemin)));
  }
}

void AjouteRecent(const std::string& chemin) {
  if (chemin.empty()) return;
  OteRecent(chemin);
  Recents.chemins.insert(Recents.chemins.begin(), chemin);
  if (Recents.chemins.size() > Maximum()) Recents.chemins.resize(Maximum());
}

void OteRecent(const std::string& chemin) { std::erase(Recents.chemins, chemin); }

void SauveRecents() {
  const SansProjet reglages;
  const LotCles lot;
  std::size_t n = 0;
  for (const std::string& chemin : Recents.chemins) {
    if (Relisible(chemin)) EcrireCle(Cle(++n), chemin);
  }
  std::vector<std::string> derriere;
  for (const auto& ligne : magasin::Ini(CheminIni()).Lignes(NomProgramme)) {
    if (NumeroDe(ligne.first) > n) derriere.push_back(ligne.first);
  }
  for (const std::string& cle : derriere) SupprimerCle(cle);
}

bool RecentPresent(std::size_t index) {
  return index >= 1 && index <= Recents.chemins.size() && FichierExiste(Recents.chemins[index - 1]);
}

std::vector<std::string> TextesRecents() {
  std::vector<std::string> textes;
  for (const std::string& chemin : Recents.chemins) {
    textes.push_back(std::to_string(textes.size() + 1) + " " + chemin);
  }
  return textes;
}

Ouverture mnu_MRU(std::size_t index, const OptionsOuverture& options, ContenuLu* contenu) {
  return mnu_MRU(index, [&](const std::string& chemin) {
    OptionsOuverture dehors = options;
    dehors.dehors = true;
    return mnu_Ouvrir(chemin, dehors, contenu);
  });
}

Ouverture mnu_MRU(std::size_t index, const std::function<Ouverture(const std::string& chemin)>& ouvre) {
  if (index == 0 || index > Recents.chemins.size()) return Ouverture::Abandon;
  const std::string chemin = Recents.chemins[index - 1];
  if (!FichierExiste(chemin)) {
    OteRecent(chemin);
    Message(Textes::FichierDisparu, Icone::Exclamation);
    return Ouverture::Abandon;
  }
  return ouvre(chemin);
}

}  // namespace ovelin
