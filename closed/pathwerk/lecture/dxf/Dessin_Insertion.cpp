// Insertion of blocks.
#include <algorithm>
#include <cmath>
#include <numbers>

#include "closed/pathwerk/lecture/dxf/Dessin.h"

namespace pathwerk::lecture::dxf {

namespace {

constexpr int ProfondeurMax = 200;
constexpr std::size_t RelectureInsertion = 64;  // an insertion of nothing costs this much

Affine Translation(Vec3 v) {
  Affine a;
  a.o = v;
  return a;
}

Affine Rotation(double angle) {
  Affine a;
  // Quarter turns without the remainder that pi leaves.
  const double quarts = angle / (std::numbers::pi / 2);
  double c = std::cos(angle);
  double s = std::sin(angle);
  if (quarts == std::floor(quarts) && std::fabs(quarts) < 1e6) {
    c = std::round(c);
    s = std::round(s);
  }
  a.ex = {c, s, 0};
  a.ey = {-s, c, 0};
  return a;
}

}  // namespace

// point = place + turn (scale (p - base)), and for the cell (row, column) of an array the place is shifted by the
// turned spacings, which are not scaled. All in the frame of the insertion's extrusion.
bool Dessinateur::Insertion(const Cadre& cadre) {
  const std::string_view nom = e_.nom;
  const auto b = sommaire_.blocs.find(e_.bloc);
  const double ex = e_.Reel(41, 1);
  const double ey = e_.Reel(42, 1);
  const double ez = e_.Reel(43, 1);
  if (b == sommaire_.blocs.end() || ex == 0 || ey == 0) {
    Ignore(nom);
    return true;
  }
  const long ligne = e_.ligne;
  const Bloc& bloc = b->second;
  if (std::ranges::find(ouverts_, &bloc) != ouverts_.end()) return Refuse(Erreur::BlocCyclique, ligne, b->first);
  if (cadre.profondeur >= ProfondeurMax) return Memoire(ligne);

  Affine echelle;
  echelle.ex.x = ex;
  echelle.ey.y = ey;
  echelle.ez.z = ez == 0 ? 1 : ez;
  const Affine rotation = Rotation(e_.Reel(50, 0) * (std::numbers::pi / 180));
  const Affine repere = cadre.m * RepereObjet(e_.extrusion) * Translation(e_.p[0]) * rotation;
  const Affine contenu = echelle * Translation(bloc.base * -1);
  const int colonnes = std::max(e_.Entier(70), 1);
  const int lignes = std::max(e_.Entier(71), 1);
  const double pasX = e_.Reel(44, 0);
  const double pasY = e_.Reel(45, 0);
  Cadre dedans{{}, e_.calque, couleur_, cadre.profondeur + 1};

  ouverts_.push_back(&bloc);
  bool suite = true;
  for (int l = 0; l < lignes && suite; ++l) {
    for (int c = 0; c < colonnes && suite; ++c) {
      if (!relecture_.Prend(bloc.taille + RelectureInsertion)) return Refuse(Erreur::Memoire, ligne, nom);
      dedans.m = repere * Translation({c * pasX, l * pasY, 0}) * contenu;
      lecteur_.Va(bloc.debut);
      suite = Suite(dedans);
    }
  }
  ouverts_.pop_back();
  return suite;
}

}  // namespace pathwerk::lecture::dxf
