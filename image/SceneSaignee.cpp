#include "image/SceneSaignee.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>
#include <unordered_set>

#include "base/Indices.h"
#include "core/Nombres.h"
#include "image/Hachures.h"
#include "image/Traceur.h"

namespace ovelin {

namespace {

constexpr float PixelsAuMoins = 1.5F;       // of a band: a narrower one lies under its line
constexpr float PartDeLargeur = 1 / 16.0F;  // of a band's width: what it may be off
constexpr int Degres = 8;                   // of depth that can be told apart
constexpr float ForcePont = 0.3F;           // of the opacity, where a bridge is passed at the depth of the job
constexpr float ForceMin = 0.45F;           // of the opacity, just below the surface
constexpr float PontLisible = 36 * TwipsParPixel;  // width of a bridge that has room for its height
constexpr float PasHachures = 7 * TwipsParPixel;

using Fiches = std::unordered_map<std::uint32_t, const SequenceInfo*>;

Fiches FichesDe(const Document& document) {
  Fiches fiches;
  fiches.reserve(document.Sequences.size());
  for (const SequenceInfo& s : document.Sequences) fiches.try_emplace(s.Code.Cle(), &s);
  return fiches;
}

// The record of a path that is milled, or null.
const SequenceInfo* Fraisee(const Fiches& fiches, Code2 code) {
  const auto it = fiches.find(code.Cle());
  return it != fiches.end() && it->second->Fraiser != Faux && it->second->Profondeur < 0 ? it->second : nullptr;
}

// A stretch that is cut at one depth.
struct Troncon {
  const PointTrace* debut;
  const PointTrace* fin;
  int degre;  // 1, shallow, to Degres
  bool poche;
  bool pont;  // over a bridge
};

class Saignees {
 public:
  Saignees(const Document& document, const OptionsScene& options) : options_(options), fiches_(FichesDe(document)) {
    for (const SequenceDecalee& trace : document.TraceDecale) {
      if (const SequenceInfo* fiche = Fraisee(fiches_, trace.Seq)) fond_ = std::min(fond_, fiche->Profondeur);
    }
    for (const SequenceDecalee& trace : document.TraceDecale) {
      const SequenceInfo* fiche = Fraisee(fiches_, trace.Seq);
      if (fiche != nullptr && !trace.Points.empty()) Decoupe(trace.Points, *fiche);
    }
    // What is cut deeper hides what is not so deep.
    std::stable_sort(troncons_.begin(), troncons_.end(), [](const Troncon& a, const Troncon& b) {
      return a.pont != b.pont ? a.pont : a.degre < b.degre;
    });
  }

  void Dessine(const EtatVue& vue, const TailleImage& taille, Scene& scene) const {
    const float largeur = EnFloat(2 * options_.outil.rayon * vue.Zoom);
    if (!(largeur >= PixelsAuMoins * options_.pixel)) return;
    Traceur traceur(scene, vue, taille, std::max(options_.pixel, largeur * PartDeLargeur), largeur / 2);
    for (const Troncon& p : troncons_) {
      const auto sorte = static_cast<unsigned>(p.degre - 1 + (p.poche ? Degres : 0));
      const float profond = static_cast<float>(p.degre) / Degres;
      const float part = p.pont ? ForcePont * profond : ForceMin + (1 - ForceMin) * profond;
      traceur.Commence(p.poche ? Role::Poche : Role::Saignee, sorte, largeur,
                       static_cast<std::uint8_t>(255 * part));
      traceur.Suit(p.debut, p.fin);
      traceur.Finit();
    }
    if (EnFloat(options_.outil.largeurEncoche * vue.Zoom) < PontLisible) return;
    const std::string hauteur = Formate(options_.outil.miniEncoche, "0.0#") + " mm";
    for (const PointTrace* pont : ponts_) {
      const PointEcran place = traceur.Place(pont->X, pont->Y);
      if (traceur.Visible(place, 0)) scene.AjouteTexte(Role::Encoche, place, Ancre::Centre, hauteur);
    }
  }

 private:
  [[nodiscard]] int Degre(double profondeur) const {
    return std::clamp(static_cast<int>(std::ceil(profondeur / fond_ * Degres)), 1, Degres);
  }

  // Stretches of one trace. "PE" begins a notch, in which "PE" and "PC" go on; its end is the first other point. A
  // bare "PC" changes nothing, and behind a "PU" the blade is out of the material.
  void Decoupe(const std::vector<PointTrace>& points, const SequenceInfo& fiche) {
    enum class Lieu { Coupe, Encoche, Air };
    const auto lieuDe = [](Code2 cde, Lieu avant) {
      if (cde == CodePU) return Lieu::Air;
      if (cde == CodePE) return Lieu::Encoche;
      return cde == CodePC && avant == Lieu::Encoche ? Lieu::Encoche : Lieu::Coupe;
    };
    const double pont = fiche.Profondeur + options_.outil.miniEncoche;
    const bool releve = options_.outil.miniEncoche > 0;
    const bool poche = fiche.Poche != Faux;
    const PointTrace* const fin = points.data() + points.size();
    const PointTrace* debut = points.data();
    Lieu lieu = lieuDe(debut->Cde, Lieu::Coupe);
    const auto ajoute = [&](const PointTrace* jusque) {
      const bool encoche = releve && lieu == Lieu::Encoche;
      const double profondeur = encoche ? pont : fiche.Profondeur;
      if (lieu != Lieu::Air && profondeur < 0)
        troncons_.push_back({debut, jusque, Degre(profondeur), poche, encoche});
    };
    for (const PointTrace* p = debut + 1; p != fin; ++p) {
      if (releve && p->Cde == CodePC && lieu == Lieu::Encoche) ponts_.push_back(p);
      const Lieu suite = lieuDe(p->Cde, lieu);
      if (suite == lieu || (!releve && suite != Lieu::Air && lieu != Lieu::Air)) {
        continue;
      }
      ajoute(p + 1);
      debut = p;
      lieu = suite;
    }
    if (debut + 1 != fin || points.size() == 1) ajoute(fin);
  }

  const OptionsScene& options_;
  Fiches fiches_;
  double fond_ = 0;  // deepest cut of the job, mm
  std::vector<Troncon> troncons_;
  std::vector<const PointTrace*> ponts_;  // middles of bridges
};

}  // namespace

void AjouteSaignees(const Document& document, const EtatVue& vue, const TailleImage& taille,
                    const OptionsScene& options, Scene& scene) {
  if (!(options.outil.rayon > 0)) return;
  Saignees(document, options).Dessine(vue, taille, scene);
}

void AjouteTropEtroits(const Document& document, const EtatVue& vue, const TailleImage& taille,
                       const OptionsScene& options, Scene& scene) {
  const Fiches fiches = FichesDe(document);
  std::unordered_set<std::uint32_t> sans;
  for (const SequenceDecalee& trace : document.TraceDecale) {
    const bool manque = trace.Points.empty() && !document.Complements.De(trace.Seq).Ilot;  // an island wants none
    if (manque && Fraisee(fiches, trace.Seq) != nullptr) sans.insert(trace.Seq.Cle());
  }
  for (const SequenceDecalee& trace : document.TraceDecale) {
    if (!trace.Points.empty()) sans.erase(trace.Seq.Cle());
  }
  if (sans.empty()) return;
  Traceur traceur(scene, vue, taille, options.pixel);
  const auto& points = document.TraceInitial;
  std::vector<PointEcran> bord;
  for (std::size_t i = 0; i < points.size();) {
    std::size_t fin = i + 1;
    while (fin < points.size() && points[fin].Seq == points[i].Seq) ++fin;
    if (sans.contains(points[i].Seq.Cle())) {
      traceur.Commence(Role::TropEtroit, 0);
      traceur.Suit(points.data() + i, points.data() + fin);
      traceur.Finit();
      bord.clear();
      for (std::size_t j = i; j < fin; ++j) bord.push_back(traceur.Place(points[j].X, points[j].Y));
      const std::vector<PointEcran> traits = Hachures(bord, taille, PasHachures);
      for (std::size_t j = 0; j + 1 < traits.size(); j += 2) {
        scene.AjouteSegment(Role::TropEtroit, traits[j], traits[j + 1]);
      }
    }
    i = fin;
  }
}

}  // namespace ovelin
