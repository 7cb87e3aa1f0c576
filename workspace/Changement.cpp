#include "workspace/Changement.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <complex>
#include <limits>
#include <optional>
#include <set>
#include <unordered_map>
#include <utility>
#include <vector>

#include "base/Indices.h"
#include "core/ClesReglages.h"
#include "core/Textes.h"
#include "core/Traduction.h"
#include "toolpath/chemins/Etendues.h"

namespace ovelin {

namespace {

using Run = std::span<const PointTrace>;
using Plan = std::complex<double>;

// A path in both states.
struct Paire {
  Run avant, apres;
};

constexpr double EcartMax = 1e-3;      // mm
constexpr double EcartRelatif = 1e-6;  // of the coordinates, which have 24 bits

// The runs of a state by their code; the first one of a code counts.
std::unordered_map<std::uint32_t, Run> ParCode(Run points) {
  std::unordered_map<std::uint32_t, Run> runs;
  for (const Etendue& e : EtenduesDe(points)) runs.try_emplace(e.code.Cle(), PointsDe(points, e));
  return runs;
}

// The least and the greatest place of a path: two paths that differ in them have not the same places.
using Extremes = std::pair<std::pair<float, float>, std::pair<float, float>>;
Extremes ExtremesDe(Run run, bool attaches) {
  constexpr float Infini = std::numeric_limits<float>::infinity();
  Extremes e{{Infini, Infini}, {-Infini, -Infini}};
  for (const PointTrace& p : run) {
    if (!attaches && p.Cde == CodePC) continue;
    e.first = std::min(e.first, {p.X, p.Y});
    e.second = std::max(e.second, {p.X, p.Y});
  }
  return e;
}

// The places of a path, each once, in an order that its start and its sense have no part in.
std::vector<std::pair<float, float>> Places(Run run, bool attaches) {
  std::vector<std::pair<float, float>> places;
  places.reserve(run.size());
  for (const PointTrace& p : run) {
    if (attaches || p.Cde != CodePC) places.emplace_back(p.X, p.Y);
  }
  std::sort(places.begin(), places.end());
  places.erase(std::unique(places.begin(), places.end()), places.end());
  return places;
}

bool MemesPlaces(const Paire& p, bool attaches) {
  return ExtremesDe(p.avant, attaches) == ExtremesDe(p.apres, attaches) &&
         Places(p.avant, attaches) == Places(p.apres, attaches);
}

// --- transforms ------------------------------------------------------------------------------------------------

Plan EnPlan(const PointTrace& p) { return {double{p.X}, double{p.Y}}; }

// Sums over all pairs of points, and what fits them best: w = a z + b, with z or its mirror image.
//
//   a = sum(conj(z - z0) (w - w0)) / sum(|z - z0|^2), b = w0 - a z0; z0, w0 the centres
struct Similitude {
  Plan a, b;
  bool miroir = false;
};

std::optional<Similitude> Ajuste(std::span<const Paire> paires, bool miroir) {
  const auto image = [miroir](const PointTrace& p) { return miroir ? std::conj(EnPlan(p)) : EnPlan(p); };
  Plan z0;
  Plan w0;
  double nombre = 0;
  for (const Paire& p : paires) {
    for (std::size_t i = 0; i < p.avant.size(); ++i) {
      z0 += image(p.avant[i]);
      w0 += EnPlan(p.apres[i]);
      nombre += 1;
    }
  }
  z0 /= nombre;
  w0 /= nombre;
  Plan croise;
  double carre = 0;
  for (const Paire& p : paires) {
    for (std::size_t i = 0; i < p.avant.size(); ++i) {
      croise += std::conj(image(p.avant[i]) - z0) * (EnPlan(p.apres[i]) - w0);
      carre += std::norm(image(p.avant[i]) - z0);
    }
  }
  if (!(carre > 0)) return std::nullopt;
  const Plan a = croise / carre;
  return Similitude{a, w0 - a * z0, miroir};
}

// Whether `f` leads from each point of before to that of after.
template <class F>
bool Mene(std::span<const Paire> paires, const F& f) {
  for (const Paire& p : paires) {
    for (std::size_t i = 0; i < p.avant.size(); ++i) {
      const Plan z = EnPlan(p.avant[i]);
      const Plan w = EnPlan(p.apres[i]);
      if (!(std::abs(f(z) - w) <= EcartMax + EcartRelatif * (std::abs(z) + std::abs(w)))) return false;
    }
  }
  return true;
}

// One ratio for X and one for Y, each fitted by itself: the stretch w = a z + b of least squares.
bool EstTaille(std::span<const Paire> paires) {
  struct Axe {
    double z = 0, w = 0, croise = 0, carre = 0, nombre = 0;
    void Compte(double de, double vers) { z += de, w += vers, nombre += 1; }
    void Somme(double de, double vers) {
      croise += (de - z / nombre) * (vers - w / nombre);
      carre += (de - z / nombre) * (de - z / nombre);
    }
    [[nodiscard]] double Rapport() const { return carre > 0 ? croise / carre : 1; }
    [[nodiscard]] double Vers(double de) const { return w / nombre + Rapport() * (de - z / nombre); }
  };
  Axe x;
  Axe y;
  for (const auto& [avant, apres] : paires) {
    for (std::size_t i = 0; i < avant.size(); ++i) {
      x.Compte(avant[i].X, apres[i].X);
      y.Compte(avant[i].Y, apres[i].Y);
    }
  }
  for (const auto& [avant, apres] : paires) {
    for (std::size_t i = 0; i < avant.size(); ++i) {
      x.Somme(avant[i].X, apres[i].X);
      y.Somme(avant[i].Y, apres[i].Y);
    }
  }
  return Mene(paires, [&](Plan z) { return Plan{x.Vers(z.real()), y.Vers(z.imag())}; });
}

SorteChangement Transforme(std::span<const Paire> paires) {
  for (const Paire& p : paires) {
    if (p.avant.size() != p.apres.size()) return SorteChangement::Forme;
  }
  const Plan pas = EnPlan(paires.front().apres.front()) - EnPlan(paires.front().avant.front());
  if (Mene(paires, [pas](Plan z) { return z + pas; })) return SorteChangement::Deplacement;
  constexpr double Egal = 1e-4;
  for (const bool miroir : {false, true}) {
    const auto s = Ajuste(paires, miroir);
    if (!s || std::fabs(std::abs(s->a) - 1) > Egal) continue;
    const auto f = [&s](Plan z) { return s->a * (s->miroir ? std::conj(z) : z) + s->b; };
    if (Mene(paires, f)) return miroir ? SorteChangement::Miroir : SorteChangement::Rotation;
  }
  return EstTaille(paires) ? SorteChangement::Taille : SorteChangement::Forme;
}

std::ptrdiff_t Attaches(Run run) { return std::ranges::count(run, CodePC, &PointTrace::Cde); }

// Same places, another start; or the same but for the middles of notches; or a transform.
SorteChangement Nature(std::span<const Paire> paires) {
  bool memes = true;       // all places
  bool memeNombre = true;  // number of the middles of notches
  bool reste = true;       // all other places
  for (const Paire& p : paires) {
    memes = memes && MemesPlaces(p, true);
    memeNombre = memeNombre && Attaches(p.avant) == Attaches(p.apres);
    reste = reste && MemesPlaces(p, false);
    if (!memes && !reste) return Transforme(paires);
  }
  return memes && memeNombre ? SorteChangement::Depart : SorteChangement::Attache;
}

// --- the three parts of a state ----------------------------------------------------------------------------------

std::optional<Changement> DesPoints(const EtatCompare& avant, const EtatCompare& apres) {
  const auto de = ParCode(avant.points);
  const auto vers = ParCode(apres.points);
  std::int32_t neuves = 0;
  std::int32_t parties = 0;
  std::vector<Paire> changees;
  for (const auto& [code, run] : vers) {
    const auto place = de.find(code);
    if (place == de.end()) {
      ++neuves;
    } else if (!std::ranges::equal(place->second, run)) {
      changees.push_back({place->second, run});
    }
  }
  for (const auto& [code, run] : de) parties += vers.contains(code) ? 0 : 1;
  if (neuves > 0 && parties == 0) return Changement{SorteChangement::Ajout, neuves};
  if (parties > 0 && neuves == 0) return Changement{SorteChangement::Suppression, parties};
  if (neuves > 0) return Changement{SorteChangement::Forme, neuves};
  if (!changees.empty()) return Changement{Nature(changees), base::Compte(changees.size())};
  if (!std::ranges::equal(avant.points, apres.points)) return Changement{SorteChangement::Ordre, 0};
  return std::nullopt;
}

// What the records and what stands beside them say otherwise of paths that are in both states.
std::optional<Changement> DesFiches(const EtatCompare& avant, const EtatCompare& apres) {
  static const TableComplements neutre;
  const TableComplements& complementsDe = avant.complements != nullptr ? *avant.complements : neutre;
  const TableComplements& complementsVers = apres.complements != nullptr ? *apres.complements : neutre;
  const bool memesComplements = complementsDe == complementsVers;
  std::unordered_map<std::uint32_t, const SequenceInfo*> de;
  for (const SequenceInfo& f : avant.fiches) de.try_emplace(f.Code.Cle(), &f);
  std::set<SorteChangement> sortes;
  std::int32_t nombre = 0;
  for (const SequenceInfo& f : apres.fiches) {
    const auto place = de.find(f.Code.Cle());
    if (place == de.end()) continue;
    const SequenceInfo& g = *place->second;
    bool differe = false;
    const auto compare = [&](bool autre, SorteChangement sorte) {
      if (autre) sortes.insert(sorte);
      differe = differe || autre;
    };
    compare(f.Decalage != g.Decalage, SorteChangement::Cote);
    compare(f.Poche != g.Poche, SorteChangement::Poche);
    compare(f.Profondeur != g.Profondeur, SorteChangement::Profondeur);
    compare(f.Fraiser != g.Fraiser, SorteChangement::Fraiser);
    if (!memesComplements) {
      const Complement& a = complementsDe.De(f.Code);
      const Complement& b = complementsVers.De(f.Code);
      compare(a.Ilot != b.Ilot, SorteChangement::Ilot);
      compare(a.Calque != b.Calque || a.Couleur != b.Couleur, SorteChangement::Calque);
    }
    nombre += differe ? 1 : 0;
  }
  if (sortes.empty()) return std::nullopt;
  return Changement{sortes.size() == 1 ? *sortes.begin() : SorteChangement::Proprietes, nombre};
}

// The lines of settings that stand in one state alone.
std::vector<std::string_view> Lignes(std::string_view texte) {
  std::vector<std::string_view> lignes;
  for (std::size_t debut = 0; debut < texte.size();) {
    const std::size_t fin = std::min(texte.find('\n', debut), texte.size());
    lignes.push_back(texte.substr(debut, fin - debut));
    debut = fin + 1;
  }
  std::sort(lignes.begin(), lignes.end());
  return lignes;
}

SorteChangement SorteDuReglage(std::string_view ligne) {
  ligne.remove_prefix(std::min(ligne.find_first_not_of('$'), ligne.size()));
  const std::string_view cle = ligne.substr(0, ligne.find('='));
  for (const char* outil : {cles::RayonFraise, cles::DecalageOutil, cles::LargeurEncoche}) {
    if (cle == outil) return SorteChangement::Outil;
  }
  for (const char* materiau : {cles::Vitesse_Mat_H, cles::Vitesse_Mat_V, cles::HautDeg, cles::ProfFraisage,
                               cles::ProfPasse, cles::MiniEncoche, cles::AngleRampe}) {
    if (cle == materiau) return SorteChangement::Materiau;
  }
  return SorteChangement::Reglage;
}

// A material brings its tool with it.
std::optional<Changement> DesReglages(std::string_view avant, std::string_view apres) {
  if (avant == apres) return std::nullopt;
  const auto de = Lignes(avant);
  const auto vers = Lignes(apres);
  std::vector<std::string_view> autres;
  std::ranges::set_symmetric_difference(de, vers, std::back_inserter(autres));
  SorteChangement sorte = SorteChangement::Reglage;
  for (const std::string_view ligne : autres) {
    const SorteChangement s = SorteDuReglage(ligne);
    if (s == SorteChangement::Materiau) return Changement{s, 0};
    if (s == SorteChangement::Outil) sorte = s;
  }
  return Changement{sorte, 0};
}

struct Mots {
  SorteChangement sorte;
  CleTexte texte;
};
constexpr std::array MotsDesPas{
    Mots{SorteChangement::Affichage, Textes::PasVue},
    Mots{SorteChangement::Selection, Textes::PasSelection},
    Mots{SorteChangement::Ouverture, Textes::PasOuverture},
    Mots{SorteChangement::Ajout, Textes::PasAjout},
    Mots{SorteChangement::Suppression, Textes::PasSuppression},
    Mots{SorteChangement::Deplacement, Textes::PasDeplacement},
    Mots{SorteChangement::Rotation, Textes::PasRotation},
    Mots{SorteChangement::Miroir, Textes::PasMiroir},
    Mots{SorteChangement::Taille, Textes::PasTaille},
    Mots{SorteChangement::Depart, Textes::PasDepart},
    Mots{SorteChangement::Attache, Textes::PasAttache},
    Mots{SorteChangement::Forme, Textes::PasForme},
    Mots{SorteChangement::Ordre, Textes::PasOrdre},
    Mots{SorteChangement::Cote, Textes::PasCote},
    Mots{SorteChangement::Poche, Textes::PasPoche},
    Mots{SorteChangement::Profondeur, Textes::PasProfondeur},
    Mots{SorteChangement::Fraiser, Textes::PasFraiser},
    Mots{SorteChangement::Ilot, Textes::PasIlot},
    Mots{SorteChangement::Calque, Textes::PasCalque},
    Mots{SorteChangement::Proprietes, Textes::PasProprietes},
    Mots{SorteChangement::Materiau, Textes::PasMateriau},
    Mots{SorteChangement::Outil, Textes::PasOutil},
    Mots{SorteChangement::Reglage, Textes::PasReglage},
};

}  // namespace

Changement ChangementEntre(const EtatCompare& avant, const EtatCompare& apres) {
  const auto points = DesPoints(avant, apres);
  const auto fiches = DesFiches(avant, apres);
  const bool tourne = points && points->sorte == SorteChangement::Depart && fiches;
  if (points && !tourne) return *points;
  if (fiches) return *fiches;
  return DesReglages(avant.reglages, apres.reglages).value_or(Changement{SorteChangement::Affichage, 0});
}

std::string TexteChangement(const Changement& changement) {
  std::string texte;
  for (const Mots& m : MotsDesPas) {
    if (m.sorte == changement.sorte) texte = Traduire(m.texte);
  }
  if (changement.sequences == 0) return texte;
  const CleTexte mot = changement.sequences == 1 ? Textes::PasSequence : Textes::PasSequences;
  return texte + ", " + std::to_string(changement.sequences) + " " + Traduire(mot);
}

}  // namespace ovelin
