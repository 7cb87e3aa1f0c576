#include "toolpath/Module_Texte.h"

#include <algorithm>
#include <optional>
#include <vector>

#include "base/Indices.h"
#include "core/BoiteRefus.h"
#include "core/DocumentCourant.h"
#include "core/Nombres.h"
#include "core/ReglagesCourants.h"
#include "core/Services.h"
#include "core/Textes.h"
#include "toolpath/Deroulement.h"
#include "toolpath/Module_Decalage.h"
#include "toolpath/Module_Sequence.h"
#include "toolpath/NettoieChemin.h"
#include "toolpath/PasseTraces.h"
#include "toolpath/chemins/CodesNeufs.h"
#include "toolpath/traces/Bibliotheque.h"

namespace ovelin {

namespace {

constexpr float ResolutionTexte = 0.01F;  // mm, where none has been chosen
constexpr std::int32_t ErreurFichierPolice = -101;

// A drawing without paths may still hold the one empty record that a deletion leaves. A project that was refused
// for want of points has set the count to 0, but the drawing that stood is still there.
bool DessinPresent() {
  return NbPoints >= 0 && std::any_of(TraceInitial.begin(), TraceInitial.end(),
                                      [](const PointTrace& p) { return p.Seq != Code2{}; });
}

bool RefuseTexte(std::int32_t erreur, const std::string& police) {
  using pathwerk::Erreur;
  BoiteMessage boite = BoiteErreur(erreur);
  if (erreur == ErreurFichierPolice || erreur == pathwerk::Numero(Erreur::Police) ||
      erreur == pathwerk::Numero(Erreur::PoliceFichier)) {
    boite.texte += " (" + police + ")";
  }
  Svc.Montre(boite);
  return false;
}

// The library's contours as paths of the document: codes, ordinary points, cleaned. Nothing when codes run out.
std::optional<std::vector<std::vector<PointTrace>>> Chemins(const std::vector<PointTrace>& points, bool dessin) {
  const float resolution = Regl.Resolution > 0 ? Regl.Resolution : ResolutionTexte;
  CodesNeufs codes(dessin ? Doc : Document{});
  std::vector<std::vector<PointTrace>> chemins;
  for (auto debut = points.begin(); debut != points.end();) {
    const auto fin = std::find_if(debut, points.end(), [&](const PointTrace& p) { return p.Seq != debut->Seq; });
    const std::optional<Code2> code = codes.Suivant();
    if (!code) return std::nullopt;
    std::vector<PointTrace> chemin(debut, fin);
    for (PointTrace& p : chemin) {
      p.Cde = CodePD;
      p.Seq = *code;
    }
    // The new paths alone: the rest of the drawing has the points its user wants.
    NettoieChemin(chemin, resolution);
    chemins.push_back(std::move(chemin));
    debut = fin;
  }
  return chemins;
}

void AjouteChemins(const std::vector<std::vector<PointTrace>>& chemins, bool dessin) {
  if (!dessin) {
    TraceInitial.clear();
    Sequences.clear();
    Complements.OublieTout();
  }
  DeselectionneTout();
  for (const std::vector<PointTrace>& chemin : chemins) {
    Sequences.push_back({chemin.front().Seq, Faux, ProfFraisage, Vrai, 1, Vrai});
    TraceInitial.insert(TraceInitial.end(), chemin.begin(), chemin.end());
  }
  NbPoints = base::Compte(TraceInitial.size());
}

// Where the user sees it: in the corner of a new sheet, or at the place that has been marked.
void Cadre(std::vector<PointTrace>& points, bool dessin) {
  double dx = OrigineX;
  double dy = OrigineY;
  if (!dessin) {
    const auto [gauche, droite] = std::minmax_element(
        points.begin(), points.end(), [](const PointTrace& a, const PointTrace& b) { return a.X < b.X; });
    const auto [bas, haut] = std::minmax_element(
        points.begin(), points.end(), [](const PointTrace& a, const PointTrace& b) { return a.Y < b.Y; });
    dx = MargeTexte - gauche->X;
    dy = MargeTexte - bas->Y;
  }
  for (PointTrace& p : points) {
    p.X = EnFloat(p.X + dx);
    p.Y = EnFloat(p.Y + dy);
  }
}

}  // namespace

bool GenereTexte(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style) {
  return GenereTexte(texte, police, espace, style, {});
}

// The library gives millimetres at the height asked for, so nothing is scaled.
bool GenereTexte(const std::string& texte, const std::string& police, std::int32_t espace, std::int32_t style,
                 const PoseTexte& pose) {
  std::vector<PointTrace> points(1);
  const bool usuelle = pose.hauteur == pathwerk::HauteurTexte;
  const std::int32_t n = usuelle ? Biblio.Texte(points, texte, police, espace, style)
                                 : Biblio.TexteHaut(points, texte, police, espace, style, pose.hauteur);
  if (n < 0) return RefuseTexte(n, police);
  points.resize(std::min(points.size(), base::Indice(n)));
  if (points.empty()) return true;

  const bool dessin = DessinPresent();
  if (pose.cadre) Cadre(points, dessin);
  const auto chemins = Chemins(points, dessin);
  if (!chemins) return RefuseTexte(pathwerk::Numero(pathwerk::Erreur::TropDeSequences), police);
  PasseTraces passe;
  AjouteChemins(*chemins, dessin);
  EncombrementGeneral();
  const IssuePasse issue = passe.SuitTout();
  if (issue != IssuePasse::EnVigueur) return PasseTraces::Faite(issue);
  Modifie = Vrai;
  if (!dessin) {
    Svc.DessinOuvert(true);
    Svc.TitreDessin(texte);
  }
  Svc.Rafraichit();
  return true;
}

}  // namespace ovelin
