#include "closed/pathwerk/assemblage/Mesures.h"

#include <bit>

#include "base/Equipe.h"

namespace pathwerk::assemblage {

namespace {

std::uint64_t Brasse(std::uint64_t v) {  // finaliser of splitmix64
  v ^= v >> 30;
  v *= 0xbf58476d1ce4e5b9ULL;
  v ^= v >> 27;
  v *= 0x94d049bb133111ebULL;
  return v ^ (v >> 31);
}

std::uint64_t Empreinte(PointF p) {
  return Brasse((std::uint64_t{std::bit_cast<std::uint32_t>(p.x)} << 32 | std::bit_cast<std::uint32_t>(p.y)) +
                0x9e3779b97f4a7c15ULL);
}

// The same for a path walked either way and from any start: a sum over its edges, each symmetrical in its ends.
std::uint64_t Empreinte(std::span<const PointF> points, Nature nature) {
  std::uint64_t somme = Brasse(points.size() * 4 + static_cast<std::uint64_t>(nature));
  std::uint64_t avant = Empreinte(points[0]);
  for (std::size_t i = 1; i < points.size(); ++i) {
    const std::uint64_t ici = Empreinte(points[i]);
    somme += Brasse((avant + ici) ^ Brasse(avant ^ ici));
    avant = ici;
  }
  return somme;
}

double DoubleAire(std::span<const PointF> contour) {
  // Relative to the first point, so that a small contour far from the origin keeps its digits.
  double somme = 0;
  const double ox = contour[0].x;
  const double oy = contour[0].y;
  for (std::size_t i = 1; i < contour.size(); ++i) {
    somme += ((contour[i - 1].x) - ox) * (contour[i].y - oy) - (contour[i].x - ox) * ((contour[i - 1].y) - oy);
  }
  return somme;
}

}  // namespace

void MesureChemin(CheminAssemble& chemin, std::span<const PointF> points) {
  auto boite = base::Boite<float>::De(points[0].x, points[0].y);
  for (const PointF p : points) boite.Etend(p.x, p.y);
  chemin.boite = boite;
  chemin.empreinte = Empreinte(points, chemin.nature);
  chemin.doubleAire = chemin.nature == Nature::Ferme ? DoubleAire(points) : 0;
}

void MesureChemins(CheminsAssembles& assembles, unsigned fils) {
  base::FaitParLots(fils, assembles.chemins.size(), [&](std::size_t debut, std::size_t fin) {
    for (std::size_t i = debut; i < fin; ++i) MesureChemin(assembles.chemins[i], assembles.De(i));
  });
}

}  // namespace pathwerk::assemblage
