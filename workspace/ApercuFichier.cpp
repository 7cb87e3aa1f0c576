#include "workspace/ApercuFichier.h"

#include <array>
#include <cstdint>
#include <filesystem>
#include <system_error>

#include "core/Dossiers.h"
#include "core/Fichiers.h"
#include "image/Apercu.h"
#include "workspace/NoyauOuverture.h"

namespace ovelin {

namespace {

constexpr std::uintmax_t OctetsMax = std::uintmax_t{1} << 20U;
constexpr std::array Exemples{"plaque.dxf",   "plaque-poches.OVL",  "equerre-attaches.OVL",
                              "enseigne.plt", "enseigne-texte.OVL", "percage.drl"};

}  // namespace

std::vector<PointTrace> PointsDuFichier(const std::string& chemin, const Reglages& reglages) {
  std::error_code erreur;
  const std::uintmax_t octets = std::filesystem::file_size(chemin, erreur);
  const std::string extension = ExtensionDe(chemin);
  if (erreur || octets > OctetsMax || extension == "EPS" || extension == "AI") return {};
  DessinLu lu = LitDessin(chemin, reglages, {});
  if (lu.refus) return {};
  return PointsApercu(lu.projet ? lu.projet->document.TraceInitial : lu.document.TraceInitial);
}

std::vector<std::string> DessinsExemples() {
  std::vector<std::string> chemins;
  for (const char* nom : Exemples) {
    std::string chemin = TrouveFichierProduit(nom);
    if (!chemin.empty()) chemins.push_back(std::move(chemin));
  }
  return chemins;
}

}  // namespace ovelin
