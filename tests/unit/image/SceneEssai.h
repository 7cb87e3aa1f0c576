// Scenes of small drawings. At this scale a millimetre is a pixel of 15 twips, and the drawing's origin stands in
// the lower left corner: (x, y) mm is shown at (15 x, 1500 - 15 y).
#pragma once

#include <algorithm>
#include <initializer_list>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "core/DocumentCourant.h"
#include "image/SceneDocument.h"
#include "image/Vue.h"

namespace essai {

using namespace ovelin;

using Points = std::vector<PointEcran>;

inline constexpr TailleImage Image{3000, 1500};
inline constexpr EtatVue Face{15, 0, 0, 0, 0};

inline MesureTexte Police() {
  return [](const std::string& t) { return TailleTexte{100.0F * static_cast<float>(t.size()), 160}; };
}

inline OptionsScene Options() {
  OptionsScene o;
  o.legendeDessin = "dessin";
  o.legendeDecalage = "trajet";
  o.mesureTexte = Police();
  return o;
}

inline Scene Construit(const OptionsScene& o = Options()) {
  Scene scene;
  ConstruitScene(Doc, Face, Image, o, scene);
  return scene;
}

inline std::vector<Primitive> De(const Scene& scene, std::initializer_list<Role> roles) {
  std::vector<Primitive> p;
  std::copy_if(scene.Primitives.begin(), scene.Primitives.end(), std::back_inserter(p),
               [&](const Primitive& q) { return std::find(roles.begin(), roles.end(), q.role) != roles.end(); });
  return p;
}
inline std::vector<Primitive> De(const Scene& scene, Role role) { return De(scene, {role}); }

inline constexpr std::initializer_list<Role> DuDessin{Role::Dessin, Role::Selection};
inline constexpr std::initializer_list<Role> DeLOutil{Role::Air, Role::Trajet, Role::TrajetNu, Role::Encoche};
inline constexpr std::initializer_list<Role> DesNumeros{Role::Numero, Role::NumeroSelection};
inline constexpr std::initializer_list<Role> DeLaLegende{Role::LegendeDessin, Role::LegendeTrajet};

inline Points PointsDe(const Scene& scene, const Primitive& p) {
  const auto vue = scene.PointsDe(p);
  return {vue.begin(), vue.end()};
}

inline void AjouteTrace(const std::string& code, std::vector<PointTrace> points) {
  TraceDecale.push_back({Code2(code), std::move(points)});
}

inline PointTrace P(float x, float y, Code2 cde = CodePD) { return {x, y, cde, {}}; }

inline void Deselectionne() {
  for (SequenceInfo& s : Sequences) s.Selection = Faux;
}

}  // namespace essai
