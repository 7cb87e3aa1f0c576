#include "workspace/Module_Travail.h"

#include <algorithm>
#include <array>
#include <memory>
#include <optional>
#include <utility>

#include "core/DocumentCourant.h"
#include "core/Etat.h"
#include "core/Fichiers.h"
#include "core/MagasinFichiers.h"
#include "core/ReglagesCourants.h"

namespace ovelin {

namespace {

// The settings lines of a project that a command of the window writes on its way.
constexpr std::array Cles{"Vitesse_Mat_H",  "Vitesse_Mat_V", "HautDeg",   "ProfFraisage",
                          "ProfPasse",      "MiniEncoche",   "PCPoche",   "RayonFraise",
                          "LargeurEncoche", "DecalageOutil", "AngleRampe"};

struct Travail {
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> fiches;
  TableComplements complements;
  Reglages reglages;
  std::string projet;  // path, "" when the drawing is none
  std::array<std::optional<std::string>, Cles.size()> lignes;
  bool marque = false;
};
Travail Retenu;
[[maybe_unused]] const bool Enregistree = EnregistreRemise([] { Retenu = Travail{}; });

std::string ProjetOuvert() {
  return FichierProjet == FichierCourant && ExtensionDe(FichierCourant) == "OVL" ? FichierCourant : "";
}

std::array<std::optional<std::string>, Cles.size()> LignesDuProjet(const std::string& projet) {
  std::array<std::optional<std::string>, Cles.size()> lignes;
  if (projet.empty()) return lignes;
  for (std::size_t i = 0; i < Cles.size(); ++i) lignes[i] = magasin::CleProjet(projet, Cles[i]);
  return lignes;
}

bool MemesFiches(const std::vector<SequenceInfo>& a, const std::vector<SequenceInfo>& b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](SequenceInfo x, const SequenceInfo& y) {
    x.Selection = y.Selection;
    return x == y;
  });
}

// What the job is cut with; colours and options of the program are none of it.
bool MemeOutil(const Reglages& a, const Reglages& b) {
  return a.RayonFraise == b.RayonFraise && a.DecalageOutil == b.DecalageOutil &&
         a.LargeurEncoche == b.LargeurEncoche && a.Vitesse_Mat_H == b.Vitesse_Mat_H &&
         a.Vitesse_Mat_V == b.Vitesse_Mat_V && a.HautDeg == b.HautDeg && a.ProfFraisage == b.ProfFraisage &&
         a.ProfPasse == b.ProfPasse && a.MiniEncoche == b.MiniEncoche && a.PCPoche == b.PCPoche &&
         a.AngleRampe == b.AngleRampe;
}

// Without points then and now there is nothing that could be lost.
bool SansDessin() { return Retenu.points.empty() && TraceInitial.empty(); }

}  // namespace

void RetientTravail() {
  Retenu.points = TraceInitial;
  Retenu.fiches = Sequences;
  Retenu.complements = Complements;
  Retenu.reglages = Regl;
  Retenu.projet = ProjetOuvert();
  Retenu.lignes = LignesDuProjet(Retenu.projet);
  Retenu.marque = false;
}

std::function<void()> RetientTravailARendre() {
  auto avant = std::make_shared<Travail>(std::exchange(Retenu, Travail{}));
  RetientTravail();
  return [avant = std::move(avant)] { Retenu = std::move(*avant); };
}

void MarqueTravail() { Retenu.marque = true; }

bool TravailChange() {
  if (SansDessin()) return false;
  return Retenu.marque || Retenu.points != TraceInitial || !MemesFiches(Retenu.fiches, Sequences) ||
         Retenu.complements != Complements || !MemeOutil(Retenu.reglages, Regl);
}

std::vector<std::string> ClesPlacees() {
  std::vector<std::string> placees;
  if (Retenu.projet.empty() || Retenu.projet != FichierCourant) return placees;
  const auto lignes = LignesDuProjet(Retenu.projet);
  for (std::size_t i = 0; i < Cles.size(); ++i) {
    if (lignes[i] != Retenu.lignes[i]) placees.emplace_back(Cles[i]);
  }
  return placees;
}

}  // namespace ovelin
