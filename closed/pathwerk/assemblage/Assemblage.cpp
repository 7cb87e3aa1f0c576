// From the paths of a format to the points of a drawing.
#include "closed/pathwerk/assemblage/Assemblage.h"

#include <algorithm>
#include <cmath>
#include <new>
#include <string>
#include <utility>

#include "base/Equipe.h"
#include "base/Indices.h"
#include "closed/pathwerk/assemblage/CheminsAssembles.h"
#include "closed/pathwerk/assemblage/Doublons.h"
#include "closed/pathwerk/assemblage/Jumeaux.h"
#include "closed/pathwerk/assemblage/Niveaux.h"
#include "closed/pathwerk/assemblage/Soudure.h"
#include "closed/pathwerk/lecture/Lignes.h"

namespace pathwerk::assemblage {

namespace {

using lecture::EnTexte;
using lecture::Lecture;
using lecture::Trait;

constexpr double CoordonneeMax = 1e7;   // mm
constexpr double EcartDoublons = 0.01;  // mm: what lies nearer over its whole length was drawn twice
constexpr std::string_view Doublon = "DUPLICATE";
constexpr std::string_view Nul = "ZERO_LENGTH";

bool EstLisible(Vec2 p) { return std::fabs(p.x) <= CoordonneeMax && std::fabs(p.y) <= CoordonneeMax; }

// Adding zero turns a negative zero into a positive one, so that equal places have equal bits.
PointF EnFloat(Vec2 p) { return {static_cast<float>(p.x) + 0.0F, static_cast<float>(p.y) + 0.0F}; }

std::int32_t Refus(Lecture& lecture, Erreur numero, std::string_view detail) {
  lecture.Refuse(numero, lecture.rapport.Ligne, detail);
  return Numero(numero);
}

bool VerifieCoordonnees(Lecture& lecture) {
  for (const Trait& t : lecture.traits) {
    for (const Vec2 p : t.points) {
      if (EstLisible(p)) continue;
      lecture.rapport.Ligne = long{t.ligne};
      Refus(lecture, Erreur::Coordonnee, EnTexte(p.x) + " " + EnTexte(p.y) + " mm");
      return false;
    }
  }
  return true;
}

void Emet(std::vector<PointTrace>& points, float x, float y, std::size_t rang) {
  points.push_back({x, y, CodePD, CodeDeRang(rang)});
}

bool TropDeChemins(Lecture& lecture, std::size_t nombre) {
  if (nombre <= NbCodes()) return false;
  Refus(lecture, Erreur::TropDeSequences, std::to_string(nombre) + " > " + std::to_string(NbCodes()));
  return true;
}

// Own files: as they stand, bit for bit.
std::int32_t EmetTelQuel(Lecture& lecture, std::vector<PointTrace>& points, std::vector<std::uint16_t>& calques) {
  std::size_t rang = 0;
  for (const Trait& t : lecture.traits) rang += t.points.empty() ? 0U : 1U;
  if (TropDeChemins(lecture, rang)) return Numero(lecture.rapport.Numero);
  rang = 0;
  for (const Trait& t : lecture.traits) {
    if (t.points.empty()) continue;
    calques.push_back(t.calque);
    const std::size_t debut = points.size();
    for (const Vec2 p : t.points) Emet(points, static_cast<float>(p.x), static_cast<float>(p.y), rang);
    const bool boucle = points.size() > debut + 1 && MemePlace(points[debut], points.back());
    if (t.nature != Nature::Ouvert && !boucle) Emet(points, points[debut].X, points[debut].Y, rang);
    ++rang;
  }
  return base::Compte(points.size());
}

// Appends one path to the assembles: rounded to floats, neighbours of one place made one, the closing point in its
// place. False for a path that has no length left.
bool AjouteChemin(const Trait& t, double tolerance, CheminsAssembles& assembles) {
  const std::size_t debut = assembles.points.size();
  if (t.nature == Nature::Percage) {
    assembles.points.insert(assembles.points.end(), 2, EnFloat(t.points[0]));
    assembles.chemins.push_back({debut, 2, Nature::Percage, t.calque});
    return true;
  }
  for (const Vec2 v : t.points) {
    const PointF p = EnFloat(v);
    if (assembles.points.size() == debut || assembles.points.back() != p) assembles.points.push_back(p);
  }
  if (assembles.points.size() - debut < 2) {
    assembles.points.resize(debut);
    return false;
  }
  Nature nature = Nature::Ouvert;
  if (t.nature == Nature::Ferme) {
    nature = Nature::Ferme;
    const Vec2 a = t.points.front();
    const Vec2 b = t.points.back();
    // A closing point that was given, but not to the last digit, is moved; otherwise it is added.
    if (assembles.points.size() - debut > 3 && std::hypot(a.x - b.x, a.y - b.y) <= tolerance) {
      assembles.points.back() = assembles.points[debut];
      while (assembles.points.back() == assembles.points[assembles.points.size() - 2]) assembles.points.pop_back();
    }
    if (assembles.points.back() != assembles.points[debut]) {
      const PointF premier = assembles.points[debut];
      assembles.points.push_back(premier);
    }
  } else if (assembles.points.back() == assembles.points[debut]) {
    nature = Nature::Ferme;
  }
  assembles.chemins.push_back({debut, assembles.points.size() - debut, nature, t.calque});
  return true;
}

// Paths without marks that were dropped; `bouts` keeps in step.
void Retire(CheminsAssembles& assembles, const std::vector<char>& garde, std::vector<Bouts>* bouts) {
  std::size_t k = 0;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (garde[i] == 0) continue;
    assembles.chemins[k] = assembles.chemins[i];
    if (bouts != nullptr) (*bouts)[k] = (*bouts)[i];
    ++k;
  }
  assembles.chemins.resize(k);
  if (bouts != nullptr) bouts->resize(k);
}

// Small drawings are put together before a thread has begun.
unsigned Fils(const CheminsAssembles& assembles, const OptionsLecture& options) {
  constexpr std::size_t SeuilFils = 20'000;  // points
  return assembles.points.size() < SeuilFils ? 1 : options.Fils;
}

void RetireDoublons(Lecture& lecture, CheminsAssembles& assembles, double ecart, std::vector<Bouts>* bouts,
                    unsigned fils) {
  std::vector<char> garde;
  long doublons = MarqueDoublons(assembles, garde, fils);
  doublons += MarqueJumeaux(assembles, ecart, garde);
  if (doublons == 0) return;
  lecture.Ignore(Doublon, doublons);
  Retire(assembles, garde, bouts);
}

void RetireNuls(Lecture& lecture, CheminsAssembles& assembles) {
  std::vector<char> garde(assembles.chemins.size(), 1);
  long nuls = 0;
  for (std::size_t i = 0; i < assembles.chemins.size(); ++i) {
    if (assembles.chemins[i].nb > 1) continue;
    garde[i] = 0;
    ++nuls;
  }
  if (nuls == 0) return;
  lecture.Ignore(Nul, nuls);
  Retire(assembles, garde, nullptr);
}

CheminsAssembles FaitChemins(Lecture& lecture, const OptionsLecture& options) {
  CheminsAssembles assembles;
  std::vector<Bouts> bouts;
  long nuls = 0;
  const double tolerance = lecture.souder ? options.ToleranceSoudure : 0;
  std::size_t points = 0;
  for (const Trait& t : lecture.traits) points += t.points.size() + 1;
  assembles.points.reserve(points);
  assembles.chemins.reserve(lecture.traits.size());
  bouts.reserve(lecture.traits.size());
  for (Trait& t : lecture.traits) {
    if (t.points.empty()) continue;
    if (AjouteChemin(t, tolerance, assembles)) {
      bouts.push_back({t.points.front(), t.points.back()});
    } else {
      ++nuls;
    }
    std::vector<Vec2>().swap(t.points);  // the drawing is not held twice
  }
  std::vector<Trait>().swap(lecture.traits);
  if (nuls > 0) lecture.Ignore(Nul, nuls);
  const double ecart = lecture.mesure ? std::min(options.ToleranceSoudure, EcartDoublons) : 0;
  const unsigned fils = Fils(assembles, options);
  RetireDoublons(lecture, assembles, ecart, &bouts, fils);
  if (lecture.souder) {
    assembles = Soude(assembles, bouts, tolerance);
    RetireNuls(lecture, assembles);
    RetireDoublons(lecture, assembles, ecart, nullptr, fils);
  }
  return assembles;
}

// Depth of each path in the forest of contours; the outermost are at 0.
std::vector<std::size_t> Profondeurs(std::span<const std::size_t> parents) {
  constexpr std::size_t Inconnue = base::Nulle;
  std::vector<std::size_t> profondeur(parents.size(), Inconnue);
  std::vector<std::size_t> montee;
  for (std::size_t i = 0; i < parents.size(); ++i) {
    std::size_t k = i;
    while (k != SansParent && profondeur[k] == Inconnue) {
      montee.push_back(k);
      k = parents[k];
    }
    std::size_t p = k == SansParent ? 0 : profondeur[k] + 1;
    for (; !montee.empty(); montee.pop_back()) profondeur[montee.back()] = p++;
  }
  return profondeur;
}

// Whether a contour at that depth runs the other way round.
bool Retourne(std::span<const PointF> chemin, Nature nature, std::size_t profondeur) {
  if (nature != Nature::Ferme) return false;
  const double aire = DoubleAire(chemin);
  const bool voulue = profondeur % 2 == 1;  // counter-clockwise
  return aire != 0 && (aire > 0) != voulue;
}

std::int32_t EmetAssemble(Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points,
                          std::vector<std::uint16_t>& calques) {
  const CheminsAssembles assembles = FaitChemins(lecture, options);
  if (TropDeChemins(lecture, assembles.chemins.size())) return Numero(lecture.rapport.Numero);
  const double marge = options.ToleranceSoudure > 0 ? options.ToleranceSoudure : 0;
  const std::vector<std::size_t> parents = Parents(assembles, marge);
  const std::vector<std::size_t> profondeur = Profondeurs(parents);
  const std::vector<std::size_t> ordre = OrdreDeCoupe(parents);
  std::vector<std::size_t> debuts;  // by their places in the order
  std::size_t nombre = 0;
  for (const std::size_t i : ordre) {
    debuts.push_back(nombre);
    nombre += assembles.chemins[i].nb;
    calques.push_back(assembles.chemins[i].calque);
  }
  points.resize(nombre);
  base::FaitParLots(Fils(assembles, options), ordre.size(), [&](std::size_t debut, std::size_t fin) {
    for (std::size_t rang = debut; rang < fin; ++rang) {
      const std::size_t i = ordre[rang];
      const std::span<const PointF> chemin = assembles.De(i);
      const bool retourne = Retourne(chemin, assembles.chemins[i].nature, profondeur[i]);
      const Code2 code = CodeDeRang(rang);
      for (std::size_t k = 0; k < chemin.size(); ++k) {
        const PointF p = chemin[retourne ? chemin.size() - 1 - k : k];
        points[debuts[rang] + k] = {p.x, p.y, CodePD, code};
      }
    }
  });
  return base::Compte(points.size());
}

}  // namespace

std::int32_t Assemble(Lecture& lecture, const OptionsLecture& options, std::vector<PointTrace>& points,
                      std::vector<std::uint16_t>* calques) {
  points.clear();
  if (calques != nullptr) calques->clear();
  if (lecture.Refuse()) return Numero(lecture.rapport.Numero);
  try {
    if (!VerifieCoordonnees(lecture)) return Numero(lecture.rapport.Numero);
    std::vector<std::uint16_t> places;
    const std::int32_t n =
        lecture.ordreImpose ? EmetTelQuel(lecture, points, places) : EmetAssemble(lecture, options, points, places);
    if (n < 0) points.clear();
    if (n >= 0 && calques != nullptr) *calques = std::move(places);
    return n;
  } catch (const std::bad_alloc&) {
    std::vector<PointTrace>().swap(points);
    return Refus(lecture, Erreur::Memoire, "");
  }
}

}  // namespace pathwerk::assemblage
