#include "run/FiguresPlan.h"

#include <algorithm>
#include <map>
#include <unordered_set>

#include "core/Nombres.h"
#include "run/CumulLignes.h"
#include "run/NoyauPlan.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

void Etend(FiguresPlan& f, const Deplacement& d) {
  const double x = d.X;
  const double y = d.Y;
  if (!f.coupe) {
    f.xmin = f.xmax = x;
    f.ymin = f.ymax = y;
    f.coupe = true;
    return;
  }
  f.xmin = std::min(f.xmin, x);
  f.xmax = std::max(f.xmax, x);
  f.ymin = std::min(f.ymin, y);
  f.ymax = std::max(f.ymax, y);
}

// Where the tool cuts: what it does below the surface, and ways in the plane at it (a pen). The final descent to
// the surface at the origin is none.
void Etend(FiguresPlan& f, const Deplacement& avant, const Deplacement& d) {
  const bool plan = d.X != avant.X || d.Y != avant.Y;
  if (d.Z > 0 || (d.Z == 0 && !plan)) return;
  if (plan) Etend(f, avant);
  Etend(f, d);
}

}  // namespace

FiguresPlan FiguresDe(std::span<const Deplacement> lignes) {
  FiguresPlan f;
  CumulLignes cumul;
  for (std::size_t i = 1; i < lignes.size(); ++i) {
    const Deplacement& d = lignes[i];
    cumul.Va(d.X, d.Y, d.Z, d.Vitesse);
    f.fond = std::min<double>(f.fond, d.Z);
    Etend(f, lignes[i - 1], d);
    ++f.lignes;
  }
  f.longueur = cumul.LongueurNC;
  f.temps = cumul.TempsNC;
  return f;
}

// The records of one path follow each other; that of a failed offset stands alone, without points. What has no tool
// path is counted against the drawing: a path can also be missing from the traces altogether.
CompteUsinage CompteUsinageDe(const Document& document, double profPasse) {
  const IndexCodes index(document);
  std::map<double, std::int64_t> passesParProfondeur;
  CompteUsinage u;
  Code2 precedent = CodeAucun;
  std::unordered_set<std::uint32_t> vus;  // with a tool path, or told already
  for (const SequenceDecalee& trace : document.TraceDecale) {
    const ProprietesSequence proprietes = ProprietesDe(document.Sequences, index, trace.Seq);
    if (proprietes.Fraiser == Faux || trace.Points.empty()) continue;
    vus.insert(trace.Seq.Cle());
    if (u.sequences == 0 || !(trace.Seq == precedent)) ++u.sequences;
    precedent = trace.Seq;
    const auto [place, neuve] = passesParProfondeur.try_emplace(proprietes.Profondeur, 0);
    if (neuve) place->second = NombrePasses(proprietes.Profondeur, profPasse);
    u.passes = std::max(u.passes, place->second);
  }
  for (const Code2 code : CodesDe(document.TraceInitial)) {
    if (ProprietesDe(document.Sequences, index, code).Fraiser == Faux) continue;
    const bool ilot = document.Complements.De(code).Ilot;  // stays, and wants none
    if (vus.insert(code.Cle()).second && !ilot) u.sansTrajet.push_back(code);
  }
  return u;
}

std::string TexteSansTrajet(const std::vector<Code2>& codes) {
  constexpr std::size_t Nommes = 12;
  std::string texte = std::to_string(codes.size());
  for (std::size_t i = 0; i < std::min(codes.size(), Nommes); ++i) {
    texte += (i == 0 ? " (" : ", ") + Rogne(codes[i].Texte());
  }
  return texte + (codes.size() > Nommes ? " ...)" : ")");
}

}  // namespace ovelin
