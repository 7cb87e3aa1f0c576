#include "toolpath/chemins/NoyauCopie.h"

#include <algorithm>
#include <cmath>
#include <unordered_set>
#include <utility>

#include "base/Indices.h"
#include "toolpath/chemins/CodesNeufs.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

bool SansChemin(const Document& document) {
  return std::all_of(document.TraceInitial.begin(), document.TraceInitial.end(),
                     [](const PointTrace& p) { return p.Seq == Code2{}; });
}

Copie CopieDe(const Document& document) {
  const IndexCodes index(document);
  std::unordered_set<std::uint32_t> vues;
  Copie copie;
  for (const Etendue& e : EtenduesDe(PointsComptes(document))) {
    const auto fiche = index.Fiche(e.code);
    if (!fiche || document.Sequences[*fiche].Selection == Faux || !vues.insert(e.code.Cle()).second) continue;
    const std::span<const PointTrace> run = PointsDe(std::span(document.TraceInitial), e);
    copie.points.insert(copie.points.end(), run.begin(), run.end());
    copie.fiches.push_back(document.Sequences[*fiche]);
    copie.complements.Pose(e.code, document.Complements.De(e.code));
  }
  return copie;
}

BoiteCopie BoiteDe(const Copie& copie) {
  BoiteCopie b;
  if (copie.Vide()) return b;
  const PointTrace& p0 = copie.points.front();
  b = {p0.X, p0.X, p0.Y, p0.Y};
  for (const PointTrace& p : copie.points) {
    b.xmin = std::min(b.xmin, double{p.X});
    b.xmax = std::max(b.xmax, double{p.X});
    b.ymin = std::min(b.ymin, double{p.Y});
    b.ymax = std::max(b.ymax, double{p.Y});
  }
  return b;
}

std::vector<Pose> PosesDe(const Reseau& reseau) {
  std::vector<Pose> poses;
  for (int r = 0; r < reseau.rangees; ++r) {
    for (int c = 0; c < reseau.colonnes; ++c) {
      if (r == 0 && c == 0) continue;
      const double dx = c * reseau.pasX;
      const double dy = r * reseau.pasY;
      poses.emplace_back([dx, dy](const PointTrace& p) { return LieuCopie{p.X + dx, p.Y + dy}; });
    }
  }
  return poses;
}

std::vector<Pose> PosesDe(const ReseauTournant& reseau) {
  std::vector<Pose> poses;
  for (int i = 1; i < reseau.nombre; ++i) {
    const double c = std::cos(i * reseau.angle);
    const double s = std::sin(i * reseau.angle);
    poses.emplace_back([c, s, x = reseau.x, y = reseau.y](const PointTrace& p) {
      const double dx = p.X - x;
      const double dy = p.Y - y;
      return LieuCopie{x + dx * c - dy * s, y + dx * s + dy * c};
    });
  }
  return poses;
}

IssueCopie AjouteCopies(Document& document, const Copie& copie, const std::vector<Pose>& poses, double limite) {
  const std::vector<Etendue> runs = EtenduesDe(copie.points);
  const bool vide = SansChemin(document);
  CodesNeufs codes(vide ? Document{} : document);
  std::vector<PointTrace> points;
  std::vector<SequenceInfo> fiches;
  std::vector<Complement> complements;  // of the same paths
  points.reserve(copie.points.size() * poses.size());
  fiches.reserve(runs.size() * poses.size());
  for (const Pose& pose : poses) {
    for (std::size_t i = 0; i < runs.size(); ++i) {
      const auto code = codes.Suivant();
      if (!code) return IssueCopie::TropDeSequences;
      fiches.push_back(copie.fiches[i]);
      fiches.back().Code = *code;
      fiches.back().Selection = Vrai;
      complements.push_back(copie.complements.De(runs[i].code));
      for (PointTrace p : PointsDe(std::span(copie.points), runs[i])) {
        const LieuCopie lieu = pose(p);
        if (!(std::abs(lieu.x) <= limite && std::abs(lieu.y) <= limite)) return IssueCopie::HorsLimites;
        p.X = static_cast<float>(lieu.x);
        p.Y = static_cast<float>(lieu.y);
        p.Seq = *code;
        points.push_back(p);
      }
    }
  }
  if (vide) {
    document.TraceInitial.clear();
    document.TraceDecale.clear();
    document.Sequences.clear();
    document.Complements.OublieTout();
  }
  for (SequenceInfo& s : document.Sequences) s.Selection = Faux;
  document.TraceInitial.insert(document.TraceInitial.end(), points.begin(), points.end());
  document.Sequences.insert(document.Sequences.end(), fiches.begin(), fiches.end());
  for (std::size_t i = 0; i < fiches.size(); ++i) {
    document.Complements.Pose(fiches[i].Code, std::move(complements[i]));
  }
  document.NbPoints = base::Compte(document.TraceInitial.size());
  return IssueCopie::Faite;
}

}  // namespace ovelin
