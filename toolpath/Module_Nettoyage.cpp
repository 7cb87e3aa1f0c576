#include "toolpath/Module_Nettoyage.h"

#include <algorithm>
#include <unordered_map>

#include "base/Indices.h"
#include "core/DocumentCourant.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NettoieChemin.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

namespace {

constexpr std::size_t SeuilFond = 20000;  // points from which a path is worth a thread: some ten milliseconds

void OublieOrigine() {
  OrigineX = 0;
  OrigineY = 0;
}

// The path smoothed, in place. False with a message when points got lost; it is then unchanged.
bool LisseChemin(std::vector<PointTrace>& chemin) {
  std::vector<PointTrace> tampon = chemin;
  TravailleSi(tampon.size() >= SeuilFond, [&] { Biblio.LissageSequence(tampon); });
  if (tampon.size() < chemin.size()) {
    MessageFixe("Problème lissage : nb de points", Icone::Critique);
    return false;
  }
  for (PointTrace& p : tampon) p.Seq = chemin.front().Seq;
  chemin.swap(tampon);
  return true;
}

}  // namespace

// The result is built beside the drawing and takes its place at once: what is painted meanwhile is whole.
void NettoieTout(float resolution) {
  TraceInitial = NettoiePoints(TraceInitial, resolution);
  NbPoints = base::Compte(TraceInitial.size());
}

bool mnu_Nettoyage_Click(float resolution) {
  if (resolution == 0 || resolution != resolution) return false;
  PasseTraces passe;
  NettoieTout(resolution);
  Svc.LaisseEvenements(Evenements::Affichage);
  EncombrementGeneral();
  const IssuePasse issue = passe.SuitTout();
  if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  OublieOrigine();
  Svc.LaisseEvenements(Evenements::Affichage);
  Svc.Rafraichit();
  Svc.Panneau(PanneauEtat::Points, Traduire(Textes::NombrePoints) + " " + std::to_string(NbPoints));
  Modifie = Vrai;
  return true;
}

bool LisseSequence(Code2 code) {
  const std::int32_t premier = IndexSequence(code);
  if (premier < 0) return false;
  std::vector<PointTrace> chemin = CopieDe(TraceInitial, EtendueDepuis(TraceInitial, base::Indice(premier)));
  if (!LisseChemin(chemin)) return false;
  RemplaceSequence(code, chemin);
  OublieOrigine();
  return true;
}

// All selected paths are smoothed before the drawing is written anew, once.
void LisseSelection() {
  PasseTraces passe;
  const IndexCodes index = IndexDocument();
  const std::vector<Code2> codes = CodesSelectionnes();
  std::unordered_map<std::size_t, std::vector<PointTrace>> lisses;  // by the first index of the run
  Respiration respiration;
  bool uneLissee = false;
  for (const Code2 code : codes) {
    respiration.Laisse();
    const auto premier = index.PremierPoint(code);
    if (!premier) continue;
    const auto [it, neuf] = lisses.try_emplace(*premier);
    if (neuf) it->second = CopieDe(TraceInitial, EtendueDepuis(TraceInitial, *premier));
    uneLissee = LisseChemin(it->second) || uneLissee;
  }
  std::vector<PointTrace> points;
  for (const Etendue& e : EtenduesSequences()) {
    const auto it = lisses.find(e.premier);
    const std::vector<PointTrace> chemin = it == lisses.end() ? CopieDe(TraceInitial, e) : std::move(it->second);
    points.insert(points.end(), chemin.begin(), chemin.end());
  }
  TraceInitial.swap(points);
  NbPoints = base::Compte(TraceInitial.size());
  if (uneLissee) OublieOrigine();
  EncombrementGeneral();
  if (passe.Suit(codes) != IssuePasse::EnVigueur) return;
  Modifie = Vrai;
  Svc.Rafraichit();
}

}  // namespace ovelin
