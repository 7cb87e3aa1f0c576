// mill: the job of a drawing on the board.
#include "app/cli/CommandesFraisage.h"

#include <array>
#include <cstdint>
#include <cstdio>
#include <optional>

#include "app/cli/CarteAppel.h"
#include "app/cli/Signaux.h"
#include "controller/ClsCdeZENIK.h"
#include "core/Nombres.h"
#include "core/PlanCourant.h"
#include "core/ReglagesCourants.h"
#include "core/RunCourant.h"
#include "run/Module_Decoupe.h"
#include "run/Module_Fraisage.h"
#include "run/Module_Lancement.h"
#include "run/NoyauPlan.h"

namespace ovelin::cli {

namespace {

using Pas3 = std::array<std::int32_t, 3>;

struct VitesseA {
  std::int32_t record = 0;
  std::string vitesse;
};

// "N:V", V with either mark; nothing for any other text.
std::optional<VitesseA> LitVitesseA(const std::string& texte) {
  const std::size_t deux = texte.find(':');
  if (deux == std::string::npos) return std::nullopt;
  const auto record = NombreDuTexte(texte.substr(0, deux));
  const std::string vitesse = texte.substr(deux + 1);
  if (!record || *record < 1 || !EstNumerique(vitesse)) return std::nullopt;
  return VitesseA{Arrondi32(*record), vitesse};
}

Pas3 Place() { return {CdeZENIK->PasX, CdeZENIK->PasY, CdeZENIK->PasZ}; }
Json EnJson(const Pas3& p) { return Json{{"x", p[0]}, {"y", p[1]}, {"z", p[2]}}; }

// What the run has told on its way.
struct Suivi {
  double secondes = 0;     // foreseen
  std::int64_t ticks = 0;  // of the records accepted
  std::int32_t records = 0;
  Pas3 prevu{};  // steps of the whole job
};

Pas3 PasDuPlan() {
  std::array<std::int64_t, 3> somme{};
  for (const Deplacement& d : LignesDe(Plan)) {
    somme[0] += d.dX;
    somme[1] += d.dY;
    somme[2] += d.dZ;
  }
  return {static_cast<std::int32_t>(somme[0]), static_cast<std::int32_t>(somme[1]),
          static_cast<std::int32_t>(somme[2])};
}

void Ecoute(Suivi& suivi, const std::optional<VitesseA>& vitesseA) {
  Vue_Decoupe.Debut = [&](double total) {
    if (suivi.secondes > 0) return;  // a resume's is part of it
    suivi.secondes = total;
    suivi.prevu = PasDuPlan();
  };
  Vue_Decoupe.Accepte = [&](std::int32_t ligne, float&) {
    ++suivi.records;
    suivi.ticks += CdeZENIK->NbTicks;
    if (vitesseA && ligne == vitesseA->record) EntreVit_Mat_H(vitesseA->vitesse);
  };
}

std::uint8_t ModeDe(const std::string& mode) {
  if (mode == "flash") return MemoireSeule;
  return mode == "both" ? MemoireEtFraisage : EnvoiDirect;
}

const char* EtatDe(bool arretee, std::uint8_t mode) {
  if (arretee) return "stopped";
  return mode == MemoireSeule ? "stored" : "ended";
}

int FraiseSurCarte(Contexte& contexte, const OptionsFraisage& options, const std::optional<VitesseA>& vitesseA,
                   Json& objet) {
  Suivi suivi;
  Ecoute(suivi, vitesseA);
  const Pas3 depart = Place();
  const std::uint8_t mode = ModeDe(options.mode);
  std::string vitesse = TexteNombre(Vitesse_Mat_H);
  bool lance = false;
  {
    bool encore = options.arretAuRecord > 0;
    const EcouteSignaux signaux([&] {
      if (!encore || CdeZENIK->NbBlocsTraites < options.arretAuRecord) return;
      encore = false;
      ArretRampe = EnDrapeau(options.arret == "ramp");
      StopDemande = Vrai;
    });
    lance = LanceFraisage(vitesse, mode);
    if (lance && options.reprend && StopDemande != Faux && !EcouteSignaux::Venu()) ReprendFraisage(vitesse);
  }
  Vue_Decoupe = VueDecoupe{};
  if (!lance) return EchecBoite(contexte);
  const bool arretee = StopDemande != Faux;
  const Pas3 ici = Place();
  objet["records"] = suivi.records;
  objet["ticks"] = suivi.ticks;
  objet["seconds"] = suivi.secondes;
  objet["steps"] = EnJson({ici[0] - depart[0], ici[1] - depart[1], ici[2] - depart[2]});
  objet["planned"] = EnJson(suivi.prevu);
  objet["state"] = EtatDe(arretee, mode);
  if (!arretee) return Fait;
  return EcouteSignaux::Venu() ? FinParSignal : Refuse;
}

}  // namespace

int Fraise(Contexte& contexte, const std::string& dessin, const OptionsFraisage& options) {
  const auto vitesseA = LitVitesseA(options.vitesseA);
  if (!options.vitesseA.empty() && !vitesseA) {
    std::fprintf(stderr, "--speed-at N:V\n");
    return Usage;
  }
  if (const int etat = OuvreDessin(contexte, dessin)) return etat;
  CarteAppel carte(contexte);
  if (const int etat = carte.Ouvre({dessin})) return etat;
  Json objet;
  const int etat = carte.Ferme(FraiseSurCarte(contexte, options, vitesseA, objet));
  if (!objet.is_null()) Resultat(contexte, objet);
  return etat;
}

}  // namespace ovelin::cli
